#include "ctl/TypedPath.h"

#include "files/PathText.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace zolva::ctl {

namespace {

/// The path up to here with its links resolved; as it is where that cannot be done.
std::string resolved(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path real = std::filesystem::canonical(path, error);
    return error ? path : real.native();
}

} // namespace

std::string absolutePath(std::string_view typed)
{
    if (typed.empty()) {
        return {};
    }
    std::string whole(typed);
    if (typed.front() != '/') {
        std::error_code error;
        const std::string current = std::filesystem::current_path(error).native();
        if (error) {
            return whole; // the folder is gone; the system resolves what it still can
        }
        whole = current + "/" + whole;
    }
    std::string result;
    for (std::size_t start = 0; start < whole.size();) {
        const std::size_t slash = std::min(whole.find('/', start), whole.size());
        const std::string part = whole.substr(start, slash - start);
        start = slash + 1;
        if (part == "..") {
            // By text alone, "link/.." would name the wrong folder.
            result += "/..";
            result = resolved(result);
            result = result == "/" ? std::string() : result;
        } else if (!part.empty() && part != ".") {
            result += '/';
            result += part;
        }
    }
    return result.empty() ? "/" : result;
}

std::string namedPath(std::string_view typed)
{
    return absolutePath(typed == "~" || typed.starts_with("~/") ? expandTilde(typed)
                                                                : std::string(typed));
}

} // namespace zolva::ctl
