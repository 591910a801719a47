#include "files/HomeFolder.h"

#include "files/PathText.h"
#include "platform/Environment.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <vector>

namespace zolva {

namespace {

constexpr std::size_t firstBuffer = 1024;
constexpr std::size_t largestBuffer = std::size_t{1} << 20;

/// Asks for one account by `ask(entry, buffer, size, found)`, with as much room as it takes.
template <typename Ask>
std::optional<std::string> homeOfEntry(const Ask& ask)
{
    for (std::size_t size = firstBuffer; size <= largestBuffer; size *= 2) {
        std::vector<char> buffer(size);
        passwd entry{};
        passwd* found = nullptr;
        const int error = ask(&entry, buffer.data(), buffer.size(), &found);
        if (error == ERANGE) {
            continue;
        }
        if (error != 0 || found == nullptr || found->pw_dir == nullptr) {
            return std::nullopt;
        }
        const std::string_view home = found->pw_dir;
        return home.starts_with('/') ? std::optional(withTidySlashes(home)) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace

std::string homeFolder()
{
    const char* variable = environmentValue("HOME");
    if (variable != nullptr && *variable == '/') {
        return withTidySlashes(variable);
    }
    const uid_t user = ::getuid();
    return homeOfEntry([user](passwd* entry, char* buffer, std::size_t size, passwd** found) {
               return ::getpwuid_r(user, entry, buffer, size, found);
           })
        .value_or("/");
}

std::optional<std::string> accountHome(const std::string& user)
{
    // The system reads the name up to the first NUL, which would be another account's.
    if (user.empty() || user.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    return homeOfEntry([&user](passwd* entry, char* buffer, std::size_t size, passwd** found) {
        return ::getpwnam_r(user.c_str(), entry, buffer, size, found);
    });
}

} // namespace zolva
