#include "mole/Options.h"

#include "mole/SystemFile.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace zolva::mole {

namespace {

constexpr std::array<std::string_view, 4> statusCall = {"status", "--json", "--watch",
                                                        "--interval"};
constexpr std::array<std::string_view, 2> listCall = {"uninstall", "--list"};

constexpr const char* usage = "usage: mole status --json --watch --interval Ns\n"
                              "       mole uninstall --list\n"
                              "N is a whole number of seconds, from 1 to 86400.\n";

} // namespace

Request requestOf(const std::vector<std::string_view>& arguments)
{
    if (std::ranges::equal(arguments, listCall)) {
        return ListApps{};
    }
    const bool isStatus = arguments.size() == statusCall.size() + 1 &&
                          std::equal(statusCall.begin(), statusCall.end(), arguments.begin()) &&
                          arguments.back().ends_with('s');
    if (!isStatus) {
        return WrongUsage{usage};
    }
    const std::string_view number = arguments.back().substr(0, arguments.back().size() - 1);
    const std::optional<std::uint64_t> seconds = unsignedNumber(number);
    if (!seconds || *seconds < 1 || *seconds > std::uint64_t{longestInterval.count()}) {
        return WrongUsage{usage};
    }
    return WatchStatus{std::chrono::seconds(static_cast<std::int64_t>(*seconds))};
}

} // namespace zolva::mole
