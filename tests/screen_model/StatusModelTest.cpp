#include "ScreenBench.h"

#include "screens/model/StatusModel.h"
#include "screens/model/StatusWatch.h"

#include <chrono>
#include <memory>

namespace zolva::test {

namespace {

using namespace std::chrono_literals;

class TheStatusScreen : public ScreenBench
{
protected:
    static StatusResult sample(double cpu, double memory = 50)
    {
        StatusResult one;
        one.healthScore = 91;
        one.healthScoreMsg = "Good";
        one.cpu.usage = cpu;
        one.cpu.load1 = 0.5;
        one.cpu.load5 = 0.25;
        one.cpu.load15 = 1;
        one.memory.used = 8'040'000'000;
        one.memory.total = 16'600'000'000;
        one.memory.usedPercent = memory;
        one.hardware = {"M", "C", "", "", "", ""};
        one.uptime = "3d";
        return one;
    }
    void read(double cpu, double memory = 50) const { script.newest()->send(sample(cpu, memory)); }
    void readTimes(int times, double cpu) const
    {
        for (; times > 0; --times) {
            read(cpu);
        }
    }
    void fail(const std::string& words) const { script.newest()->finish(SystemError{words}); }
    static Texts tile(StatusModel& page, int row)
    {
        const StatusTileRows& rows = *page.tiles();
        return {textAt(rows, row, StatusTileRows::LabelRole),
                textAt(rows, row, StatusTileRows::ValueRole),
                textAt(rows, row, StatusTileRows::UnitRole),
                textAt(rows, row, StatusTileRows::SubRole)};
    }
    static Texts warnings(AppModel& m)
    {
        Texts all;
        for (const Toast& toast : m.toasts().toasts()) {
            all.push_back(toast.text.toStdString());
        }
        return all;
    }
    static std::string warning(int threshold)
    {
        return "CPU has been above " + std::to_string(threshold) + "% for a minute.";
    }
};

// Which page

TEST_F(TheStatusScreen, WaitsForTheFirstReading)
{
    StatusModel page(ready());
    EXPECT_EQ(page.page(), StatusModel::Waiting);
    page.appear();
    EXPECT_EQ(page.page(), StatusModel::Waiting);
    const Told told(&page, &StatusModel::pageChanged);
    read(10);
    EXPECT_EQ(page.page(), StatusModel::Live);
    read(11);
    EXPECT_EQ(told.count(), 1);
}

TEST_F(TheStatusScreen, AnErrorHidesTheReadingsAlthoughOneIsHeld)
{
    AppModel& m = ready();
    StatusModel page(m);
    page.appear();
    read(10);
    fail("mo fell over");
    EXPECT_TRUE(m.live().status());
    EXPECT_EQ(page.page(), StatusModel::Failed);
    EXPECT_EQ(page.error(), "mo fell over");
}

TEST_F(TheStatusScreen, AMissingToolIsToldInItsWords)
{
    StatusModel page(ready());
    page.appear();
    script.newest()->finish(MoError{MoError::BinaryNotFound{"/nowhere/mole"}});
    EXPECT_EQ(page.page(), StatusModel::Failed);
    EXPECT_EQ(page.error(), "mo isn’t installed");
}

TEST_F(TheStatusScreen, RetryStartsAnotherStreamAndItsReadingTakesTheErrorsPlace)
{
    StatusModel page(ready());
    page.appear();
    fail("no");
    page.retry();
    EXPECT_EQ(script.streams.size(), 2U);
    EXPECT_EQ(page.page(), StatusModel::Waiting);
    EXPECT_EQ(page.error(), "");
    read(10);
    EXPECT_EQ(page.page(), StatusModel::Live);
}

TEST_F(TheStatusScreen, RetryThatFailsAgainTellsTheNewError)
{
    StatusModel page(ready());
    page.appear();
    fail("no");
    page.retry();
    fail("still no");
    EXPECT_EQ(page.error(), "still no");
    EXPECT_EQ(script.streams.size(), 2U);
}

TEST_F(TheStatusScreen, AReadingThatIsHeldIsShownAtOnceOnComingBack)
{
    AppModel& m = ready();
    {
        StatusModel page(m);
        page.appear();
        read(10);
        page.leave();
    }
    StatusModel page(m);
    EXPECT_EQ(page.page(), StatusModel::Live);
    EXPECT_EQ(tile(page, 1).at(1), "10");
    EXPECT_EQ(page.footer(), "Polled live from mo. M · C · uptime 3d. Zolva reads status only.");
    EXPECT_EQ(page.cpuSeries(), QList<qreal>{10});
}

// The stream

TEST_F(TheStatusScreen, HoldsOneReferenceWhileItIsOnDisplay)
{
    AppModel& m = ready();
    StatusModel page(m);
    EXPECT_EQ(m.live().statusRefs(), 0);
    page.appear();
    EXPECT_EQ(m.live().statusRefs(), 1);
    EXPECT_TRUE(m.live().isStreaming());
    page.leave();
    EXPECT_EQ(m.live().statusRefs(), 0);
    EXPECT_FALSE(m.live().isStreaming());
}

TEST_F(TheStatusScreen, IsReadOnlyWhileItsWatchIsActive)
{
    AppModel& m = ready();
    StatusModel page(m);
    auto watch = std::make_unique<StatusWatch>();
    watch->setActive(true);
    EXPECT_EQ(m.live().statusRefs(), 0);
    watch->setStatus(&page);
    EXPECT_EQ(m.live().statusRefs(), 1);
    watch->setActive(false);
    EXPECT_EQ(m.live().statusRefs(), 0);
    watch->setActive(true);
    watch->setActive(true);
    EXPECT_EQ(m.live().statusRefs(), 1);
    EXPECT_EQ(script.streams.size(), 2U);
    watch.reset();
    EXPECT_EQ(m.live().statusRefs(), 0);
}

TEST_F(TheStatusScreen, APageThatComesBeforeTheOneItFollowsHasGoneKeepsTheStream)
{
    AppModel& m = ready();
    StatusModel page(m);
    auto before = std::make_unique<StatusWatch>();
    before->setStatus(&page);
    before->setActive(true);
    StatusWatch after;
    after.setStatus(&page);
    after.setActive(true);
    before.reset();
    EXPECT_EQ(m.live().statusRefs(), 1);
    EXPECT_EQ(script.streams.size(), 1U);
    EXPECT_EQ(script.stopped, 0);
}

// Tiles

TEST_F(TheStatusScreen, HasItsFourTilesInOrder)
{
    AppModel& m = ready();
    StatusModel page(m);
    page.appear();
    read(12.6);
    EXPECT_EQ(tile(page, 0), (Texts{"Health", "91", "/ 100", "Good"}));
    EXPECT_EQ(tile(page, 1), (Texts{"CPU", "13", "%", "Load 0.50 · 0.25 · 1.00"}));
    EXPECT_EQ(tile(page, 2), (Texts{"Memory", "8.0", "of 17 GB", "Pressure normal"}));
    EXPECT_EQ(tile(page, 3), (Texts{"Free space", "0", "GB", "50% of 0 GB"}));
}

TEST_F(TheStatusScreen, AVolumeOfUnknownSizeIsZeroPercentOfZero)
{
    AppModel& m = start({.meters = false, .journalCheck = false, .accessProbe = false});
    StatusModel page(m);
    page.appear();
    read(1);
    EXPECT_EQ(m.removal().space().volumeTotal(), 0);
    EXPECT_EQ(tile(page, 3), (Texts{"Free space", "0", "GB", "0% of 0 GB"}));
}

TEST_F(TheStatusScreen, FreeSpaceIsBroughtUpToDateBetweenReadings)
{
    AppModel& m = start({.meters = false, .journalCheck = false, .accessProbe = false});
    StatusModel page(m);
    page.appear();
    read(1);
    ToldRows told(page.tiles());
    m.removal().space().refreshFreeSpace();
    EXPECT_EQ(tile(page, 3).at(3), "50% of 0 GB");
    // The room and the total come one after the other.
    EXPECT_EQ(told.told.back(), "3");
}

TEST_F(TheStatusScreen, OnlyTilesThatDifferAreTold)
{
    AppModel& m = ready();
    StatusModel page(m);
    page.appear();
    read(10);
    ToldRows told(page.tiles());
    read(10.2);
    EXPECT_EQ(told.told, Texts{});
    read(20);
    EXPECT_EQ(told.told, Texts{"1"});
    EXPECT_EQ(told.roles, (QList<int>{StatusTileRows::ValueRole, StatusTileRows::SpokenRole}));
}

TEST_F(TheStatusScreen, TilesAreSpokenAsOneText)
{
    StatusModel page(ready());
    page.appear();
    StatusResult one = sample(10);
    one.healthScoreMsg.clear();
    script.newest()->send(one);
    EXPECT_EQ(column(*page.tiles(), StatusTileRows::SpokenRole),
              (Texts{"91 / 100", "10%. Load 0.50 · 0.25 · 1.00", "8.0 of 17 GB. Pressure normal",
                     "0 GB. 50% of 0 GB"}));
}

TEST_F(TheStatusScreen, TextsOfTheToolThatAreNoTextAreShownAllTheSame)
{
    StatusModel page(ready());
    page.appear();
    StatusResult one = sample(10);
    one.healthScoreMsg = "a\xff";
    script.newest()->send(one);
    EXPECT_EQ(tile(page, 0).at(3), "a\xef\xbf\xbd");
}

// Series and footer

TEST_F(TheStatusScreen, BothSeriesAreToldWithEachReading)
{
    StatusModel page(ready());
    page.appear();
    const Told told(&page, &StatusModel::seriesChanged);
    read(10, 40.0);
    read(20, 41.0);
    EXPECT_EQ(told.count(), 2);
    EXPECT_EQ(page.cpuSeries(), (QList<qreal>{10, 20}));
    EXPECT_EQ(page.memSeries(), (QList<qreal>{40, 41}));
    EXPECT_EQ(page.chartSpoken(), "CPU 20%, highest 20%. Memory 41%, highest 41%");
}

TEST_F(TheStatusScreen, TheFooterIsToldOnlyWhereItDiffers)
{
    StatusModel page(ready());
    page.appear();
    const Told told(&page, &StatusModel::footerChanged);
    read(10.0);
    read(20.0);
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(page.footer(), "Polled live from mo. M · C · uptime 3d. Zolva reads status only.");
}

// The warning

TEST_F(TheStatusScreen, FiveSamplesOfAHundredWarnOnceAndNotWithEverySample)
{
    AppModel& m = ready();
    m.settings().setThreshold(99);
    StatusModel page(m);
    page.appear();
    readTimes(4, 100);
    EXPECT_EQ(warnings(m), Texts{});
    readTimes(1, 100);
    EXPECT_EQ(warnings(m), Texts{warning(99)});
    readTimes(30, 100);
    EXPECT_EQ(warnings(m), Texts{warning(99)});
    EXPECT_EQ(m.toasts().toasts().front().kind, BannerKind::Warning);
    EXPECT_EQ(m.toasts().toasts().front().actionTitle, "Adjust threshold");
}

TEST_F(TheStatusScreen, ASingleSampleWarnsOfNothing)
{
    AppModel& m = ready();
    StatusModel page(m);
    page.appear();
    readTimes(1, 100);
    EXPECT_EQ(warnings(m), Texts{});
}

TEST_F(TheStatusScreen, TheWarningLeadsToTheSettings)
{
    AppModel& m = ready();
    StatusModel page(m);
    m.go("status");
    page.appear();
    readTimes(5, 100);
    m.toasts().runAction(m.toasts().toasts().front().id);
    EXPECT_EQ(m.screen(), "settings");
}

TEST_F(TheStatusScreen, TheEndOfTheLoadIsNotToldAndTheNextOneIsAgain)
{
    AppModel& m = ready();
    StatusModel page(m);
    page.appear();
    readTimes(5, 100);
    readTimes(40, 0);
    EXPECT_EQ(warnings(m).size(), 1U);
    readTimes(40, 100);
    EXPECT_EQ(warnings(m).size(), 2U);
}

TEST_F(TheStatusScreen, ALoadThatStoodWhenItWasLeftIsNotWarnedOfOnReturning)
{
    AppModel& m = ready();
    StatusModel page(m);
    page.appear();
    readTimes(5, 100);
    page.leave();
    clock.advance(toastLife);
    page.appear();
    readTimes(5, 100);
    EXPECT_EQ(warnings(m), Texts{});
}

TEST_F(TheStatusScreen, ALoadThatStandsOnComingIsNotWarnedOf)
{
    AppModel& m = ready();
    StatusModel page(m);
    page.appear();
    readTimes(5, 70);
    page.leave();
    m.settings().setThreshold(60);
    EXPECT_EQ(warnings(m), Texts{});
    page.appear();
    readTimes(1, 70);
    EXPECT_EQ(warnings(m), Texts{});
}

TEST_F(TheStatusScreen, NobodyIsWarnedWhileAnotherScreenIsOnDisplay)
{
    AppModel& m = ready();
    const StatusModel page(m);
    m.live().retainStatus();
    readTimes(20, 100);
    EXPECT_EQ(warnings(m), Texts{});
}

} // namespace

} // namespace zolva::test
