#include "removal/TrashMeter.h"

#include "removal/runs/LiveRemovalDisk.h"

#include "support/OpenDescriptors.h"
#include "support/SpoiledMemory.h"
#include "support/TrashHome.h"
#include "support/qt/EventLoop.h"
#include "support/qt/ManualClock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>

namespace zolva {
namespace {

/// The machine's disk, which tells that it is measuring.
class ToldMeasures : public LiveRemovalDisk
{
public:
    std::atomic<int> begun = 0;
    std::atomic<int> ended = 0;

    std::int64_t measureTrash(const std::atomic<bool>& stop) override
    {
        ++begun;
        const std::int64_t bytes = LiveRemovalDisk::measureTrash(stop);
        ++ended;
        return bytes;
    }
};

/// A real Trash whose measure takes a moment: 156 folders in one another.
class TrashMeasure : public ::testing::Test
{
protected:
    static constexpr int rounds = 30;

    void SetUp() override
    {
        grow(".local/share/Trash/files/item", 3);
        meter->refreshTrashMeter();
        test::pumpUntil([&] { return !meter->isMeasuring(); });
        whole = meter->trashBytes();
        ASSERT_GT(whole, 0);
    }

    void grow(const std::string& folder, int levels)
    {
        // Few have any content: each waits for the disk.
        home.tree.file("home/" + folder + "/file", levels == 2 ? 5000 : 0);
        for (int i = 0; levels > 0 && i < 5; ++i) {
            grow(folder + "/" + std::to_string(i), levels - 1);
        }
    }

    /// Begins a measure and returns while it has folders open, if it can be caught at that.
    void beginMeasure()
    {
        const int earlier = disk->begun;
        meter->refreshTrashMeter();
        while (disk->begun == earlier || (disk->ended < disk->begun && openInTrash() == 0)) {
            std::this_thread::yield();
        }
    }

    [[nodiscard]] std::size_t openInTrash() const { return test::openDescriptorsIn(home.trash()); }

    std::unique_ptr<TrashMeter> newMeter()
    {
        return std::make_unique<TrashMeter>(clock, toasts, space, disk);
    }

    const test::SpoiledMemory spoiled;
    test::TrashHome home;
    test::ManualClock clock;
    ToastList toasts{clock};
    FreeSpaceMeter space{clock};
    std::shared_ptr<ToldMeasures> disk = std::make_shared<ToldMeasures>();
    std::unique_ptr<TrashMeter> meter = newMeter();
    std::int64_t whole = 0;
};

TEST_F(TrashMeasure, OneThatIsOvertakenOnTheDiskLeavesNoDescriptorOpenAndTheNextCounts)
{
    for (int i = 0; i < rounds; ++i) {
        beginMeasure();
        meter->refreshTrashMeter();
        test::pumpUntil([&] { return !meter->isMeasuring(); });
        EXPECT_EQ(meter->trashBytes(), whole);
        ASSERT_EQ(openInTrash(), 0U);
    }
}

TEST_F(TrashMeasure, TheEndOfTheMeterEndsTheOneOnTheDiskAndLeavesNoDescriptorOpen)
{
    for (int i = 0; i < rounds; ++i) {
        beginMeasure();
        meter.reset();
        test::pumpUntil([&] { return disk.use_count() == 1; });
        ASSERT_EQ(openInTrash(), 0U);
        meter = newMeter();
    }
}

} // namespace
} // namespace zolva
