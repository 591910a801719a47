#include "files/ExclusionRules.h"

#include "support/ScopedHome.h"

#include <gtest/gtest.h>

namespace zolva {

namespace {

using namespace std::string_literals;
using List = std::vector<std::string>;
using Message = std::optional<std::string>;
using test::ScopedVariable;

const Message valid;
const Message everything = "That would exclude everything, switching Zolva off.";
const Message covered = "Already covered by an existing exclusion.";
const Message notFull = "Enter a full path, starting with / or ~.";

class ExclusionRules : public ::testing::Test
{
private:
    ScopedVariable m_home{"HOME", "/Users/me"};
};

TEST_F(ExclusionRules, AnEntryCoversItsFolderAndWhatIsBelowAndNotANamesake)
{
    const List list = {"~/Projects/"};
    EXPECT_TRUE(isExcluded("~/Projects", list));
    EXPECT_TRUE(isExcluded("~/Projects/a/b", list));
    EXPECT_TRUE(isExcluded("/Users/me/Projects/a", list));
    EXPECT_FALSE(isExcluded("~/Projects2", list));
    EXPECT_FALSE(isExcluded("~", list));
}

TEST_F(ExclusionRules, AnEntryDoesNotCoverALongerSibling)
{
    EXPECT_FALSE(exclusionCovers("/a/Proj", "/a/Project"));
    EXPECT_TRUE(exclusionCovers("/a/Proj", "/a/Proj"));
    EXPECT_TRUE(exclusionCovers("/a/Proj", "/a/Proj/ect"));
}

TEST_F(ExclusionRules, AnEntryIsComparedByCase)
{
    EXPECT_FALSE(exclusionCovers("/a/proj", "/a/Proj"));
}

TEST_F(ExclusionRules, AnEntryOfALoneSlashOrOfBlanksCoversNothing)
{
    for (const char* entry : {"/", "", " ", "\n\t", " / ", "\u00A0"}) {
        for (const char* path : {"/", "", "/a", "/Users/me/x", " "}) {
            EXPECT_FALSE(exclusionCovers(entry, path)) << entry << " over " << path;
            EXPECT_FALSE(isExcluded(path, {entry})) << entry << " over " << path;
        }
    }
}

TEST_F(ExclusionRules, AnEntryOfTildeCoversNothingWhereHomeIsTheRoot)
{
    const ScopedVariable home("HOME", "/");
    EXPECT_FALSE(isExcluded("/a", {"~"}));
    EXPECT_FALSE(isExcluded("/a", {"~/"}));
}

TEST_F(ExclusionRules, AnEntryIsTrimmedBeforeItsTildeIsExpanded)
{
    EXPECT_TRUE(exclusionCovers("  ~/Keep \n", "/Users/me/Keep/x"));
}

TEST_F(ExclusionRules, AnEntryLosesOneTrailingSlashOnly)
{
    EXPECT_TRUE(exclusionCovers("/a/b/", "/a/b/c"));
    EXPECT_FALSE(exclusionCovers("/a/b//", "/a/b/c"));
}

TEST_F(ExclusionRules, TheComparisonIsOnTextAlone)
{
    EXPECT_FALSE(exclusionCovers("/a/./b", "/a/b"));
    EXPECT_TRUE(exclusionCovers("/a/b", "/a/b/../c"));
    EXPECT_TRUE(exclusionCovers("/\xFF", "/\xFF/x"));
    EXPECT_FALSE(exclusionCovers("/a", "/a\0"s));
}

TEST_F(ExclusionRules, AnEmptyPathAndAnEmptyListExcludeNothing)
{
    EXPECT_FALSE(isExcluded("", {"~/Keep", "/a"}));
    EXPECT_FALSE(isExcluded("/a", {}));
}

TEST_F(ExclusionRules, AnyEntryOfTheListExcludes)
{
    EXPECT_TRUE(isExcluded("/b/x", {"/", "", "/a", "/b"}));
    EXPECT_FALSE(isExcluded("/c/x", {"/", "", "/a", "/b"}));
}

TEST_F(ExclusionRules, APreparedListAnswersForOnePathAfterAnother)
{
    const zolva::ExclusionRules rules({" ~/Keep/ ", "", "/", "/b"});
    EXPECT_TRUE(rules.covers("/Users/me/Keep"));
    EXPECT_TRUE(rules.covers("~/Keep/x"));
    EXPECT_FALSE(rules.covers("~/Keep2"));
    EXPECT_TRUE(rules.covers("/b/x"));
    EXPECT_FALSE(rules.covers("/"));
    EXPECT_FALSE(rules.covers(""));
    EXPECT_FALSE(zolva::ExclusionRules(List()).covers("/b"));
}

TEST_F(ExclusionRules, APreparedListHasExpandedItsEntriesBeforeItIsAsked)
{
    const zolva::ExclusionRules rules({"~/Keep"});
    const ScopedVariable home("HOME", "/Users/other");
    EXPECT_TRUE(rules.covers("/Users/me/Keep/x"));
    EXPECT_FALSE(rules.covers("/Users/other/Keep/x"));
}

TEST_F(ExclusionRules, AnEntryBelowAnotherIsAlreadyCovered)
{
    EXPECT_EQ(validateExclusion("~/Projects", {}), valid);
    const List list = {storedExclusion("~/Projects")};
    EXPECT_EQ(validateExclusion("~/Projects/app", list), covered);
    EXPECT_EQ(validateExclusion("~/Projects", list), covered);
    EXPECT_EQ(validateExclusion("/Users/you/../me/Projects/x", list), covered);
}

TEST_F(ExclusionRules, AnEntryAboveAnotherMayBeAdded)
{
    EXPECT_EQ(validateExclusion("~/Projects", {"~/Projects/app"}), valid);
}

TEST_F(ExclusionRules, TheRootAndHomeWouldExcludeEverything)
{
    for (const char* text : {"/", "~", "~/", " / ", "//", "/..", "/Users/me", "/Users/me/x/.."}) {
        EXPECT_EQ(validateExclusion(text, {}), everything) << text;
    }
}

TEST_F(ExclusionRules, HomeWouldExcludeEverythingWhateverDotsAreInItsText)
{
    for (const char* text : {"/Users/me/.", "/Users/./me", "/Users/you/../me/"}) {
        const ScopedVariable home("HOME", text);
        EXPECT_EQ(validateExclusion("~", {}), everything) << text;
        EXPECT_EQ(validateExclusion("/Users/me", {}), everything) << text;
        EXPECT_EQ(validateExclusion("~/Code", {}), valid) << text;
    }
}

TEST_F(ExclusionRules, WhatIsNoFullPathIsToldSo)
{
    for (const char* text : {"Documents", "./x", "~no-such-account-here", ".", "\xFF"}) {
        EXPECT_EQ(validateExclusion(text, {}), notFull) << text;
    }
}

TEST_F(ExclusionRules, NothingButBlanksAsksForAPath)
{
    for (const char* text : {"", "  ", "\n", "\u3000"}) {
        EXPECT_EQ(validateExclusion(text, {}), Message("Enter a path."));
    }
}

TEST_F(ExclusionRules, APathNeedNotExistToBeExcluded)
{
    EXPECT_EQ(validateExclusion("/no/such/place", {}), valid);
}

TEST_F(ExclusionRules, AFolderAboveHomeMayBeExcluded)
{
    EXPECT_EQ(validateExclusion("/Users", {}), valid);
}

TEST_F(ExclusionRules, AnEntryIsStoredStandardizedWithHomeShortened)
{
    EXPECT_EQ(storedExclusion("/tmp/../Users/me/Code"), "~/Code");
    EXPECT_EQ(storedExclusion("  ~//Code/ "), "~/Code");
    EXPECT_EQ(storedExclusion("/opt//x/."), "/opt/x");
    EXPECT_EQ(storedExclusion("/Users/me2/x"), "/Users/me2/x");
}

TEST_F(ExclusionRules, AStoredEntryCoversWhatWasEntered)
{
    for (const char* text : {"~/Code", "/opt/../srv//x/", " /a/b ", "~/\xFF/"}) {
        ASSERT_EQ(validateExclusion(text, {}), valid) << text;
        EXPECT_EQ(validateExclusion(text, {storedExclusion(text)}), covered) << text;
    }
}

TEST_F(ExclusionRules, ShorteningAbbreviatesHomeAndWhatIsBelowItOnly)
{
    EXPECT_EQ(shortenPath("/Users/me"), "~");
    EXPECT_EQ(shortenPath("/Users/me/a/b"), "~/a/b");
    EXPECT_EQ(shortenPath("/Users/me2/a"), "/Users/me2/a");
    EXPECT_EQ(shortenPath("/users/me/a"), "/users/me/a");
    EXPECT_EQ(shortenPath("/x/Users/me/a"), "/x/Users/me/a");
    EXPECT_EQ(shortenPath(""), "");
}

} // namespace

} // namespace zolva
