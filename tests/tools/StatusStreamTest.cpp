#include "support/TempTree.h"
#include "tools/ToolProcess.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <fstream>
#include <string>

namespace zolva::test {

namespace {

using Json = nlohmann::json;

const std::vector<std::string> everySecond = {"status", "--json", "--watch", "--interval", "1s"};
const std::vector<std::string> everyHour = {"status", "--json", "--watch", "--interval", "3600s"};

/// What a reader of the documents asks of each key: text, whole number, number, flag, object, list
/// of objects or of numbers. An optional key may be null.
enum class Kind
{
    Text,
    Whole,
    Float,
    Flag,
    Object,
    List,
    Floats
};

struct Key
{
    const char* record; ///< "" is the document; a list stands for each of its objects
    const char* name;
    Kind kind;
    bool optional = false;
};

constexpr Key keys[] = {
    {"", "collected_at", Kind::Text},
    {"", "host", Kind::Text},
    {"", "platform", Kind::Text},
    {"", "uptime", Kind::Text},
    {"", "uptime_seconds", Kind::Whole},
    {"", "procs", Kind::Whole},
    {"", "hardware", Kind::Object},
    {"", "health_score", Kind::Whole},
    {"", "health_score_msg", Kind::Text},
    {"", "cpu", Kind::Object},
    {"", "gpu", Kind::List, true},
    {"", "memory", Kind::Object},
    {"", "disks", Kind::List},
    {"", "trash_size", Kind::Whole},
    {"", "trash_approx", Kind::Flag},
    {"", "disk_io", Kind::Object},
    {"", "network", Kind::List},
    {"", "network_history", Kind::Object},
    {"", "proxy", Kind::Object},
    {"", "batteries", Kind::List, true},
    {"", "thermal", Kind::Object},
    {"", "sensors", Kind::Text, true},
    {"", "bluetooth", Kind::List, true},
    {"", "top_processes", Kind::List, true},
    {"", "process_watch", Kind::Object},
    {"", "process_alerts", Kind::List},
    {"hardware", "model", Kind::Text},
    {"hardware", "cpu_model", Kind::Text},
    {"hardware", "total_ram", Kind::Text},
    {"hardware", "disk_size", Kind::Text},
    {"hardware", "os_version", Kind::Text},
    {"hardware", "refresh_rate", Kind::Text},
    {"cpu", "usage", Kind::Float},
    {"cpu", "per_core", Kind::Floats},
    {"cpu", "per_core_estimated", Kind::Flag},
    {"cpu", "load1", Kind::Float},
    {"cpu", "load5", Kind::Float},
    {"cpu", "load15", Kind::Float},
    {"cpu", "core_count", Kind::Whole},
    {"cpu", "logical_cpu", Kind::Whole},
    {"cpu", "p_core_count", Kind::Whole},
    {"cpu", "e_core_count", Kind::Whole},
    {"memory", "used", Kind::Whole},
    {"memory", "total", Kind::Whole},
    {"memory", "available", Kind::Whole},
    {"memory", "used_percent", Kind::Float},
    {"memory", "swap_used", Kind::Whole},
    {"memory", "swap_total", Kind::Whole},
    {"memory", "cached", Kind::Whole},
    {"memory", "pressure", Kind::Text},
    {"disks", "mount", Kind::Text},
    {"disks", "device", Kind::Text},
    {"disks", "used", Kind::Whole},
    {"disks", "total", Kind::Whole},
    {"disks", "used_percent", Kind::Float},
    {"disks", "fstype", Kind::Text},
    {"disks", "external", Kind::Flag},
    {"disk_io", "read_rate", Kind::Float},
    {"disk_io", "write_rate", Kind::Float},
    {"network", "name", Kind::Text},
    {"network", "rx_rate_mbs", Kind::Float},
    {"network", "tx_rate_mbs", Kind::Float},
    {"network", "ip", Kind::Text},
    {"network_history", "rx_history", Kind::Floats},
    {"network_history", "tx_history", Kind::Floats},
    {"proxy", "enabled", Kind::Flag},
    {"proxy", "type", Kind::Text},
    {"proxy", "host", Kind::Text},
    {"batteries", "percent", Kind::Whole},
    {"batteries", "status", Kind::Text},
    {"batteries", "time_left", Kind::Text},
    {"batteries", "health", Kind::Text},
    {"batteries", "cycle_count", Kind::Whole},
    {"batteries", "capacity", Kind::Whole},
    {"thermal", "cpu_temp", Kind::Float},
    {"thermal", "gpu_temp", Kind::Float},
    {"thermal", "battery_temp", Kind::Float},
    {"thermal", "fan_speed", Kind::Float},
    {"thermal", "fan_count", Kind::Whole},
    {"thermal", "system_power", Kind::Float},
    {"thermal", "adapter_power", Kind::Float},
    {"thermal", "battery_power", Kind::Float},
    {"top_processes", "pid", Kind::Whole},
    {"top_processes", "ppid", Kind::Whole},
    {"top_processes", "name", Kind::Text},
    {"top_processes", "command", Kind::Text},
    {"top_processes", "cpu", Kind::Float},
    {"top_processes", "memory", Kind::Float},
    {"top_processes", "memory_bytes", Kind::Whole},
    {"process_watch", "enabled", Kind::Flag},
    {"process_watch", "cpu_threshold", Kind::Float},
    {"process_watch", "window", Kind::Text},
};

bool isKind(const Json& value, Kind kind)
{
    switch (kind) {
    case Kind::Text:
        return value.is_string();
    case Kind::Whole:
        return value.is_number_integer();
    case Kind::Float:
        return value.is_number() && std::isfinite(value.get<double>());
    case Kind::Flag:
        return value.is_boolean();
    case Kind::Object:
        return value.is_object();
    case Kind::List:
        return value.is_array() && std::ranges::all_of(value, &Json::is_object);
    case Kind::Floats:
        return value.is_array() && std::ranges::all_of(value, &Json::is_number);
    }
    return false;
}

/// What the table says of the document, once a wrong key.
std::vector<std::string> faultsOf(const Json& document)
{
    std::vector<std::string> faults;
    for (const Key& key : keys) {
        const std::string record = key.record;
        const Json whole = record.empty() ? document : document.value(record, Json());
        const std::vector<Json> places =
            whole.is_array() ? whole.get<std::vector<Json>>() : std::vector<Json>{whole};
        for (const Json& place : places) {
            const bool there = place.is_object() && place.contains(key.name);
            const bool absent = key.optional && (!there || place.at(key.name).is_null());
            if (!absent && !(there && isKind(place.at(key.name), key.kind))) {
                faults.push_back(record + "." + key.name);
            }
        }
    }
    return faults;
}

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
    EXPECT_FALSE(document.at("disks").empty());
}

TEST(StatusStream, TheTableItselfFindsAMissingNullOrWrongKey)
{
    ToolProcess tool(everySecond);
    Json document = nextDocument(tool);
    ASSERT_TRUE(document.is_object());
    document.erase("procs");
    document["disks"] = nullptr;
    document["memory"]["total"] = 3.5;
    document["top_processes"][0]["name"] = 1;
    const std::vector<std::string> faults = faultsOf(document);
    for (const char* expected : {".procs", ".disks", "memory.total", "top_processes.name"}) {
        EXPECT_NE(std::ranges::find(faults, expected), faults.end()) << expected;
    }
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
                     {{"HOME", home.root()}, {"XDG_DATA_HOME", home.path(".local/share")}});
    const Json document = nextDocument(tool);
    ASSERT_TRUE(document.is_object());
    EXPECT_EQ(document.at("trash_size").get<std::int64_t>(), blocksOf(file));
    EXPECT_EQ(document.at("trash_approx").get<bool>(), false);
}

TEST(StatusStream, AskedToEndItDiesOfThatSignalEvenIfItsParentIgnoredIt)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        ToolProcess tool(everyHour, {}, {SIGTERM, SIGINT, SIGHUP, SIGPIPE});
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
