#include "removal/disk/ResolvedPath.h"

#include "files/PathText.h"

#include <unistd.h>

#include <array>
#include <climits>
#include <cstddef>

namespace zolva {

namespace {

/// As many as the system itself follows.
constexpr int mostLinks = 40;

std::string linkTarget(const std::string& path)
{
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
    return length > 0 ? std::string(target.data(), static_cast<std::size_t>(length))
                      : std::string();
}

} // namespace

std::string resolvedPath(const std::string& path)
{
    std::string done = "/";
    std::string rest = path;
    int links = 0;
    while (!rest.empty()) {
        const std::size_t slash = rest.find('/');
        const std::string name = rest.substr(0, slash);
        rest.erase(0, slash == std::string::npos ? rest.size() : slash + 1);
        if (name.empty() || name == ".") {
            continue;
        }
        if (name == "..") {
            done = parentPath(done);
            continue;
        }
        std::string next = joinedPath(done, name);
        const std::string target = linkTarget(next);
        if (target.empty() || links >= mostLinks) {
            done = std::move(next);
            continue;
        }
        ++links;
        rest.insert(0, 1, '/');
        rest.insert(0, target);
        if (target.starts_with('/')) {
            done = "/";
        }
    }
    return done;
}

} // namespace zolva
