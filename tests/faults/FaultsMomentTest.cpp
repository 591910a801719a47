#include "faults/SystemCalls.h"
#include "faults/World.h"

#include "platform/DeleteTree.h"
#include "platform/FileDescriptor.h"
#include "platform/FileIdentity.h"
#include "platform/SystemTrash.h"
#include "platform/linux/PlacedMove.h"
#include "removal/disk/PurgeFromTrash.h"
#include "removal/disk/TrashOnePath.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>

/// What other programs do at the worst moment: just before each call of a run in turn.
namespace {

namespace fs = std::filesystem;
using namespace zolva;
using namespace zolva::test;

/// Runs the body with `other` done before the call of that number. Whether the run came so far.
bool runWith(int moment, const std::function<std::string()>& body,
             const std::function<void()>& other, std::string& report)
{
    FaultPlan plan;
    plan.meanwhile = [&](int at) {
        if (at == moment) {
            other();
        }
    };
    const TracedRun run = runTraced(body, plan);
    EXPECT_EQ(run.end, RunEnd::Finished) << "moment " << moment;
    report = run.report;
    return moment < static_cast<int>(run.calls.size());
}

void write(const std::string& path, const std::string& text)
{
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream file(path, std::ios::binary);
    file << text;
    ASSERT_TRUE(file.flush()) << path;
}

FileDescriptor opened(const std::string& folder)
{
    return FileDescriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

/// The bystander and a folder to delete, in which an exchange puts a link to the bystander in the
/// place of a folder.
struct Exchange
{
    World world{1};
    std::string neighbour = world.home().path("neighbour");
    std::string doomed = world.home().path("doomed");
    Picture before;

    Exchange()
    {
        write(neighbour + "/kept", "kept");
        write(doomed + "/t/folder/goes", "goes");
        fs::create_directory_symlink(neighbour, doomed + "/t/link");
        before = pictureOf(neighbour);
    }
    void exchange() const
    {
        ::renameat2(AT_FDCWD, (doomed + "/t/folder").c_str(), AT_FDCWD,
                    (doomed + "/t/link").c_str(), RENAME_EXCHANGE);
    }
    [[nodiscard]] bool isLost() const { return pictureOf(neighbour) != before; }
};

/// At how many moments an exchange, or one and back again that many calls later, costs the
/// bystander anything.
int exchangeLosses(const std::function<void(const std::string& folder)>& remove)
{
    int losses = 0;
    for (const int calls : {0, 1, 2, 3}) {
        bool came = true;
        for (int moment = 0; came; ++moment) {
            const Exchange tried;
            FaultPlan plan;
            plan.meanwhile = [&](int at) {
                if (at == moment || (calls > 0 && at == moment + calls)) {
                    tried.exchange();
                }
            };
            const TracedRun run = runTraced(
                [&] {
                    remove(tried.doomed);
                    return std::string();
                },
                plan);
            EXPECT_EQ(run.end, RunEnd::Finished);
            came = moment < static_cast<int>(run.calls.size());
            losses += tried.isLost() ? 1 : 0;
        }
    }
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

TEST(FaultsMoment, ADeletionFollowsNoLinkThatIsSwappedInAtAnyMoment)
{
    EXPECT_EQ(exchangeLosses([](const std::string& folder) {
                  const FileDescriptor above = opened(folder);
                  static_cast<void>(deleteTree(above.get(), "t"));
              }),
              0);
}

TEST(FaultsMoment, TheHarnessSeesTheLossesOfADeletionByPath)
{
    EXPECT_GT(exchangeLosses([](const std::string& folder) { removeByPath(folder + "/t"); }), 0);
}

TEST(FaultsMoment, WhatVanishesDuringItsMoveIsAbsentAndNoFailure)
{
    int absent = 0;
    for (const std::uint32_t seed : {1U, 5U, 10U}) {
        std::string told;
        bool came = true;
        for (int moment = 0; came; ++moment) {
            const World world(seed);
            const auto body = [&] {
                const TrashAttempt attempt = trashOnePath(world.item());
                return std::string(std::holds_alternative<TrashMoved>(attempt.outcome)    ? "m"
                                   : std::holds_alternative<TrashFailed>(attempt.outcome) ? "f"
                                                                                          : "a") +
                       attempt.landed.value_or("");
            };
            came = runWith(
                moment, body, [&] { fs::remove_all(world.item()); }, told);
            ASSERT_NE(told[0], 'f') << "seed " << seed << ", moment " << moment;
            // Moved and told where, or gone without a trace.
            ASSERT_EQ(told.size() > 1, told[0] == 'm');
            ASSERT_EQ(told.size() > 1, !world.recordedName().empty());
            ASSERT_TRUE(told[0] == 'm' || !stands(world.home().infoOf(world.name())));
            ASSERT_TRUE(world.bystandersAreUntouched());
            absent += told[0] == 'a' ? 1 : 0;
        }
        EXPECT_EQ(told[0], 'm') << "undisturbed, it is moved";
    }
    EXPECT_GT(absent, 0);
}

TEST(FaultsMoment, WhatIsPutBackDuringItsDeletionIsWholeOrAllGone)
{
    int restored = 0;
    bool came = true;
    for (int moment = 0; came; ++moment) {
        const World world(1);
        const TrashHome& home = world.home();
        for (int i = 0; i < 6; ++i) {
            write(home.inTrash("x/f" + std::to_string(i)), "1");
        }
        const std::string back = home.path("back");
        const auto undo = [&] { ::rename(home.inTrash("x").c_str(), back.c_str()); };
        const auto body = [&] {
            const auto deleted = deleteFromTrash(*pinHomeTrash(home.home()), "x");
            return std::string(deleted ? "d" : "f");
        };
        std::string told;
        came = runWith(moment, body, undo, told);
        ASSERT_FALSE(stands(home.inTrash("x")));
        ASSERT_EQ(namesIn(back).size(), stands(back) ? 6U : 0U) << "moment " << moment;
        ASSERT_EQ(told == "d", !stands(back)) << "moment " << moment;
        restored += stands(back) ? 1 : 0;
    }
    EXPECT_GT(restored, 0);
}

TEST(FaultsMoment, NothingGoesFromTheTrashThatIsHeldByAPathOfAnother)
{
    int purged = 0;
    int withheld = 0;
    for (const bool isHeld : {true, false}) {
        for (const int calls : {0, 1, 2, 3}) {
            bool came = true;
            for (int moment = 0; came; ++moment) {
                const World world(1);
                const TrashHome& home = world.home();
                const std::string share = home.path(".local/share/");
                write(home.path("a/files/x"), "kept");
                write(home.path("b/files/x"), "goes");
                fs::create_directories(share);
                fs::remove_all(home.trash());
                fs::create_directory_symlink(home.path(isHeld ? "a" : "b"), share + "Trash");
                fs::create_directory_symlink(home.path(isHeld ? "b" : "a"), share + "Other");
                FaultPlan plan;
                plan.meanwhile = [&](int at) {
                    if (at == moment || (calls > 0 && at == moment + calls)) {
                        ::renameat2(AT_FDCWD, (share + "Trash").c_str(), AT_FDCWD,
                                    (share + "Other").c_str(), RENAME_EXCHANGE);
                    }
                };
                const TracedRun run = runTraced(
                    [&] { return std::to_string(purgeFromTrash({home.path("b/files/x")}).purged); },
                    plan);
                came = moment < static_cast<int>(run.calls.size());
                ASSERT_EQ(content(home.path("a/files/x")), "kept") << "moment " << moment;
                ASSERT_EQ(run.report == "1", !stands(home.path("b/files/x")));
                (run.report == "1" ? purged : withheld) += 1;
            }
        }
    }
    EXPECT_GT(purged, 0);
    EXPECT_GT(withheld, 0);
}

/// A placed move of "item" to "moved", in a folder of its own.
struct Placing
{
    World world{1};
    std::string folder = world.home().path("placing");
    std::string item = folder + "/item";
    std::string moved = folder + "/moved";

    explicit Placing(bool isFolder)
    {
        fs::create_directories(folder);
        isFolder ? static_cast<void>(fs::create_directory(item)) : write(item, "0");
    }
    /// The errno of it; whether the run came to that moment is in `came`.
    int run(int moment, const std::function<void()>& other, bool& came) const
    {
        std::string told;
        const auto body = [&] {
            const FileDescriptor open = opened(folder);
            return std::to_string(placedMove(open.get(), "item", open.get(), "moved"));
        };
        came = runWith(moment, body, other, told);
        return std::stoi(told);
    }
};

TEST(FaultsMoment, ANewcomerAtTheNewPlaceIsNotReplacedByAPlacedMove)
{
    int came = 0;
    for (const bool isFolder : {true, false}) {
        for (const bool isFolderToo : {true, false}) {
            bool goesOn = true;
            for (int moment = 0; goesOn; ++moment) {
                const Placing placing(isFolder);
                std::optional<FileIdentity> newcomer;
                const auto other = [&] {
                    const FileDescriptor made(
                        isFolderToo ? -1
                                    : ::open(placing.moved.c_str(),
                                             O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
                    if (made.isOpen() ||
                        (isFolderToo && ::mkdir(placing.moved.c_str(), 0700) == 0)) {
                        newcomer = identityAt(AT_FDCWD, placing.moved);
                    }
                };
                const auto item = identityAt(AT_FDCWD, placing.item);
                const int error = placing.run(moment, other, goesOn);
                ASSERT_EQ(error, newcomer ? EEXIST : 0) << "moment " << moment;
                ASSERT_EQ(identityAt(AT_FDCWD, placing.moved), newcomer ? newcomer : item);
                ASSERT_EQ(identityAt(AT_FDCWD, placing.item), newcomer ? item : std::nullopt);
                came += newcomer ? 1 : 0;
            }
        }
    }
    EXPECT_GT(came, 0);
}

TEST(FaultsMoment, WhatIsSavedOverAnItemDuringAPlacedMoveIsNeverLost)
{
    int saves = 0;
    bool goesOn = true;
    for (int moment = 0; goesOn; ++moment) {
        const Placing placing(false);
        bool saved = false;
        // As programs do: a new file, renamed over the old one.
        const auto saver = [&] {
            write(placing.folder + "/saving", "1");
            saved = stands(placing.item) &&
                    ::rename((placing.folder + "/saving").c_str(), placing.item.c_str()) == 0;
        };
        ASSERT_EQ(placing.run(moment, saver, goesOn), 0);
        ASSERT_EQ(content(placing.moved), saved ? "1" : "0") << "moment " << moment;
        ASSERT_FALSE(stands(placing.item));
        saves += saved ? 1 : 0;
    }
    EXPECT_GT(saves, 0);
}

} // namespace
