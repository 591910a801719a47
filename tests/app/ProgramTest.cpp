#include "app/CommandLine.h"
#include "desktop/PrivateBus.h"
#include "support/TempTree.h"
#include "support/qt/EventLoop.h"

#include <gtest/gtest.h>

#include <QDBusConnectionInterface>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <signal.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace zolva::test {

namespace {

constexpr auto noDisplay = "zolva: there is no display to show a window on.\n"
                           "zolvactl answers the same questions in a terminal.\n";

/// A session of a user at home in a temporary folder.
class Session
{
public:
    Session() { m_tree.folder("run"); }

    [[nodiscard]] std::string path(const std::string& relative) const
    {
        return m_tree.path(relative);
    }

    /// The program begun in it; without an address there is no bus.
    std::unique_ptr<QProcess> begin(const std::string& bus, const QStringList& arguments = {})
    {
        auto process = std::make_unique<QProcess>();
        process->setProgram(QString::fromStdString(program));
        process->setArguments(arguments);
        process->setProcessEnvironment(environment(bus));
        process->start();
        return process;
    }

    /// A copy of the program, beside which lies a feed that nobody serves.
    void giveFeed()
    {
        m_tree.text("share/zolva/UpdateConfig.plist",
                    R"(<?xml version="1.0"?><plist version="1.0"><dict>)"
                    R"(<key>ManifestURL</key><string>https://127.0.0.1:1/feed.json</string>)"
                    R"(<key>PublicKey</key><string>KEY</string></dict></plist>)");
        m_tree.folder("bin");
        program = m_tree.path("bin/zolva");
        std::filesystem::copy_file(ZOLVA, program);
    }

    std::string program = ZOLVA;
    std::optional<std::string> platform = "offscreen";
    std::string display;

private:
    [[nodiscard]] QProcessEnvironment environment(const std::string& bus) const
    {
        QProcessEnvironment all;
        const auto set = [&all](const char* name, const std::string& value) {
            all.insert(QString::fromLatin1(name), QString::fromStdString(value));
        };
        set("PATH", "/usr/bin:/bin");
        set("HOME", m_tree.root());
        for (const char* name : {"DATA_HOME", "CONFIG_HOME", "STATE_HOME", "CACHE_HOME"}) {
            set((std::string("XDG_") + name).c_str(), m_tree.path(name));
        }
        set("XDG_RUNTIME_DIR", m_tree.path("run"));
        set("DBUS_SESSION_BUS_ADDRESS", bus.empty() ? "unix:path=/nonexistent/bus" : bus);
        set("QT_QUICK_BACKEND", "software");
        set("ASAN_OPTIONS", "detect_leaks=0"); // the engine keeps what it compiled
        if (platform) {
            set("QT_QPA_PLATFORM", *platform);
        }
        if (!display.empty()) {
            set("DISPLAY", display);
        }
        return all;
    }

    TempTree m_tree;
};

struct Ending
{
    int code = -1; ///< -1: by a signal
    std::string out;
    std::string err;
};

Ending ending(QProcess& process)
{
    // A whole program starts, on a machine that may be busy.
    pumpUntil([&process] { return process.state() == QProcess::NotRunning; },
              std::chrono::seconds(60));
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

void signalTo(const QProcess& process, int signal)
{
    ASSERT_EQ(::kill(static_cast<pid_t>(process.processId()), signal), 0);
}

/// When what stands at the path was made; nothing while there is nothing.
std::optional<std::int64_t> madeAt(const std::string& path)
{
    struct stat status
    {};
    if (::lstat(path.c_str(), &status) != 0) {
        return std::nullopt;
    }
    return std::int64_t{status.st_ctim.tv_sec} * 1'000'000'000 + status.st_ctim.tv_nsec;
}

void awaitName(PrivateBus& bus, bool there)
{
    const QDBusConnection connection = bus.connection();
    pumpUntil(
        [&] {
            return connection.interface()->isServiceRegistered(QStringLiteral("org.zolva.Zolva")) ==
                   there;
        },
        std::chrono::seconds(60));
}

TEST(Program, PrintsItsVersionAndItsHelpWithoutADisplay)
{
    Session session;
    session.platform.reset();
    for (const QString& word : {QStringLiteral("--version"), QStringLiteral("--help")}) {
        const auto process = session.begin({}, {word});
        const Ending end = ending(*process);
        EXPECT_EQ(end.code, 0);
        EXPECT_EQ(end.out, *askedAnswer({word.toStdString()}));
        EXPECT_EQ(end.err, "");
    }
    EXPECT_EQ(*askedAnswer({"--version"}), "zolva " ZOLVA_VERSION "\n");
    EXPECT_EQ(*askedAnswer({"-h"}), *askedAnswer({"--help"}));
}

TEST(Program, RefusesArgumentsItDoesNotKnow)
{
    Session session;
    const auto process = session.begin({}, {QStringLiteral("/some/file")});
    const Ending end = ending(*process);
    EXPECT_EQ(end.code, 2);
    EXPECT_EQ(end.err, "zolva: unknown argument: /some/file\nTry 'zolva --help'.\n");
}

TEST(Program, TellsThatThereIsNoDisplay)
{
    Session session;
    session.platform.reset();
    const auto process = session.begin({});
    const Ending end = ending(*process);
    EXPECT_EQ(end.code, 1);
    EXPECT_EQ(end.out, "");
    EXPECT_EQ(end.err, noDisplay);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(session.path("Library"))));
}

