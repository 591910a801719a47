#include "files/DisplayPath.h"
#include "files/ExclusionRules.h"
#include "files/PathGuards.h"
#include "files/SizeText.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

void judgeOnePath(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(zolva::pathRefusal("~/Library/Caches/com.example.editor"));
    }
}
BENCHMARK(judgeOnePath);

/// Against a list of so many entries, none of which covers the path.
void excludeOnePath(benchmark::State& state)
{
    std::vector<std::string> list;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        list.push_back("~/Projects/project-" + std::to_string(i));
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(zolva::isExcluded("~/Library/Caches/com.example.editor", list));
    }
}
BENCHMARK(excludeOnePath)->Arg(1)->Arg(100);

void writeOneSize(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(zolva::sizeText(123'456'789));
    }
}
BENCHMARK(writeOneSize);

} // namespace
