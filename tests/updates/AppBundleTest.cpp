#include "updates/AppBundle.h"

#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <string>

namespace zolva::test {

namespace {

std::int64_t buildOf(const char* version)
{
    return currentBuild({.shortVersion = {}, .version = version});
}

std::string plist(const std::string& inside)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + inside + "</plist>";
}

class Config : public ::testing::Test
{
protected:
    [[nodiscard]] UpdateConfig read() const
    {
        return readConfig({.shortVersion = {},
                           .version = {},
                           .resourceFolders = {tree.path("lib"), tree.path("share")}});
    }
    void write(const std::string& content, const std::string& folder = "share")
    {
        tree.text(folder + "/UpdateConfig.plist", content);
    }

    TempTree tree;
};

} // namespace

TEST(CurrentBuild, IsAWholeNumberWithOrWithoutASign)
{
    EXPECT_EQ(buildOf("1"), 1);
    EXPECT_EQ(buildOf("0042"), 42);
    EXPECT_EQ(buildOf("+7"), 7);
    EXPECT_EQ(buildOf("-7"), -7);
    EXPECT_EQ(buildOf("9223372036854775807"), INT64_MAX);
}

TEST(CurrentBuild, IsNoughtForAnythingElse)
{
    for (const char* text : {"", " ", "+", "-", "+-7", "-+7", "++7", " 7", "7 ", "7\n", "1.2",
                             "1.0", "7a", "0x7", "1e3", "９", "9223372036854775808", "1,000"}) {
        EXPECT_EQ(buildOf(text), 0) << text;
    }
    EXPECT_EQ(currentBuild({}), 0);
}

TEST(VersionText, HasTheVersionAndTheBuildOrADashForWhatIsMissing)
{
    EXPECT_EQ(versionText({.shortVersion = "0.1.0", .version = "1"}), "0.1.0 (1)");
    EXPECT_EQ(versionText({.shortVersion = {}, .version = "1"}), "— (1)");
    EXPECT_EQ(versionText({.shortVersion = "0.1.0", .version = {}}), "0.1.0 (—)");
    EXPECT_EQ(versionText({}), "— (—)");
    EXPECT_EQ(shortVersionText({}), "—");
}

TEST_F(Config, HasTheTwoTexts)
{
    write(plist("<dict><key>ManifestURL</key><string>https://x.org/f.json</string>"
                "<key>PublicKey</key><string> abc= </string></dict>"));
    EXPECT_EQ(read().manifestURL, "https://x.org/f.json");
    EXPECT_EQ(read().publicKey, " abc= ");
}

TEST_F(Config, IsTheOneOfTheFirstFolderThatHasOne)
{
    write(plist("<dict><key>PublicKey</key><string>second</string></dict>"));
    EXPECT_EQ(read().publicKey, "second");
    write(plist("<dict><key>PublicKey</key><string>first</string></dict>"), "lib");
    EXPECT_EQ(read().publicKey, "first");
    write("broken", "lib");
    EXPECT_EQ(read().publicKey, "");
}

TEST_F(Config, IsEmptyWithoutAFile)
{
    EXPECT_EQ(read().manifestURL, "");
    EXPECT_EQ(read().publicKey, "");
    EXPECT_EQ(readConfig({}).publicKey, "");
}

TEST_F(Config, IsEmptyWhereTheFileIsOfNoUse)
{
    for (const std::string& content :
         {std::string(), std::string("no list"), plist("<array/>"), plist("<string>x</string>"),
          plist("<dict/>"), plist("<dict><key>PublicKey</key><integer>1</integer></dict>"),
          plist("<dict><key>PublicKey</key><array/></dict>"), std::string(100'000, ' ')}) {
        write(content);
        EXPECT_EQ(read().publicKey, "") << content.substr(0, 200);
    }
    tree.folder("lib/UpdateConfig.plist");
    EXPECT_EQ(read().publicKey, "");
}

TEST_F(Config, KeepsTheOneValueWhereOnlyTheOtherIsWrong)
{
    write(plist("<dict><key>ManifestURL</key><string>https://x.org</string>"
                "<key>PublicKey</key><true/></dict>"));
    EXPECT_EQ(read().manifestURL, "https://x.org");
    EXPECT_EQ(read().publicKey, "");
}

TEST_F(Config, OfTheTemplateIsReadAndOfNoUse)
{
    const UpdateConfig shipped = readConfig(
        {.shortVersion = {}, .version = {}, .resourceFolders = {ZOLVA_SOURCE_DIR "/resources"}});
    EXPECT_EQ(shipped.manifestURL, "REPLACE_ME");
    EXPECT_EQ(shipped.publicKey, "REPLACE_ME");
    EXPECT_FALSE(isUsableSetting(shipped.manifestURL));
}

TEST(UsableSetting, IsAnyTextButAnEmptyOneOrATemplatesValue)
{
    EXPECT_TRUE(isUsableSetting("x"));
    EXPECT_TRUE(isUsableSetting(" x\n"));
    EXPECT_TRUE(isUsableSetting("REPLACE ME"));
    for (const char* text : {"", " ", "\n\t ", "REPLACE_ME"}) {
        EXPECT_FALSE(isUsableSetting(text)) << text;
    }
}

TEST(UsableSetting, IsNoneWithATemplatesValueInAnyCaseNorWithMoreTextAroundIt)
{
    for (const char* text :
         {"  replace_me  ", "Replace_Me", "https://REPLACE_ME.org", "key: replace_me, please"}) {
        EXPECT_FALSE(isUsableSetting(text)) << text;
    }
}

} // namespace zolva::test
