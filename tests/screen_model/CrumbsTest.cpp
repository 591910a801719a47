#include "screens/model/Crumbs.h"

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

using Crumbs = std::vector<Crumb>;

TEST(TheCrumbs, OfTheWholeDiskAreTheComputerAlone)
{
    EXPECT_EQ(crumbsTo("", "/home/me"), (Crumbs{{"Computer", ""}}));
}

TEST(TheCrumbs, BelowTheHomeTakeItAsOneStep)
{
    EXPECT_EQ(crumbsTo("/home/me/Downloads/old", "/home/me"),
              (Crumbs{{"Computer", ""},
                      {"~", "/home/me"},
                      {"Downloads", "/home/me/Downloads"},
                      {"old", "/home/me/Downloads/old"}}));
    EXPECT_EQ(crumbsTo("/home/me", "/home/me"), (Crumbs{{"Computer", ""}, {"~", "/home/me"}}));
}

TEST(TheCrumbs, ElsewhereNameEachFolder)
{
    EXPECT_EQ(crumbsTo("/usr/lib", "/home/me"),
              (Crumbs{{"Computer", ""}, {"usr", "/usr"}, {"lib", "/usr/lib"}}));
}

TEST(TheCrumbs, OfAFolderThatOnlyBeginsLikeTheHomeAreNotThoseOfTheHome)
{
    EXPECT_EQ(crumbsTo("/home/mecha", "/home/me"),
              (Crumbs{{"Computer", ""}, {"home", "/home"}, {"mecha", "/home/mecha"}}));
}

TEST(TheCrumbs, KnowNoHomeAtTheRoot)
{
    EXPECT_EQ(crumbsTo("/usr", "/"), (Crumbs{{"Computer", ""}, {"usr", "/usr"}}));
}

TEST(TheCrumbs, KeepNamesAsTheyAre)
{
    EXPECT_EQ(crumbsTo("/a b\xFF/~", "/home/me"),
              (Crumbs{{"Computer", ""}, {"a b\xFF", "/a b\xFF"}, {"~", "/a b\xFF/~"}}));
}

} // namespace

} // namespace zolva::test
