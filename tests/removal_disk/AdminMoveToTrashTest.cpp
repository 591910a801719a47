#include "removal/disk/AdminMoveToTrash.h"

#include "removal/disk/PutBack.h"
#include "support/DroppedCapabilities.h"
#include "support/RecordedLog.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace {

using namespace zolva;
using namespace zolva::test;

class AdminMoveToTrash : public ::testing::Test
{
protected:
    /// Does what is asked without asking for a password: the system's mv itself, in its own
    /// process.
    ToolRunner moving()
    {
        return [this](const std::vector<std::string>& command) {
            m_commands.push_back(command);
            const auto tool = std::find_if(command.begin() + 1, command.end(),
                                           [](const auto& one) { return one.starts_with('/'); });
            return runTool(std::vector<std::string>(tool, command.end()));
        };
    }

    ToolRunner answering(int status)
    {
        return [this, status](const std::vector<std::string>& command) {
            m_commands.push_back(command);
            return status;
        };
    }

    TrashHome m_home;
    TempTree& m_tree = m_home.tree;
    std::vector<std::vector<std::string>> m_commands;
};

TEST_F(AdminMoveToTrash, TheItemLandsInTheTrashAndCanBePutBack)
{
    const std::string path = m_tree.text("home/Applications/Foo.app/bin", "1");
    EXPECT_TRUE(adminMoveToTrash(m_home.path("Applications/Foo.app"), moving()));
    EXPECT_EQ(content(m_home.inTrash("Foo.app/bin")), "1");
    EXPECT_EQ(putBackByName("Foo.app"), m_home.path("Applications/Foo.app"));
    EXPECT_EQ(content(path), "1");
}

TEST_F(AdminMoveToTrash, NamesakesAreNumberedBeforeTheExtension)
{
    for (const char* name : {"Foo.app", "Foo 2.app", "Foo 3.app"}) {
        m_tree.text("home/Applications/Foo.app/bin", name);
        EXPECT_TRUE(adminMoveToTrash(m_home.path("Applications/Foo.app"), moving()));
        EXPECT_EQ(content(m_home.inTrash(std::string(name) + "/bin")), name);
    }
}

TEST_F(AdminMoveToTrash, ANameWithoutExtensionGetsNoTrailingDot)
{
    m_tree.text("home/.local/share/Trash/files/Name", "first");
    m_tree.text("home/x/Name", "second");
    EXPECT_TRUE(adminMoveToTrash(m_home.path("x/Name"), moving()));
    EXPECT_EQ(content(m_home.inTrash("Name")), "first");
    EXPECT_EQ(content(m_home.inTrash("Name 2")), "second");
}

TEST_F(AdminMoveToTrash, ADanglingLinkInTheTrashTakesItsName)
{
    m_tree.link("home/.local/share/Trash/files/Name", m_home.path("elsewhere"));
    m_tree.text("home/x/Name", "1");
    EXPECT_TRUE(adminMoveToTrash(m_home.path("x/Name"), moving()));
    EXPECT_EQ(content(m_home.inTrash("Name 2")), "1");
    EXPECT_FALSE(stands(m_home.path("elsewhere")));
}

TEST_F(AdminMoveToTrash, TheGuardIsAskedFirstAndNothingIsLogged)
{
    const RecordedLog log;
    const std::string kept = m_tree.text("home/Documents/x", "kept");
    EXPECT_FALSE(adminMoveToTrash(m_home.path("Documents"), moving()));
    EXPECT_FALSE(adminMoveToTrash(m_tree.text("outside", "kept"), moving()));
    EXPECT_TRUE(m_commands.empty());
    EXPECT_TRUE(log.records().empty());
    EXPECT_EQ(content(kept), "kept");
    EXPECT_EQ(content(m_tree.path("outside")), "kept");
    EXPECT_FALSE(stands(m_home.trash()));
}

TEST_F(AdminMoveToTrash, APathReachesTheToolUnharmedAsOneArgument)
{
    const std::string name = "a'b \"c\" $(x) `y` ;\\ \xC3\xA4\xE2\x82\xAC\n-n";
    const std::string path = m_tree.text("home/" + name, "1");
    EXPECT_TRUE(adminMoveToTrash(path, moving()));
    ASSERT_EQ(m_commands.size(), 1U);
    EXPECT_EQ(m_commands.front()[m_commands.front().size() - 2], path);
    EXPECT_EQ(content(m_home.inTrash(name)), "1");
}

