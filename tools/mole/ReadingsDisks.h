#pragma once

#include "mole/Rates.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// The disks of this machine: what is on them, and what goes to and fro. One thread.
namespace zolva::mole {

/// Tells the statistics library to look at file systems that lie on a disk of this machine, and at
/// no others: asking one that lies elsewhere can wait for ever.
void limitToDiskFileSystems();

/// One mounted file system; bytes.
struct DiskReading
{
    std::string mount;
    std::string device;
    std::string fileSystem;
    std::int64_t used = 0;
    std::int64_t total = 0;
    std::int64_t available = 0; ///< for anyone to use; what is reserved for root is not
    bool external = false;      ///< on USB, or on a medium that can be taken out
};

/// Each device once, at the first place where it is mounted.
[[nodiscard]] std::vector<DiskReading> readDisks();

/// How full the disk is for those who are not root, in percent, as `df` tells it. Pure.
[[nodiscard]] double fullness(const DiskReading& disk);

/// Whether the device, such as "sda1", is on USB or removable, or all that it stands on is, as told
/// below `sys`, which is /sys.
[[nodiscard]] bool isExternalDevice(const std::string& sys, const std::string& name);

/// Whether the name is that of a whole piece of hardware, as told below `sys`: neither a part of
/// another one nor made of others, whose traffic would count twice.
[[nodiscard]] bool isWholeDisk(const std::string& sys, std::string name);

/// Megabytes (10^6 bytes) a second of all whole disks together.
struct DiskRates
{
    double read = 0;
    double write = 0;
};

/// Rates from one reading to the next.
class DiskMeter
{
public:
    DiskMeter();
    [[nodiscard]] DiskRates read();

private:
    struct Counters
    {
        std::uint64_t read = 0;
        std::uint64_t written = 0;
    };
    [[nodiscard]] std::map<std::string, Counters> counters();

    std::map<std::string, bool> m_whole; ///< by name, so that each is looked up once
    std::map<std::string, Counters> m_before;
    std::chrono::steady_clock::time_point m_when;
};

} // namespace zolva::mole
