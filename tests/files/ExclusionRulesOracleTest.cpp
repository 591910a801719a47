#include "files/ExclusionRules.h"

#include "files/NastyPaths.h"
#include "support/ScopedHome.h"

#include <gtest/gtest.h>

#include <array>

namespace zolva {

namespace {

using test::NastyPaths;

/// By going up from the path: some text that ends before a slash, or at the end, is the entry's.
bool naiveCovers(const std::string& entry, const std::string& path, const std::string& home)
{
    std::string covered = test::naiveExpanded(test::naiveTrimmed(entry), home);
    if (covered.empty() || covered == "/") {
        return false;
    }
    if (covered.back() == '/') {
        covered.pop_back();
    }
    for (std::size_t end = 0; end <= path.size(); ++end) {
        const bool cut = end == path.size() || path[end] == '/';
        if (cut && path.substr(0, end) == covered) {
            return true;
        }
    }
    return false;
}

bool naiveExcluded(const std::string& path, const std::vector<std::string>& list,
                   const std::string& home)
{
    const std::string expanded = test::naiveExpanded(path, home);
    bool excluded = false;
    for (const std::string& entry : list) {
        excluded = excluded || (!expanded.empty() && naiveCovers(entry, expanded, home));
    }
    return excluded;
}

TEST(ExclusionRulesOracle, AgreesOnEveryGeneratedPathAndList)
{
    const std::size_t each = test::generatedPaths() / test::nastyHomes().size() + 1;
    std::array<std::size_t, 2> verdicts{};
    unsigned seed = 20'270'000;
    for (const std::string& home : test::nastyHomes()) {
        const test::ScopedVariable variable("HOME", home);
        NastyPaths paths(++seed, home);
        std::vector<std::string> list;
        for (std::size_t i = 0; i < each; ++i) {
            const std::string path = paths.path();
            list.resize(paths.below(4));
            for (std::string& entry : list) {
                entry = paths.entryFor(path);
            }
            const ExclusionRules rules(list);
            const bool expected = naiveExcluded(path, list, home);
            ASSERT_EQ(isExcluded(path, list), expected)
                << "of " << ::testing::PrintToString(path) << " by "
                << ::testing::PrintToString(list) << " at home " << home;
            ASSERT_EQ(rules.covers(path), expected)
                << "of " << ::testing::PrintToString(path) << " by the prepared "
                << ::testing::PrintToString(list) << " at home " << home;
            ++verdicts[expected ? 1 : 0];
        }
    }
    EXPECT_GT(verdicts[0], each);
    EXPECT_GT(verdicts[1], each);
}

} // namespace

} // namespace zolva
