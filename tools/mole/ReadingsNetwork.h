#pragma once

#include "mole/Rates.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// The network's interfaces and what goes through them. One thread.
namespace zolva::mole {

/// Megabytes (10^6 bytes) a second.
struct InterfaceReading
{
    std::string name;
    double received = 0;
    double sent = 0;
    std::string address;   ///< IPv4, or else IPv6; empty without one
    bool hardware = false; ///< stands for a device, so that its traffic counts once in the sum
};

struct NetworkReading
{
    std::vector<InterfaceReading> interfaces; ///< those that are up, without the loopback
    std::vector<double> receivedHistory;      ///< sums, oldest first, one a reading
    std::vector<double> sentHistory;
};

/// What is received and sent in all: over the hardware, or over everything where there is none (a
/// container), since a bridge repeats what its members carry. Pure.
struct Traffic
{
    double received = 0;
    double sent = 0;
};
[[nodiscard]] Traffic totalTraffic(const std::vector<InterfaceReading>& interfaces);

/// Rates from one reading to the next.
class NetworkMeter
{
public:
    NetworkMeter();
    [[nodiscard]] NetworkReading read();

private:
    struct Counters
    {
        std::uint64_t received = 0;
        std::uint64_t sent = 0;
    };
    [[nodiscard]] static std::map<std::string, Counters> counters();

    std::map<std::string, Counters> m_before;
    std::chrono::steady_clock::time_point m_when;
    History m_received;
    History m_sent;
};

} // namespace zolva::mole
