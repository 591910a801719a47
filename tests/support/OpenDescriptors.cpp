#include "support/OpenDescriptors.h"

#include <filesystem>
#include <iterator>
#include <system_error>

namespace zolva::test {

std::size_t openDescriptors()
{
    const std::filesystem::directory_iterator open("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(open), end(open)));
}

std::size_t openDescriptorsIn(const std::string& folder)
{
    const std::string in = std::filesystem::canonical(folder).string();
    std::size_t count = 0;
    for (const auto& open : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        const std::string target = std::filesystem::read_symlink(open.path(), gone).string();
        count += (target + '/').starts_with(in + '/') ? 1 : 0;
    }
    return count;
}

} // namespace zolva::test