TEST_F(AdminMoveToTrash, NamesTooLongForARecordAreShortenedAndOddOnesKept)
{
    const std::string longest(255, 'n');
    const std::string odd = "\xFF\xFE bytes";
    const std::string oddAndLong = odd + std::string(255 - odd.size(), '\xFE');
    for (const std::string& name : {longest, odd, oddAndLong}) {
        for (int namesake = 0; namesake < 2; ++namesake) {
            m_tree.text("home/x/" + name, name);
            EXPECT_TRUE(adminMoveToTrash(m_home.path("x/" + name), moving()));
        }
    }
    const auto landed = namesIn(m_home.trash() + "/files");
    EXPECT_EQ(landed.size(), 6U);
    for (const std::string& name : landed) {
        EXPECT_LE(name.size(), 245U);
        EXPECT_TRUE(stands(m_home.infoOf(name)));
    }
    EXPECT_EQ(content(m_home.inTrash(odd + " 2")), odd);
}

TEST_F(AdminMoveToTrash, TheSearchForAFreeNameEnds)
{
    withoutOverridingPermissions([&] {
        const std::string path = m_tree.text("home/x/Name", "kept");
        m_tree.folder("home/.local/share/Trash/files");
        m_tree.setMode("home/.local/share/Trash", 0000);
        EXPECT_FALSE(adminMoveToTrash(path, moving()));
        m_tree.setMode("home/.local/share/Trash", 0700);
        EXPECT_EQ(content(path), "kept");
    });
}

TEST_F(AdminMoveToTrash, ADismissedPromptLeavesEverythingAsItWas)
{
    const std::string path = m_tree.text("home/x", "kept");
    for (const int status : {126, 127, -1, 1}) {
        EXPECT_FALSE(adminMoveToTrash(path, answering(status)));
    }
    EXPECT_EQ(content(path), "kept");
    EXPECT_TRUE(namesIn(m_home.trash() + "/files").empty());
    EXPECT_TRUE(namesIn(m_home.trash() + "/info").empty());
}

TEST_F(AdminMoveToTrash, AStatusOfZeroAloneIsNotBelieved)
{
    const std::string path = m_tree.text("home/x", "kept");
    EXPECT_FALSE(adminMoveToTrash(path, answering(0)));
    EXPECT_EQ(content(path), "kept");
}

TEST_F(AdminMoveToTrash, ACopyInThePlaceOfTheItemIsNotBelieved)
{
    const std::string path = m_tree.text("home/x", "1");
    EXPECT_FALSE(adminMoveToTrash(path, [](const std::vector<std::string>& command) {
        std::filesystem::copy(command[command.size() - 2], command.back());
        std::filesystem::remove(command[command.size() - 2]);
        return 0;
    }));
    EXPECT_EQ(content(m_home.inTrash("x")), "1");
    EXPECT_TRUE(stands(m_home.infoOf("x")));
}

TEST_F(AdminMoveToTrash, AFolderReachedThroughALinkIsNotTouched)
{
    const std::string kept = m_tree.text("outside/x", "kept");
    m_tree.link("home/link", m_tree.path("outside"));
    EXPECT_FALSE(adminMoveToTrash(m_home.path("link/x"), moving()));
    EXPECT_TRUE(m_commands.empty());
    EXPECT_EQ(content(kept), "kept");
}

TEST_F(AdminMoveToTrash, AHomeThatIsALinkIsNoHindrance)
{
    m_tree.text("home/x", "1");
    m_tree.link("house", m_home.home());
    const ScopedHome scope(m_tree.path("house"));
    EXPECT_TRUE(adminMoveToTrash("~/x", moving()));
    EXPECT_EQ(content(m_home.inTrash("x")), "1");
}

TEST_F(AdminMoveToTrash, WhatIsGoneIsNotAskedFor)
{
    EXPECT_FALSE(adminMoveToTrash(m_home.path("gone"), moving()));
    EXPECT_TRUE(m_commands.empty());
}

} // namespace
