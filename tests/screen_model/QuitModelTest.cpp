#include "ScreenBench.h"

#include "screens/model/QuitModel.h"

#include <chrono>

namespace zolva::test {

namespace {

using namespace std::chrono_literals;

class TheEndOfTheProgram : public ScreenBench
{
protected:
    AppModel& running()
    {
        AppModel& m = ready();
        m.removal().runs().setBulk(BulkProgress{"Removing caches", 8, 2, "~/a"});
        return m;
    }
};

TEST_F(TheEndOfTheProgram, ComesAtOnceWithoutARun)
{
    QuitModel quit(ready(), clock);
    const Told told(&quit, &QuitModel::quit);
    quit.ask();
    EXPECT_EQ(told.count(), 1);
    EXPECT_FALSE(quit.isAsking());
}

TEST_F(TheEndOfTheProgram, IsAskedAboutDuringARun)
{
    QuitModel quit(running(), clock);
    const Told told(&quit, &QuitModel::quit);
    const Told asking(&quit, &QuitModel::isAskingChanged);
    quit.ask();
    quit.ask();
    EXPECT_TRUE(quit.isAsking());
    EXPECT_EQ(asking.count(), 1);
    EXPECT_EQ(told.count(), 0);
    EXPECT_EQ(quit.message(), "Zolva is still removing files");
    EXPECT_EQ(quit.detail(),
              "Quitting now would stop partway through, leaving some items removed and others not. "
              "Stop the run first, or wait for it to finish.");
    EXPECT_EQ(quit.keepGoingTitle(), "Keep Going");
    EXPECT_EQ(quit.stopAndQuitTitle(), "Stop and Quit");
}

TEST_F(TheEndOfTheProgram, DoesNotComeWhereTheRunKeepsGoing)
{
    AppModel& m = running();
    QuitModel quit(m, clock);
    const Told told(&quit, &QuitModel::quit);
    quit.ask();
    quit.keepGoing();
    pumpOnce();
    EXPECT_FALSE(quit.isAsking());
    EXPECT_FALSE(m.removal().runs().cancelRequested());
    m.removal().runs().setBulk(std::nullopt);
    clock.advance(1s);
    EXPECT_EQ(told.count(), 0);
}

TEST_F(TheEndOfTheProgram, WaitsForTheRunThatWasStopped)
{
    AppModel& m = running();
    QuitModel quit(m, clock);
    const Told told(&quit, &QuitModel::quit);
    quit.ask();
    quit.stopAndQuit();
    EXPECT_FALSE(quit.isAsking());
    EXPECT_TRUE(m.removal().runs().cancelRequested());
    pumpOnce();
    clock.advance(1h);
    EXPECT_EQ(told.count(), 0);
    m.removal().runs().setBulk(std::nullopt);
    clock.advance(120ms);
    EXPECT_EQ(told.count(), 1);
}

TEST_F(TheEndOfTheProgram, ComesAlsoWhereTheRunEndedBehindTheAlert)
{
    AppModel& m = running();
    QuitModel quit(m, clock);
    const Told told(&quit, &QuitModel::quit);
    quit.ask();
    m.removal().runs().setBulk(std::nullopt);
    EXPECT_TRUE(quit.isAsking());
    quit.stopAndQuit();
    pumpOnce();
    EXPECT_EQ(told.count(), 1);
}

TEST_F(TheEndOfTheProgram, ComesOnceHoweverOftenItIsWanted)
{
    AppModel& m = running();
    QuitModel quit(m, clock);
    const Told told(&quit, &QuitModel::quit);
    quit.ask();
    quit.stopAndQuit();
    quit.stopAndQuit();
    quit.ask();
    EXPECT_FALSE(quit.isAsking());
    m.removal().runs().setBulk(std::nullopt);
    pumpOnce();
    clock.advance(1s);
    EXPECT_EQ(told.count(), 1);
}

} // namespace

} // namespace zolva::test