TEST(Program, TellsThatTheDisplayCannotBeReached)
{
    Session session;
    session.platform.reset();
    session.display = ":7654";
    const auto process = session.begin({});
    const Ending end = ending(*process);
    EXPECT_EQ(end.code, 1);
    EXPECT_EQ(end.err, noDisplay);
}

TEST(Program, LooksForAnUpdateOnceItsWindowIsThereIfItHasAFeed)
{
    Session session;
    session.giveFeed();
    const QString settings =
        QString::fromStdString(session.path("CONFIG_HOME/zolva/preferences.json"));
    const auto first = session.begin({});
    pumpUntil([&settings] { return QFile::exists(settings); }, std::chrono::seconds(60));
    QFile file(settings);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("zolva.lastUpdateCheck"));
    signalTo(*first, SIGTERM);
    EXPECT_EQ(ending(*first).code, 0);
}

TEST(Program, EndsTheSecondOfASessionAndLeavesTheFirst)
{
    Session session;
    PrivateBus bus;
    const auto first = session.begin(bus.address());
    awaitName(bus, true);
    const auto second = session.begin(bus.address());
    const Ending end = ending(*second);
    EXPECT_EQ(end.code, 0);
    EXPECT_EQ(end.err, "");
    ASSERT_EQ(first->state(), QProcess::Running);
    // It answered, so its event loop runs.
    signalTo(*first, SIGTERM);
    const Ending last = ending(*first);
    EXPECT_EQ(last.code, 0);
    EXPECT_EQ(last.err.find("QObject::connect"), std::string::npos) << last.err;
    awaitName(bus, false);
}

TEST(Program, EndsTheSecondOfASessionWithoutABusToo)
{
    Session session;
    const auto first = session.begin({});
    pumpUntil(
        [&] { return QFile::exists(QString::fromStdString(session.path("run/zolva.socket"))); },
        std::chrono::seconds(60));
    const auto second = session.begin({});
    EXPECT_EQ(ending(*second).code, 0);
    ASSERT_EQ(first->state(), QProcess::Running);
    signalTo(*first, SIGINT);
    EXPECT_EQ(ending(*first).code, 0);
}

TEST(Program, StartsAgainAfterOneThatWasKilled)
{
    Session session;
    const std::string socket = session.path("run/zolva.socket");
    const auto first = session.begin({});
    pumpUntil([&socket] { return madeAt(socket).has_value(); }, std::chrono::seconds(60));
    const auto left = madeAt(socket);
    signalTo(*first, SIGKILL);
    EXPECT_EQ(ending(*first).code, -1);
    ASSERT_EQ(madeAt(socket), left);
    const auto next = session.begin({});
    pumpUntil([&] { return madeAt(socket) && madeAt(socket) != left; }, std::chrono::seconds(60));
    const auto third = session.begin({});
    EXPECT_EQ(ending(*third).code, 0);
    ASSERT_EQ(next->state(), QProcess::Running);
    signalTo(*next, SIGHUP);
    EXPECT_EQ(ending(*next).code, 0);
}

} // namespace

} // namespace zolva::test
