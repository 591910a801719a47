#include "core/LineSplitter.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>
#include <vector>

namespace zolva::test {

namespace {

constexpr const char* tooLong = "<too long>";

struct Told
{
    LineSplitter splitter;
    std::vector<std::string> lines;

    void operator()(const LineSplitter::Line& line)
    {
        lines.emplace_back(line.tooLong ? std::string(tooLong) : std::string(line.text));
    }
    void feed(std::string_view bytes)
    {
        splitter.feed(bytes, [this](const LineSplitter::Line& line) { (*this)(line); });
    }
    void finish()
    {
        splitter.finish([this](const LineSplitter::Line& line) { (*this)(line); });
    }
};

using Lines = std::vector<std::string>;

} // namespace

TEST(LineSplitter, LinesComeOutWithoutTheirEndsHoweverTheBytesArrive)
{
    const std::string input = "one\ntwo\r\n\n\r\nthree\rfour\nlast";
    const Lines expected = {"one", "two", "", "", "three\rfour", "last"};
    for (std::size_t piece = 1; piece <= input.size(); ++piece) {
        Told told;
        for (std::size_t at = 0; at < input.size(); at += piece) {
            told.feed(std::string_view(input).substr(at, piece));
        }
        told.finish();
        EXPECT_EQ(told.lines, expected) << piece;
    }
}

TEST(LineSplitter, ALineIsToldAsSoonAsItsEndIsThere)
{
    Told told;
    told.feed("half");
    EXPECT_TRUE(told.lines.empty());
    told.feed(" a line\nand");
    EXPECT_EQ(told.lines, Lines{"half a line"});
}

TEST(LineSplitter, NothingIsToldAtTheEndBehindALineFeed)
{
    Told told;
    told.feed("one\n");
    told.finish();
    EXPECT_EQ(told.lines, Lines{"one"});
}

TEST(LineSplitter, NulsArePartOfTheLine)
{
    Told told;
    told.feed(std::string_view("a\0b\nc\0\n", 7));
    ASSERT_EQ(told.lines.size(), 2U);
    EXPECT_EQ(told.lines[0], std::string("a\0b", 3));
}

TEST(LineSplitter, ALineOfOneMebibyteIsALineAndOneByteMoreIsTooLong)
{
    const std::string longest(LineSplitter::longestLine, 'x');
    Told whole;
    whole.feed(longest + "\n" + longest + "x\n" + longest + "\r\nnext\n");
    EXPECT_EQ(whole.lines, (Lines{longest, tooLong, longest, "next"}));

    Told pieces;
    for (const std::string& part : {longest, std::string("\n"), longest, std::string("x"),
                                    std::string("\nnext\n"), longest + "\r", std::string("\n")}) {
        pieces.feed(part);
    }
    EXPECT_EQ(pieces.lines, (Lines{longest, tooLong, "next", longest}));
}

TEST(LineSplitter, AnEndlessLineCountsOnceAndCostsLittle)
{
    Told told;
    const std::string piece(64 * 1024, 'x');
    const auto before = std::chrono::steady_clock::now();
    for (int i = 0; i < 3200; ++i) { // 200 MiB
        told.feed(piece);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(3));
    EXPECT_TRUE(told.lines.empty());
    told.feed("\ngood\n");
    told.finish();
    EXPECT_EQ(told.lines, (Lines{tooLong, "good"}));
}

TEST(LineSplitter, AnUnfinishedEndlessLineIsToldAtTheEnd)
{
    Told told;
    told.feed(std::string(LineSplitter::longestLine + 2, 'x'));
    told.finish();
    EXPECT_EQ(told.lines, Lines{tooLong});
}

TEST(LineSplitter, RandomPiecesGiveTheSameLinesAsTheWhole)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::string input;
        for (unsigned i = random() % 200; i > 0; --i) {
            input += "ab\r\n\n"[random() % 5];
        }
        Told whole;
        whole.feed(input);
        whole.finish();
        Told pieces;
        for (std::size_t at = 0; at < input.size();) {
            const std::size_t size = 1 + random() % 9;
            pieces.feed(std::string_view(input).substr(at, size));
            at += size;
        }
        pieces.finish();
        EXPECT_EQ(whole.lines, pieces.lines);
    }
}

} // namespace zolva::test
