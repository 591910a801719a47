#include "files/DisplayPath.h"

#include "support/ScopedHome.h"

#include <gtest/gtest.h>

#include <vector>

namespace zolva {

namespace {

using namespace std::string_literals;
using test::ScopedVariable;

TEST(TildePath, AbbreviatesHomeAndWhatIsBelowIt)
{
    const ScopedVariable home("HOME", "/Users/me");
    EXPECT_EQ(tildePath("/Users/me"), "~");
    EXPECT_EQ(tildePath("/Users/me/"), "~/");
    EXPECT_EQ(tildePath("/Users/me/a/b"), "~/a/b");
    EXPECT_EQ(tildePath("/Users/me/\xFF"), "~/\xFF");
}

TEST(TildePath, LeavesAPathThatMerelySharesThePrefix)
{
    const ScopedVariable home("HOME", "/Users/me");
    EXPECT_EQ(tildePath("/Users/me2"), "/Users/me2");
    EXPECT_EQ(tildePath("/Users/me2/x"), "/Users/me2/x");
    EXPECT_EQ(tildePath("/Users/m"), "/Users/m");
    EXPECT_EQ(tildePath("/users/me/x"), "/users/me/x");
    EXPECT_EQ(tildePath(""), "");
}

TEST(TildePath, LeavesWhatIsSharedWhateverHomeIs)
{
    for (const char* home : {"/Users/me", "/home/me", "/", "/Users/Share"}) {
        const ScopedVariable variable("HOME", home);
        EXPECT_EQ(tildePath("/Users/Shared/x"), "/Users/Shared/x") << home;
    }
}

TEST(DisplayText, LeavesUtf8AsItIs)
{
    for (const std::string& text :
         {""s, "plain"s, "\u00E4\u20AC\U0001F600"s, "\u0080\u07FF\u0800\uD7FF\uE000\uFFFF"s,
          "\U00010000\U0010FFFF"s, "a\0b\n"s}) {
        EXPECT_EQ(displayText(text), text);
    }
}

TEST(DisplayText, ReplacesEachByteThatIsNotUtf8)
{
    const std::string bad = "\uFFFD";
    EXPECT_EQ(displayText("a\xFF"
                          "b"),
              "a" + bad + "b");
    EXPECT_EQ(displayText("\x80\xBF"), bad + bad);
    EXPECT_EQ(displayText("\xE2\x82"), bad + bad);
    EXPECT_EQ(displayText("\xE2\x82z"), bad + bad + "z");
    EXPECT_EQ(displayText("\xC3\u00E4"), bad + "\u00E4");
}

TEST(DisplayText, ReplacesFormsThatUtf8ForbidsByteForByte)
{
    const std::string bad = "\uFFFD";
    // Overlong slashes, a surrogate, and what lies above the last character.
    EXPECT_EQ(displayText("\xC0\xAF"), bad + bad);
    EXPECT_EQ(displayText("\xC1\xBF"), bad + bad);
    EXPECT_EQ(displayText("\xE0\x9F\xBF"), bad + bad + bad);
    EXPECT_EQ(displayText("\xED\xA0\x80"), bad + bad + bad);
    EXPECT_EQ(displayText("\xF0\x8F\xBF\xBF"), bad + bad + bad + bad);
    EXPECT_EQ(displayText("\xF4\x90\x80\x80"), bad + bad + bad + bad);
    EXPECT_EQ(displayText("\xF5\x80\x80\x80"), bad + bad + bad + bad);
}

TEST(RawPath, IsNothingForAPathOfUtf8)
{
    EXPECT_EQ(rawPath("/a/\u00E4 100%"), std::nullopt);
    EXPECT_EQ(rawPath(""), std::nullopt);
}

TEST(RawPath, EncodesBadBytesAndThePercentSign)
{
    EXPECT_EQ(rawPath("/a%2F/\xFF\u00E4\xC3"), "/a%252F/%FF\u00E4%C3");
}

TEST(RawPath, TellsApartPathsThatAreShownAlike)
{
    EXPECT_EQ(displayText("/\xFE"), displayText("/\xFF"));
    EXPECT_NE(rawPath("/\xFE"), rawPath("/\xFF"));
    EXPECT_NE(rawPath("/%FE\xFF"), rawPath("/\xFE\xFF"));
}

TEST(DisplayLine, ReplacesWhatSteersATerminal)
{
    const std::string bad = "\uFFFD";
    EXPECT_EQ(displayLine("a\n\r\t\x1B[31m\x7F\0"s),
              "a" + bad + bad + bad + bad + "[31m" + bad + bad);
    EXPECT_EQ(displayLine("\u0080\u009B\u009F\u00A0"), bad + bad + bad + "\u00A0");
    EXPECT_EQ(displayLine("\xFF"), bad);
}

TEST(DisplayLine, ReplacesWhatBreaksOrReordersTheLine)
{
    for (const char* sign : {"\u2028", "\u2029", "\u202A", "\u202B", "\u202C", "\u202D", "\u202E",
                             "\u2066", "\u2067", "\u2068", "\u2069"}) {
        EXPECT_EQ(displayLine("a"s + sign + "b"), "a\uFFFDb");
    }
}

TEST(DisplayLine, LeavesOrdinaryTextAsItIs)
{
    const std::string text = " ~/\u00E4\u20AC\u2027\u202F\u2065\u206A\U0001F600";
    EXPECT_EQ(displayLine(text), text);
}

} // namespace

} // namespace zolva
