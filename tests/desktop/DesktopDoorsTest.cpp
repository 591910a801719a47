#include "desktop/linux/DesktopDoors.h"
#include "desktop/PrivateBus.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"
#include "support/qt/EventLoop.h"

#include <gtest/gtest.h>

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QThreadPool>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace zolva::test {

namespace {

/// A file manager on the bus, that notes what it is to show, or will not.
class FileManager final : public QDBusVirtualObject
{
public:
    explicit FileManager(QDBusConnection bus) : m_bus(std::move(bus))
    {
        m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/FileManager1"), this);
        m_bus.registerService(QStringLiteral("org.freedesktop.FileManager1"));
    }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        const QString uri = message.arguments().value(0).toStringList().join(QLatin1Char(' '));
        shown.append(message.member() + QLatin1Char(' ') + uri);
        bus.send(uri == refused ? message.createErrorReply(QDBusError::Failed, uri)
                                : message.createReply());
        return true;
    }

    QStringList shown;
    QString refused;

private:
    QDBusConnection m_bus;
};

/// A desktop on the disk: programs that note their arguments, and what is registered for what.
class Doors : public ::testing::Test
{
protected:
    Doors()
    {
        tree.folder("home/Library/Logs/Zolva");
        tree.folder("home/.local/share/Trash/files");
    }

    std::unique_ptr<DesktopDoors> doors(const QDBusConnection& bus)
    {
        return std::make_unique<DesktopDoors>(
            bus,
            Places{tree.path("home/.local/share/Trash/files"), tree.path("home/Library/Logs/Zolva"),
                   [this](const QString& text) { told.append(text); }});
    }

    void program(const std::string& name)
    {
        const std::string note = tree.path("ran");
        tree.text("bin/" + name, "#!/bin/sh\nprintf '%s' \"${0##*/}\" > '" + note +
                                     ".part'\nprintf ' [%s]' \"$@\" >> '" + note + ".part'\nmv '" +
                                     note + ".part' '" + note + "'\n");
        tree.setMode("bin/" + name, 0755);
    }
    void handler(const std::string& mimeType)
    {
        tree.text("data/applications/files.desktop", "[Desktop Entry]\n");
        m_handlers += mimeType + "=gone.desktop;files.desktop;\n";
        tree.text("data/applications/mimeinfo.cache", m_handlers);
    }
    [[nodiscard]] std::string ran() const
    {
        std::ifstream file(tree.path("ran"));
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void awaitRun()
    {
        pumpUntil([this] { return std::filesystem::exists(tree.path("ran")); });
    }
    [[nodiscard]] std::string uri(const std::string& relative) const
    {
        return "file://" + tree.path(relative);
    }

    TempTree tree;
    ScopedHome home{tree.path("home")};
    ScopedVariable path{"PATH", tree.path("bin") + ":/usr/bin:/bin"};
    ScopedVariable data{"XDG_DATA_DIRS", tree.path("data")};
    ScopedVariable config{"XDG_CONFIG_DIRS", tree.path("config")};
    ScopedVariable desktop{"XDG_CURRENT_DESKTOP", "KDE"};
    QStringList told;

private:
    std::string m_handlers = "[MIME Cache]\n";
};

TEST_F(Doors, ShowTheTrashByTheFileManagerOfTheBus)
{
    PrivateBus bus;
    FileManager manager(bus.connection());
    const auto opened = doors(bus.connection());
    opened->openTrash();
    EXPECT_TRUE(manager.shown.isEmpty()) << "nobody waits for it";
    pumpUntil([&] { return !manager.shown.isEmpty(); });
    EXPECT_EQ(manager.shown, QStringList{QStringLiteral("ShowFolders trash:///")});
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(Doors, ShowTheTrashByWhatIsRegisteredForIt)
{
    program("xdg-open");
    handler("x-scheme-handler/trash");
    doors(noBus())->openTrash();
    awaitRun();
    EXPECT_EQ(ran(), "xdg-open [trash:///]");
}

TEST_F(Doors, ShowTheFolderOfTheTrashWhereNothingKnowsTheTrashItself)
{
    program("xdg-open");
    handler("inode/directory");
    doors(noBus())->openTrash();
    awaitRun();
    EXPECT_EQ(ran(), "xdg-open [" + uri("home/.local/share/Trash/files") + "]");
}

TEST_F(Doors, ShowTheFolderWhereTheFileManagerRefusesTheTrash)
{
    PrivateBus bus;
    FileManager manager(bus.connection());
    manager.refused = QStringLiteral("trash:///");
    const auto opened = doors(bus.connection());
    opened->openTrash();
    pumpUntil([&] { return manager.shown.size() == 2; });
    EXPECT_EQ(manager.shown.back().toStdString(),
              "ShowFolders " + uri("home/.local/share/Trash/files"));
}

TEST_F(Doors, TellWhereTheTrashIsIfNothingOpensIt)
{
    program("xdg-open");
    doors(noBus())->openTrash();
    EXPECT_EQ(told,
              QStringList{QStringLiteral("No program was found that can open the Trash. It is at "
                                         "~/.local/share/Trash/files.")});
    EXPECT_FALSE(std::filesystem::exists(tree.path("ran")));
}

TEST_F(Doors, TellWhereTheTrashIsIfNobodyOnTheBusShowsIt)
{
    PrivateBus bus;
    const auto opened = doors(bus.connection());
    opened->openTrash();
    EXPECT_TRUE(told.isEmpty()) << "nobody waits for it";
    pumpUntil([this] { return !told.isEmpty(); });
    EXPECT_EQ(told.size(), 1);
}

TEST_F(Doors, DoNotStartAProgramForAHandlerThatIsGone)
{
    program("xdg-open");
    tree.text("data/applications/mimeinfo.cache",
              "[MIME Cache]\ninode/directory=gone.desktop;also-gone.desktop;\n");
    doors(noBus())->openLogFolder();
    EXPECT_EQ(told.size(), 1);
    EXPECT_FALSE(std::filesystem::exists(tree.path("ran")));
}

TEST_F(Doors, ShowTheLogFolder)
{
    PrivateBus bus;
    FileManager manager(bus.connection());
    const auto opened = doors(bus.connection());
    opened->openLogFolder();
    pumpUntil([&] { return !manager.shown.isEmpty(); });
    EXPECT_EQ(manager.shown.front().toStdString(), "ShowFolders " + uri("home/Library/Logs/Zolva"));
}

TEST_F(Doors, TellThatTheLogFolderIsGone)
{
    program("xdg-open");
    handler("inode/directory");
    std::filesystem::remove(tree.path("home/Library/Logs/Zolva"));
    doors(noBus())->openLogFolder();
    EXPECT_EQ(told, QStringList{QStringLiteral(
                        "No program was found that can open the log folder. It is at "
                        "~/Library/Logs/Zolva.")});
}

TEST_F(Doors, HandOverAPathOfAnyBytes)
{
    program("xdg-open");
    handler("inode/directory");
    const std::string odd = tree.folder("a b'\"$(x)%\xFF");
    DesktopDoors(noBus(), Places{odd, odd, {}}).openLogFolder();
    awaitRun();
    EXPECT_EQ(ran(), "xdg-open [" + uri("a%20b%27%22%24%28x%29%25%FF") + "]");
}

TEST_F(Doors, TakeGioWhereThereIsNoOtherOpener)
{
    const ScopedVariable only("PATH", tree.path("bin"));
    tree.link("bin/mv", "/bin/mv");
    program("gio");
    handler("inode/directory");
    doors(noBus())->openLogFolder();
    awaitRun();
    EXPECT_EQ(ran(), "gio [open] [" + uri("home/Library/Logs/Zolva") + "]");
}

TEST_F(Doors, OpenAPageByWhatIsRegisteredForIt)
{
    program("xdg-open");
    handler("x-scheme-handler/https");
    doors(noBus())->openPage("https://example.org/a?b=c&d=%20'#e");
    awaitRun();
    EXPECT_EQ(ran(), "xdg-open [https://example.org/a?b=c&d=%20'#e]");
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(Doors, TellTheAddressOfAPageIfNothingOpensIt)
{
    program("xdg-open");
    doors(noBus())->openPage("https://example.org/get");
    EXPECT_EQ(told, QStringList{QStringLiteral("No program was found that can open web pages. The "
                                               "address is https://example.org/get")});
    EXPECT_FALSE(std::filesystem::exists(tree.path("ran")));
}

TEST_F(Doors, OpenTheLicenseByWhatIsRegisteredForText)
{
    program("xdg-open");
    handler("text/plain");
    const std::string license = tree.text("mole/LICENSE", "Do as you like.");
    const auto tell = [this](const QString& text) { told.append(text); };
    DesktopDoors(noBus(), Places{{}, {}, tell, license}).openToolLicense();
    awaitRun();
    EXPECT_EQ(ran(), "xdg-open [" + uri("mole/LICENSE") + "]");
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(Doors, TellWhereTheLicenseIsIfNothingOpensIt)
{
    program("xdg-open");
    const auto tell = [this](const QString& text) { told.append(text); };
    DesktopDoors(noBus(), Places{{}, {}, tell, "/opt/LICENSE"}).openToolLicense();
    EXPECT_EQ(told, QStringList{QStringLiteral("No program was found that can open the license. It "
                                               "is at /opt/LICENSE.")});
}

TEST_F(Doors, OpenNothingWhereThereIsNoLicense)
{
    program("xdg-open");
    handler("text/plain");
    doors(noBus())->openToolLicense();
    EXPECT_TRUE(told.isEmpty());
    EXPECT_FALSE(std::filesystem::exists(tree.path("ran")));
}

TEST_F(Doors, OpenTheSettingsOfTheDesktopThatRuns)
{
    for (const char* name : {"gnome-control-center", "systemsettings", "xfce4-settings-manager"}) {
        program(name);
    }
    doors(noBus())->openAccessSettings();
    awaitRun();
    EXPECT_EQ(ran(), "systemsettings []");
}

TEST_F(Doors, OpenTheSettingsOfAnotherDesktopOnlyWhereTheyOpen)
{
    program("gnome-control-center");
    doors(noBus())->openAccessSettings();
    EXPECT_EQ(told.size(), 1);
    program("xfce4-settings-manager");
    doors(noBus())->openAccessSettings();
    awaitRun();
    EXPECT_EQ(ran(), "xfce4-settings-manager []");
    EXPECT_EQ(told.size(), 1);
}

TEST_F(Doors, TellThatThereAreNoSettings)
{
    const ScopedVariable only("PATH", tree.path("bin"));
    doors(noBus())->openAccessSettings();
    EXPECT_EQ(told, QStringList{QStringLiteral("No settings program was found. Your file manager "
                                               "can change who may read a folder.")});
}

TEST_F(Doors, ShowAnItemSelectedInItsFolder)
{
    PrivateBus bus;
    FileManager manager(bus.connection());
    tree.text("home/Downloads/tool.dmg", "x");
    const auto opened = doors(bus.connection());
    opened->reveal("~/Downloads/tool.dmg");
    EXPECT_TRUE(manager.shown.isEmpty()) << "nobody waits for it";
    pumpUntil([&] { return !manager.shown.isEmpty(); });
    EXPECT_EQ(manager.shown.front().toStdString(), "ShowItems " + uri("home/Downloads/tool.dmg"));
    EXPECT_EQ(manager.shown.size(), 1);
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(Doors, ShowAnItemWhoseNameIsNoText)
{
    PrivateBus bus;
    FileManager manager(bus.connection());
    const std::string odd = tree.text("a b%\xFF#?", "x");
    const auto opened = doors(bus.connection());
    opened->reveal(odd);
    pumpUntil([&] { return !manager.shown.isEmpty(); });
    EXPECT_EQ(manager.shown.front().toStdString(), "ShowItems " + uri("a%20b%25%FF%23%3F"));
}

TEST_F(Doors, ShowTheFolderThatIsLeftOfAnItemThatIsGone)
{
    PrivateBus bus;
    FileManager manager(bus.connection());
    const auto opened = doors(bus.connection());
    opened->reveal("~/gone/farther/tool.dmg");
    pumpUntil([&] { return !manager.shown.isEmpty(); });
    EXPECT_EQ(manager.shown.front().toStdString(), "ShowItems " + uri("home"));
}

TEST_F(Doors, OpenTheFolderOfAnItemWhereTheFileManagerRefusesToShowIt)
{
    program("xdg-open");
    handler("inode/directory");
    PrivateBus bus;
    FileManager manager(bus.connection());
    tree.text("home/Downloads/tool.dmg", "x");
    manager.refused = QString::fromStdString(uri("home/Downloads/tool.dmg"));
    const auto opened = doors(bus.connection());
    opened->reveal("~/Downloads/tool.dmg");
    awaitRun();
    EXPECT_EQ(ran(), "xdg-open [" + uri("home/Downloads") + "]");
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(Doors, TellThatNothingShowsAnItem)
{
    tree.text("home/Downloads/tool.dmg", "x");
    const auto opened = doors(noBus());
    opened->reveal(tree.path("home/Downloads/tool.dmg"));
    EXPECT_TRUE(told.isEmpty()) << "nobody waits for it";
    pumpUntil([this] { return !told.isEmpty(); });
    EXPECT_EQ(told, QStringList{QStringLiteral(
                        "No program was found that can show ~/Downloads/tool.dmg.")});
}

TEST_F(Doors, ThatHaveClosedShowNothingMore)
{
    PrivateBus bus;
    FileManager manager(bus.connection());
    doors(bus.connection())->reveal("~");
    QThreadPool::globalInstance()->waitForDone();
    const auto later = doors(bus.connection());
    later->openLogFolder();
    pumpUntil([&] { return !manager.shown.isEmpty(); });
    EXPECT_EQ(manager.shown.size(), 1);
    EXPECT_TRUE(manager.shown.front().startsWith(QStringLiteral("ShowFolders ")));
}

} // namespace

} // namespace zolva::test
