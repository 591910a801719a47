#include "support/InChild.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <exception>
#include <string>

namespace zolva::test {

namespace {

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

std::string allOf(int report)
{
    std::string told;
    std::array<char, 4096> buffer{};
    for (ssize_t got = 0; (got = ::read(report, buffer.data(), buffer.size())) > 0;) {
        told.append(buffer.data(), static_cast<std::size_t>(got));
    }
    return told;
}

} // namespace

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
    const std::string told = allOf(ends[0]);
    ::close(ends[0]);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << told;
}

} // namespace zolva::test
