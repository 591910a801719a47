#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// One reading of the machine as the outside tool tells it: plain values, in the order of the
/// document. Sizes are bytes, rates are as the tool tells them, texts are UTF-8. An optional field
/// is absent where the document has no such key or null; nothing is ever filled in.
namespace zolva {

struct Hardware
{
    std::string model;
    std::string cpuModel;
    std::string totalRam;
    std::string diskSize;
    std::string osVersion;
    std::string refreshRate;
};

struct CPU
{
    double usage = 0; ///< percent
    std::vector<double> perCore;
    bool perCoreEstimated = false;
    double load1 = 0;
    double load5 = 0;
    double load15 = 0;
    std::int64_t coreCount = 0;
    std::int64_t logicalCPU = 0;
    std::int64_t pCoreCount = 0;
    std::int64_t eCoreCount = 0;
};

struct GPU
{
    std::string name;
    double usage = 0;
    std::int64_t memoryUsed = 0;
    std::int64_t memoryTotal = 0;
    std::int64_t coreCount = 0;
    std::string note;
};

struct Memory
{
    std::int64_t used = 0;
    std::int64_t total = 0;
    std::int64_t available = 0;
    double usedPercent = 0;
    std::int64_t swapUsed = 0;
    std::int64_t swapTotal = 0;
    std::int64_t cached = 0;
    std::string pressure; ///< may be empty
};

struct Disk
{
    std::string mount;
    std::string device;
    std::int64_t used = 0;
    std::int64_t total = 0;
    double usedPercent = 0;
    std::string fstype;
    bool external = false;
};

struct DiskIO
{
    double readRate = 0;
    double writeRate = 0;
};

struct NetworkInterface
{
    std::string name;
    double rxRateMbs = 0;
    double txRateMbs = 0;
    std::string ip;
};

struct NetworkHistory
{
    std::vector<double> rxHistory;
    std::vector<double> txHistory;
};

struct Proxy
{
    bool enabled = false;
    std::string type;
    std::string host;
};

struct Battery
{
    std::int64_t percent = 0;
    std::string status;
    std::string timeLeft;
    std::string health;
    std::int64_t cycleCount = 0;
    std::int64_t capacity = 0;
};

struct Thermal
{
    double cpuTemp = 0;
    double gpuTemp = 0;
    double batteryTemp = 0;
    double fanSpeed = 0;
    std::int64_t fanCount = 0;
    double systemPower = 0;
    double adapterPower = 0;
    double batteryPower = 0;
};

struct BluetoothDevice
{
    std::string name;
    bool connected = false;
    std::string battery;
};

struct TopProcess ///< told apart by `pid`
{
    std::int64_t pid = 0;
    std::int64_t ppid = 0;
    std::string name;
    std::string command;
    double cpu = 0;
    double memory = 0;
    std::int64_t memoryBytes = 0;
};

struct ProcessWatch
{
    bool enabled = false;
    double cpuThreshold = 0;
    std::string window;
};

struct ProcessAlert
{
    std::optional<std::int64_t> pid;
    std::optional<std::string> name;
};

struct StatusResult
{
    std::chrono::sys_time<std::chrono::microseconds> collectedAt;
    std::string host;
    std::string platform;
    std::string uptime; ///< ready to be shown
    std::int64_t uptimeSeconds = 0;
    std::int64_t procs = 0;
    Hardware hardware;
    std::int64_t healthScore = 0; ///< out of 100
    std::string healthScoreMsg;
    CPU cpu;
    std::optional<std::vector<GPU>> gpu;
    Memory memory;
    std::vector<Disk> disks;
    std::int64_t trashSize = 0;
    bool trashApprox = false;
    DiskIO diskIO;
    std::vector<NetworkInterface> network;
    NetworkHistory networkHistory;
    Proxy proxy;
    std::optional<std::vector<Battery>> batteries;
    Thermal thermal;
    std::optional<std::string> sensors;
    std::optional<std::vector<BluetoothDevice>> bluetooth;
    std::optional<std::vector<TopProcess>> topProcesses;
    ProcessWatch processWatch;
    std::vector<ProcessAlert> processAlerts;

    std::string document; ///< the line that all this was read from, unknown keys included
};

} // namespace zolva
