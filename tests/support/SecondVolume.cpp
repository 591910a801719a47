#include "support/SecondVolume.h"

#include "support/InChild.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace zolva::test {

namespace {

constexpr const char* shared = "/dev/shm";

bool wrote(const char* path, const std::string& text)
{
    const int fd = ::open(path, O_WRONLY | O_CLOEXEC);
    const bool done =
        fd >= 0 && ::write(fd, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    ::close(fd);
    return done;
}

dev_t deviceOf(const std::string& path)
{
    struct stat status
    {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_dev : 0;
}

void inSharedMemory(
    const std::function<void(const std::string& top, const std::string& folder)>& body,
    const std::string& here)
{
    ASSERT_NE(deviceOf(shared), deviceOf(here)) << "there is no second file system";
    const std::string trash = std::string(shared) + "/.Trash-" + std::to_string(::geteuid());
    std::string folder = std::string(shared) + "/zolva-test-XXXXXX";
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
    body(shared, folder);
    ::rmdir(folder.c_str());
    for (const char* part : {"/files", "/info", ""}) {
        ::rmdir((trash + part).c_str());
    }
}

} // namespace

bool takeOwnMounts()
{
    const std::string user = std::to_string(::geteuid());
    const std::string group = std::to_string(::getegid());
    // By a right of our own, or within a namespace of our own users.
    if (::unshare(CLONE_NEWNS) != 0) {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0 || !wrote("/proc/self/setgroups", "deny") ||
            !wrote("/proc/self/uid_map", user + " " + user + " 1") ||
            !wrote("/proc/self/gid_map", group + " " + group + " 1")) {
            return false;
        }
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

void withSecondVolume(
    const std::function<void(const std::string& top, const std::string& folder)>& body)
{
    TempTree tree;
    const std::string point = tree.folder("volume");
    inChild([&] {
        if (!takeOwnMounts() || ::mount("zolva", point.c_str(), "tmpfs", 0, "size=16m") != 0) {
            inSharedMemory(body, tree.root());
            return;
        }
        const std::string folder = point + "/things";
        ASSERT_EQ(::mkdir(folder.c_str(), 0755), 0);
        body(point, folder);
    });
}

bool withBindMount(const std::string& source, const std::string& target,
                   const std::function<void()>& body)
{
    const auto mounted = [&] {
        return takeOwnMounts() &&
               ::mount(source.c_str(), target.c_str(), nullptr, MS_BIND, nullptr) == 0;
    };
    const pid_t probe = ::fork();
    if (probe == 0) {
        ::_exit(mounted() ? 0 : 1);
    }
    int status = 0;
    if (probe < 0 || ::waitpid(probe, &status, 0) != probe || status != 0) {
        return false;
    }
    inChild([&] {
        ASSERT_TRUE(mounted());
        body();
    });
    return true;
}

} // namespace zolva::test
