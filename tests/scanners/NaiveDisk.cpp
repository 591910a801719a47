#include "scanners/NaiveDisk.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cmath>
#include <filesystem>

namespace zolva::test::naive {

std::optional<std::vector<std::string>> namesIn(const std::string& folder)
{
    DIR* stream = ::opendir(folder.c_str());
    if (stream == nullptr) {
        return std::nullopt;
    }
    std::vector<std::string> names;
    while (const dirent* entry = ::readdir(stream)) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..") {
            names.push_back(name);
        }
    }
    ::closedir(stream);
    return names;
}

bool isOwnFolder(const std::string& path)
{
    struct stat status
    {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isOwnFile(const std::string& path)
{
    struct stat status
    {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool leadsToFolder(const std::string& path)
{
    struct stat status
    {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::int64_t bytesOf(const std::string& path)
{
    struct stat own
    {};
    struct stat target
    {};
    if (::lstat(path.c_str(), &own) != 0 || ::stat(path.c_str(), &target) != 0) {
        return 0;
    }
    if (!S_ISDIR(own.st_mode)) {
        return static_cast<std::int64_t>(own.st_blocks) * 512;
    }
    std::int64_t sum = 0;
    const auto names = namesIn(path);
    if (!names) {
        return 0;
    }
    for (const std::string& name : *names) {
        const std::string child = path + "/" + name;
        if (isOwnFolder(child) || isOwnFile(child)) {
            sum += bytesOf(child);
        }
    }
    return sum;
}

std::int64_t ageOf(const std::string& path, std::int64_t now)
{
    struct stat own
    {};
    if (::lstat(path.c_str(), &own) != 0) {
        return 0;
    }
    const std::int64_t modified =
        static_cast<std::int64_t>(own.st_mtim.tv_sec) * 1'000'000'000 + own.st_mtim.tv_nsec;
    const double days = static_cast<double>(now - modified) / 1e9 / 86400.0;
    return days < 1.0 ? 0 : static_cast<std::int64_t>(std::floor(days));
}

std::string tilde(const std::string& path, const std::string& home)
{
    if (path == home) {
        return "~";
    }
    const std::string front = home + "/";
    return path.substr(0, front.size()) == front ? "~/" + path.substr(front.size()) : path;
}

bool isRefused(const std::string& path, const std::string& home)
{
    const std::string tidied = std::filesystem::path(path).lexically_normal().string();
    return tidied.substr(0, home.size() + 1) != home + "/";
}

std::string nameOf(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

std::string parentOf(const std::string& path)
{
    return path.substr(0, path.rfind('/'));
}

} // namespace zolva::test::naive
