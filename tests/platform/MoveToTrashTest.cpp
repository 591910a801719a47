#include "platform/SystemTrash.h"
#include "platform/linux/TrashInfo.h"
#include "support/DroppedCapabilities.h"
#include "support/SecondVolume.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

namespace {

using namespace zolva;
using namespace zolva::test;

std::string originOf(const std::string& info)
{
    const auto parsed = parsedTrashInfo(content(info));
    return parsed ? parsed->path : "(none)";
}

std::string trashed(const TrashHome& home, const std::string& path)
{
    const auto moved = moveToTrash(home.home(), path);
    EXPECT_TRUE(moved.has_value()) << moved.error().text;
    return moved && moved->landed ? *moved->landed : "(none)";
}

std::string told(const TrashHome& home, const std::string& path)
{
    const auto moved = moveToTrash(home.home(), path);
    return moved ? "(moved)" : moved.error().text;
}

class MoveToTrash : public ::testing::Test
{
protected:
    TrashHome m_home;
    TempTree& m_tree = m_home.tree;
};

TEST_F(MoveToTrash, AFileLandsWithItsContentAndARecordOfItsPlace)
{
    const std::string path = m_tree.text("home/Caches/a b.txt", "hello");
    EXPECT_EQ(trashed(m_home, path), m_home.inTrash("a b.txt"));
    EXPECT_FALSE(stands(path));
    EXPECT_EQ(content(m_home.inTrash("a b.txt")), "hello");
    EXPECT_EQ(originOf(m_home.infoOf("a b.txt")), path);
}

TEST_F(MoveToTrash, AMissingTrashIsMadeForTheUserAlone)
{
    trashed(m_home, m_tree.text("home/x", "1"));
    for (const std::string& folder :
         {m_home.path(".local"), m_home.path(".local/share"), m_home.trash(),
          m_home.trash() + "/files", m_home.trash() + "/info"}) {
        EXPECT_EQ(std::filesystem::status(folder).permissions(), std::filesystem::perms::owner_all)
            << folder;
    }
    EXPECT_EQ(std::filesystem::status(m_home.infoOf("x")).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(MoveToTrash, NamesakesAreCountedBeforeTheExtension)
{
    for (const char* name : {"n.txt", "n 2.txt", "n 3.txt"}) {
        EXPECT_EQ(trashed(m_home, m_tree.text("home/n.txt", name)), m_home.inTrash(name));
        EXPECT_EQ(content(m_home.inTrash(name)), name);
    }
}

TEST_F(MoveToTrash, AnOrphanInTheTrashIsNotOverwritten)
{
    m_tree.text("home/.local/share/Trash/files/n", "orphan");
    EXPECT_EQ(trashed(m_home, m_tree.text("home/n", "new")), m_home.inTrash("n 2"));
    EXPECT_EQ(content(m_home.inTrash("n")), "orphan");
    EXPECT_EQ(namesIn(m_home.trash() + "/info"), std::vector<std::string>{"n 2.trashinfo"});
}

TEST_F(MoveToTrash, AStrayRecordIsLeftAloneAndItsNameNotUsed)
{
    const std::string stray = m_tree.text("home/.local/share/Trash/info/n.trashinfo", "stray");
    EXPECT_EQ(trashed(m_home, m_tree.text("home/n", "new")), m_home.inTrash("n 2"));
    EXPECT_EQ(content(stray), "stray");
}

TEST_F(MoveToTrash, ADanglingLinkIsMovedAsALink)
{
    const std::string path = m_tree.link("home/link", "/nowhere/at/all");
    EXPECT_EQ(trashed(m_home, path), m_home.inTrash("link"));
    EXPECT_FALSE(stands(path));
    EXPECT_EQ(std::filesystem::read_symlink(m_home.inTrash("link")), "/nowhere/at/all");
}

TEST_F(MoveToTrash, ALinkWithASlashBehindItIsTheLinkNotItsTarget)
{
    const std::string inside = m_tree.text("home/target/kept", "kept");
    const std::string link = m_tree.link("home/link", m_home.path("target"));
    for (const char* tail : {"/", "//", "/.", "/./"}) {
        SCOPED_TRACE(tail);
        const std::string landed = trashed(m_home, link + tail);
        EXPECT_TRUE(std::filesystem::is_symlink(landed));
        EXPECT_EQ(content(inside), "kept");
        ASSERT_EQ(::rename(landed.c_str(), link.c_str()), 0);
    }
}

TEST_F(MoveToTrash, PathsThatNameNoEntryAreNotMoved)
{
    const std::string kept = m_tree.text("home/a/kept", "kept");
    for (const std::string& path :
         {std::string(), std::string("/"), std::string("//"), std::string("relative"),
          m_home.path("a/.."), m_home.path("a/../a/kept"), m_home.path("a/kept/.."),
          kept + std::string(1, '\0') + "tail", std::string("/..")}) {
        EXPECT_EQ(told(m_home, path), "Invalid argument") << path;
    }
    EXPECT_EQ(content(kept), "kept");
    EXPECT_FALSE(stands(m_home.trash()));
}

TEST_F(MoveToTrash, NothingAtThePathIsToldInTheSystemsWords)
{
    EXPECT_EQ(told(m_home, m_home.path("missing")), "No such file or directory");
    EXPECT_EQ(told(m_home, m_home.path("missing/below")), "No such file or directory");
    EXPECT_EQ(told(m_home, m_tree.text("home/file", "") + "/below"), "Not a directory");
}

TEST_F(MoveToTrash, TheTrashWhatHoldsItAndWhatIsInItStay)
{
    const std::string landed = trashed(m_home, m_tree.text("home/x/y", "1"));
    m_tree.text("home/.local/share/Trash/files/folder/inner", "2");
    EXPECT_EQ(told(m_home, landed), "It is in the Trash already");
    EXPECT_EQ(told(m_home, m_home.inTrash("folder/inner")), "It is in the Trash already");
    EXPECT_EQ(told(m_home, m_home.trash() + "/files"), "It is in the Trash already");
    for (const std::string& path :
         {m_home.trash(), m_home.path(".local/share"), m_home.path(".local"), m_home.home()}) {
        EXPECT_EQ(told(m_home, path), "It is the Trash, or contains it") << path;
    }
    EXPECT_EQ(content(landed), "1");
}

TEST_F(MoveToTrash, AHomeTrashThatIsALinkWorks)
{
    const std::string real = m_tree.folder("home/elsewhere/real");
    m_tree.link("home/.local/share/Trash", real);
    EXPECT_EQ(trashed(m_home, m_tree.text("home/x", "1")), m_home.inTrash("x"));
    EXPECT_EQ(content(real + "/files/x"), "1");
    EXPECT_EQ(told(m_home, m_home.path("elsewhere")), "It is the Trash, or contains it");
}

TEST_F(MoveToTrash, TheLinkThatIsTheTrashAndWhatHoldsItStay)
{
    m_tree.folder("elsewhere/real");
    m_tree.folder("shared/data");
    m_tree.link("home/.local/share", m_tree.path("shared/data"));
    m_tree.link("shared/data/Trash", m_tree.path("elsewhere/real"));
    for (const std::string& path :
         {m_home.trash(), m_home.path(".local/share"), m_home.path(".local"), m_home.home(),
          m_tree.path("shared/data/Trash"), m_tree.path("shared/data"), m_tree.path("shared"),
          m_tree.path("elsewhere")}) {
        EXPECT_EQ(told(m_home, path), "It is the Trash, or contains it") << path;
    }
    EXPECT_EQ(trashed(m_home, m_tree.text("shared/x", "1")), m_home.inTrash("x"));
}

TEST_F(MoveToTrash, AFolderThatTheWayToTheTrashOnlyPassesThroughStays)
{
    const std::string detour = m_tree.folder("home/detour");
    const ScopedVariable data("XDG_DATA_HOME", detour + "/../data");
    EXPECT_EQ(told(m_home, detour), "It is the Trash, or contains it");
    EXPECT_EQ(trashed(m_home, m_tree.text("home/x", "1")), detour + "/../data/Trash/files/x");
    EXPECT_TRUE(stands(detour));
}

TEST_F(MoveToTrash, ALinkOnTheWayToTheTrashStaysAlsoWhereItLeadsBackToTheSamePlace)
{
    m_tree.folder("home/.local/data");
    const std::string link = m_tree.link("home/.local/share", "data");
    for (const std::string& path :
         {link, m_home.path(".local/data"), m_home.path(".local/data/Trash")}) {
        EXPECT_EQ(told(m_home, path), "It is the Trash, or contains it") << path;
    }
}

TEST_F(MoveToTrash, WhatLiesInAnotherTrashOfTheHomesVolumeStays)
{
    withSecondVolume([&](const std::string& top, const std::string& folder) {
        const TrashHome home(folder);
        const std::string other = top + "/.Trash-" + std::to_string(::geteuid());
        const std::string inner = other + "/files/zolva-test-inner";
        std::filesystem::create_directories(inner);
        EXPECT_EQ(told(home, inner), "It is in the Trash already");
        EXPECT_EQ(told(home, other), "It is the Trash, or contains it");
        EXPECT_TRUE(stands(inner));
        std::filesystem::remove_all(inner);
        std::filesystem::remove_all(home.path(".local"));
    });
}

TEST_F(MoveToTrash, AVolumeThatHandsItsGroupOnHasATrashAllTheSame)
{
    withSecondVolume([&](const std::string& top, const std::string& folder) {
        const std::string path = folder + "/x";
        ASSERT_EQ(::mkdir(path.c_str(), 0755), 0);
        const std::string user = std::to_string(::geteuid());
        ASSERT_EQ(::mkdir((top + "/.Trash").c_str(), 0777), 0);
        ASSERT_EQ(::chmod((top + "/.Trash").c_str(), 03777), 0);
        EXPECT_EQ(trashed(m_home, path), top + "/.Trash/" + user + "/files/x");
        std::filesystem::remove_all(top + "/.Trash");
    });
}

TEST_F(MoveToTrash, ATrashThatCannotBeTrustedOnceMadeLeavesNoFolderBehind)
{
    withSecondVolume([&](const std::string& top, const std::string& folder) {
        const std::string path = folder + "/x";
        ASSERT_EQ(::mkdir(path.c_str(), 0755), 0);
        const std::string made = top + "/.Trash";
        ASSERT_EQ(::mkdir(made.c_str(), 0777), 0);
        ASSERT_EQ(::chmod(made.c_str(), 01777), 0);
        // As on file systems that have modes of their own.
        const mode_t before = ::umask(0200);
        const std::string words = told(m_home, path);
        ::umask(before);
        EXPECT_TRUE(words.ends_with(": Operation not permitted")) << words;
        EXPECT_TRUE(stands(path));
        EXPECT_TRUE(namesIn(made).empty());
        EXPECT_EQ(::rmdir(path.c_str()), 0);
        EXPECT_EQ(::rmdir(made.c_str()), 0);
    });
}

TEST_F(MoveToTrash, ARecordsFolderThatIsALinkIsNotWrittenThrough)
{
    const std::string other = m_tree.folder("home/other");
    m_tree.link("home/.local/share/Trash/info", other);
    const std::string path = m_tree.text("home/x", "1");
    EXPECT_TRUE(told(m_home, path).starts_with(m_home.trash() + "/info: "));
    EXPECT_EQ(content(path), "1");
    EXPECT_TRUE(namesIn(other).empty());
}

TEST_F(MoveToTrash, LongAndOddNamesKeepTheirPlaceInTheRecord)
{
    for (const std::string& name :
         {std::string(255, 'n'), std::string("new\nline %41"), std::string("\xFF\xFE bytes"),
          std::string("[Trash Info]"), std::string(" lead and trail "), std::string("a\\b\"c'"),
          std::string(84, 'x') + "\xE2\x82\xAC" + std::string(160, 'y')}) {
        SCOPED_TRACE(name);
        const std::string path = m_tree.text("home/" + name, name);
        const std::string landed = trashed(m_home, path);
        EXPECT_EQ(content(landed), name);
        EXPECT_EQ(originOf(m_home.infoOf(landed.substr(landed.rfind('/') + 1))), path);
    }
}

TEST_F(MoveToTrash, NamesakesLandApartWhenTheCountersAreUsedUp)
{
    // Records alone take the names too, and are cheaper to make.
    m_tree.text("home/.local/share/Trash/info/node_modules.trashinfo", "");
    for (int number = 2; number <= 100; ++number) {
        m_tree.text("home/.local/share/Trash/info/node_modules " + std::to_string(number) +
                        ".trashinfo",
                    "");
    }
    for (int i = 0; i < 20; ++i) {
        m_tree.folder("home/node_modules");
        ASSERT_TRUE(moveToTrash(m_home.home(), m_home.path("node_modules")).has_value());
    }
    EXPECT_EQ(namesIn(m_home.trash() + "/files").size(), 20U);
    EXPECT_EQ(namesIn(m_home.trash() + "/info").size(), 120U);
}

TEST_F(MoveToTrash, AnItemBelowALinkedFolderIsMovedByItsOwnPlace)
{
    const std::string real = m_tree.text("home/real/x", "1");
    m_tree.link("home/link", m_home.path("real"));
    trashed(m_home, m_home.path("link/x"));
    EXPECT_FALSE(stands(real));
    EXPECT_EQ(originOf(m_home.infoOf("x")), m_home.path("link/x"));
}

TEST_F(MoveToTrash, APathLongerThanTheSystemTakesIsMoved)
{
    const std::string name(200, 'd');
    std::string path = m_home.home();
    ASSERT_EQ(::chdir(path.c_str()), 0);
    for (int level = 0; level < 25; ++level) {
        ASSERT_EQ(::mkdir(name.c_str(), 0755), 0);
        ASSERT_EQ(::chdir(name.c_str()), 0);
        path += "/" + name;
    }
    ASSERT_EQ(::mkdir("last", 0755), 0);
    ASSERT_EQ(::chdir("/"), 0);
    ASSERT_GT(path.size(), 4096U);
    EXPECT_EQ(trashed(m_home, path + "/last"), m_home.inTrash("last"));
    EXPECT_EQ(originOf(m_home.infoOf("last")), path + "/last");
    // Too deep for what clears up after a test.
    trashed(m_home, m_home.path(name));
    EXPECT_TRUE(deleteFromTrash(*pinHomeTrash(m_home.home()), name).has_value());
}

TEST_F(MoveToTrash, WhatMayNotBeMovedStaysAndIsTold)
{
    withoutOverridingPermissions([&] {
        const std::string path = m_tree.text("home/locked/x", "1");
        m_tree.setMode("home/locked", 0500);
        EXPECT_EQ(told(m_home, path), "Permission denied");
        EXPECT_EQ(content(path), "1");
        EXPECT_TRUE(namesIn(m_home.trash() + "/info").empty());
        m_tree.setMode("home/locked", 0700);
    });
}

TEST_F(MoveToTrash, AParentThatCannotBeListedIsEnough)
{
    withoutOverridingPermissions([&] {
        const std::string path = m_tree.text("home/blind/x", "1");
        m_tree.setMode("home/blind", 0300);
        EXPECT_EQ(trashed(m_home, path), m_home.inTrash("x"));
        m_tree.setMode("home/blind", 0700);
    });
}

TEST_F(MoveToTrash, ATrashThatCannotBeWrittenToIsNamed)
{
    withoutOverridingPermissions([&] {
        const std::string path = m_tree.text("home/x", "1");
        for (const char* part : {"files", "info"}) {
            m_tree.folder("home/.local/share/Trash/files");
            m_tree.folder("home/.local/share/Trash/info");
            m_tree.setMode(std::string("home/.local/share/Trash/") + part, 0500);
            EXPECT_TRUE(told(m_home, path).ends_with("Permission denied")) << part;
            EXPECT_EQ(content(path), "1");
            m_tree.setMode(std::string("home/.local/share/Trash/") + part, 0700);
            EXPECT_TRUE(namesIn(m_home.trash() + "/info").empty());
            EXPECT_TRUE(namesIn(m_home.trash() + "/files").empty());
        }
        m_tree.setMode("home/.local", 0000);
        EXPECT_TRUE(told(m_home, path).starts_with(m_home.trash() + ": Permission denied"));
        m_tree.setMode("home/.local", 0700);
    });
}

TEST_F(MoveToTrash, AFileInThePlaceOfTheTrashIsNamed)
{
    const std::string path = m_tree.text("home/x", "1");
    m_tree.text("home/.local/share/Trash", "");
    EXPECT_EQ(told(m_home, path), m_home.trash() + ": Not a directory");
    EXPECT_EQ(content(path), "1");
}

TEST_F(MoveToTrash, ThingsOfAnotherVolumeGoToItsOwnTrash)
{
    withSecondVolume([&](const std::string& top, const std::string& folder) {
        const std::string user = std::to_string(::geteuid());
        const std::string path = folder + "/a b";
        ASSERT_EQ(::mkdir(path.c_str(), 0755), 0);
        const std::string landed = trashed(m_home, path);
        EXPECT_EQ(landed, top + "/.Trash-" + user + "/files/a b");
        EXPECT_TRUE(stands(landed));
        EXPECT_FALSE(stands(path));
        // Relative to the volume's top, so that it holds wherever the volume is mounted.
        EXPECT_EQ(originOf(top + "/.Trash-" + user + "/info/a b.trashinfo"),
                  path.substr(top.size() + 1));
        EXPECT_EQ(told(m_home, landed), "It is in the Trash already");
        EXPECT_EQ(told(m_home, top + "/.Trash-" + user), "It is the Trash, or contains it");
        ASSERT_TRUE(putBackFromTrash(landed, path, MissingParent::IsAnError).has_value());
        EXPECT_TRUE(stands(path));
        EXPECT_TRUE(namesIn(top + "/.Trash-" + user + "/info").empty());
        EXPECT_EQ(::rmdir(path.c_str()), 0);
    });
}

TEST_F(MoveToTrash, ATrashOfAVolumeThatOthersCouldHavePlantedIsNotTaken)
{
    withSecondVolume([&](const std::string& top, const std::string& folder) {
        const std::string planted = top + "/.Trash-" + std::to_string(::geteuid());
        const std::string path = folder + "/x";
        ASSERT_EQ(::mkdir(path.c_str(), 0755), 0);
        ASSERT_EQ(::mkdir(planted.c_str(), 0700), 0);
        ASSERT_EQ(::chmod(planted.c_str(), 0777), 0);
        EXPECT_EQ(told(m_home, path), planted + ": Operation not permitted");
        ASSERT_EQ(::rmdir(planted.c_str()), 0);
        ASSERT_EQ(::symlink(folder.c_str(), planted.c_str()), 0);
        EXPECT_TRUE(told(m_home, path).starts_with(planted + ": "));
        EXPECT_TRUE(stands(path));
        EXPECT_EQ(namesIn(folder), std::vector<std::string>{"x"});
        EXPECT_EQ(::unlink(planted.c_str()), 0);
        EXPECT_EQ(::rmdir(path.c_str()), 0);
    });
}

TEST_F(MoveToTrash, TheSharedTrashOfAVolumeMustBeSticky)
{
    withSecondVolume([&](const std::string& top, const std::string& folder) {
        const std::string user = std::to_string(::geteuid());
        const std::string shared = top + "/.Trash";
        ASSERT_EQ(::mkdir(shared.c_str(), 0777), 0);
        for (const unsigned mode : {0777U, 01777U}) {
            ASSERT_EQ(::chmod(shared.c_str(), mode), 0);
            const std::string path = folder + "/x";
            ASSERT_EQ(::mkdir(path.c_str(), 0755), 0);
            EXPECT_EQ(trashed(m_home, path), mode == 01777U ? shared + "/" + user + "/files/x"
                                                            : shared + "-" + user + "/files/x");
        }
        std::filesystem::remove_all(shared);
        std::filesystem::remove_all(shared + "-" + user);
    });
}

TEST_F(MoveToTrash, NothingIsCopiedToTheTrashOfAnotherMountOfTheSameDisk)
{
    const std::string path = m_tree.text("home/mounted/x", "1");
    const bool ran = withBindMount(m_home.path("mounted"), m_home.path("mounted"), [&] {
        const std::string user = std::to_string(::geteuid());
        EXPECT_EQ(trashed(m_home, path), m_home.path("mounted/.Trash-") + user + "/files/x");
        EXPECT_EQ(told(m_home, m_home.path("mounted")), "Device or resource busy");
    });
    EXPECT_EQ(content(path), ran ? "(none)" : "1");
}

} // namespace
