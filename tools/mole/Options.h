#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The two calls that this tool answers.
namespace zolva::mole {

struct WatchStatus
{
    std::chrono::seconds interval{1};

    friend bool operator==(const WatchStatus&, const WatchStatus&) = default;
};

struct ListApps
{
    friend bool operator==(const ListApps&, const ListApps&) = default;
};

struct WrongUsage
{
    std::string message; ///< with its line feed

    friend bool operator==(const WrongUsage&, const WrongUsage&) = default;
};

using Request = std::variant<WatchStatus, ListApps, WrongUsage>;

/// A day.
constexpr std::chrono::seconds longestInterval{86'400};

/// What the arguments, without the program's name, ask for: exactly "status --json --watch
/// --interval Ns" with N from 1 to `longestInterval`, or exactly "uninstall --list". Pure.
[[nodiscard]] Request requestOf(const std::vector<std::string_view>& arguments);

} // namespace zolva::mole
