#include "platform/ResourceLayout.h"

#include <mach-o/dyld.h>

#include <cstdint>
#include <filesystem>
#include <system_error>

namespace zolva {

std::string executablePath()
{
    std::uint32_t size = 0;
    _NSGetExecutablePath(nullptr, &size);
    std::string path(size, '\0');
    if (_NSGetExecutablePath(path.data(), &size) != 0) {
        return {};
    }
    std::error_code error;
    std::string resolved = std::filesystem::canonical(path.c_str(), error).native();
    return error ? std::string() : resolved;
}

const std::vector<std::string_view>& resourceLayout()
{
    // The bundle's Contents/Resources beside Contents/MacOS; the build tree for the rest.
    static const std::vector<std::string_view> layout = {"Resources", "share/zolva"};
    return layout;
}

} // namespace zolva
