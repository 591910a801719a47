#include "platform/RunningApps.h"

#include "platform/FileDescriptor.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

extern "C" { // older C libraries forgot it
#include <sys/pidfd.h>
}

#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <csignal>
#include <map>
#include <memory>
#include <string_view>

namespace zolva {

namespace {

struct CloseFolder
{
    void operator()(DIR* folder) const { ::closedir(folder); }
};

/// The whole of a small file of the system; empty if it cannot be read.
std::string systemFile(const std::string& path)
{
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return {};
    }
    std::array<char, 4096> bytes{};
    ssize_t got = -1;
    do {
        got = ::read(fd, bytes.data(), bytes.size());
    } while (got < 0 && errno == EINTR);
    ::close(fd);
    return {bytes.data(), got > 0 ? static_cast<std::size_t>(got) : 0};
}

/// What of a process's state matters here.
struct ProcessStat
{
    char state = 'X';
    std::uint64_t started = 0;
};

/// Nothing if there is no such process.
std::optional<ProcessStat> processStat(int pid)
{
    // "PID (NAME) STATE ..."; the name may hold anything, and the start is the 20th word after it.
    const std::string line = systemFile("/proc/" + std::to_string(pid) + "/stat");
    const std::size_t name = line.rfind(')');
    if (name == std::string::npos || name + 2 >= line.size()) {
        return std::nullopt;
    }
    ProcessStat stat;
    stat.state = line[name + 2];
    std::size_t at = name + 2;
    for (int word = 1; word < 20; ++word) {
        at = line.find(' ', at);
        if (at == std::string::npos) {
            return std::nullopt;
        }
        ++at;
    }
    std::from_chars(line.data() + at, line.data() + line.size(), stat.started);
    return stat;
}

/// The executable of a process of this user; empty if it is another's, or none.
std::string executableOf(int pid)
{
    const std::string folder = "/proc/" + std::to_string(pid);
    struct stat status
    {};
    if (::stat(folder.c_str(), &status) != 0 || status.st_uid != ::geteuid()) {
        return {};
    }
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink((folder + "/exe").c_str(), target.data(), target.size());
    return {target.data(), length > 0 ? static_cast<std::size_t>(length) : 0};
}

/// Whether any bundle around the executable satisfies `matches`.
template <typename Matches>
bool anyBundleAround(std::string_view executable, const Matches& matches)
{
    for (std::size_t slash = executable.rfind('/'); slash != std::string_view::npos && slash > 0;
         slash = executable.rfind('/')) {
        executable = executable.substr(0, slash);
        if (executable.ends_with(".app") && matches(std::string(executable))) {
            return true;
        }
    }
    return false;
}

/// Every process but this one.
std::vector<int> otherProcesses()
{
    std::vector<int> pids;
    const std::unique_ptr<DIR, CloseFolder> proc(::opendir("/proc"));
    while (const dirent* entry = proc ? ::readdir(proc.get()) : nullptr) {
        const std::string_view name(entry->d_name);
        int pid = 0;
        const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), pid);
        if (error == std::errc() && end == name.data() + name.size() && pid != ::getpid()) {
            pids.push_back(pid);
        }
    }
    return pids;
}

} // namespace

std::vector<RunningApp> runningApps(const std::string& bundleID,
                                    const BundleIdentifierOf& identifierOf)
{
    std::vector<RunningApp> running;
    if (bundleID.empty()) {
        return running;
    }
    std::map<std::string, bool> known; // many processes run from one bundle
    const auto matches = [&](const std::string& bundle) {
        const auto found = known.find(bundle);
        return found != known.end()
                   ? found->second
                   : known.emplace(bundle, identifierOf(bundle) == bundleID).first->second;
    };
    for (const int pid : otherProcesses()) {
        // The start is read first: it then belongs to whoever still has the id afterwards.
        const auto stat = processStat(pid);
        if (stat && anyBundleAround(executableOf(pid), matches)) {
            const RunningApp app{pid, stat->started};
            if (!hasTerminated(app)) {
                running.push_back(app);
            }
        }
    }
    return running;
}

void askToTerminate(const RunningApp& app)
{
    // The id may belong to another process by now; a descriptor stays with the one it was opened
    // on, so what is looked at is what is asked.
    const FileDescriptor process(::pidfd_open(app.pid, 0));
    if (process.isOpen() && !hasTerminated(app)) {
        ::pidfd_send_signal(process.get(), SIGTERM, nullptr, 0);
    }
}

bool hasTerminated(const RunningApp& app)
{
    const std::optional<ProcessStat> stat = processStat(app.pid);
    // One that nobody has collected yet has ended all the same.
    return !stat || stat->state == 'Z' || stat->state == 'X' || stat->started != app.started;
}

} // namespace zolva
