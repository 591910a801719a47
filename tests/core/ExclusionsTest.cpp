#include "core/Exclusions.h"

#include "files/ExclusionRules.h"

#include "support/ScopedHome.h"

#include <gtest/gtest.h>

namespace zolva {
namespace {

using Texts = std::vector<std::string>;

/// The rules work on text alone, so that the home folder need not be there.
class ExclusionList : public ::testing::Test
{
protected:
    void add(const std::string& draft)
    {
        m_list.setWlDraft(draft);
        m_list.addExclusion();
    }

    test::ScopedHome m_home{"/Users/me"};
    Exclusions m_list;
};

TEST_F(ExclusionList, AnEmptyFieldShowsNoComplaintAndAddsNothing)
{
    EXPECT_EQ(m_list.exclusionError(), std::nullopt);
    m_list.addExclusion();
    EXPECT_EQ(m_list.whitelist(), Texts{});
}

TEST_F(ExclusionList, AFieldOfBlanksAsksForAPath)
{
    m_list.setWlDraft(" \n");
    EXPECT_EQ(m_list.exclusionError(), "Enter a path.");
}

TEST_F(ExclusionList, WhatIsAddedIsStoredInShortFormAndTheFieldIsCleared)
{
    add("  /Users/me/Code/./x/  ");
    EXPECT_EQ(m_list.whitelist(), (Texts{"~/Code/x"}));
    EXPECT_EQ(m_list.wlDraft(), "");
    EXPECT_EQ(m_list.exclusionError(), std::nullopt);
}

TEST_F(ExclusionList, ARefusedDraftStaysInTheFieldWithItsMessage)
{
    add("Documents");
    EXPECT_EQ(m_list.whitelist(), Texts{});
    EXPECT_EQ(m_list.wlDraft(), "Documents");
    EXPECT_EQ(m_list.exclusionError(), "Enter a full path, starting with / or ~.");
}

TEST_F(ExclusionList, APathBelowAnEntryIsAlreadyCovered)
{
    add("~/Projects");
    add("~/Projects/app");
    EXPECT_EQ(m_list.exclusionError(), "Already covered by an existing exclusion.");
    EXPECT_EQ(m_list.whitelist(), (Texts{"~/Projects"}));
}

TEST_F(ExclusionList, APathAboveAnEntryIsAllowedAndBothStay)
{
    add("~/Projects/app");
    add("~/Projects");
    EXPECT_EQ(m_list.whitelist(), (Texts{"~/Projects/app", "~/Projects"}));
}

TEST_F(ExclusionList, TheRootAndTheHomeFolderWouldExcludeEverything)
{
    for (const char* all : {"/", "~", "~/", "/Users/me", "/Users/me/x/.."}) {
        add(all);
        EXPECT_EQ(m_list.exclusionError(), "That would exclude everything, switching Zolva off.")
            << all;
    }
    EXPECT_EQ(m_list.whitelist(), Texts{});
}

TEST_F(ExclusionList, APathIsStoredStandardizedWithTheHomeFolderShortened)
{
    add("/tmp/../Users/me/Code");
    EXPECT_EQ(m_list.whitelist(), (Texts{"~/Code"}));
}

TEST_F(ExclusionList, RemovingTakesEveryEqualEntryAndKeepsTheOthersInOrder)
{
    m_list.setWhitelist({"~/b", "~/a", "~/b", "~/c"});
    m_list.removeExclusion(m_list.whitelist().front());
    EXPECT_EQ(m_list.whitelist(), (Texts{"~/a", "~/c"}));
}

TEST_F(ExclusionList, RemovingAnEntryDoesNotChangeTheListARunTookAtItsStart)
{
    m_list.setWhitelist({"~/a"});
    const Texts ofTheRun = m_list.whitelist();
    m_list.removeExclusion("~/a");
    EXPECT_TRUE(isExcluded("/Users/me/a/file", ofTheRun));
    EXPECT_FALSE(isExcluded("/Users/me/a/file", m_list.whitelist()));
}

TEST_F(ExclusionList, AHandEditedEmptyOrRootEntryCoversNothing)
{
    m_list.setWhitelist({"", "/"});
    m_list.setWlDraft("~/x");
    EXPECT_EQ(m_list.exclusionError(), std::nullopt);
}

TEST_F(ExclusionList, EveryChangeOfTheListIsToldForSavingAndAlsoOneThatChangesNothing)
{
    int told = 0;
    QObject::connect(&m_list, &Exclusions::whitelistChanged, &m_list, [&] { ++told; });
    m_list.setWhitelist({});
    EXPECT_EQ(told, 1);
    add("~/x");
    EXPECT_EQ(told, 2);
    m_list.removeExclusion("none such");
    EXPECT_EQ(told, 3);
    add("refused");
    EXPECT_EQ(told, 3);
}

TEST_F(ExclusionList, TheListIsSavedBeforeTheFieldIsCleared)
{
    std::string draftAtSaving;
    QObject::connect(&m_list, &Exclusions::whitelistChanged, &m_list,
                     [&] { draftAtSaving = m_list.wlDraft(); });
    add("~/x");
    EXPECT_EQ(draftAtSaving, "~/x");
}

TEST_F(ExclusionList, TheFieldIsToldOnlyWhenItsTextChanges)
{
    int told = 0;
    QObject::connect(&m_list, &Exclusions::wlDraftChanged, &m_list, [&] { ++told; });
    m_list.setWlDraft("");
    EXPECT_EQ(told, 0);
    m_list.setWlDraft("~");
    m_list.setWlDraft("~");
    EXPECT_EQ(told, 1);
}

} // namespace
} // namespace zolva
