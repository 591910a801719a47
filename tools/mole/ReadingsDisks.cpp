#include "mole/ReadingsDisks.h"

#include "mole/Statistics.h"
#include "mole/SystemFile.h"

#include <statgrab.h>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <memory>
#include <set>
#include <span>

namespace zolva::mole {

namespace {

/// Those that can be written. Images of programs and discs are always full and say nothing.
/// An overlay counts as the root alone, where it is all that a container sees of its disk.
constexpr std::array diskFileSystems = {"ext2",    "ext3", "ext4",     "xfs",      "btrfs",
                                        "f2fs",    "jfs",  "reiserfs", "bcachefs", "zfs",
                                        "nilfs2",  "vfat", "exfat",    "ntfs",     "ntfs3",
                                        "fuseblk", "hfs",  "hfsplus",  "apfs",     "overlay"};

/// Deep enough for every real stack of devices.
constexpr int maxStack = 8;

std::int64_t clampedBytes(unsigned long long bytes)
{
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    return bytes > static_cast<unsigned long long>(most) ? most : static_cast<std::int64_t>(bytes);
}

std::string resolved(const std::string& path)
{
    const std::unique_ptr<char, void (*)(void*)> real(::realpath(path.c_str(), nullptr), std::free);
    return real ? std::string(real.get()) : std::string();
}

bool isExternalAt(const std::string& sys, const std::string& name, int depth)
{
    const std::string place = resolved(sys + "/class/block/" + name);
    if (place.empty()) {
        return false;
    }
    // A part of a disk lies within the disk's own folder, which alone tells of the medium.
    const std::string disk = place.substr(0, place.rfind('/'));
    if (place.find("/usb") != std::string::npos || fileNumber(place + "/removable") == 1 ||
        fileNumber(disk + "/removable") == 1) {
        return true;
    }
    const std::vector<std::string> below = namesIn(place + "/slaves");
    return depth < maxStack && !below.empty() &&
           std::ranges::all_of(
               below, [&](const std::string& one) { return isExternalAt(sys, one, depth + 1); });
}

} // namespace

void limitToDiskFileSystems()
{
    std::array<const char*, diskFileSystems.size() + 1> names{};
    std::ranges::copy(diskFileSystems, names.begin());
    sg_set_valid_filesystems(names.data());
}

bool isExternalDevice(const std::string& sys, const std::string& name)
{
    return isExternalAt(sys, name, 0);
}

bool isWholeDisk(const std::string& sys, std::string name)
{
    // The folder's name cannot hold a slash.
    std::ranges::replace(name, '/', '!');
    return ::access((sys + "/block/" + name + "/device").c_str(), F_OK) == 0;
}

std::vector<DiskReading> readDisks()
{
    std::vector<DiskReading> disks;
    std::size_t entries = 0;
    const sg_fs_stats* found = sg_get_fs_stats(&entries);
    std::set<std::string> seen;
    for (const sg_fs_stats& one : std::span(found, found ? entries : 0)) {
        DiskReading disk{textOf(one.mnt_point),  textOf(one.device_name), textOf(one.fs_type),
                         clampedBytes(one.used), clampedBytes(one.size),  clampedBytes(one.avail)};
        const bool partOfRoot = disk.fileSystem == "overlay" && disk.mount != "/";
        if (disk.total <= 0 || partOfRoot || !seen.insert(disk.device).second) {
            continue;
        }
        const std::string device = textOf(one.device_canonical);
        disk.external = isExternalDevice("/sys", device.substr(device.rfind('/') + 1));
        disks.push_back(std::move(disk));
    }
    return disks;
}

double fullness(const DiskReading& disk)
{
    const auto used = static_cast<double>(disk.used);
    return percent(used, used + static_cast<double>(disk.available));
}

std::map<std::string, DiskMeter::Counters> DiskMeter::counters()
{
    std::map<std::string, Counters> now;
    std::size_t entries = 0;
    const sg_disk_io_stats* found = sg_get_disk_io_stats(&entries);
    for (const sg_disk_io_stats& one : std::span(found, found ? entries : 0)) {
        const std::string name = textOf(one.disk_name);
        const auto [known, isNew] = m_whole.try_emplace(name, false);
        if (isNew) {
            known->second = isWholeDisk("/sys", name);
        }
        if (known->second) {
            now[name] = {one.read_bytes, one.write_bytes};
        }
    }
    return now;
}

DiskMeter::DiskMeter() : m_before(counters()), m_when(std::chrono::steady_clock::now()) {}

DiskRates DiskMeter::read()
{
    std::map<std::string, Counters> now = counters();
    const auto when = std::chrono::steady_clock::now();
    DiskRates rates;
    for (const auto& [name, counter] : now) {
        const auto earlier = m_before.find(name);
        if (earlier != m_before.end()) {
            rates.read += perSecond(earlier->second.read, counter.read, when - m_when);
            rates.write += perSecond(earlier->second.written, counter.written, when - m_when);
        }
    }
    rates.read /= bytesPerMegabyte;
    rates.write /= bytesPerMegabyte;
    m_before = std::move(now);
    m_when = when;
    return rates;
}

} // namespace zolva::mole
