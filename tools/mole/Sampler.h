#pragma once

#include "mole/ReadingsCpu.h"
#include "mole/ReadingsDisks.h"
#include "mole/ReadingsHost.h"
#include "mole/ReadingsMemory.h"
#include "mole/ReadingsNetwork.h"
#include "mole/ReadingsPower.h"
#include "mole/ReadingsProcesses.h"
#include "mole/ReadingsThermal.h"
#include "mole/Statistics.h"
#include "mole/TrashSize.h"

#include <chrono>
#include <vector>

namespace zolva::mole {

/// All readings of one moment.
struct Sample
{
    std::chrono::system_clock::time_point collectedAt;
    HostReading host;
    HardwareReading hardware;
    CpuReading cpu;
    MemoryReading memory;
    std::vector<DiskReading> disks;
    DiskRates diskRates;
    NetworkReading network;
    ProcessesReading processes;
    PowerReading power;
    ThermalReading thermal;
    ProxyReading proxy;
    TrashReading trash;
};

/// Takes samples of this machine. Rates are those since the sample before, or since the sampler was
/// made. One thread, one sampler at a time.
class Sampler
{
public:
    Sampler();
    [[nodiscard]] Sample take();

private:
    Statistics m_statistics; ///< first: the meters read through it
    HardwareReading m_hardware;
    ThermalSensors m_sensors;
    CpuMeter m_cpu;
    DiskMeter m_disks;
    NetworkMeter m_network;
    ProcessMeter m_processes;
    TrashSize m_trash;
    bool m_first = true;
};

} // namespace zolva::mole
