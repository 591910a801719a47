#include "platform/VolumeSpace.h"

#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <sys/statvfs.h>

namespace zolva {

namespace {

TEST(VolumeSpace, TellsTheSizeOfTheVolumeThatHoldsThePath)
{
    test::TempTree tree;
    struct statvfs volume
    {};
    ASSERT_EQ(::statvfs(tree.root().c_str(), &volume), 0);
    const auto total =
        static_cast<std::int64_t>(volume.f_blocks) * static_cast<std::int64_t>(volume.f_frsize);
    ASSERT_GT(total, 0);
    EXPECT_EQ(volumeSpace(tree.root()).total, total);
    EXPECT_EQ(volumeSpace(tree.file("folder/file")).total, total);
}

TEST(VolumeSpace, WhatAnyoneMayUseIsWithinTheTotal)
{
    test::TempTree tree;
    const VolumeSpace space = volumeSpace(tree.root());
    EXPECT_GE(space.available, 0);
    EXPECT_LE(space.available, space.total);
}

TEST(VolumeSpace, OfAMissingPathIsUnknown)
{
    test::TempTree tree;
    for (const std::string& path : {tree.path("missing"), std::string()}) {
        EXPECT_EQ(volumeSpace(path).available, 0);
        EXPECT_EQ(volumeSpace(path).total, 0);
    }
}

} // namespace

} // namespace zolva
