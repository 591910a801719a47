#include "removal/disk/TrashOnePath.h"

#include "support/DroppedCapabilities.h"
#include "support/RecordedLog.h"
#include "support/SecondVolume.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace zolva;
using namespace zolva::test;

class TrashOnePath : public ::testing::Test
{
protected:
    /// The only line of the log, with its level.
    [[nodiscard]] LogRecord line() const
    {
        const auto records = m_log.records();
        EXPECT_EQ(records.size(), 1U);
        return records.empty() ? LogRecord{} : records.front();
    }

    static LogRecord removeLine(LogLevel level, const std::string& message)
    {
        return {LogCategory::Remove, level, message};
    }

    TrashHome m_home;
    TempTree& m_tree = m_home.tree;
    RecordedLog m_log;
};

TEST_F(TrashOnePath, AMovedFolderTellsWhatItMeasuredAndWhereItIs)
{
    m_tree.file("home/Library/Caches/app/one", 10000);
    m_tree.file("home/Library/Caches/app/deep/two", 20000);
    const std::string path = m_home.path("Library/Caches/app");
    const std::int64_t bytes = blocksOf(path + "/one") + blocksOf(path + "/deep/two");
    const TrashAttempt attempt = trashOnePath(path);
    EXPECT_EQ(std::get<TrashMoved>(attempt.outcome).bytes, bytes);
    EXPECT_EQ(attempt.landed, m_home.inTrash("app"));
    EXPECT_FALSE(stands(path));
    EXPECT_EQ(line(), removeLine(LogLevel::Default,
                                 "trashed " + path + " (" + std::to_string(bytes) + " bytes)"));
}

TEST_F(TrashOnePath, ARefusedPathIsNotTouched)
{
    const std::string inside = m_tree.text("home/Documents/report", "kept");
    const std::string path = m_home.path("Documents");
    const std::string refusal = path + " is a protected container";
    const TrashAttempt attempt = trashOnePath(path);
    EXPECT_EQ(std::get<TrashRefused>(attempt.outcome).text, refusal);
    EXPECT_FALSE(attempt.landed.has_value());
    EXPECT_EQ(content(inside), "kept");
    EXPECT_FALSE(stands(m_home.trash()));
    EXPECT_EQ(line(), removeLine(LogLevel::Error, "refused " + path + ": " + refusal));
}

TEST_F(TrashOnePath, APathOutsideTheManagedPlacesIsNotTouched)
{
    const std::string path = m_tree.text("elsewhere/x", "kept");
    EXPECT_TRUE(std::holds_alternative<TrashRefused>(trashOnePath(path).outcome));
    EXPECT_EQ(content(path), "kept");
    EXPECT_FALSE(stands(m_home.trash()));
}

TEST_F(TrashOnePath, APathThatVanishedIsAbsentWithoutErrorOrBytes)
{
    const std::string path = m_home.path("Library/Caches/gone");
    const TrashAttempt attempt = trashOnePath(path);
    EXPECT_TRUE(std::holds_alternative<TrashAlreadyAbsent>(attempt.outcome));
    EXPECT_FALSE(attempt.landed.has_value());
    EXPECT_EQ(line(), removeLine(LogLevel::Debug, "already gone " + path));
    EXPECT_FALSE(stands(m_home.trash()));
}

TEST_F(TrashOnePath, AnItemBelowAFileIsAbsent)
{
    const std::string path = m_tree.text("home/file", "kept") + "/below";
    EXPECT_TRUE(std::holds_alternative<TrashAlreadyAbsent>(trashOnePath(path).outcome));
    EXPECT_EQ(content(m_home.path("file")), "kept");
}

TEST_F(TrashOnePath, WhatTheSystemRefusesFailsInItsOwnWordsAndStays)
{
    withoutOverridingPermissions([&] {
        const std::string path = m_tree.text("home/locked/x", "kept");
        m_tree.setMode("home/locked", 0500);
        const TrashAttempt attempt = trashOnePath(path);
        EXPECT_EQ(std::get<TrashFailed>(attempt.outcome).text, "Permission denied");
        EXPECT_FALSE(attempt.landed.has_value());
        EXPECT_EQ(content(path), "kept");
        EXPECT_EQ(line(), removeLine(LogLevel::Error, "failed " + path + ": Permission denied"));
        m_tree.setMode("home/locked", 0700);
    });
}

