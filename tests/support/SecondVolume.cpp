#include "support/SecondVolume.h"

#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>

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

[[noreturn]] void runAndLeave(const std::function<void()>& body, int report)
{
    int code = 0;
    try {
        body();
    } catch (const std::exception& error) {
        dprintf(report, "thrown: %s\n", error.what());
        code = 1;
    }
    const auto* result = ::testing::UnitTest::GetInstance()->current_test_info()->result();
    for (int i = 0; i < result->total_part_count(); ++i) {
        const auto& part = result->GetTestPartResult(i);
        if (part.failed()) {
            dprintf(report, "%s:%d: %s\n", part.file_name() ? part.file_name() : "",
                    part.line_number(), part.message());
            code = 1;
        }
    }
    ::close(report);
    ::_exit(code);
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

void inChild(const std::function<void()>& body)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    std::fflush(nullptr);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::close(ends[0]);
        runAndLeave(body, ends[1]);
    }
    ::close(ends[1]);
    std::string told;
    std::array<char, 4096> buffer{};
    for (ssize_t got = 0; (got = ::read(ends[0], buffer.data(), buffer.size())) > 0;) {
        told.append(buffer.data(), static_cast<std::size_t>(got));
    }
    ::close(ends[0]);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << told;
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
