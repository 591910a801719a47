#pragma once

#include "core/AppDependencies.h"

#include <QString>

#include <functional>
#include <string>

namespace zolva {

/// What a door says where nothing opens.
namespace placewords {
inline constexpr auto trash = "No program was found that can open the Trash. It is at ";
inline constexpr auto logFolder = "No program was found that can open the log folder. It is at ";
inline constexpr auto accessSettings =
    "No settings program was found. Your file manager can change who may read a folder.";
inline constexpr auto page = "No program was found that can open web pages. The address is ";
inline constexpr auto reveal = "No program was found that can show ";
inline constexpr auto toolLicense = "No program was found that can open the license. It is at ";
} // namespace placewords

/// Where the doors lead, and whom they tell. Paths are bytes and absolute.
struct Places
{
    std::string trashFolder;
    std::string logFolder;
    std::function<void(const QString&)> tell; ///< that nothing can be opened, in words
    std::string toolLicense{};                ///< empty where there is none: then nothing happens
};

/// The doors to this desktop's own programs. They wait for nothing and start what they start apart
/// from this process. Main thread.
[[nodiscard]] AppDoors systemDoors(Places places);

/// `words` with the path at the end, as it is shown.
[[nodiscard]] QString cannotOpen(const char* words, const std::string& path);

/// That there is no browser, with the address as it is shown.
[[nodiscard]] QString cannotOpenPage(const std::string& url);

} // namespace zolva
