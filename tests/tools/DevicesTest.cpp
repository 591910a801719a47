#include "mole/Rates.h"
#include "mole/ReadingsDisks.h"
#include "mole/ReadingsNetwork.h"
#include "mole/ReadingsPower.h"
#include "mole/ReadingsThermal.h"
#include "mole/TrashSize.h"

#include "support/DroppedCapabilities.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <string>

namespace zolva::test {

using namespace mole;

TEST(Rates, ACounterThatBeganAnewHasNone)
{
    EXPECT_DOUBLE_EQ(perSecond(100, 300, Seconds(2)), 100);
    EXPECT_DOUBLE_EQ(perSecond(300, 100, Seconds(2)), 0);
    EXPECT_DOUBLE_EQ(perSecond(100, 300, Seconds(0)), 0);
}

TEST(Rates, TheHistoryKeepsTheLastSixty)
{
    History history;
    for (int value = 0; value < 70; ++value) {
        history.add(value);
    }
    ASSERT_EQ(history.values().size(), 60U);
    EXPECT_DOUBLE_EQ(history.values().front(), 10);
    EXPECT_DOUBLE_EQ(history.values().back(), 69);
}

TEST(Disks, FullnessLeavesOutWhatIsReserved)
{
    DiskReading disk;
    disk.used = 90;
    disk.total = 200;
    disk.available = 10;
    EXPECT_DOUBLE_EQ(fullness(disk), 90);
    EXPECT_DOUBLE_EQ(fullness(DiskReading()), 0);
}

TEST(Disks, PartsAndWhatIsMadeOfOthersAreNoWholeDisks)
{
    TempTree sys;
    sys.folder("block/sda/device");
    sys.folder("block/sda/sda1");
    sys.folder("block/dm-0");
    sys.folder("block/cciss!c0d0/device");
    EXPECT_TRUE(isWholeDisk(sys.root(), "sda"));
    EXPECT_TRUE(isWholeDisk(sys.root(), "cciss/c0d0"));
    EXPECT_FALSE(isWholeDisk(sys.root(), "sda1"));
    EXPECT_FALSE(isWholeDisk(sys.root(), "dm-0"));
}

TEST(Disks, ExternalIsWhatIsOnUsbOrRemovableAlsoBelowAnEncryptedOne)
{
    TempTree sys;
    sys.text("devices/pci0/usb2/sdb/removable", "0\n");
    sys.folder("devices/pci0/usb2/sdb/sdb1");
    sys.text("devices/pci0/mmc/mmcblk0/removable", "1\n");
    sys.folder("devices/pci0/mmc/mmcblk0/mmcblk0p1");
    sys.text("devices/pci0/ata/sda/removable", "0\n");
    sys.folder("devices/pci0/ata/sda/sda1");
    sys.folder("devices/virtual/dm-0/slaves");
    const auto device = [&](const std::string& name, const std::string& place) {
        sys.link("class/block/" + name, sys.path("devices/" + place));
    };
    device("sdb1", "pci0/usb2/sdb/sdb1");
    device("mmcblk0p1", "pci0/mmc/mmcblk0/mmcblk0p1");
    device("sda1", "pci0/ata/sda/sda1");
    device("dm-0", "virtual/dm-0");
    sys.link("devices/virtual/dm-0/slaves/sdb1", sys.path("devices/pci0/usb2/sdb/sdb1"));
    EXPECT_TRUE(isExternalDevice(sys.root(), "sdb1"));
    EXPECT_TRUE(isExternalDevice(sys.root(), "mmcblk0p1"));
    EXPECT_TRUE(isExternalDevice(sys.root(), "dm-0"));
    EXPECT_FALSE(isExternalDevice(sys.root(), "sda1"));
    EXPECT_FALSE(isExternalDevice(sys.root(), "overlay"));
}

TEST(Network, TheSumCountsHardwareOnlyWhereThereIsSome)
{
    const InterfaceReading card{"eth0", 2, 1, "", true};
    const InterfaceReading bridge{"br0", 2, 1, "", false};
    EXPECT_DOUBLE_EQ(totalTraffic({card, bridge}).received, 2);
    EXPECT_DOUBLE_EQ(totalTraffic({bridge}).sent, 1);
    EXPECT_DOUBLE_EQ(totalTraffic({}).received, 0);
}

TEST(Power, NoSuppliesMeanNoBatteriesAndNoWatts)
{
    TempTree tree;
    for (const std::string& folder : {tree.root(), tree.path("none")}) {
        const PowerReading power = readPower(folder);
        EXPECT_TRUE(power.batteries.empty());
        EXPECT_DOUBLE_EQ(power.batteryPower, 0);
    }
}

TEST(Power, ABatteryIsToldAsTheKernelTellsIt)
{
    TempTree tree;
    for (const auto& [name, value] : {std::pair{"type", "Battery"},
                                      {"status", "Discharging"},
                                      {"capacity", "50"},
                                      {"health", "Good"},
                                      {"cycle_count", "123"},
                                      {"energy_now", "25000000"},
                                      {"energy_full", "50000000"},
                                      {"energy_full_design", "62500000"},
                                      {"power_now", "10000000"},
                                      {"temp", "312"}}) {
        tree.text(std::string("BAT0/") + name, std::string(value) + "\n");
    }
    tree.text("mouse/type", "Battery\n");
    tree.text("mouse/scope", "Device\n");
    const PowerReading power = readPower(tree.root());
    ASSERT_EQ(power.batteries.size(), 1U);
    const BatteryReading& battery = power.batteries.front();
    EXPECT_EQ(battery.percent, 50);
    EXPECT_EQ(battery.status, "Discharging");
    EXPECT_EQ(battery.timeLeft, "2:30");
    EXPECT_EQ(battery.health, "Good");
    EXPECT_EQ(battery.cycleCount, 123);
    EXPECT_EQ(battery.capacity, 80);
    EXPECT_DOUBLE_EQ(power.batteryPower, 10);
    EXPECT_DOUBLE_EQ(power.batteryTemperature, 31.2);
}

TEST(Power, ABatteryThatCountsChargeAndAnAdapterInUseAreReadToo)
{
    TempTree tree;
    for (const auto& [name, value] : {std::pair{"type", "Battery"},
                                      {"status", "Charging"},
                                      {"charge_now", "1000000"},
                                      {"charge_full", "4000000"},
                                      {"current_now", "-2000000"},
                                      {"voltage_now", "10000000"}}) {
        tree.text(std::string("BAT1/") + name, std::string(value) + "\n");
    }
    tree.text("usb/type", "USB\n");
    tree.text("usb/online", "1\n");
    tree.text("usb/current_now", "3000000\n");
    tree.text("usb/voltage_now", "20000000\n");
    const PowerReading power = readPower(tree.root());
    ASSERT_EQ(power.batteries.size(), 1U);
    EXPECT_EQ(power.batteries.front().percent, 25);
    EXPECT_EQ(power.batteries.front().timeLeft, "1:30");
    EXPECT_EQ(power.batteries.front().capacity, 0);
    EXPECT_DOUBLE_EQ(power.batteryPower, 20);
    EXPECT_DOUBLE_EQ(power.adapterPower, 60);
}

TEST(Power, GarbageAndHugeNumbersStayWithinBounds)
{
    TempTree tree;
    tree.text("BAT0/type", "Battery\n");
    tree.text("BAT0/capacity", "9223372036854775807\n");
    tree.text("BAT0/cycle_count", "9223372036854775807\n");
    tree.text("BAT0/energy_full", "x\n");
    tree.text("BAT0/status", "\xff");
    const PowerReading power = readPower(tree.root());
    ASSERT_EQ(power.batteries.size(), 1U);
    EXPECT_EQ(power.batteries.front().percent, 100);
    EXPECT_EQ(power.batteries.front().cycleCount, 1'000'000);
    EXPECT_EQ(power.batteries.front().timeLeft, "");
    EXPECT_EQ(hoursText(-1), "");
    EXPECT_EQ(hoursText(1e300), "");
}

TEST(Thermal, WithoutSensorsEverythingIsZero)
{
    TempTree tree;
    const ThermalReading reading = readThermal(findSensors(tree.root()));
    EXPECT_DOUBLE_EQ(reading.cpu, 0);
    EXPECT_DOUBLE_EQ(reading.fanSpeed, 0);
    EXPECT_EQ(reading.fanCount, 0);
}

TEST(Thermal, DriversAreToldApartAndTheFastestFanCounts)
{
    TempTree tree;
    tree.text("hwmon/hwmon0/name", "k10temp\n");
    tree.text("hwmon/hwmon0/temp1_input", "54250\n");
    tree.text("hwmon/hwmon1/name", "amdgpu\n");
    tree.text("hwmon/hwmon1/temp1_input", "61000\n");
    tree.text("hwmon/hwmon1/fan1_input", "900\n");
    tree.text("hwmon/hwmon2/name", "board\n");
    tree.text("hwmon/hwmon2/temp1_input", "99000\n");
    tree.text("hwmon/hwmon2/fan2_input", "1200\n");
    tree.text("thermal/thermal_zone0/type", "x86_pkg_temp\n");
    tree.text("thermal/thermal_zone0/temp", "40000\n");
    const ThermalReading reading = readThermal(findSensors(tree.root()));
    EXPECT_DOUBLE_EQ(reading.cpu, 54.25);
    EXPECT_DOUBLE_EQ(reading.gpu, 61);
    EXPECT_DOUBLE_EQ(reading.fanSpeed, 1200);
    EXPECT_EQ(reading.fanCount, 2);
}

TEST(Thermal, AZoneOfFirmwareStandsInForAMissingDriver)
{
    TempTree tree;
    tree.text("thermal/thermal_zone0/type", "acpitz\n");
    tree.text("thermal/thermal_zone0/temp", "27000\n");
    tree.text("thermal/thermal_zone1/type", "cpu-thermal\n");
    tree.text("thermal/thermal_zone1/temp", "45000\n");
    EXPECT_DOUBLE_EQ(readThermal(findSensors(tree.root())).cpu, 45);
}

namespace {

constexpr std::chrono::seconds plenty{60};

} // namespace

TEST(TrashSize, AMissingTrashIsExactlyEmpty)
{
    TempTree tree;
    const TrashReading reading = TrashSize(tree.path("none")).read(plenty);
    EXPECT_EQ(reading.bytes, 0);
    EXPECT_FALSE(reading.approximate);
}

TEST(TrashSize, EachReadingCountsAnew)
{
    TempTree tree;
    const std::string one = tree.file("a/b/one", 10'000);
    TrashSize size(tree.root());
    EXPECT_EQ(size.read(plenty).bytes, blocksOf(one));
    const std::string two = tree.file("two", 20'000);
    const TrashReading reading = size.read(plenty);
    EXPECT_EQ(reading.bytes, blocksOf(one) + blocksOf(two));
    EXPECT_FALSE(reading.approximate);
}

TEST(TrashSize, ALargeOneIsToldApproximatelyUntilItIsCountedAndAfterwards)
{
    TempTree tree;
    std::int64_t total = 0;
    for (int number = 0; number < 80; ++number) {
        const std::string name = "f" + std::to_string(number);
        tree.text(name, "some text");
        total += blocksOf(tree.path(name));
    }
    TrashSize size(tree.root());
    TrashReading reading = size.read(std::chrono::nanoseconds(0));
    EXPECT_TRUE(reading.approximate);
    EXPECT_LT(reading.bytes, total);
    int readings = 1;
    while (reading.bytes < total && readings < 10) {
        reading = size.read(std::chrono::nanoseconds(0));
        EXPECT_TRUE(reading.approximate);
        ++readings;
    }
    EXPECT_EQ(reading.bytes, total);
    // The next count has begun, and the last whole one is still told.
    EXPECT_EQ(size.read(std::chrono::nanoseconds(0)).bytes, total);
}

TEST(TrashSize, WhatCannotBeReadMakesItApproximate)
{
    TempTree tree;
    const std::string one = tree.file("open", 5'000);
    tree.file("shut/inner", 5'000);
    tree.setMode("shut", 0);
    withoutOverridingPermissions([&] {
        const TrashReading reading = TrashSize(tree.root()).read(plenty);
        EXPECT_EQ(reading.bytes, blocksOf(one));
        EXPECT_TRUE(reading.approximate);
    });
}

TEST(TrashSize, TheTrashFollowsTheFolderForDataUnlessThatIsRelative)
{
    const ScopedHome home("/home/someone");
    EXPECT_EQ(homeTrashFolder(), "/home/someone/.local/share/Trash/files");
    const ScopedVariable relative("XDG_DATA_HOME", "data");
    EXPECT_EQ(homeTrashFolder(), "/home/someone/.local/share/Trash/files");
    const ScopedVariable other("XDG_DATA_HOME", "/data");
    EXPECT_EQ(homeTrashFolder(), "/data/Trash/files");
}

} // namespace zolva::test
