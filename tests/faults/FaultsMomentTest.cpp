#include "faults/SystemCalls.h"
#include "faults/World.h"

#include "platform/FileDescriptor.h"
#include "platform/FileIdentity.h"
#include "platform/SystemTrash.h"
#include "platform/linux/PlacedMove.h"
#include "removal/disk/TrashOnePath.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <thread>
#include <utility>

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

TEST(FaultsMoment, WhatVanishesDuringItsMoveIsAbsentAndNoFailure)
{
    int absent = 0;
    for (const std::uint32_t seed : {5U, 10U}) {
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

/// A second thread of a traced run, which the tracer does not stop: it acts when it is told to.
class Helper
{
public:
    Helper()
    {
        if (::pipe2(m_order.data(), O_CLOEXEC) != 0 || ::pipe2(m_answer.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("no pipe");
        }
    }
    ~Helper()
    {
        for (const int end : {m_order[0], m_order[1], m_answer[0], m_answer[1]}) {
            ::close(end);
        }
    }
    Helper(const Helper&) = delete;
    Helper& operator=(const Helper&) = delete;

    /// In the run.
    void start(std::function<void()> act) const
    {
        std::thread([order = m_order[0], answer = m_answer[1], act = std::move(act)] {
            char byte = 0;
            while (::read(order, &byte, 1) == 1) {
                act();
                static_cast<void>(::write(answer, &byte, 1) == 1);
            }
        }).detach();
    }
    /// From the tracer: returns when it is done.
    void act() const
    {
        char byte = 0;
        EXPECT_EQ(::write(m_order[1], &byte, 1), 1);
        EXPECT_EQ(::read(m_answer[0], &byte, 1), 1);
    }

private:
    std::array<int, 2> m_order{};
    std::array<int, 2> m_answer{};
};

TEST(FaultsMoment, ASweepTakesNothingThatAnotherThreadMayYetPutBack)
{
    const World world(1);
    const TrashHome& home = world.home();
    const Helper helper;
    const auto body = [&] {
        const auto trash = pinHomeTrash(home.home());
        helper.start([&] { deleteLeftovers(*trash); });
        return std::string(deleteFromTrash(*trash, "x") ? "d" : "f");
    };
    write(home.inTrash("x"), "goes");
    const auto calls = runTraced(body, {}).calls;
    const auto rename =
        std::distance(calls.begin(), std::find(calls.begin(), calls.end(), SYS_renameat2));
    ASSERT_LT(rename, static_cast<std::ptrdiff_t>(calls.size()));
    write(home.inTrash("x"), "goes");
    write(home.path("precious"), "kept");
    FaultPlan plan;
    plan.meanwhile = [&](int at) {
        if (at == rename) {
            // Another thing takes its place at the last moment.
            ::renameat2(AT_FDCWD, home.path("precious").c_str(), AT_FDCWD,
                        home.inTrash("x").c_str(), RENAME_EXCHANGE);
        } else if (at > rename) {
            helper.act();
        }
    };
    EXPECT_EQ(runTraced(body, plan).report, "f");
    EXPECT_EQ(content(home.inTrash("x")), "kept");
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
