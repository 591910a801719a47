#include "faults/World.h"

#include "platform/DeleteTree.h"
#include "platform/FileDescriptor.h"
#include "platform/SystemTrash.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <iostream>
#include <thread>

namespace {

namespace fs = std::filesystem;
using namespace zolva;
using namespace zolva::test;

int wantedRounds()
{
    return isLong() ? 30000 : 2000;
}

/// Exchanges two entries for as long as it lives, as fast as it can.
class Swapper
{
public:
    Swapper(std::string one, std::string other)
        : m_thread([this, one = std::move(one), other = std::move(other)] {
              while (!m_stop) {
                  ::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE);
                  ++m_swaps;
              }
          })
    {
        waitForSwap();
    }
    ~Swapper()
    {
        m_stop = true;
        m_thread.join();
    }
    Swapper(const Swapper&) = delete;
    Swapper& operator=(const Swapper&) = delete;

    /// Returns after at least one more exchange, or try of one.
    void waitForSwap() const
    {
        const unsigned before = m_swaps;
        while (m_swaps == before) {
            std::this_thread::yield();
        }
    }

private:
    std::atomic<bool> m_stop = false;
    std::atomic<unsigned> m_swaps = 0;
    std::thread m_thread;
};

void makeFiles(const std::string& folder, const std::string& text)
{
    fs::create_directories(folder);
    for (int i = 0; i < 8; ++i) {
        const int fd = ::open((folder + "/f" + std::to_string(i)).c_str(),
                              O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        ASSERT_EQ(::write(fd, text.data(), text.size()), static_cast<ssize_t>(text.size()));
        ::close(fd);
    }
}

/// What everybody writes first: by path, looking before going in. `between` comes after each look
/// at a folder.
void removeByPath(const std::string& path, const std::function<void()>& between)
{
    struct stat status
    {};
    if (::lstat(path.c_str(), &status) != 0) {
        return;
    }
    if (S_ISDIR(status.st_mode)) {
        between();
        for (const std::string& name : namesIn(path)) {
            removeByPath(path + "/" + name, between);
        }
        ::rmdir(path.c_str());
    } else {
        ::unlink(path.c_str());
    }
}

/// How often a bystander lost anything to a deletion during which a folder and a link to the
/// bystander change places.
int deletionLosses(
    const std::function<void(const std::string& folder, const Swapper& swapper)>& remove,
    int rounds, bool untilFirst, int* deletions = nullptr)
{
    const World world(1);
    const std::string bystander = world.home().path("neighbour");
    const std::string doomed = world.home().path("doomed");
    int losses = 0;
    makeFiles(bystander, "kept");
    Picture before = pictureOf(bystander);
    for (int round = 0; round < rounds && !(untilFirst && losses > 0); ++round) {
        makeFiles(doomed + "/t/folder", "goes");
        // Relative, so that it is no mount that keeps anybody from following it.
        fs::create_directory_symlink("../../neighbour", doomed + "/t/link");
        {
            const Swapper swapper(doomed + "/t/folder", doomed + "/t/link");
            remove(doomed, swapper);
        }
        if (deletions != nullptr) {
            *deletions += stands(doomed + "/t") ? 0 : 1;
        }
        if (pictureOf(bystander) != before) {
            ++losses;
            fs::remove_all(bystander);
            makeFiles(bystander, "kept");
            before = pictureOf(bystander);
        }
        fs::remove_all(doomed);
    }
    return losses;
}

TEST(FaultsSwap, ADeletionNeverFollowsALinkThatIsSwappedIn)
{
    int deletions = 0;
    const int losses = deletionLosses(
        [](const std::string& folder, const Swapper&) {
            const FileDescriptor above(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
            static_cast<void>(deleteTree(above.get(), "t"));
        },
        wantedRounds(), false, &deletions);
    std::cout << "delete: " << wantedRounds() << " rounds, " << losses << " losses, " << deletions
              << " deleted\n";
    EXPECT_EQ(losses, 0);
    EXPECT_GT(deletions, 0);
}

TEST(FaultsSwap, TheHarnessSeesTheLossesOfADeletionByPath)
{
    // It waits where the exchange does its harm, so that it needs no luck to come.
    const int losses = deletionLosses(
        [](const std::string& folder, const Swapper& swapper) {
            removeByPath(folder + "/t", [&swapper] { swapper.waitForSwap(); });
        },
        2000, true);
    EXPECT_GT(losses, 0);
}

TEST(FaultsSwap, AMoveToTheTrashTakesWhatStandsThereAndNeverWhatALinkLeadsTo)
{
    const World world(1);
    const TrashHome& home = world.home();
    const std::string bystander = home.path("neighbour");
    makeFiles(bystander, "kept");
    const Picture before = pictureOf(bystander);
    int moved = 0;
    for (int round = 0; round < wantedRounds(); ++round) {
        const std::string item = home.path("swap/item");
        const std::string link = home.path("swap/link");
        fs::create_directories(item + "/inside");
        fs::create_directory_symlink(bystander, link);
        const Picture whole = pictureOf(item);
        tl::expected<MovedToTrash, TrashFailure> result;
        {
            const Swapper swapper(item, link);
            result = moveToTrash(home.home(), item);
        }
        ASSERT_EQ(pictureOf(bystander), before);
        int items = 0;
        int links = 0;
        for (const std::string& one : {item, link, home.inTrash("item")}) {
            items += pictureOf(one) == whole ? 1 : 0;
            links += fs::is_symlink(fs::symlink_status(one)) ? 1 : 0;
        }
        ASSERT_EQ(items, 1) << "round " << round;
        ASSERT_EQ(links, 1) << "round " << round;
        ASSERT_EQ(result.has_value(), stands(home.inTrash("item")));
        ASSERT_EQ(result.has_value(), stands(home.infoOf("item")));
        moved += result ? 1 : 0;
        fs::remove_all(home.path("swap"));
        fs::remove_all(home.inTrash("item"));
        fs::remove(home.infoOf("item"));
    }
    std::cout << "trash: " << wantedRounds() << " rounds, " << moved << " moved\n";
    EXPECT_GT(moved, 0);
}

TEST(FaultsSwap, AReturnOverwritesNothingWhereverItsFolderLeads)
{
    const World world(1);
    const TrashHome& home = world.home();
    const std::string bystander = home.path("neighbour");
    makeFiles(bystander, "kept");
    const Picture before = pictureOf(bystander);
    int back = 0;
    for (int round = 0; round < wantedRounds(); ++round) {
        const std::string folder = home.path("swap/folder");
        const std::string link = home.path("swap/link");
        const std::string item = folder + "/f0";
        makeFiles(folder, "old");
        fs::create_directory_symlink(bystander, link);
        ASSERT_TRUE(moveToTrash(home.home(), item).has_value());
        tl::expected<void, TrashFailure> result;
        {
            const Swapper swapper(folder, link);
            result = putBackFromTrash(home.inTrash("f0"), item, MissingParent::IsMadeAnew);
        }
        ASSERT_EQ(pictureOf(bystander), before);
        const std::string real = fs::is_symlink(fs::symlink_status(folder)) ? link : folder;
        ASSERT_EQ(content(real + "/f0") == "old", result.has_value());
        ASSERT_EQ(content(home.inTrash("f0")) == "old", !result.has_value());
        back += result ? 1 : 0;
        fs::remove_all(home.path("swap"));
        fs::remove_all(home.inTrash("f0"));
        fs::remove(home.infoOf("f0"));
    }
    std::cout << "put back: " << wantedRounds() << " rounds, " << back << " put back\n";
    EXPECT_GT(back, 0);
}

} // namespace
