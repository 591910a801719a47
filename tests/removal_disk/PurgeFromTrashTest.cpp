#include "removal/disk/PurgeFromTrash.h"

#include "removal/disk/TrashOnePath.h"
#include "support/DroppedCapabilities.h"
#include "support/RecordedLog.h"
#include "support/SecondVolume.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <filesystem>

namespace {

using namespace zolva;
using namespace zolva::test;

class PurgeFromTrash : public ::testing::Test
{
protected:
    std::string trashed(const std::string& relative)
    {
        const auto landed = trashOnePath(m_home.path(relative)).landed;
        EXPECT_TRUE(landed.has_value());
        return landed.value_or("(none)");
    }

    /// Refused at the highest level, and told to the user by its name.
    void expectRefused(const std::string& path, const std::string& leadsTo, const std::string& name)
    {
        const RecordedLog log;
        EXPECT_EQ(purgeFromTrash({path}), (Purge{0, {name + " was not in the Trash"}}));
        const std::string trash = m_home.trash() + "/files";
        EXPECT_EQ(log.records(),
                  (std::vector<LogRecord>{{LogCategory::Remove, LogLevel::Fault,
                                           "purge refused " + leadsTo + ": outside " + trash}}));
    }

    TrashHome m_home;
    TempTree& m_tree = m_home.tree;
};

TEST_F(PurgeFromTrash, AnEmptyListTouchesNothing)
{
    const RecordedLog log;
    EXPECT_EQ(purgeFromTrash({}), Purge{});
    EXPECT_TRUE(log.records().empty());
    EXPECT_FALSE(stands(m_home.trash()));
}

TEST_F(PurgeFromTrash, WhatLandedIsDeletedWithItsRecordAndCounted)
{
    m_tree.text("home/x/deep/file", "1");
    const std::string landed = trashed("x");
    const RecordedLog log;
    EXPECT_EQ(purgeFromTrash({landed}), (Purge{1, {}}));
    EXPECT_TRUE(namesIn(m_home.trash() + "/files").empty());
    EXPECT_TRUE(namesIn(m_home.trash() + "/info").empty());
    EXPECT_EQ(log.records(), (std::vector<LogRecord>{{LogCategory::Remove, LogLevel::Default,
                                                      "purged from Trash " + landed}}));
}

TEST_F(PurgeFromTrash, TheSecondNamesakeIsDeletedNotTheFirst)
{
    m_tree.text("home/a/x", "first");
    m_tree.text("home/b/x", "second");
    const std::string first = trashed("a/x");
    const std::string second = trashed("b/x");
    EXPECT_EQ(purgeFromTrash({second}).purged, 1);
    EXPECT_EQ(content(first), "first");
    EXPECT_TRUE(stands(m_home.infoOf("x")));
    EXPECT_FALSE(stands(second));
}

TEST_F(PurgeFromTrash, WithoutATrashNothingIsPurgedAndNoneIsMade)
{
    const std::string kept = m_tree.text("home/x", "kept");
    const RecordedLog log;
    EXPECT_EQ(purgeFromTrash({m_home.inTrash("x"), kept}),
              (Purge{0, {"Couldn't locate the Trash folder"}}));
    EXPECT_EQ(log.records(),
              (std::vector<LogRecord>{{LogCategory::Remove, LogLevel::Error,
                                       "could not locate the Trash folder; nothing purged"}}));
    EXPECT_EQ(content(kept), "kept");
    EXPECT_FALSE(stands(m_home.trash()));
}

TEST_F(PurgeFromTrash, ALandedLinkThatLeadsOutOfTheTrashIsLeftAlone)
{
    const std::string inside = m_tree.text("home/Documents/x", "kept");
    m_tree.link("home/link", m_home.path("Documents"));
    const std::string landed = trashed("link");
    expectRefused(landed, m_home.path("Documents"), "link");
    EXPECT_TRUE(stands(landed));
    EXPECT_EQ(content(inside), "kept");
}

TEST_F(PurgeFromTrash, ADanglingLinkThatLeadsOutIsLeftAlone)
{
    m_tree.link("home/link", "/nowhere/at/all");
    const std::string landed = trashed("link");
    expectRefused(landed, "/nowhere/at/all", "link");
    EXPECT_TRUE(stands(landed));
}

TEST_F(PurgeFromTrash, PathsOutsideTheTrashAreLeftAlone)
{
    m_tree.text("home/.local/share/Trash/files/x", "1");
    const std::string kept = m_tree.text("home/kept", "kept");
    expectRefused(kept, kept, "kept");
    expectRefused(m_home.trash() + "/files", m_home.trash() + "/files", "files");
    expectRefused(m_home.trash() + "/files/", m_home.trash() + "/files", "files");
    expectRefused(m_home.trash() + "/info", m_home.trash() + "/info", "info");
    expectRefused(m_home.inTrash("../../../../kept"), kept, "kept");
    expectRefused(m_home.inTrash(".."), m_home.inTrash(".."), "..");
    expectRefused("relative", "relative", "relative");
    EXPECT_EQ(content(kept), "kept");
    EXPECT_EQ(content(m_home.inTrash("x")), "1");
}

TEST_F(PurgeFromTrash, ASiblingWhoseNameBeginsAlikeIsOutside)
{
    m_tree.folder("home/.local/share/Trash/files");
    const std::string kept = m_tree.text("home/.local/share/Trash/files2/x", "kept");
    expectRefused(kept, kept, "x");
    EXPECT_EQ(content(kept), "kept");
}

TEST_F(PurgeFromTrash, ALinkOutsideThatLeadsIntoTheTrashIsLeftAlone)
{
    m_tree.text("home/.local/share/Trash/files/x", "1");
    const std::string link = m_tree.link("home/link", m_home.inTrash("x"));
    expectRefused(link, link, "link");
    EXPECT_TRUE(stands(link));
    EXPECT_EQ(content(m_home.inTrash("x")), "1");
}

TEST_F(PurgeFromTrash, AFolderInTheTrashThatIsALinkIsNotEntered)
{
    m_tree.folder("home/.local/share/Trash/files");
    const std::string kept = m_tree.text("home/outside/x", "kept");
    m_tree.link("home/.local/share/Trash/files/link", m_home.path("outside"));
    expectRefused(m_home.inTrash("link/x"), kept, "x");
    EXPECT_EQ(content(kept), "kept");
}

TEST_F(PurgeFromTrash, WhatTheUserEmptiedMeanwhileIsNeitherCountedNorAProblem)
{
    m_tree.text("home/x", "1");
    const std::string landed = trashed("x");
    ASSERT_EQ(::unlink(landed.c_str()), 0);
    const RecordedLog log;
    EXPECT_EQ(purgeFromTrash({landed}), Purge{});
    EXPECT_EQ(log.records(), (std::vector<LogRecord>{{LogCategory::Remove, LogLevel::Debug,
                                                      "already gone " + landed}}));
}

TEST_F(PurgeFromTrash, WhatLiesThereByTheSameNameSinceIsNotPurged)
{
    m_tree.text("home/x", "old");
    const TrashAttempt attempt = trashOnePath(m_home.path("x"));
    ASSERT_TRUE(attempt.identity.has_value());
    ASSERT_EQ(::rename(attempt.landed->c_str(), m_home.path("restored").c_str()), 0);
    m_tree.text("home/.local/share/Trash/files/x", "new");
    EXPECT_EQ(purgeFromTrash({KnownItem(*attempt.landed, attempt.identity)}), Purge{});
    EXPECT_EQ(content(*attempt.landed), "new");
}

TEST_F(PurgeFromTrash, ATrashThatIsALinkIsTheTrashAllTheSame)
{
    m_tree.folder("home/elsewhere");
    m_tree.link("home/.local/share/Trash", m_home.path("elsewhere"));
    m_tree.text("home/x", "1");
    const std::string landed = trashed("x");
    EXPECT_EQ(purgeFromTrash({landed}).purged, 1);
    EXPECT_TRUE(namesIn(m_home.path("elsewhere/files")).empty());
    EXPECT_TRUE(namesIn(m_home.path("elsewhere/info")).empty());
}

TEST_F(PurgeFromTrash, AFailureStopsNothingAndIsToldWithItsPath)
{
    withoutOverridingPermissions([&] {
        m_tree.text("home/locked/deep/x", "kept");
        m_tree.text("home/other", "1");
        m_tree.setMode("home/locked/deep", 0500);
        const std::string locked = trashed("locked");
        const std::string other = trashed("other");
        const RecordedLog log;
        EXPECT_EQ(purgeFromTrash({locked, other}),
                  (Purge{1, {"locked/deep/x: Permission denied"}}));
        EXPECT_EQ(log.records(),
                  (std::vector<LogRecord>{
                      {LogCategory::Remove, LogLevel::Error,
                       "failed " + locked + ": locked/deep/x: Permission denied"},
                      {LogCategory::Remove, LogLevel::Default, "purged from Trash " + other}}));
        EXPECT_EQ(content(locked + "/deep/x"), "kept");
        EXPECT_TRUE(stands(m_home.infoOf("locked")));
    });
}

TEST_F(PurgeFromTrash, WhatLandedOnAnotherVolumeStaysThereAndIsTold)
{
    m_tree.folder("home/.local/share/Trash/files");
    withSecondVolume([&](const std::string& top, const std::string&) {
        const std::string landed = top + "/.Trash-0/files/zolva-test-item";
        std::filesystem::create_directories(landed);
        expectRefused(landed, landed, "zolva-test-item");
        EXPECT_TRUE(stands(landed));
        std::filesystem::remove_all(landed);
    });
}

} // namespace
