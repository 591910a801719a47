#include "files/SizeText.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>
#include <locale>

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

TEST(SizeText, WritesAPointWhateverTheLocale)
{
    const std::locale before = std::locale::global(std::locale(std::locale(), new CommaPoint));
    const std::string numbers = std::setlocale(LC_NUMERIC, nullptr);
    // Whichever of these the machine has; the C++ locale above is there in any case.
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "C"}) {
        std::setlocale(LC_NUMERIC, name);
        EXPECT_EQ(sizeText(1'234'567'890'123), "1234.57 GB") << name;
        EXPECT_EQ(sizeText(5), "5 bytes") << name;
    }
    std::setlocale(LC_NUMERIC, numbers.c_str());
    std::locale::global(before);
}

} // namespace

} // namespace zolva
