#include "core/MoLocation.h"

#include "core/Resources.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"
#include "support/qt/EventLoop.h"

#include <QProcess>
#include <QString>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace zolva::test {

namespace {

class MoLocationTest : public ::testing::Test
{
protected:
    std::string executable(const std::string& relative)
    {
        std::string path = m_tree.text(relative, "#!/bin/sh\n");
        m_tree.setMode(relative, 0755);
        return path;
    }

    [[nodiscard]] MoLocation find() const
    {
        return findMo({m_tree.path("lib"), m_tree.path("share")},
                      {m_tree.path("first/mo"), m_tree.path("second/mo")});
    }

    [[nodiscard]] std::optional<std::string> versionOf(const std::string& relative,
                                                       MoLocation::Kind kind) const
    {
        return moVersion({m_tree.path(relative), kind});
    }

    std::optional<std::string> versionByFile(const std::string& content)
    {
        m_tree.text("mole/VERSION", content);
        return versionOf("mole/bin/mole", MoLocation::Kind::Shipped);
    }

    std::optional<std::string> versionByLink(const std::string& target)
    {
        ::unlink(m_tree.path("mo").c_str());
        m_tree.link("mo", target);
        return versionOf("mo", MoLocation::Kind::Installed);
    }

    TempTree m_tree;
};

} // namespace

TEST_F(MoLocationTest, TheResourcesComeFirstThenTheInstalledPlacesInOrder)
{
    const std::string second = executable("second/mo");
    EXPECT_EQ(find().path, second);
    EXPECT_EQ(find().kind, MoLocation::Kind::Installed);
    const std::string first = executable("first/mo");
    EXPECT_EQ(find().path, first);
    const std::string shared = executable("share/mole/bin/mole");
    EXPECT_EQ(find().path, shared);
    EXPECT_EQ(find().kind, MoLocation::Kind::Shipped);
    const std::string lib = executable("lib/mole/bin/mole");
    EXPECT_EQ(find().path, lib);
}

TEST_F(MoLocationTest, WithNoToolAnywhereThePathIsTheFirstInstalledPlace)
{
    EXPECT_EQ(find().path, m_tree.path("first/mo"));
    EXPECT_EQ(find().kind, MoLocation::Kind::Absent);
    EXPECT_EQ(installedMo(),
              (std::vector<std::string>{"/opt/homebrew/bin/mo", "/usr/local/bin/mo"}));
}

TEST_F(MoLocationTest, TheLicenseIsThatOfTheFirstFolderOfResourcesThatHasOne)
{
    const auto found = [this] { return toolLicense({m_tree.path("lib"), m_tree.path("share")}); };
    EXPECT_EQ(found(), "");
    m_tree.folder("lib/mole/LICENSE");
    EXPECT_EQ(found(), "");
    const std::string shared = m_tree.text("share/mole/LICENSE", "Do as you like.");
    EXPECT_EQ(found(), shared);
    EXPECT_EQ(toolLicense({}), "");
}

TEST_F(MoLocationTest, AFolderAndAFileWithoutTheBitAreNoTool)
{
    m_tree.folder("lib/mole/bin/mole");
    m_tree.text("first/mo", "#!/bin/sh\n");
    m_tree.setMode("first/mo", 0644);
    const std::string second = executable("second/mo");
    EXPECT_EQ(find().path, second);
}

TEST_F(MoLocationTest, ALinkToAToolIsFollowedAndADanglingOneIsNone)
{
    m_tree.link("first/mo", m_tree.path("nowhere"));
    const std::string real = executable("cellar/mo");
    m_tree.link("second/mo", real);
    EXPECT_EQ(find().path, m_tree.path("second/mo"));
}

TEST_F(MoLocationTest, AToolInstalledAfterStartUpIsNotFoundByTheProcessThatRuns)
{
    m_tree.folder("bin");
    std::filesystem::copy_file(LOCATION_PROBE, m_tree.path("bin/probe"));
    QProcess probe;
    probe.start(QString::fromStdString(m_tree.path("bin/probe")), {});
    const auto answer = [&probe](const char* question) {
        probe.write(question);
        pumpUntil([&] { return probe.canReadLine(); });
        return probe.readLine().trimmed().toStdString();
    };
    const std::string before = answer("known\n");
    const std::string installed = executable("share/zolva/mole/bin/mole");
    EXPECT_NE(before, installed);
    EXPECT_EQ(answer("known\n"), before);
    // It would be found by a search.
    EXPECT_EQ(answer("again\n"), installed);
    EXPECT_EQ(answer("known\n"), before);
    probe.closeWriteChannel();
    pumpUntil([&] { return probe.state() == QProcess::NotRunning; });
}

