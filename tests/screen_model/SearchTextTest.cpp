#include "screens/model/SearchText.h"

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

bool isIn(const char* name, const char* query, const QLocale& locale = QLocale::English)
{
    return searchForm(QString::fromUtf8(name), locale)
        .contains(searchForm(QString::fromUtf8(query), locale));
}

TEST(SearchText, IsFoundWhateverItsCaseAndItsPlace)
{
    EXPECT_TRUE(isIn("Lumen Editor", "lumen"));
    EXPECT_TRUE(isIn("Lumen Editor", "EDIT"));
    EXPECT_TRUE(isIn("Lumen Editor", "n e"));
    EXPECT_FALSE(isIn("Lumen Editor", "lumens"));
}

TEST(SearchText, KnowsTheCasesOfOtherLetters)
{
    EXPECT_TRUE(isIn("ÉTUDE", "étude"));
    EXPECT_TRUE(isIn("Журнал", "ЖУРНАЛ"));
    EXPECT_TRUE(isIn("ΟΔΟΣ", "οδος"));
    EXPECT_TRUE(isIn("Straße", "STRASSE"));
}

TEST(SearchText, DoesNotTakeOneLetterForAnother)
{
    EXPECT_FALSE(isIn("etude", "étude"));
    EXPECT_FALSE(isIn("Éditeur", "editeur"));
}

TEST(SearchText, FindsComposedTextInDecomposedAndTheOtherWayRound)
{
    EXPECT_TRUE(isIn("E\u0301diteur", "éditeur"));
    EXPECT_TRUE(isIn("Éditeur", "e\u0301diteur"));
}

TEST(SearchText, TellsTheTwoTurkishLettersApartWhereTheyAreTwo)
{
    const QLocale turkish(QLocale::Turkish);
    EXPECT_TRUE(isIn("İstanbul", "istanbul", turkish));
    EXPECT_TRUE(isIn("IRMAK", "ırmak", turkish));
    EXPECT_FALSE(isIn("IRMAK", "irmak", turkish));
    EXPECT_TRUE(isIn("IRMAK", "irmak"));
}

} // namespace

} // namespace zolva::test
