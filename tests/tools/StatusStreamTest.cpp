#include "support/TempTree.h"
#include "tools/StatusKeys.h"
#include "tools/ToolProcess.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <fstream>
#include <string>

namespace zolva::test {

namespace {

using Json = nlohmann::json;

const std::vector<std::string> everySecond = {"status", "--json", "--watch", "--interval", "1s"};
const std::vector<std::string> everyHour = {"status", "--json", "--watch", "--interval", "3600s"};

Json nextDocument(ToolProcess& tool)
{
    const std::optional<std::string> line = tool.readLine();
    return line ? Json::parse(*line, nullptr, false) : Json();
}

/// A child that does nothing but use a processor, under a name of its own if it is given one.
struct BusyProcess
{
    explicit BusyProcess(const char* name = nullptr) : pid(::fork())
    {
        if (pid == 0) {
            if (name) {
                ::prctl(PR_SET_NAME, name);
            }
            volatile unsigned turns = 0;
            while (true) {
                turns = turns + 1;
            }
        }
    }
    ~BusyProcess()
    {
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);
    }
    BusyProcess(const BusyProcess&) = delete;
    BusyProcess& operator=(const BusyProcess&) = delete;

    pid_t pid;
};

std::int64_t totalMemory()
{
    std::ifstream file("/proc/meminfo");
    std::string name;
    std::int64_t kilobytes = 0;
    file >> name >> kilobytes;
    return name == "MemTotal:" ? kilobytes * 1024 : -1;
}

double uptime()
{
    std::ifstream file("/proc/uptime");
    double seconds = 0;
    file >> seconds;
    return seconds;
}

} // namespace

TEST(StatusStream, EveryKeyIsThereWithItsType)
{
    ToolProcess tool(everySecond);
    const Json document = nextDocument(tool);
    ASSERT_TRUE(document.is_object());
    EXPECT_EQ(faultsOf(document), std::vector<std::string>());
    EXPECT_FALSE(document.at("top_processes").empty());
}

TEST(StatusStream, ADocumentFollowsAnIntervalLaterWithALongerHistory)
{
    ToolProcess tool(everySecond);
    const Json first = nextDocument(tool);
    const Json second = nextDocument(tool);
    ASSERT_TRUE(first.is_object());
    ASSERT_TRUE(second.is_object());
    EXPECT_EQ(faultsOf(second), std::vector<std::string>());
    EXPECT_EQ(first.at("network_history").at("rx_history").size(), 1U);
    EXPECT_EQ(second.at("network_history").at("rx_history").size(), 2U);
    EXPECT_LT(first.at("collected_at").get<std::string>(),
              second.at("collected_at").get<std::string>());
}

TEST(StatusStream, TheReadingsAreThoseOfThisMachine)
{
    const double before = uptime();
    ToolProcess tool(everySecond);
    const Json document = nextDocument(tool);
    ASSERT_TRUE(document.is_object());
    const double after = uptime();

    const Json& memory = document.at("memory");
    EXPECT_EQ(memory.at("total").get<std::int64_t>(), totalMemory());
    EXPECT_EQ(memory.at("used").get<std::int64_t>() + memory.at("available").get<std::int64_t>(),
              totalMemory());
    EXPECT_GE(document.at("uptime_seconds").get<double>(), before - 2);
    EXPECT_LE(document.at("uptime_seconds").get<double>(), after + 2);
    EXPECT_EQ(document.at("cpu").at("logical_cpu").get<long>(), ::sysconf(_SC_NPROCESSORS_ONLN));
    EXPECT_EQ(document.at("cpu").at("per_core").size(),
              static_cast<std::size_t>(::sysconf(_SC_NPROCESSORS_ONLN)));
    std::array<char, 256> host{};
    ::gethostname(host.data(), host.size() - 1);
    EXPECT_EQ(document.at("host").get<std::string>(), host.data());
    for (const Json& share : document.at("cpu").at("per_core")) {
        EXPECT_GE(share.get<double>(), 0);
        EXPECT_LE(share.get<double>(), 100);
    }
}