TEST_F(TrashOnePath, WhatMayNotBeLookedAtFailsAndIsNotTakenForAbsent)
{
    withoutOverridingPermissions([&] {
        const std::string path = m_tree.text("home/closed/x", "kept");
        m_tree.setMode("home/closed", 0000);
        EXPECT_EQ(std::get<TrashFailed>(trashOnePath(path).outcome).text, "Permission denied");
        m_tree.setMode("home/closed", 0700);
        EXPECT_EQ(content(path), "kept");
    });
}

TEST_F(TrashOnePath, TheTwoItemsOfOneNameLandApartAndTellWhere)
{
    m_tree.text("home/a/same.log", "first");
    m_tree.text("home/b/same.log", "second");
    EXPECT_EQ(trashOnePath(m_home.path("a/same.log")).landed, m_home.inTrash("same.log"));
    EXPECT_EQ(trashOnePath(m_home.path("b/same.log")).landed, m_home.inTrash("same 2.log"));
    EXPECT_EQ(content(m_home.inTrash("same.log")), "first");
    EXPECT_EQ(content(m_home.inTrash("same 2.log")), "second");
}

TEST_F(TrashOnePath, ATildeIsTheHomeFolder)
{
    m_tree.text("home/x", "1");
    EXPECT_EQ(trashOnePath("~/x").landed, m_home.inTrash("x"));
    EXPECT_EQ(m_log.messages().front().substr(0, 14), "trashed ~/x (4");
}

TEST_F(TrashOnePath, WhatIsMovedIsWhatTheGuardJudged)
{
    // By its text the path lies in the home folder; by the link it would lead elsewhere.
    const std::string other = m_tree.text("outside/x", "other");
    m_tree.folder("outside/inner");
    m_tree.link("home/link", m_tree.path("outside/inner"));
    m_tree.text("home/x", "mine");
    EXPECT_EQ(trashOnePath(m_home.path("link/../x")).landed, m_home.inTrash("x"));
    EXPECT_EQ(content(m_home.inTrash("x")), "mine");
    EXPECT_EQ(content(other), "other");
}

TEST_F(TrashOnePath, ALinkGoesAndItsTargetStays)
{
    const std::string inside = m_tree.text("home/Documents/x", "kept");
    const std::string link = m_tree.link("home/link", m_home.path("Documents"));
    const TrashAttempt attempt = trashOnePath(link + "/");
    EXPECT_TRUE(std::holds_alternative<TrashMoved>(attempt.outcome));
    EXPECT_FALSE(stands(link));
    EXPECT_EQ(content(inside), "kept");
}

TEST_F(TrashOnePath, ADanglingLinkIsAThingThatIsMoved)
{
    const std::string link = m_tree.link("home/link", "/nowhere/at/all");
    const TrashAttempt attempt = trashOnePath(link);
    EXPECT_EQ(std::get<TrashMoved>(attempt.outcome).bytes, 0);
    EXPECT_EQ(attempt.landed, m_home.inTrash("link"));
}

TEST_F(TrashOnePath, ANulByteNamesNothingAndTouchesNothing)
{
    const std::string kept = m_tree.text("home/Documents/x", "kept");
    const std::string path = kept + std::string("\0/y", 3);
    EXPECT_TRUE(std::holds_alternative<TrashRefused>(trashOnePath(path).outcome));
    EXPECT_EQ(content(kept), "kept");
}

TEST_F(TrashOnePath, TheTrashItselfFailsWithAPlainReason)
{
    m_tree.text("home/.local/share/Trash/files/x", "kept");
    m_tree.folder("home/.local/share/Trash/info");
    EXPECT_EQ(std::get<TrashFailed>(trashOnePath(m_home.trash()).outcome).text,
              "It is the Trash, or contains it");
    EXPECT_EQ(std::get<TrashFailed>(trashOnePath(m_home.inTrash("x")).outcome).text,
              "It is in the Trash already");
    EXPECT_EQ(content(m_home.inTrash("x")), "kept");
}

TEST(TrashOnePathOnAnotherVolume, AHomeOnItLandsInItsOwnTrash)
{
    withSecondVolume([](const std::string&, const std::string& folder) {
        const TrashHome home(folder + "/home");
        std::filesystem::create_directories(home.path("Library/Caches/x"));
        EXPECT_EQ(trashOnePath(home.path("Library/Caches/x")).landed, home.inTrash("x"));
        std::filesystem::remove_all(home.home());
    });
}

} // namespace
