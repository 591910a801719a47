#include "ctl/ChildRun.h"
#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace zolva::test {

namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;

const std::string packaging = ZOLVA_SOURCE_DIR "/packaging/";
const std::string bashCompletion = packaging + "completions/zolvactl.bash";
const std::string zshCompletion = packaging + "completions/_zolvactl";

std::string contentOf(const std::string& file)
{
    std::ifstream stream(file);
    std::ostringstream content;
    content << stream.rdbuf();
    return content.str();
}

/// The commands as the program itself tells them.
std::vector<std::string> commandNames()
{
    std::istringstream help(zolvactl("/nonexistent-home", {"--help"}).out);
    std::vector<std::string> names;
    bool within = false;
    for (std::string line; std::getline(help, line);) {
        within = (within || line == "Commands:") && !line.empty();
        if (within && line.starts_with("  ")) {
            names.push_back(line.substr(2, line.find(' ', 2) - 2));
        }
    }
    return names;
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// What bash offers for the last of the words.
std::vector<std::string> offered(const std::string& words, int place, const std::string& folder)
{
    const Outcome outcome = ChildRun({"-c", "source '" + bashCompletion + "'; COMP_WORDS=(" +
                                                words + "); COMP_CWORD=" + std::to_string(place) +
                                                "; _zolvactl; printf '%s\\n' \"${COMPREPLY[@]}\""})
                                .program("/bin/bash")
                                .in(folder)
                                .run();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, "");
    return linesOf(outcome.out);
}

TEST(Documents, NameEveryCommand)
{
    const std::vector<std::string> names = commandNames();
    ASSERT_THAT(names, IsSupersetOf({"check", "size", "summary", "validate-exclusion"}));
    ASSERT_EQ(names.size(), 22U);
    const std::string page = contentOf(packaging + "zolvactl.1");
    const std::string zsh = contentOf(zshCompletion);
    for (const std::string& name : names) {
        EXPECT_THAT(page,
                    AnyOf(HasSubstr(".It Cm " + name + "\n"), HasSubstr(".It Cm " + name + " ")));
        EXPECT_THAT(zsh, HasSubstr("'" + name + ":"));
    }
    EXPECT_EQ(offered("zolvactl ''", 1, "/"), names);
}

TEST(ManPage, IsWithoutFault)
{
    const Outcome outcome = ChildRun({"-Tlint", "-W", "warning", packaging + "zolvactl.1"})
                                .program("/usr/bin/mandoc")
                                .run();
    EXPECT_EQ(outcome.code, 0) << outcome.out << outcome.err;
}

TEST(BashCompletion, OffersTheOptionsOfTheCommand)
{
    EXPECT_THAT(offered("zolvactl --", 1, "/"), ElementsAre("--json", "--help", "--version"));
    EXPECT_THAT(offered("zolvactl leftovers --", 2, "/"),
                ElementsAre("--json", "--help", "--apps", "--path"));
    EXPECT_THAT(offered("zolvactl --json excluded --l", 3, "/"), ElementsAre("--list"));
    EXPECT_THAT(offered("zolvactl summary --", 2, "/"), ElementsAre("--json", "--help"));
    EXPECT_THAT(offered("zolvactl clean --", 2, "/"),
                ElementsAre("--json", "--help", "--run", "--yes", "--dry-run", "--permanent"));
    EXPECT_THAT(offered("zolvactl trash --", 2, "/"),
                ElementsAre("--json", "--help", "--yes", "--dry-run", "--permanent"));
    EXPECT_THAT(offered("zolvactl empty-trash --", 2, "/"),
                ElementsAre("--json", "--help", "--yes", "--dry-run"));
    EXPECT_THAT(offered("zolvactl uninstall --", 2, "/"),
                ElementsAre("--json", "--help", "--apps", "--yes", "--dry-run"));
    EXPECT_THAT(offered("zolvactl status --", 2, "/"),
                ElementsAre("--json", "--help", "--watch", "--interval"));
}

TEST(BashCompletion, OffersTheChangesAndTheirKeys)
{
    EXPECT_THAT(offered("zolvactl prefs ''", 2, "/"), ElementsAre("set"));
    EXPECT_THAT(offered("zolvactl prefs set p", 3, "/"), ElementsAre("pollInterval"));
    EXPECT_THAT(offered("zolvactl prefs set themeMode ''", 4, "/"),
                ElementsAre("system", "light", "dark"));
    EXPECT_THAT(offered("zolvactl prefs set keepInTrash ''", 4, "/"), ElementsAre("true", "false"));
    EXPECT_THAT(offered("zolvactl exclusions ''", 2, "/"), ElementsAre("add", "remove"));
}

TEST(BashCompletion, OffersFilesWhereFilesAreTaken)
{
    TempTree tree;
    tree.folder("folder a");
    tree.file("file b");
    EXPECT_THAT(offered("zolvactl check f", 2, tree.root()),
                ::testing::UnorderedElementsAre("folder a", "file b"));
    EXPECT_THAT(offered("zolvactl analyze f", 2, tree.root()), ElementsAre("folder a"));
    EXPECT_THAT(offered("zolvactl apps --apps fi", 3, tree.root()), ElementsAre("file b"));
    EXPECT_THAT(offered("zolvactl exclusions add fo", 3, tree.root()), ElementsAre("folder a"));
}

TEST(ZshCompletion, Parses)
{
    const Outcome outcome = ChildRun({"-n", zshCompletion}).program("/usr/bin/zsh").run();
    EXPECT_EQ(outcome.code, 0) << outcome.err;
}

} // namespace

} // namespace zolva::test
