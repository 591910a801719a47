#include "core/MoLocation.h"
#include "ctl/ToolTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <utility>
#include <vector>

namespace zolva::test {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
using Json = nlohmann::ordered_json;

const std::string build = std::to_string(ZOLVA_BUILD);

std::string listed(const std::string& name, const std::string& path)
{
    return json("{'name':'" + name + "','bundle_id':'org." + name +
                "','source':'App','uninstall_name':'" + name + "-u','path':'" + path +
                "','size':'3MB'}");
}

TEST(AppsCommand, AsksTheToolWhereNoFileIsGiven)
{
    ToolTree tools("echo \"$@\" > \"$here/asked\"; cat \"$here/list\"");
    const std::string bundle = tools.tree().folder("Applications/Lumen.app");
    tools.tree().text("list", "[" + listed("Lumen", bundle) + "]");
    const Outcome asked = tools.run({"apps", "--json"});
    EXPECT_EQ(asked.code, 0);
    EXPECT_EQ(asked.err, "");
    EXPECT_EQ(asked.out, tools.run({"apps", "--json", "--apps", tools.tree().path("list")}).out);
    EXPECT_THAT(asked.out, StartsWith(json("{'apps':[{'name':'Lumen','bundleID':'org.Lumen'")));
    EXPECT_EQ(tools.written("asked"), "uninstall --list\n");
    EXPECT_THAT(tools.run({"apps"}).out, HasSubstr("  ~/Applications/Lumen.app\n"));
}

TEST(AppsCommand, ListsTheBundlesOfTheHomeThroughTheToolThatIsShipped)
{
    TempTree tree;
    tree.text("Applications/Lumen.app/Contents/Info.plist",
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>"
              "<key>CFBundleName</key><string>Lumen</string>"
              "<key>CFBundleIdentifier</key><string>org.lumen</string>"
              "<key>CFBundleShortVersionString</key><string>4.2</string></dict></plist>");
    const Outcome outcome = zolvactl(tree.root(), {"apps", "--json"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    Json own = Json::array();
    const Json whole = Json::parse(outcome.out);
    for (const Json& app : whole["apps"]) {
        if (app["path"].get<std::string>().starts_with(tree.root())) {
            own.push_back(app);
        }
    }
    ASSERT_EQ(own.size(), 1U) << outcome.out;
    EXPECT_EQ(own[0]["name"], "Lumen");
    EXPECT_EQ(own[0]["bundleID"], "org.lumen");
    EXPECT_EQ(own[0]["version"], "4.2");
    EXPECT_EQ(own[0]["path"], tree.path("Applications/Lumen.app"));
}

TEST(LeftoversCommand, AsksTheToolWhereNoFileIsGiven)
{
    ToolTree tools("cat \"$here/list\"");
    tools.tree().file("Library/Caches/org.Lumen/x", 90'000);
    tools.tree().text("list", "[" + listed("Lumen", "/Applications/Lumen-zolva-test.app") + "]");
    const Outcome outcome =
        tools.run({"leftovers", "--json", "--path", "/Applications/Lumen-zolva-test.app"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, HasSubstr(json("'p':'~/Library/Caches/org.Lumen'")));
    const Outcome missing = tools.run({"leftovers", "--path", "/Applications/Other.app"});
    EXPECT_EQ(missing.code, 1);
    EXPECT_EQ(missing.out, "");
    EXPECT_EQ(missing.err, "zolvactl: no application in the list of mo has the path "
                           "/Applications/Other.app\n");
}

TEST(AppsCommand, FailsWithWhatTheUserIsToldWhenTheToolDoes)
{
    const std::vector<std::pair<std::string, std::string>> tools = {
        {"echo '[]'; echo ' no \033[2Jrights ' >&2; exit 4", "no \xef\xbf\xbd[2Jrights\n"},
        {"exit 4", "mo exited with an error\n"},
        {"echo '[{}]'", "Couldn’t read mo output ("},
        {"kill -9 $$", "mo exited with an error\n"},
    };
    for (const auto& [script, message] : tools) {
        for (const std::vector<std::string>& words :
             {std::vector<std::string>{"apps", "--json"},
              std::vector<std::string>{"leftovers", "--path", "/x"}}) {
            const Outcome outcome = ToolTree(script).run(words);
            EXPECT_EQ(outcome.code, 1) << script;
            EXPECT_EQ(outcome.out, "") << script;
            EXPECT_THAT(outcome.err, StartsWith("zolvactl: " + message)) << script;
        }
    }
}

TEST(VersionCommand, GivesTheProgramsAndTheToolsVersion)
{
    ToolTree tools("exit 1");
    tools.tree().text("share/zolva/mole/VERSION", " 1.2.3\n");
    const Outcome outcome = tools.run({"version", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out,
              json("{'version':'" ZOLVA_VERSION "','build':" + build + ",'mo':{'path':'" +
                   tools.tool() + "','kind':'shipped','version':'1.2.3'}}\n"));
    EXPECT_EQ(tools.run({"version"}).out, "zolvactl " ZOLVA_VERSION ", build " + build +
                                              "\nmo 1.2.3, shipped, at " + tools.tool() + "\n");
}

TEST(VersionCommand, GivesNoVersionOfABundledTool)
{
    ToolTree tools("exit 1");
    tools.tree().text("share/zolva/mole/VERSION", "bundled\n");
    EXPECT_THAT(tools.run({"version", "--json"}).out,
                HasSubstr(json("'kind':'shipped','version':null}}\n")));
    EXPECT_THAT(tools.run({"version"}).out, HasSubstr("\nmo, shipped, at "));
}

TEST(VersionCommand, TellsWhereTheToolWasLookedForInVain)
{
    for (const std::string& place : installedMo()) {
        ASSERT_FALSE(isExecutableFile(place)) << "a tool of this machine would be found";
    }
    const ToolTree tools;
    EXPECT_THAT(tools.run({"version", "--json"}).out,
                HasSubstr(json("'mo':{'path':'" + installedMo().front() +
                               "','kind':'absent','version':null}}\n")));
    EXPECT_THAT(
        tools.run({"version"}).out,
        HasSubstr("\nmo is not installed; it was looked for at " + installedMo().front() + "\n"));
    const Outcome apps = tools.run({"apps"});
    EXPECT_EQ(apps.code, 1);
    EXPECT_EQ(apps.err, "zolvactl: mo isn’t installed\n");
}

} // namespace

} // namespace zolva::test
