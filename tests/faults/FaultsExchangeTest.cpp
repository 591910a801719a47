#include "faults/SystemCalls.h"
#include "faults/World.h"

#include "platform/DeleteTree.h"
#include "platform/FileDescriptor.h"
#include "platform/SystemTrash.h"
#include "removal/disk/PurgeFromTrash.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>

/// Two entries that change places at the worst moment: just before each call of a run in turn, and
/// back again so many calls later, or not at all.
namespace {

namespace fs = std::filesystem;
using namespace zolva;
using namespace zolva::test;

constexpr int never = 0;

/// A home with a neighbour that must lose nothing, and two places whose things are exchanged.
struct Scene
{
    World world{1};
    const TrashHome& home = world.home();
    std::string neighbour = home.path("neighbour");
    std::string one;
    std::string other;

    Scene() { put("neighbour/f", "kept"); }
    /// A file, below the home folder, with all that is missing above it.
    void put(const std::string& relative, const std::string& text) const
    {
        const fs::path path = home.path(relative);
        fs::create_directories(path.parent_path());
        std::ofstream file(path, std::ios::binary);
        file << text;
        EXPECT_TRUE(file.flush()) << path;
    }
    /// A link to the neighbour, relative, so that it is no mount that keeps anybody from following.
    void linkToNeighbour(const std::string& path) const
    {
        fs::create_directory_symlink(
            fs::path(neighbour).lexically_relative(fs::path(path).parent_path()), path);
    }
    void exchange() const
    {
        ::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE);
    }
    [[nodiscard]] bool isNeighbourWhole() const
    {
        return namesIn(neighbour) == std::vector<std::string>{"f"} &&
               content(neighbour + "/f") == "kept";
    }
};

/// Each exchange in a new scene; `judge` gets what the run told.
void exchangeEverywhere(
    const std::function<void(Scene& scene)>& arrange,
    const std::function<std::string(const Scene& scene)>& body,
    const std::function<void(const Scene& scene, const std::string& told)>& judge)
{
    for (const int back : {never, 1}) {
        bool goesOn = true;
        for (int moment = 0; goesOn; ++moment) {
            SCOPED_TRACE("moment " + std::to_string(moment) + ", back after " +
                         std::to_string(back));
            Scene scene;
            arrange(scene);
            FaultPlan plan;
            plan.meanwhile = [&](int at) {
                if (at == moment || (back != never && at == moment + back)) {
                    scene.exchange();
                }
            };
            const TracedRun run = runTraced([&] { return body(scene); }, plan);
            ASSERT_EQ(run.end, RunEnd::Finished);
            judge(scene, run.report);
            if (::testing::Test::HasFatalFailure()) {
                return;
            }
            goesOn = moment < static_cast<int>(run.calls.size());
        }
    }
}

/// At how many moments the neighbour lost anything to a deletion of "doomed/t", in which a link to
/// it and a folder change places.
int deletionLosses(const std::function<void(const std::string& folder)>& remove)
{
    int losses = 0;
    exchangeEverywhere(
        [](Scene& scene) {
            scene.put("doomed/t/folder/f", "goes");
            scene.one = scene.home.path("doomed/t/folder");
            scene.other = scene.home.path("doomed/t/link");
            scene.linkToNeighbour(scene.other);
        },
        [&](const Scene& scene) {
            remove(scene.home.path("doomed"));
            return std::string();
        },
        [&](const Scene& scene, const std::string&) {
            losses += scene.isNeighbourWhole() ? 0 : 1;
        });
    return losses;
}

/// By path, looking before going in.
void removeByPath(const std::string& path)
{
    struct stat status
    {};
    if (::lstat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
        ::unlink(path.c_str());
        return;
    }
    for (const std::string& name : namesIn(path)) {
        removeByPath(path + "/" + name);
    }
    ::rmdir(path.c_str());
}

