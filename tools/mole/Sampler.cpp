#include "mole/Sampler.h"

namespace zolva::mole {

namespace {

/// Most Trash folders are through within the first; the others must not make a sample late, nor
/// cost more than a small part of a second each second.
constexpr std::chrono::milliseconds firstTrashBudget{20};
constexpr std::chrono::milliseconds trashBudget{2};

} // namespace

Sampler::Sampler()
    : m_hardware(readHardware("/sys", "/proc", "/etc/os-release")),
      m_sensors(findSensors("/sys/class")), m_trash(homeTrashFolder())
{}

Sample Sampler::take()
{
    Sample sample;
    sample.collectedAt = std::chrono::system_clock::now();
    sample.hardware = m_hardware;
    sample.host = readHost();
    sample.cpu = m_cpu.read();
    sample.memory = readMemory();
    sample.disks = readDisks();
    sample.diskRates = m_disks.read();
    sample.network = m_network.read();
    sample.processes = m_processes.read();
    sample.power = readPower("/sys/class/power_supply");
    sample.thermal = readThermal(m_sensors);
    sample.proxy = readProxy();
    sample.trash = m_trash.read(m_first ? firstTrashBudget : trashBudget);
    m_first = false;
    return sample;
}

} // namespace zolva::mole
