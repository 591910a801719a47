#include "platform/ResourceLayout.h"

#include <filesystem>
#include <system_error>

namespace zolva {

std::string executablePath()
{
    std::error_code error;
    std::string path = std::filesystem::read_symlink("/proc/self/exe", error).native();
    return error ? std::string() : path;
}

const std::vector<std::string_view>& resourceLayout()
{
    // Programs belong below lib, everything else below share; the build tree has one folder.
    static const std::vector<std::string_view> layout = {"lib/zolva", "share/zolva"};
    return layout;
}

} // namespace zolva
