#include "desktop/linux/DesktopHandlers.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

class Handlers : public ::testing::Test
{
protected:
    TempTree tree;
    ScopedHome home{tree.path("home")};
    ScopedVariable data{"XDG_DATA_DIRS", tree.path("data")};
    ScopedVariable config{"XDG_CONFIG_DIRS", tree.path("config")};
};

TEST_F(Handlers, AreNoneOnAnEmptyDisk)
{
    EXPECT_FALSE(hasHandler("inode/directory"));
}

TEST_F(Handlers, CountWhereverTheyAreRegistered)
{
    tree.text("data/applications/one.desktop", "");
    for (const char* list :
         {"home/.config/mimeapps.list", "config/mimeapps.list",
          "home/.local/share/applications/mimeapps.list", "data/applications/mimeapps.list",
          "data/applications/mimeinfo.cache"}) {
        tree.text(list, "[Default Applications]\nx-scheme-handler/trash=one.desktop\n");
        EXPECT_TRUE(hasHandler("x-scheme-handler/trash")) << list;
        EXPECT_FALSE(hasHandler("x-scheme-handler/tras")) << list;
        tree.text(list, "");
        EXPECT_FALSE(hasHandler("x-scheme-handler/trash")) << list;
    }
}

TEST_F(Handlers, AreNotThoseThatWereRemoved)
{
    tree.text("data/applications/one.desktop", "");
    tree.text("home/.config/mimeapps.list",
              "[Removed Associations]\ninode/directory=one.desktop;\n[Added Associations]\n");
    EXPECT_FALSE(hasHandler("inode/directory"));
}

TEST_F(Handlers, MayLieInFoldersThatTheirNamesTell)
{
    tree.text("data/applications/vendor/kit/my-files.desktop", "");
    tree.text("config/mimeapps.list",
              "[Default Applications]\ninode/directory=vendor-kit-my-files.desktop\n");
    EXPECT_TRUE(hasHandler("inode/directory"));
    tree.text("config/mimeapps.list",
              "[Default Applications]\ninode/directory=vendor-my-files.desktop\n");
    EXPECT_FALSE(hasHandler("inode/directory"));
}

} // namespace

} // namespace zolva::test
