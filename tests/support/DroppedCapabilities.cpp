#include "support/DroppedCapabilities.h"

#include <gtest/gtest.h>

#include <sys/capability.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace zolva::test {

namespace {

constexpr std::array<cap_value_t, 3> overriding = {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH,
                                                   CAP_FOWNER};

bool dropOverriding()
{
    for (const cap_value_t one : overriding) {
        if (cap_get_bound(one) == 1 && cap_get_proc() != nullptr && ::geteuid() == 0 &&
            cap_drop_bound(one) != 0) {
            return false;
        }
    }
    cap_t caps = cap_get_proc();
    if (caps == nullptr) {
        return false;
    }
    const int count = static_cast<int>(overriding.size());
    const bool done =
        cap_set_flag(caps, CAP_EFFECTIVE, count, overriding.data(), CAP_CLEAR) == 0 &&
        cap_set_flag(caps, CAP_PERMITTED, count, overriding.data(), CAP_CLEAR) == 0 &&
        cap_set_flag(caps, CAP_INHERITABLE, count, overriding.data(), CAP_CLEAR) == 0 &&
        cap_set_proc(caps) == 0;
    cap_free(caps);
    return done;
}

[[noreturn]] void runAndLeave(const std::function<void()>& body, int report)
{
    int code = 0;
    if (!dropOverriding()) {
        dprintf(report, "the capabilities could not be dropped\n");
        code = 2;
    } else {
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
    }
    ::close(report);
    ::_exit(code);
}

} // namespace

void withoutOverridingPermissions(const std::function<void()>& body)
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

} // namespace zolva::test
