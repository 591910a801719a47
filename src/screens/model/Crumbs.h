#pragma once

#include <string>
#include <vector>

/// The way to the place that an analysis is about. Pure; paths and texts are bytes.
namespace zolva {

struct Crumb
{
    std::string text;
    std::string path; ///< empty for the whole disk

    friend bool operator==(const Crumb&, const Crumb&) = default;
};

/// From "Computer" to the place itself; the home is one step, "~".
[[nodiscard]] std::vector<Crumb> crumbsTo(const std::string& path, const std::string& home);

} // namespace zolva
