#include "app/AppDelegate.h"
#include "core/WholeModel.h"
#include "support/qt/EventLoop.h"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QEvent>

#include <memory>

namespace zolva::test {

namespace {

using std::chrono::milliseconds;

class Delegate : public WholeModel
{
protected:
    Delegate()
    {
        start();
        screens = std::make_unique<ScreenModel>(*model, clock);
        delegate.setWindow(&window);
        window.show();
        pumpOnce();
    }

    /// As the person at the window does it.
    bool closeWindow()
    {
        QCloseEvent event;
        QCoreApplication::sendEvent(&window, &event);
        return event.isAccepted();
    }
    QuitModel& quit() { return *screens->quit(); }
    RunState& runs() { return model->removal().runs(); }

    QWindow window;
    std::unique_ptr<ScreenModel> screens;
    AppDelegate delegate{clock};
    Told ended{&delegate, &AppDelegate::terminate};
};

TEST_F(Delegate, LetsItQuitAtOnceWithoutAModel)
{
    runs().setBulk(BulkProgress{});
    delegate.shouldTerminate();
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(Delegate, LetsItQuitAtOnceWithoutARun)
{
    delegate.setModel(screens.get());
    delegate.shouldTerminate();
    EXPECT_EQ(ended.count(), 1);
    EXPECT_FALSE(quit().isAsking());
}

TEST_F(Delegate, LetsItQuitWhenTheModelIsGone)
{
    delegate.setModel(screens.get());
    runs().setBulk(BulkProgress{});
    screens.reset();
    delegate.shouldTerminate();
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(Delegate, KeepsGoingWhenToldSo)
{
    delegate.setModel(screens.get());
    runs().setBulk(BulkProgress{});
    delegate.shouldTerminate();
    EXPECT_TRUE(quit().isAsking());
    quit().keepGoing();
    pumpOnce();
    clock.advance(milliseconds(10'000));
    EXPECT_EQ(ended.count(), 0);
    EXPECT_TRUE(runs().bulk().has_value());
    EXPECT_FALSE(runs().cancelRequested());
}

TEST_F(Delegate, AsksAnewAfterKeepGoing)
{
    delegate.setModel(screens.get());
    runs().setBulk(BulkProgress{});
    delegate.shouldTerminate();
    quit().keepGoing();
    delegate.shouldTerminate();
    EXPECT_TRUE(quit().isAsking());
    EXPECT_EQ(ended.count(), 0);
}

TEST_F(Delegate, StopsAndQuitsWithinAMomentOfTheRunsEnd)
{
    delegate.setModel(screens.get());
    runs().setBulk(BulkProgress{});
    delegate.shouldTerminate();
    quit().stopAndQuit();
    EXPECT_TRUE(runs().cancelRequested());
    pumpOnce();
    clock.advance(milliseconds(60'000));
    EXPECT_EQ(ended.count(), 0) << "there is no limit to the wait";
    runs().setBulk(std::nullopt);
    clock.advance(milliseconds(120));
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(Delegate, QuitsWhereTheRunEndedWhileTheAlertWasUp)
{
    delegate.setModel(screens.get());
    runs().setBulk(BulkProgress{});
    delegate.shouldTerminate();
    runs().setBulk(std::nullopt);
    quit().stopAndQuit();
    pumpOnce();
    EXPECT_EQ(ended.count(), 1);
    EXPECT_FALSE(runs().cancelRequested());
}

TEST_F(Delegate, TakesTheClosingOfTheWindowForAWishToQuit)
{
    delegate.setModel(screens.get());
    EXPECT_FALSE(closeWindow());
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(Delegate, KeepsTheWindowOpenWhileARunIsAskedAbout)
{
    delegate.setModel(screens.get());
    runs().setBulk(BulkProgress{});
    EXPECT_FALSE(closeWindow());
    EXPECT_EQ(ended.count(), 0);
    EXPECT_TRUE(quit().isAsking());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Delegate, HidesTheWindowWhereAnIconStays)
{
    delegate.setModel(screens.get());
    delegate.setHasTray(true);
    EXPECT_FALSE(closeWindow());
    EXPECT_EQ(ended.count(), 0);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(Delegate, BringsTheClosedWindowBack)
{
    delegate.setHasTray(true);
    closeWindow();
    ASSERT_FALSE(window.isVisible());
    delegate.shouldHandleReopen();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Delegate, BringsTheWindowBackWithTheLeaveToTakeTheFocusAndLeavesThatNowhere)
{
    constexpr auto variable = "XDG_ACTIVATION_TOKEN";
    window.hide();
    QByteArray seen;
    QObject::connect(&window, &QWindow::visibleChanged, &delegate,
                     [&] { seen = qgetenv(variable); });
    delegate.reopen(QStringLiteral("leave 7"));
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(seen, "leave 7");
    EXPECT_FALSE(qEnvironmentVariableIsSet(variable));
}

TEST_F(Delegate, EndsWhereTheIconIsGoneForGoodAndTheWindowClosed)
{
    delegate.setModel(screens.get());
    delegate.setHasTray(true);
    closeWindow();
    delegate.setHasTray(false);
    clock.advance(trayPatience - milliseconds(1));
    EXPECT_EQ(ended.count(), 0);
    clock.advance(milliseconds(1));
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(Delegate, AsksBeforeItEndsARunWithTheIcon)
{
    delegate.setModel(screens.get());
    delegate.setHasTray(true);
    closeWindow();
    runs().setBulk(BulkProgress{});
    delegate.setHasTray(false);
    clock.advance(trayPatience);
    EXPECT_EQ(ended.count(), 0);
    EXPECT_TRUE(quit().isAsking());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Delegate, GoesOnWhereTheIconComesBackInTime)
{
    delegate.setModel(screens.get());
    delegate.setHasTray(true);
    closeWindow();
    delegate.setHasTray(false);
    clock.advance(trayPatience / 2);
    delegate.setHasTray(true);
    clock.advance(trayPatience);
    EXPECT_EQ(ended.count(), 0);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(Delegate, GoesOnWithoutTheIconWhereTheWindowIsOpen)
{
    delegate.setModel(screens.get());
    delegate.setHasTray(true);
    delegate.setHasTray(false);
    clock.advance(trayPatience);
    EXPECT_EQ(ended.count(), 0);
    closeWindow();
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(Delegate, BringsTheMinimisedWindowBackAsItWas)
{
    window.showMaximized();
    window.setWindowStates(Qt::WindowMinimized | Qt::WindowMaximized);
    delegate.shouldHandleReopen();
    EXPECT_EQ(window.windowStates(), Qt::WindowMaximized);
}

TEST_F(Delegate, ChangesNothingAboutAWindowThatIsOpen)
{
    const QRect before = window.geometry();
    const Told visible(&window, &QWindow::visibleChanged);
    const Told states(&window, &QWindow::windowStateChanged);
    delegate.shouldHandleReopen();
    pumpOnce();
    EXPECT_EQ(window.geometry(), before);
    EXPECT_EQ(visible.count(), 0);
    EXPECT_EQ(states.count(), 0);
}

TEST_F(Delegate, ShowsTheWindowToWhomeverItAsks)
{
    delegate.setModel(screens.get());
    delegate.setHasTray(true);
    closeWindow();
    runs().setBulk(BulkProgress{});
    delegate.shouldTerminate();
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(quit().isAsking());
}

TEST_F(Delegate, ShowsTheWindowAgainToWhomeverItStillAsks)
{
    delegate.setModel(screens.get());
    runs().setBulk(BulkProgress{});
    delegate.shouldTerminate();
    window.hide();
    delegate.shouldTerminate();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Delegate, SurvivesTheWindow)
{
    {
        QWindow other;
        delegate.setWindow(&other);
    }
    delegate.shouldHandleReopen();
    delegate.shouldTerminate();
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(Delegate, HoldsUpTheEndOfTheSessionOnlyForARun)
{
    delegate.setModel(screens.get());
    EXPECT_TRUE(delegate.mayEndSession());
    EXPECT_EQ(ended.count(), 0) << "the session ends it";
    runs().setBulk(BulkProgress{});
    EXPECT_FALSE(delegate.mayEndSession());
    EXPECT_TRUE(quit().isAsking());
}

TEST_F(Delegate, ShowsWhatHoldsUpTheEndOfTheSessionAlsoWhileAStoppedRunEnds)
{
    delegate.setModel(screens.get());
    runs().setBulk(BulkProgress{});
    delegate.shouldTerminate();
    window.hide();
    EXPECT_FALSE(delegate.mayEndSession());
    EXPECT_TRUE(window.isVisible()) << "it asks still";
    quit().stopAndQuit();
    window.hide();
    EXPECT_FALSE(delegate.mayEndSession());
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(quit().isAsking()) << "that is answered";
    EXPECT_EQ(ended.count(), 0);
}

TEST_F(Delegate, ShowsTheWindowToWhomeverWantsToQuitWhileAStoppedRunEnds)
{
    delegate.setModel(screens.get());
    runs().setBulk(BulkProgress{});
    delegate.shouldTerminate();
    quit().stopAndQuit();
    window.hide();
    delegate.shouldTerminate();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(ended.count(), 0);
}

TEST_F(Delegate, IsAskedByTheApplicationsOwnWishToQuit)
{
    delegate.setModel(screens.get());
    runs().setBulk(BulkProgress{});
    QEvent wish(QEvent::Quit);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &wish);
    EXPECT_FALSE(wish.isAccepted());
    EXPECT_TRUE(quit().isAsking());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(ended.count(), 0);
}

} // namespace

} // namespace zolva::test
