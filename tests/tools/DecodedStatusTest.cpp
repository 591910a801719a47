#include "core/StatusDecoder.h"

#include "tools/ToolProcess.h"

#include <gtest/gtest.h>

#include <chrono>

namespace zolva::test {

TEST(DecodedStatus, EveryLineOfTheToolIsAReadingOfThisMachineForTheProgram)
{
    using namespace std::chrono;
    ToolProcess tool({"status", "--json", "--watch", "--interval", "1s"});
    for (int i = 0; i < 2; ++i) {
        const auto line = tool.readLine();
        ASSERT_TRUE(line);
        const auto status = decodeStatus(*line);
        ASSERT_TRUE(status) << status.error();
        EXPECT_LT(abs(status->collectedAt - system_clock::now()), minutes(5));
        EXPECT_GT(status->memory.total, 0);
        EXPECT_GT(status->procs, 0);
        EXPECT_GT(status->cpu.logicalCPU, 0);
        EXPECT_FALSE(status->host.empty());
    }
}

} // namespace zolva::test
