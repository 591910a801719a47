#include "desktop/RevealedPlace.h"

#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <string>

namespace zolva::test {

namespace {

class RevealedPlaces : public ::testing::Test
{
protected:
    void expect(const std::string& asked, const std::string& item, const std::string& folder)
    {
        const RevealedPlace place = revealedPlace(asked);
        EXPECT_EQ(place.item, item);
        EXPECT_EQ(place.folder, folder);
    }

    TempTree tree;
    ScopedHome home{tree.root()};
};

TEST_F(RevealedPlaces, WhatExistsIsShownItself)
{
    const std::string file = tree.text("Downloads/tool.dmg", "x");
    expect(file, file, tree.path("Downloads"));
}

TEST_F(RevealedPlaces, ATildeIsTheHome)
{
    const std::string file = tree.text("Downloads/tool.dmg", "x");
    expect("~/Downloads/tool.dmg", file, tree.path("Downloads"));
}

TEST_F(RevealedPlaces, ALinkThatLeadsNowhereIsThere)
{
    tree.link("astray", "/nonexistent/place");
    expect("~/astray", tree.path("astray"), tree.root());
}

TEST_F(RevealedPlaces, WhatIsGoneIsTheFolderThatItWasIn)
{
    const std::string folder = tree.folder("Downloads");
    expect("~/Downloads/gone.dmg", folder, folder);
}

TEST_F(RevealedPlaces, AFolderThatIsGoneTooIsTheOneAboveIt)
{
    expect("~/a/b/c", tree.root(), tree.root());
}

TEST_F(RevealedPlaces, AFileIsNoFolderToBeShownInto)
{
    tree.text("a", "x");
    expect("~/a/b/c", tree.root(), tree.root());
}

TEST_F(RevealedPlaces, NothingIsLeftButTheRoot)
{
    expect("/nonexistent/at/all", "/", "/");
    expect("/", "/", "/");
    expect("", "/", "/");
}

} // namespace

} // namespace zolva::test