TEST(StatusStream, ABusyProcessIsAmongTheTopOnesWithItsTrueName)
{
    const BusyProcess busy;
    ToolProcess tool(everySecond);
    const Json first = nextDocument(tool);
    const Json second = nextDocument(tool);
    ASSERT_TRUE(second.is_object());
    const Json& top = second.at("top_processes");
    const auto found =
        std::ranges::find_if(top, [&](const Json& one) { return one.at("pid") == busy.pid; });
    ASSERT_NE(found, top.end());
    EXPECT_GT(found->at("cpu").get<double>(), 1);
    EXPECT_EQ(found->at("ppid").get<pid_t>(), ::getpid());
}

TEST(StatusStream, ANameOfOddBytesStillGivesADocument)
{
    const BusyProcess busy("x\xff\x01\"\n) 7 (");
    ToolProcess tool(everySecond);
    const Json first = nextDocument(tool);
    const Json second = nextDocument(tool);
    ASSERT_TRUE(second.is_object());
    EXPECT_EQ(faultsOf(second), std::vector<std::string>());
    const Json& top = second.at("top_processes");
    const auto found =
        std::ranges::find_if(top, [&](const Json& one) { return one.at("pid") == busy.pid; });
    ASSERT_NE(found, top.end());
    EXPECT_EQ(found->at("name").get<std::string>().substr(0, 4), "x\xEF\xBF\xBD");
}

TEST(StatusStream, TheTrashOfTheHomeIsCountedWhole)
{
    TempTree home;
    const std::string file = home.file(".local/share/Trash/files/folder/inner", 40'000);
    home.file(".local/share/Trash/info/folder.trashinfo", 9'000);
    home.link(".local/share/Trash/files/link", "/etc");
    ToolProcess tool(everySecond,
                     {{{"HOME", home.root()}, {"XDG_DATA_HOME", home.path(".local/share")}}});
    const Json document = nextDocument(tool);
    ASSERT_TRUE(document.is_object());
    EXPECT_EQ(document.at("trash_size").get<std::int64_t>(), blocksOf(file));
    EXPECT_EQ(document.at("trash_approx").get<bool>(), false);
}

TEST(StatusStream, AskedToEndItDiesOfThatSignalEvenIfItsParentIgnoredIt)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        ToolProcess tool(everyHour, {.blocked = {SIGTERM, SIGINT, SIGHUP, SIGPIPE}});
        ASSERT_TRUE(tool.readLine()) << signal;
        tool.send(signal);
        const std::optional<Ending> ending = tool.wait();
        ASSERT_TRUE(ending) << signal;
        EXPECT_EQ(ending->signal, signal);
    }
}

TEST(StatusStream, ItEndsWhileItSleepsWhenNobodyReadsAnyMore)
{
    ToolProcess tool(everyHour);
    ASSERT_TRUE(tool.readLine());
    tool.closeOutput();
    const std::optional<Ending> ending = tool.wait();
    ASSERT_TRUE(ending);
    EXPECT_EQ(ending->exitCode, 0);
    EXPECT_EQ(tool.readErrors(), "");
}

TEST(StatusStream, ItEndsBeforeTheFirstDocumentWhenNobodyReads)
{
    ToolProcess tool(everyHour);
    tool.closeOutput();
    const std::optional<Ending> ending = tool.wait();
    ASSERT_TRUE(ending);
    EXPECT_EQ(ending->exitCode, 0);
}

TEST(StatusStream, EveryOtherCallPrintsTheUsageAndExitsWithTwo)
{
    const std::vector<std::vector<std::string>> calls = {
        {},
        {"status"},
        {"status", "--json"},
        {"status", "--json", "--watch"},
        {"status", "--json", "--watch", "--interval", "0s"},
        {"status", "--json", "--watch", "--interval", "1"},
        {"status", "--json", "--watch", "--interval", "1s", "more"},
        {"uninstall"},
        {"uninstall", "--list", "--json"},
        {"--help"},
    };
    for (const std::vector<std::string>& call : calls) {
        ToolProcess tool(call);
        EXPECT_EQ(tool.readOutput(), "");
        EXPECT_EQ(tool.readErrors().substr(0, 6), "usage:");
        const std::optional<Ending> ending = tool.wait();
        ASSERT_TRUE(ending);
        EXPECT_EQ(ending->exitCode, 2);
    }
}

} // namespace zolva::test
