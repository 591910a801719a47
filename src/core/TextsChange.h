#pragma once

#include <string>
#include <vector>

/// A change of a list of texts that others may change at the same time. Pure.
namespace zolva {

/// Whatever the list holds by then: first every text equal to one taken out goes, then those added
/// that are not there yet follow at the end, in their order.
struct TextsChange
{
    std::vector<std::string> added;
    std::vector<std::string> removed;

    friend bool operator==(const TextsChange&, const TextsChange&) = default;
};

[[nodiscard]] std::vector<std::string> changed(std::vector<std::string> list,
                                               const TextsChange& change);

/// What makes the one list hold what the other holds; order and repetitions are not looked at.
[[nodiscard]] TextsChange changeBetween(const std::vector<std::string>& before,
                                        const std::vector<std::string>& after);

/// The one change that does what the two do, one after the other.
[[nodiscard]] TextsChange combined(const TextsChange& first, const TextsChange& second);

} // namespace zolva
