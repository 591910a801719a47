#include "mole/ReadingsNetwork.h"

#include "mole/Statistics.h"

#include <statgrab.h>

#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <memory>
#include <span>

namespace zolva::mole {

namespace {

std::string numericAddress(const sockaddr* address)
{
    if (!address || (address->sa_family != AF_INET && address->sa_family != AF_INET6)) {
        return {};
    }
    const socklen_t length =
        address->sa_family == AF_INET ? sizeof(sockaddr_in) : sizeof(sockaddr_in6);
    std::array<char, NI_MAXHOST> text{};
    if (::getnameinfo(address, length, text.data(), text.size(), nullptr, 0, NI_NUMERICHOST) != 0) {
        return {};
    }
    return text.data();
}

/// The addresses of the interfaces that are up, without the loopback. The statistics library knows
/// none.
std::map<std::string, std::string> addresses()
{
    std::map<std::string, std::string> found;
    ifaddrs* first = nullptr;
    if (::getifaddrs(&first) != 0) {
        return found;
    }
    const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> list(first, ::freeifaddrs);
    for (const ifaddrs* one = first; one; one = one->ifa_next) {
        if ((one->ifa_flags & IFF_UP) == 0 || (one->ifa_flags & IFF_LOOPBACK) != 0) {
            continue;
        }
        std::string& address = found[one->ifa_name];
        const bool better = one->ifa_addr && one->ifa_addr->sa_family == AF_INET
                                ? address.find('.') == std::string::npos
                                : address.empty();
        if (better) {
            address = numericAddress(one->ifa_addr);
        }
    }
    return found;
}

bool isHardware(const std::string& name)
{
    return ::access(("/sys/class/net/" + name + "/device").c_str(), F_OK) == 0;
}

} // namespace

Traffic totalTraffic(const std::vector<InterfaceReading>& interfaces)
{
    const bool anyHardware = std::ranges::any_of(interfaces, &InterfaceReading::hardware);
    Traffic sum;
    for (const InterfaceReading& one : interfaces) {
        if (one.hardware || !anyHardware) {
            sum.received += one.received;
            sum.sent += one.sent;
        }
    }
    return sum;
}

std::map<std::string, NetworkMeter::Counters> NetworkMeter::counters()
{
    std::map<std::string, Counters> now;
    std::size_t entries = 0;
    const sg_network_io_stats* found = sg_get_network_io_stats(&entries);
    for (const sg_network_io_stats& one : std::span(found, found ? entries : 0)) {
        now[textOf(one.interface_name)] = {one.rx, one.tx};
    }
    return now;
}

NetworkMeter::NetworkMeter() : m_before(counters()), m_when(std::chrono::steady_clock::now()) {}

NetworkReading NetworkMeter::read()
{
    std::map<std::string, Counters> now = counters();
    const auto when = std::chrono::steady_clock::now();
    NetworkReading reading;
    for (auto& [name, address] : addresses()) {
        InterfaceReading one{name, 0, 0, address, isHardware(name)};
        const auto earlier = m_before.find(name);
        const auto later = now.find(name);
        if (earlier != m_before.end() && later != now.end()) {
            one.received =
                perSecond(earlier->second.received, later->second.received, when - m_when) /
                bytesPerMegabyte;
            one.sent = perSecond(earlier->second.sent, later->second.sent, when - m_when) /
                       bytesPerMegabyte;
        }
        reading.interfaces.push_back(std::move(one));
    }
    const Traffic sum = totalTraffic(reading.interfaces);
    m_received.add(sum.received);
    m_sent.add(sum.sent);
    reading.receivedHistory = m_received.values();
    reading.sentHistory = m_sent.values();
    m_before = std::move(now);
    m_when = when;
    return reading;
}

} // namespace zolva::mole
