#include "ScreenBench.h"

#include "screens/model/SortMenu.h"

namespace zolva::test {

namespace {

using TheSortMenu = ScreenBench;

TEST_F(TheSortMenu, NamesTheOrdersItOffers)
{
    const SortMenu menu(
        ready(), "purge",
        {SortKey::SizeDesc, SortKey::SizeAsc, SortKey::NameAsc, SortKey::AgeDesc, SortKey::AgeAsc});
    EXPECT_EQ(menu.names(), (QStringList{"Largest first", "Smallest first", "Name", "Oldest first",
                                         "Newest first"}));
}

TEST_F(TheSortMenu, ShowsTheLargestFirstWhereNothingWasChosen)
{
    const SortMenu menu(ready(), "clean", {SortKey::NameAsc, SortKey::SizeDesc});
    EXPECT_EQ(menu.label(), "Largest first");
    EXPECT_EQ(menu.current(), 1);
}

TEST_F(TheSortMenu, AChoiceIsTheScreensAlone)
{
    AppModel& m = ready();
    SortMenu menu(m, "clean", {SortKey::SizeDesc, SortKey::NameAsc});
    const Told told(&menu, &SortMenu::currentChanged);
    menu.choose(1);
    EXPECT_EQ(m.sortOf("clean"), SortKey::NameAsc);
    EXPECT_EQ(m.sortOf("purge"), SortKey::SizeDesc);
    EXPECT_EQ(menu.label(), "Name");
    EXPECT_EQ(told.count(), 1);
    m.setSort("purge", SortKey::AgeAsc);
    menu.choose(1);
    EXPECT_EQ(told.count(), 1);
}

TEST_F(TheSortMenu, APlaceThatIsNoneChoosesNothing)
{
    AppModel& m = ready();
    SortMenu menu(m, "clean", {SortKey::SizeDesc, SortKey::NameAsc});
    menu.choose(-1);
    menu.choose(2);
    EXPECT_TRUE(m.sort().empty());
}

TEST_F(TheSortMenu, AnOrderThatIsNotOfferedIsNamedAndHasNoPlace)
{
    AppModel& m = ready();
    const SortMenu menu(m, "clean", {SortKey::SizeDesc, SortKey::NameAsc});
    m.setSort("clean", SortKey::AgeDesc);
    EXPECT_EQ(menu.label(), "Oldest first");
    EXPECT_EQ(menu.current(), -1);
}

} // namespace

} // namespace zolva::test