TEST(FaultsExchange, ADeletionFollowsNoLinkThatIsSwappedInAtAnyMoment)
{
    EXPECT_EQ(deletionLosses([](const std::string& folder) {
                  const FileDescriptor above(
                      ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
                  static_cast<void>(deleteTree(above.get(), "t"));
              }),
              0);
}

TEST(FaultsExchange, TheHarnessSeesTheLossesOfADeletionByPath)
{
    EXPECT_GT(deletionLosses([](const std::string& folder) { removeByPath(folder + "/t"); }), 0);
}

TEST(FaultsExchange, AMoveTakesWhatStandsThereOrNothingAtAnyMoment)
{
    int moved = 0;
    int refused = 0;
    exchangeEverywhere(
        [](Scene& scene) {
            scene.put("swap/item/f", "goes");
            scene.one = scene.home.path("swap/item");
            scene.other = scene.home.path("swap/link");
            scene.linkToNeighbour(scene.other);
        },
        [](const Scene& scene) {
            return std::string(moveToTrash(scene.home.home(), scene.one) ? "m" : "f");
        },
        [&](const Scene& scene, const std::string& told) {
            ASSERT_TRUE(scene.isNeighbourWhole());
            const std::string landed = scene.home.inTrash("item");
            int items = 0;
            int links = 0;
            for (const std::string& place : {scene.one, scene.other, landed}) {
                const bool isLink = fs::is_symlink(fs::symlink_status(place));
                links += isLink ? 1 : 0;
                items += !isLink && content(place + "/f") == "goes" ? 1 : 0;
            }
            ASSERT_EQ(items, 1);
            ASSERT_EQ(links, 1);
            ASSERT_EQ(told == "m", stands(landed));
            ASSERT_EQ(told == "m", stands(scene.home.infoOf("item")));
            (told == "m" ? moved : refused) += 1;
        });
    EXPECT_GT(moved, 0);
    EXPECT_GT(refused, 0);
}

TEST(FaultsExchange, AReturnOverwritesNothingWhereverItsFolderLeadsAtAnyMoment)
{
    int back = 0;
    int refused = 0;
    exchangeEverywhere(
        [](Scene& scene) {
            scene.put("swap/folder/f", "goes");
            scene.one = scene.home.path("swap/folder");
            scene.other = scene.home.path("swap/link");
            ASSERT_TRUE(moveToTrash(scene.home.home(), scene.one + "/f").has_value());
            scene.linkToNeighbour(scene.other);
        },
        [](const Scene& scene) {
            const auto done = putBackFromTrash(scene.home.inTrash("f"), scene.one + "/f",
                                               MissingParent::IsMadeAnew);
            return std::string(done ? "b" : "f");
        },
        [&](const Scene& scene, const std::string& told) {
            ASSERT_TRUE(scene.isNeighbourWhole());
            const bool isLink = fs::is_symlink(fs::symlink_status(scene.one));
            const std::string folder = isLink ? scene.other : scene.one;
            ASSERT_EQ(content(folder + "/f") == "goes", told == "b");
            ASSERT_EQ(content(scene.home.inTrash("f")) == "goes", told == "f");
            (told == "b" ? back : refused) += 1;
        });
    EXPECT_GT(back, 0);
    EXPECT_GT(refused, 0);
}

TEST(FaultsExchange, NothingGoesFromTheTrashThatIsHeldByAPathOfAnother)
{
    int purged = 0;
    int withheld = 0;
    for (const bool isOther : {true, false}) {
        exchangeEverywhere(
            [&](Scene& scene) {
                scene.put("a/files/x", "kept");
                scene.put("b/files/x", "goes");
                scene.one = scene.home.trash();
                scene.other = scene.home.path(".local/share/Other");
                fs::remove_all(scene.one);
                fs::create_directories(scene.home.path(".local/share"));
                fs::create_directory_symlink(scene.home.path(isOther ? "a" : "b"), scene.one);
                fs::create_directory_symlink(scene.home.path(isOther ? "b" : "a"), scene.other);
            },
            [](const Scene& scene) {
                return std::to_string(purgeFromTrash({scene.home.path("b/files/x")}).purged);
            },
            [&](const Scene& scene, const std::string& told) {
                ASSERT_EQ(content(scene.home.path("a/files/x")), "kept");
                ASSERT_EQ(told == "1", !stands(scene.home.path("b/files/x")));
                (told == "1" ? purged : withheld) += 1;
            });
    }
    EXPECT_GT(purged, 0);
    EXPECT_GT(withheld, 0);
}

} // namespace
