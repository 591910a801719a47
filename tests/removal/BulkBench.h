#pragma once

#include "removal/RunBench.h"
#include "removal/runs/BulkRun.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zolva::test {

/// One bulk run with its summary.
inline RunResult run(RunBench& bench, std::vector<std::string> paths, std::int64_t bytes = 0)
{
    HeldRunLock lock;
    EXPECT_EQ(enterRun(bench.tools(), lock), RunStart::Started);
    BulkOrder order{runname::clean, std::move(paths), bytes};
    RunTools tools = bench.tools();
    RunResult result = settled(runBulk(tools, std::move(order), std::move(lock)));
    showRunSummary(tools, result);
    return result;
}

/// Calls once when so many paths of the first phase are done.
template <typename Then>
void whenDone(RunBench& bench, std::int64_t done, Then then)
{
    auto fired = std::make_shared<bool>(false);
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.state,
                     [&bench, done, then, fired] {
                         const auto& bulk = bench.state.bulk();
                         if (!*fired && bulk && bulk->done == done && bulk->total > done) {
                             *fired = true;
                             then();
                         }
                     });
}

} // namespace zolva::test
