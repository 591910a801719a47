#include "screens/model/MediumDate.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

std::string dated(const char* locale, const QDate& date = QDate(2026, 11, 21))
{
    return mediumDate(date, QLocale(QString::fromUtf8(locale))).toStdString();
}

TEST(MediumDate, HasADayAShortMonthAndAYearInTheLocalesOrder)
{
    EXPECT_EQ(dated("en_US"), "Nov 21, 2026");
    EXPECT_EQ(dated("en_GB"), "21 Nov 2026");
    EXPECT_EQ(dated("C"), "21 Nov 2026");
    EXPECT_EQ(dated("fr_FR"), "21 nov. 2026");
    EXPECT_EQ(dated("hu_HU"), "2026. nov. 21.");
}

TEST(MediumDate, DoesNotPadTheDay)
{
    EXPECT_EQ(dated("en_US", QDate(2026, 3, 4)), "Mar 4, 2026");
    EXPECT_EQ(dated("C", QDate(2026, 3, 4)), "4 Mar 2026");
}

TEST(MediumDate, LosesTheWeekdayWhereverTheLocaleHasIt)
{
    EXPECT_EQ(dated("zh_CN"), "2026年11月21日");
    EXPECT_EQ(dated("ko_KR"), "2026년 11월 21일");
    EXPECT_EQ(dated("tr_TR"), "21 Kas 2026");
}

TEST(MediumDate, LosesTheWordThatTiesTheWeekdayToTheRest)
{
    EXPECT_EQ(dated("da_DK"), "21. nov. 2026");
}

TEST(MediumDate, KeepsTheWordsOfTheDate)
{
    EXPECT_EQ(dated("pt_BR"), "21 de nov. de 2026");
    EXPECT_EQ(dated("lt_LT"), "2026 m. lapkr. 21 d.");
}

TEST(MediumDate, OfEveryLocaleHasADayAMonthAndAYearAndNoWeekday)
{
    const QList<QLocale> all =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
    ASSERT_GT(all.size(), 100);
    for (const QLocale& locale : all) {
        const QString format = mediumDateFormat(locale);
        EXPECT_TRUE(format.contains(u'd') && format.contains(u'M') &&
                    format.contains(QStringLiteral("yy")))
            << locale.name().toStdString() << ": " << format.toStdString();
        EXPECT_FALSE(format.contains(QStringLiteral("ddd")) ||
                     format.contains(QStringLiteral("MMMM")))
            << locale.name().toStdString() << ": " << format.toStdString();
    }
}

TEST(MediumDate, IsTheDayOfTheMomentHere)
{
    const QDateTime late(QDate(2026, 11, 21), QTime(23, 59, 59, 999));
    const TimePoint moment{std::chrono::milliseconds(late.toMSecsSinceEpoch())};
    EXPECT_EQ(mediumDate(moment, QLocale::c()), "21 Nov 2026");
    EXPECT_EQ(mediumDate(moment + std::chrono::milliseconds(1), QLocale::c()), "22 Nov 2026");
}

} // namespace

} // namespace zolva::test
