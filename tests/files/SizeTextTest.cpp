#include "files/SizeText.h"

#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <tuple>

namespace zolva {

namespace {

TEST(SizeText, ChangesItsUnitExactlyAtTheThresholds)
{
    EXPECT_EQ(sizeText(999), "999 bytes");
    EXPECT_EQ(sizeText(1'000), "1 KB");
    EXPECT_EQ(sizeText(999'999), "1000 KB");
    EXPECT_EQ(sizeText(1'000'000), "1.0 MB");
    EXPECT_EQ(sizeText(999'999'999), "1000.0 MB");
    EXPECT_EQ(sizeText(1'000'000'000), "1.00 GB");
}

TEST(SizeText, PicksTheUnitBeforeItRounds)
{
    EXPECT_EQ(sizeText(999'499), "999 KB");
    EXPECT_EQ(sizeText(999'500), "1000 KB");
    EXPECT_EQ(sizeText(999'949'999), "999.9 MB");
    EXPECT_EQ(sizeText(999'950'001), "1000.0 MB");
}

TEST(SizeText, RoundsATieToTheEvenDigit)
{
    EXPECT_EQ(sizeText(1'500), "2 KB");
    EXPECT_EQ(sizeText(2'500), "2 KB");
    EXPECT_EQ(sizeText(3'500), "4 KB");
    EXPECT_EQ(sizeText(1'250'000), "1.2 MB");
    EXPECT_EQ(sizeText(1'125'000'000), "1.12 GB");
}

TEST(SizeText, HasNoSingularAndNoSeparators)
{
    EXPECT_EQ(sizeText(0), "0 bytes");
    EXPECT_EQ(sizeText(1), "1 bytes");
    EXPECT_EQ(sizeText(1'234'567'890'123), "1234.57 GB");
}

TEST(SizeText, CountsANegativeValueInBytes)
{
    EXPECT_EQ(sizeText(-1), "-1 bytes");
    EXPECT_EQ(sizeText(-5'000'000), "-5000000 bytes");
    EXPECT_EQ(sizeText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808 bytes");
}

TEST(SizeText, TellsTheLargestCount)
{
    EXPECT_EQ(sizeText(std::numeric_limits<std::int64_t>::max()), "9223372036.85 GB");
}

class CommaPoint : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// A locale with a comma in its numbers, made here: no machine need have one installed.
class CommaLocale
{
public:
    CommaLocale()
    {
        std::string characters = "<code_set_name> ANSI_X3.4-1968\n<comment_char> %\n"
                                 "<escape_char> /\nCHARMAP\n";
        for (int code = 0; code < 128; ++code) {
            std::array<char, 32> line{};
            std::snprintf(line.data(), line.size(), "<U%04X> /x%02x X\n", code, code);
            characters += line.data();
        }
        const std::string map = m_tree.text("map", characters + "END CHARMAP\n");
        const std::string rules = m_tree.text("rules", "LC_NUMERIC\ndecimal_point \",\"\n"
                                                       "thousands_sep \".\"\ngrouping 3;3\n"
                                                       "END LC_NUMERIC\n");
        // It complains of every category that is not told.
        const std::string command = "localedef -c -f '" + map + "' -i '" + rules + "' '" +
                                    m_tree.path("comma") + "' > '" + m_tree.path("told") + "' 2>&1";
        std::ignore = std::system(command.c_str());
        const test::ScopedVariable place("LOCPATH", m_tree.root());
        std::setlocale(LC_NUMERIC, "comma");
    }
    ~CommaLocale() { std::setlocale(LC_NUMERIC, m_before.c_str()); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    test::TempTree m_tree;
    const std::string m_before = std::setlocale(LC_NUMERIC, nullptr);
};

TEST(SizeText, WritesAPointWhateverTheLocaleOfC)
{
    const CommaLocale locale;
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(sizeText(1'234'567'890'123), "1234.57 GB");
    EXPECT_EQ(sizeText(1'250'000), "1.2 MB");
    EXPECT_EQ(sizeText(5), "5 bytes");
}

TEST(SizeText, WritesAPointWhateverTheLocaleOfStreams)
{
    const std::locale before = std::locale::global(std::locale(std::locale(), new CommaPoint));
    std::ostringstream stream;
    stream << 1234.5;
    EXPECT_EQ(stream.str(), "1.234,5");
    EXPECT_EQ(sizeText(1'234'567'890'123), "1234.57 GB");
    std::locale::global(before);
}

} // namespace

} // namespace zolva
