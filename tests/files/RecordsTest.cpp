#include "files/Records.h"

#include <gtest/gtest.h>

namespace zolva {

namespace {

TEST(Records, ACategoryTotalsTheBytesOfItsPaths)
{
    Category category;
    EXPECT_EQ(totalBytes(category), 0);
    for (const std::int64_t bytes : {std::int64_t{5'000'000'000}, std::int64_t{7}}) {
        CatPath path;
        path.b = bytes;
        category.paths.push_back(path);
    }
    EXPECT_EQ(totalBytes(category), 5'000'000'007);
}

TEST(Records, AProjectsKeyIsItsPathAndArtifactAndNotItsId)
{
    Project first;
    first.p = "~/Code/app";
    first.artifact = "node_modules";
    Project second;
    second.p = first.p;
    second.artifact = first.artifact;
    EXPECT_EQ(projectKey(first), "~/Code/app/node_modules");
    EXPECT_EQ(projectKey(first), projectKey(second));
    EXPECT_FALSE(first.id == second.id);
}

TEST(Records, EveryRecordBuiltHasAnIdOfItsOwnAndACopyKeepsIt)
{
    const CatPath first;
    const CatPath second;
    const CatPath copy = first;
    EXPECT_FALSE(first.id == second.id);
    EXPECT_TRUE(first.id == copy.id);
    EXPECT_FALSE(InstallerItem().id == InstallerItem().id);
    EXPECT_FALSE(BigFile().id == BigFile().id);
    EXPECT_FALSE(ResidueRow().id == ResidueRow().id);
}

TEST(Records, NothingIsProtectedSharedOrForTheAdministratorUnlessSet)
{
    EXPECT_FALSE(CatPath().prot);
    EXPECT_FALSE(CatPath().sudo);
    EXPECT_FALSE(Category().sudo);
    EXPECT_FALSE(ResidueRow().shared);
    EXPECT_EQ(ResidueRow().sharedWith, std::nullopt);
}

} // namespace

} // namespace zolva
