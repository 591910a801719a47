#include "platform/VolumeName.h"

#include "support/TempTree.h"

#include <gtest/gtest.h>

namespace zolva {

namespace {

TEST(VolumeName, IsTheSameForAllFoldersOfAVolume)
{
    test::TempTree tree;
    EXPECT_EQ(volumeName(tree.folder("a/b")), volumeName(tree.root()));
}

TEST(VolumeName, OfAMissingPathIsEmpty)
{
    test::TempTree tree;
    EXPECT_EQ(volumeName(tree.path("missing")), "");
    EXPECT_EQ(volumeName({}), "");
}

} // namespace

} // namespace zolva
