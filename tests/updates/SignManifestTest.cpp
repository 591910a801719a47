#include "updates/UpdateChecker.h"

#include "ctl/ChildRun.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace zolva::test {

namespace {

class SignManifest : public ::testing::Test
{
protected:
    [[nodiscard]] Outcome run(std::vector<std::string> arguments) const
    {
        return ChildRun(std::move(arguments)).program(SIGN_MANIFEST).home(tree.root()).run();
    }
    [[nodiscard]] std::string content(const std::string& name) const
    {
        std::ifstream file(tree.path(name));
        return {std::istreambuf_iterator<char>(file), {}};
    }
    [[nodiscard]] std::string madeKey()
    {
        const Outcome made = run({"key", tree.path("key")});
        EXPECT_EQ(made.code, 0) << made.err;
        return made.out;
    }

    TempTree tree;
    std::string manifest = tree.text(
        "feed.json", R"({"build": 7, "version": "1.2", "url": "https://example.org/get"})");
};

} // namespace

TEST_F(SignManifest, MakesWhatAProgramWithThatPublicKeyTakes)
{
    const std::string publicKey = madeKey();
    ASSERT_EQ(run({"sign", tree.path("key"), manifest}).code, 0);
    const auto verified =
        updateChecker::verifiedManifest(content("feed.json"), content("feed.json.sig"), publicKey);
    ASSERT_TRUE(verified);
    EXPECT_EQ(verified->build, 7);
    const std::string key = publicKey.substr(0, publicKey.find('\n'));
    EXPECT_EQ(run({"verify", key, manifest}).out,
              "build 7, version 1.2, at https://example.org/get\n");
    EXPECT_EQ(run({"public", tree.path("key")}).out, publicKey);
}

TEST_F(SignManifest, KeepsTheSecretKeyFromOthersAndNeverOverwritesOne)
{
    static_cast<void>(madeKey());
    EXPECT_EQ(std::filesystem::status(tree.path("key")).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    const std::string before = content("key");
    EXPECT_EQ(before.size(), 45U);
    EXPECT_EQ(run({"key", tree.path("key")}).code, 1);
    EXPECT_EQ(content("key"), before);
}

TEST_F(SignManifest, LeavesNoPieceOfAKeyWhereThereIsNoRoomForIt)
{
    const Outcome full = ChildRun({"-c", "trap '' XFSZ; ulimit -f 0; exec \"$0\" key \"$1\"",
                                   SIGN_MANIFEST, tree.path("key")})
                             .program("/bin/sh")
                             .home(tree.root())
                             .run();
    EXPECT_EQ(full.code, 1);
    EXPECT_EQ(full.out, "");
    EXPECT_FALSE(std::filesystem::exists(tree.path("key")));
}

TEST_F(SignManifest, MakesAnotherKeyEachTime)
{
    EXPECT_NE(madeKey(), run({"key", tree.path("second")}).out);
    EXPECT_NE(content("key"), content("second"));
}

TEST_F(SignManifest, SignsNothingThatNoProgramWouldTake)
{
    static_cast<void>(madeKey());
    for (const char* bad : {"no JSON", R"({"build": 7})",
                            R"({"build": 7, "version": "1.2", "url": "http://example.org"})"}) {
        tree.text("bad.json", bad);
        const Outcome refused = run({"sign", tree.path("key"), tree.path("bad.json")});
        EXPECT_EQ(refused.code, 1) << bad;
        EXPECT_FALSE(refused.err.empty()) << bad;
        EXPECT_FALSE(std::filesystem::exists(tree.path("bad.json.sig"))) << bad;
    }
}

TEST_F(SignManifest, TellsAKeyThatIsNone)
{
    tree.text("key", "not a key");
    EXPECT_EQ(run({"public", tree.path("key")}).code, 1);
    EXPECT_EQ(run({"sign", tree.path("key"), manifest}).code, 1);
    EXPECT_EQ(run({"sign", tree.path("none"), manifest}).code, 1);
    EXPECT_FALSE(std::filesystem::exists(manifest + ".sig"));
}

TEST_F(SignManifest, FindsAManifestThatWasChangedAfterwards)
{
    std::string key = madeKey();
    key.pop_back();
    ASSERT_EQ(run({"sign", tree.path("key"), manifest}).code, 0);
    std::ofstream(manifest, std::ios::app) << ' ';
    const Outcome changed = run({"verify", key, manifest});
    EXPECT_EQ(changed.code, 1);
    EXPECT_NE(changed.err.find("could not be verified"), std::string::npos);
}

TEST_F(SignManifest, CalledWronglyDoesNothing)
{
    EXPECT_EQ(run({}).code, 2);
    EXPECT_EQ(run({"sign", manifest}).code, 2);
    EXPECT_EQ(run({"sing"}).code, 2);
}

} // namespace zolva::test
