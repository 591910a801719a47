#include "desktop/QuitSignals.h"
#include "support/qt/EventLoop.h"

#include <gtest/gtest.h>

#include <signal.h>

namespace zolva::test {

namespace {

TEST(QuitSignals, TellEachOfTheirSignals)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const QuitSignals signals;
        int asked = 0;
        QObject context;
        QObject::connect(&signals, &QuitSignals::asked, &context, [&asked] { ++asked; });
        ::raise(signal);
        pumpUntil([&asked] { return asked == 1; });
    }
}

TEST(QuitSignals, TellEveryTimeAnew)
{
    const QuitSignals signals;
    int asked = 0;
    QObject context;
    QObject::connect(&signals, &QuitSignals::asked, &context, [&asked] { ++asked; });
    for (int i = 1; i <= 3; ++i) {
        ::raise(SIGTERM);
        pumpUntil([&asked, i] { return asked == i; });
    }
    for (int i = 0; i < 50; ++i) {
        ::raise(SIGTERM);
    }
    pumpUntil([&asked] { return asked == 4; });
    pumpOnce();
    EXPECT_EQ(asked, 4) << "what comes together is one wish";
}

TEST(QuitSignals, LeaveAHangUpAloneThatIsIgnored)
{
    const auto before = ::signal(SIGHUP, SIG_IGN);
    {
        const QuitSignals signals;
        struct sigaction now
        {};
        ::sigaction(SIGHUP, nullptr, &now);
        EXPECT_EQ(now.sa_handler, SIG_IGN);
    }
    ::signal(SIGHUP, before);
}

TEST(QuitSignals, GiveBackWhatWasThereBefore)
{
    const auto before = ::signal(SIGTERM, SIG_IGN);
    {
        const QuitSignals signals;
        ::raise(SIGTERM);
    }
    struct sigaction now
    {};
    ::sigaction(SIGTERM, nullptr, &now);
    EXPECT_EQ(now.sa_handler, SIG_IGN);
    ::signal(SIGTERM, before);
}

} // namespace

} // namespace zolva::test
