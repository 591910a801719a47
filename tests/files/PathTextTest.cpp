#include "files/PathText.h"

#include "support/ScopedHome.h"

#include <gtest/gtest.h>

#include <pwd.h>

#include <vector>

namespace zolva {

namespace {

using namespace std::string_literals;
using test::ScopedVariable;

class ExpandTilde : public ::testing::Test
{
private:
    ScopedVariable m_home{"HOME", "/home/somebody"};
};

TEST_F(ExpandTilde, GivesHomeForALoneTildeAndWhatIsBelowIt)
{
    EXPECT_EQ(expandTilde("~"), "/home/somebody");
    EXPECT_EQ(expandTilde("~/"), "/home/somebody");
    EXPECT_EQ(expandTilde("~/Documents/report.pdf"), "/home/somebody/Documents/report.pdf");
}

TEST_F(ExpandTilde, TidiesSlashesInWhatItExpanded)
{
    EXPECT_EQ(expandTilde("~//a///b//"), "/home/somebody/a/b");
}

TEST_F(ExpandTilde, LeavesDotsAlone)
{
    EXPECT_EQ(expandTilde("~/Library/../x"), "/home/somebody/Library/../x");
}

TEST_F(ExpandTilde, LeavesWhatDoesNotBeginWithATildeAsItIs)
{
    for (const std::string& text :
         {""s, "/"s, "//a//"s, " ~"s, "/~"s, "a/~/b"s, "\0~"s, "\xFF~/"s}) {
        EXPECT_EQ(expandTilde(text), text);
    }
}

TEST_F(ExpandTilde, GivesTheHomeOfANamedAccount)
{
    const passwd* entry = ::getpwnam("root");
    ASSERT_NE(entry, nullptr);
    const std::string root = entry->pw_dir;
    EXPECT_EQ(expandTilde("~root"), root);
    EXPECT_EQ(expandTilde("~root/a//b/"), root == "/" ? "/a/b" : root + "/a/b");
}

TEST_F(ExpandTilde, LeavesAnUnknownAccountAsItIs)
{
    EXPECT_EQ(expandTilde("~no-such-account-here"), "~no-such-account-here");
    EXPECT_EQ(expandTilde("~no-such-account-here//x/"), "~no-such-account-here//x/");
    EXPECT_EQ(expandTilde("~~"), "~~");
    EXPECT_EQ(expandTilde("~ /x"), "~ /x");
}

TEST_F(ExpandTilde, KeepsBytesThatNoPathCanHave)
{
    EXPECT_EQ(expandTilde("~root\0/x"s), "~root\0/x"s);
    EXPECT_EQ(expandTilde("~\0/x"s), "~\0/x"s);
    EXPECT_EQ(expandTilde("~/a\0b"s), "/home/somebody/a\0b"s);
    EXPECT_EQ(expandTilde("~/\xFF\n"), "/home/somebody/\xFF\n");
}

TEST_F(ExpandTilde, DoublesNoSlashBelowAHomeThatIsTheRoot)
{
    const ScopedVariable home("HOME", "/");
    EXPECT_EQ(expandTilde("~"), "/");
    EXPECT_EQ(expandTilde("~/a"), "/a");
}

TEST(StandardizedPath, RemovesDotsAndNeedlessSlashes)
{
    EXPECT_EQ(standardizedPath("/a/./b"), "/a/b");
    EXPECT_EQ(standardizedPath("/a/../b"), "/b");
    EXPECT_EQ(standardizedPath("//a///b//"), "/a/b");
    EXPECT_EQ(standardizedPath("/a/b/.."), "/a");
    EXPECT_EQ(standardizedPath("/a/b/."), "/a/b");
    EXPECT_EQ(standardizedPath("/a/b/../../c/./../d/"), "/d");
}

TEST(StandardizedPath, DropsWhatWouldLeadAboveTheRoot)
{
    EXPECT_EQ(standardizedPath("/.."), "/");
    EXPECT_EQ(standardizedPath("/../../a"), "/a");
    EXPECT_EQ(standardizedPath("/a/../../.."), "/");
    EXPECT_EQ(standardizedPath("/"), "/");
    EXPECT_EQ(standardizedPath("////"), "/");
}

TEST(StandardizedPath, KeepsNamesThatOnlyResembleDots)
{
    EXPECT_EQ(standardizedPath("/.../..a/.b/c../ ../.. "), "/.../..a/.b/c../ ../.. ");
    EXPECT_EQ(standardizedPath("/a/..\0/b"s), "/a/..\0/b"s);
}

TEST(StandardizedPath, KeepsAPrivatePrefixAndBytesThatAreNotText)
{
    EXPECT_EQ(standardizedPath("/private/var/x"), "/private/var/x");
    EXPECT_EQ(standardizedPath("/\xFF\xC3/\n/"), "/\xFF\xC3/\n");
}

TEST(StandardizedPath, TakesARelativePathAsIfItStoodAtTheRoot)
{
    EXPECT_EQ(standardizedPath("a/../../b"), "/b");
    EXPECT_EQ(standardizedPath(""), "/");
}

TEST(WithTidySlashes, LeavesOneSlashForEachRunAndNoneAtTheEnd)
{
    EXPECT_EQ(withTidySlashes("//a///b//"), "/a/b");
    EXPECT_EQ(withTidySlashes("///"), "/");
    EXPECT_EQ(withTidySlashes("a//../."), "a/../.");
    EXPECT_EQ(withTidySlashes(""), "");
}

TEST(TrimmedText, TakesEveryUnicodeBlankOffBothEnds)
{
    for (const std::string blank :
         {"\t",     "\n",     "\v",     "\f",     "\r",     " ",      "\u0085", "\u00A0", "\u1680",
          "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007", "\u2008",
          "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000"}) {
        EXPECT_EQ(trimmedText(blank + "a" + blank + "b" + blank), "a" + blank + "b");
        EXPECT_EQ(trimmedText(blank + " " + blank), "");
    }
}

TEST(TrimmedText, KeepsWhatOnlyLooksBlank)
{
    // Zero-width space and joiner, byte order mark, a letter that ends like U+0085, bare bytes.
    for (const std::string& text :
         {"\u200B"s, "\u200D"s, "\uFEFF"s, "\u0105"s, "\xA0"s, "\x85"s, "\xE2\x80"s, "\0"s}) {
        EXPECT_EQ(trimmedText(text), text);
    }
}

TEST(TrimmedText, TakesABlankThatFollowsABrokenCharacter)
{
    EXPECT_EQ(trimmedText("\xE1\xC2\xA0"), "\xE1");
}

TEST(LastComponent, IsTheNameWithoutTrailingSlashes)
{
    EXPECT_EQ(lastComponent("/a/b"), "b");
    EXPECT_EQ(lastComponent("/a/b//"), "b");
    EXPECT_EQ(lastComponent("b"), "b");
    EXPECT_EQ(lastComponent("/"), "/");
    EXPECT_EQ(lastComponent("///"), "/");
    EXPECT_EQ(lastComponent(""), "");
}

TEST(ParentPath, IsThePathWithoutItsLastComponent)
{
    EXPECT_EQ(parentPath("/a/b"), "/a");
    EXPECT_EQ(parentPath("/a//b//"), "/a");
    EXPECT_EQ(parentPath("/a"), "/");
    EXPECT_EQ(parentPath("/"), "/");
    EXPECT_EQ(parentPath("a/b"), "a");
    EXPECT_EQ(parentPath("a"), "");
    EXPECT_EQ(parentPath(""), "");
}

TEST(JoinedPath, HasOneSlashBetweenFolderAndName)
{
    EXPECT_EQ(joinedPath("/a", "b"), "/a/b");
    EXPECT_EQ(joinedPath("/a//", "b"), "/a/b");
    EXPECT_EQ(joinedPath("/", "b"), "/b");
    EXPECT_EQ(joinedPath("~", "b/c"), "~/b/c");
    EXPECT_EQ(joinedPath("", "b"), "b");
}

TEST(IsSameOrBelow, DemandsTheSlash)
{
    EXPECT_TRUE(isSameOrBelow("/a/b", "/a/b"));
    EXPECT_TRUE(isSameOrBelow("/a/b/c", "/a/b"));
    EXPECT_TRUE(isSameOrBelow("/a/b/c", "/a/b/"));
    EXPECT_FALSE(isSameOrBelow("/a/b2", "/a/b"));
    EXPECT_FALSE(isSameOrBelow("/a", "/a/b"));
    EXPECT_FALSE(isSameOrBelow("/A/b", "/a/b"));
}

TEST(IsSameOrBelow, HoldsEveryAbsolutePathBelowTheRootAndNoneBelowNothing)
{
    EXPECT_TRUE(isSameOrBelow("/", "/"));
    EXPECT_TRUE(isSameOrBelow("/a", "/"));
    EXPECT_FALSE(isSameOrBelow("a", "/"));
    EXPECT_FALSE(isSameOrBelow("", "/"));
    EXPECT_FALSE(isSameOrBelow("/a", ""));
    EXPECT_FALSE(isSameOrBelow("", ""));
}

TEST(LoweredExtension, IsWhatFollowsTheLastDotOfTheName)
{
    EXPECT_EQ(loweredExtension("/a/Setup.DMG"), "dmg");
    EXPECT_EQ(loweredExtension("/a/x.tar.GZ/"), "gz");
    EXPECT_EQ(loweredExtension("/a/.hidden.Pkg"), "pkg");
    EXPECT_EQ(loweredExtension("/a/\u00C4.\u00C4b"), "\u00C4b");
}

TEST(LoweredExtension, IsEmptyWhereThereIsNone)
{
    for (const char* path : {"", "/", "/a.d/b", "/a/.hidden", "/a/b.", "."}) {
        EXPECT_EQ(loweredExtension(path), "") << path;
    }
}

} // namespace

} // namespace zolva