TEST_F(MoLocationTest, TheResourcesStandRelativeToTheExecutableOnly)
{
    EXPECT_EQ(resourceFoldersOf("/opt/zolva/bin/zolva"),
              (std::vector<std::string>{"/opt/zolva/lib/zolva", "/opt/zolva/share/zolva"}));
    const std::vector<std::string> before = resourceFolders();
    ASSERT_FALSE(before.empty());
    const ScopedVariable path("PATH", m_tree.root());
    const ScopedHome home(m_tree.root());
    EXPECT_EQ(resourceFolders(), before);
    for (const std::string& folder : before) {
        EXPECT_EQ(folder.front(), '/');
    }
}

TEST_F(MoLocationTest, TheShippedVersionIsTheTrimmedTextOfItsFile)
{
    EXPECT_EQ(versionByFile("1.2.3"), "1.2.3");
    EXPECT_EQ(versionByFile(" 1.2.3\r\n\n"), "1.2.3");
}

TEST_F(MoLocationTest, AVersionFileThatSaysBundledGivesNone)
{
    EXPECT_EQ(versionByFile("bundled"), std::nullopt);
    EXPECT_EQ(versionByFile("bundled\n"), std::nullopt);
    EXPECT_EQ(versionByFile("Bundled"), "Bundled");
}

TEST_F(MoLocationTest, AVersionFileThatIsEmptyMissingOrNoTextGivesNone)
{
    EXPECT_EQ(versionOf("mole/bin/mole", MoLocation::Kind::Shipped), std::nullopt);
    EXPECT_EQ(versionByFile(" \n"), std::nullopt);
    EXPECT_EQ(versionByFile("1.2\xFF"), std::nullopt);
    ::unlink(m_tree.path("mole/VERSION").c_str());
    m_tree.folder("mole/VERSION");
    EXPECT_EQ(versionOf("mole/bin/mole", MoLocation::Kind::Shipped), std::nullopt);
}

TEST_F(MoLocationTest, AVersionFileIsNeitherWaitedForNorReadWithoutABound)
{
    EXPECT_EQ(versionByFile(std::string(65'000, ' ') + "1.2.3"), "1.2.3");
    EXPECT_EQ(versionByFile(std::string(66'000, ' ') + "1.2.3"), std::nullopt);
    ::unlink(m_tree.path("mole/VERSION").c_str());
    m_tree.fifo("mole/VERSION");
    EXPECT_EQ(versionOf("mole/bin/mole", MoLocation::Kind::Shipped), std::nullopt);
}

TEST_F(MoLocationTest, AnInstalledVersionFollowsThePieceMoleInTheLinksTarget)
{
    EXPECT_EQ(versionByLink("../Cellar/mole/1.2.3/bin/mo"), "1.2.3");
    EXPECT_EQ(versionByLink("//Cellar//mole//1.2.3/mole/9"), "1.2.3");
    EXPECT_EQ(versionByLink("../Cellar/molehill/1.2.3/bin/mo"), std::nullopt);
    EXPECT_EQ(versionByLink("../Cellar/mole"), std::nullopt);
    EXPECT_EQ(versionByLink("../Cellar/mole/"), std::nullopt);
}

TEST_F(MoLocationTest, AnInstalledToolThatIsAPlainFileGivesNoVersion)
{
    executable("mole/1.2.3/mo");
    EXPECT_EQ(versionOf("mole/1.2.3/mo", MoLocation::Kind::Installed), std::nullopt);
}

TEST_F(MoLocationTest, AnAbsentToolHasNoVersion)
{
    m_tree.link("mo", "../Cellar/mole/1.2.3/bin/mo");
    EXPECT_EQ(versionOf("mo", MoLocation::Kind::Absent), std::nullopt);
}

} // namespace zolva::test
