#include "core/LineSplitter.h"
#include "core/StatusDecoder.h"
#include "core/StatusSample.h"
#include "support/qt/ScriptedTool.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace zolva::test {

namespace {

/// Damages a good line in one of the ways in which lines get damaged.
class Vandal
{
public:
    /// Mostly pieces of the line, which take little time, and now and then the whole.
    std::string damaged(const std::string& good)
    {
        std::string line = below(64) == 0 ? good : good.substr(below(good.size()), below(100));
        for (std::size_t i = below(3); i < 3; ++i) {
            damageOnce(line);
        }
        for (char& c : line) {
            c = c == '\n' ? ' ' : c; // one line it stays
        }
        return line;
    }

private:
    static constexpr std::string_view tokens[] = {"{",
                                                  "}",
                                                  "[",
                                                  "]",
                                                  ",",
                                                  ":",
                                                  "\"",
                                                  "\\",
                                                  "null",
                                                  "-",
                                                  "1e9",
                                                  "3.5",
                                                  "1e999",
                                                  "\0x",
                                                  "\\u",
                                                  "true",
                                                  "[[",
                                                  "{}",
                                                  "99999999999999999999"};

    void damageOnce(std::string& line)
    {
        const std::size_t at = below(line.size() + 1);
        switch (below(6)) {
        case 0:
            line.resize(at);
            break;
        case 1:
            line.erase(at, below(40));
            break;
        case 2:
            line.insert(at, tokens[below(std::size(tokens))]);
            break;
        case 3:
            line.insert(at, 1, static_cast<char>(below(256)));
            break;
        case 4:
            line.insert(at, line.substr(below(line.size() + 1), below(60)));
            break;
        default:
            if (at < line.size()) {
                line[at] = static_cast<char>(line[at] ^ (1 << below(8)));
            }
        }
    }

    std::size_t below(std::size_t bound) { return m_random() % bound; }

    std::mt19937 m_random{20260102};
};

} // namespace

TEST(MalformedLines, AMillionOfThemLeaveTheProcessStandingAndTheNextGoodLineDecodes)
{
    const std::string good = statusLine();
    Vandal vandal;
    LineSplitter splitter;
    std::int64_t failed = 0;
    std::int64_t decoded = 0;
    const LineSplitter::Told told = [&](const LineSplitter::Line& line) {
        const auto status = decodeStatus(line.text);
        if (status) {
            ++decoded;
        } else {
            ++failed;
            EXPECT_FALSE(status.error().empty());
        }
    };
    const std::int64_t count = bySize(1'000'000, 50'000'000);
    for (std::int64_t i = 1; i <= count; ++i) {
        splitter.feed(vandal.damaged(good) + "\n", told);
        if (i % 1000 == 0) {
            const std::int64_t before = decoded;
            splitter.feed(good + "\n", told);
            ASSERT_EQ(decoded, before + 1) << i;
        }
    }
    EXPECT_EQ(failed + decoded, count + count / 1000);
    EXPECT_GT(failed, count / 100 * 99);
}

} // namespace zolva::test
