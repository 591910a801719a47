#include "mole/ReadingsHost.h"

#include "mole/Statistics.h"
#include "mole/SystemFile.h"

#include <statgrab.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace zolva::mole {

namespace {

/// Names of the same thing on different kinds of processor, in the order they are tried.
constexpr std::array<std::string_view, 4> cpuModelKeys = {"model name", "cpu model", "cpu",
                                                          "Processor"};
constexpr std::array<const char*, 6> proxyVariables = {"https_proxy", "HTTPS_PROXY", "http_proxy",
                                                       "all_proxy",   "ALL_PROXY",   "HTTP_PROXY"};

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// The value of the first line "key : value".
std::string_view valueOf(std::string_view text, std::string_view key)
{
    while (!text.empty()) {
        const std::string_view line = nextLine(text);
        const std::size_t colon = line.find(':');
        if (colon != line.npos && trimmed(line.substr(0, colon)) == key) {
            return trimmed(line.substr(colon + 1));
        }
    }
    return {};
}

/// Maker and model, as firmware tells them; boards without such firmware have a device tree.
std::string modelOf(const std::string& sys, const std::string& proc)
{
    const std::string maker = fileLine(sys + "/class/dmi/id/sys_vendor");
    const std::string model = fileLine(sys + "/class/dmi/id/product_name");
    if (model.empty()) {
        return fileLine(proc + "/device-tree/model");
    }
    return maker.empty() || model.starts_with(maker) ? model : maker + " " + model;
}

} // namespace

HostReading readHost()
{
    HostReading reading;
    std::size_t entries = 0;
    const sg_host_info* host = sg_get_host_info(&entries);
    if (host && entries > 0) {
        reading.name = textOf(host->hostname);
        reading.platform = textOf(host->os_name) + " " + textOf(host->platform);
        reading.uptimeSeconds = host->uptime;
    }
    return reading;
}

HardwareReading readHardware(const std::string& sys, const std::string& proc,
                             const std::string& osRelease)
{
    return {modelOf(sys, proc), cpuModelIn(fileText(proc + "/cpuinfo").value_or(std::string())),
            systemNameIn(fileText(osRelease).value_or(std::string()))};
}

std::string cpuModelIn(std::string_view text)
{
    for (const std::string_view key : cpuModelKeys) {
        const std::string_view value = valueOf(text, key);
        if (!value.empty()) {
            return std::string(value);
        }
    }
    return {};
}

std::string systemNameIn(std::string_view text)
{
    constexpr std::string_view key = "PRETTY_NAME=";
    while (!text.empty()) {
        std::string_view line = trimmed(nextLine(text));
        if (!line.starts_with(key)) {
            continue;
        }
        line.remove_prefix(key.size());
        const bool quoted = line.size() >= 2 && (line.front() == '"' || line.front() == '\'') &&
                            line.back() == line.front();
        return std::string(quoted ? line.substr(1, line.size() - 2) : line);
    }
    return {};
}

std::string uptimeText(std::int64_t seconds)
{
    const std::int64_t minutes = std::max<std::int64_t>(seconds, 0) / 60;
    const std::int64_t hours = minutes / 60;
    const std::int64_t days = hours / 24;
    std::string text = std::to_string(minutes % 60) + "m";
    if (hours > 0) {
        text.insert(0, std::to_string(hours % 24) + "h ");
    }
    if (days > 0) {
        text.insert(0, std::to_string(days) + "d ");
    }
    return text;
}

ProxyReading proxyFrom(const std::function<std::optional<std::string>(const char*)>& variable)
{
    for (const char* name : proxyVariables) {
        const std::optional<std::string> value = variable(name);
        std::string_view address = value ? trimmed(*value) : std::string_view();
        if (address.empty()) {
            continue;
        }
        const std::size_t scheme = address.find("://");
        std::string type(scheme == address.npos ? "http" : address.substr(0, scheme));
        std::ranges::transform(type, type.begin(), [](char letter) {
            return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
        });
        address.remove_prefix(scheme == address.npos ? 0 : scheme + 3);
        address = address.substr(0, address.find_first_of("/?#"));
        // A password is nobody's business, and may hold an "@" itself.
        address.remove_prefix(address.rfind('@') + 1);
        return {true, std::move(type), std::string(address)};
    }
    return {};
}

ProxyReading readProxy()
{
    return proxyFrom([](const char* name) {
        const char* value = std::getenv(name);
        return value ? std::optional<std::string>(value) : std::nullopt;
    });
}

} // namespace zolva::mole
