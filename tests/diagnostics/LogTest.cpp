#include "diagnostics/Log.h"

#include "support/RecordedLog.h"

#include <gtest/gtest.h>

#include <thread>

namespace zolva {
namespace {

using enum LogCategory;
using enum LogLevel;

LogRecord loggedBy(const std::function<void()>& call)
{
    const test::RecordedLog log;
    call();
    const std::vector<LogRecord> records = log.records();
    EXPECT_EQ(records.size(), 1u);
    return records.empty() ? LogRecord{} : records.front();
}

TEST(Log, TheMessagesOfTheApplicationHaveTheirCategoryLevelAndWords)
{
    EXPECT_EQ(loggedBy([] { log::accessIntroDismissed(true); }),
              (LogRecord{App, Default, "access intro shown, opened settings: true"}));
    EXPECT_EQ(loggedBy([] { log::accessIntroDismissed(false); }),
              (LogRecord{App, Default, "access intro shown, opened settings: false"}));
    EXPECT_EQ(loggedBy([] { log::updaterEnabled("https://x/y"); }),
              (LogRecord{App, Default, "updater enabled, feed https://x/y"}));
    EXPECT_EQ(loggedBy([] { log::updaterInert(); }),
              (LogRecord{App, Default, "updater inert: no signed feed configured for this build"}));
    EXPECT_EQ(loggedBy([] { log::updateAvailable(42); }),
              (LogRecord{App, Default, "update check: build 42 available"}));
    EXPECT_EQ(loggedBy([] { log::updateCurrent(); }),
              (LogRecord{App, Default, "update check: already current"}));
    EXPECT_EQ(loggedBy([] { log::updateSkipped(); }),
              (LogRecord{App, Default, "update check skipped: not configured"}));
    EXPECT_EQ(loggedBy([] { log::updateFailed("no route"); }),
              (LogRecord{App, Error, "update check failed: no route"}));
}

TEST(Log, TheMessagesOfThePreferencesHaveTheirCategoryLevelAndWords)
{
    EXPECT_EQ(loggedBy([] { log::preferencesSetAside("/h/p.damaged"); }),
              (LogRecord{App, Error, "preferences damaged, set aside as /h/p.damaged"}));
    EXPECT_EQ(loggedBy([] { log::preferencesUnreadable("why"); }),
              (LogRecord{App, Error, "preferences not read: why"}));
    EXPECT_EQ(loggedBy([] { log::preferencesUnwritten("why"); }),
              (LogRecord{App, Error, "preferences not written: why"}));
}

TEST(Log, TheMessagesOfRunsHaveTheirCategoryLevelAndWords)
{
    EXPECT_EQ(loggedBy([] { log::unfinishedRun("a\tb"); }),
              (LogRecord{Remove, Fault, "previous run did not finish: a\tb"}));
    EXPECT_EQ(loggedBy([] { log::runStarting("Clean", 3, 5'000'000'000); }),
              (LogRecord{Remove, Default, "Clean starting: 3 paths, 5000000000 bytes"}));
    EXPECT_EQ(loggedBy([] { log::runFinished("Clean", 3, 2, 1); }),
              (LogRecord{Remove, Default, "Clean finished: 3 moved, 2 purged, 1 problems"}));
    EXPECT_EQ(loggedBy([] { log::runStopped("Purge", 1, 9); }),
              (LogRecord{Remove, Default, "Purge stopped by the user: 1 removed, 9 left alone"}));
}

TEST(Log, TheMessagesOfSingleItemsHaveTheirCategoryLevelAndWords)
{
    EXPECT_EQ(loggedBy([] { log::trashed("/h/x", 12); }),
              (LogRecord{Remove, Default, "trashed /h/x (12 bytes)"}));
    EXPECT_EQ(loggedBy([] { log::purged("/h/x"); }),
              (LogRecord{Remove, Default, "purged from Trash /h/x"}));
    EXPECT_EQ(loggedBy([] { log::alreadyGone("/h/x"); }),
              (LogRecord{Remove, Debug, "already gone /h/x"}));
    EXPECT_EQ(loggedBy([] { log::refused("/h/x", "why"); }),
              (LogRecord{Remove, Error, "refused /h/x: why"}));
    EXPECT_EQ(loggedBy([] { log::failed("/h/x", "why"); }),
              (LogRecord{Remove, Error, "failed /h/x: why"}));
    EXPECT_EQ(loggedBy([] { log::purgeRefused("/h/x", "why"); }),
              (LogRecord{Remove, Fault, "purge refused /h/x: why"}));
    EXPECT_EQ(loggedBy([] { log::trashNotFound(); }),
              (LogRecord{Remove, Error, "could not locate the Trash folder; nothing purged"}));
}

TEST(Log, BlockedLocationsAreJoinedByCommas)
{
    EXPECT_EQ(loggedBy([] {
                  log::blockedByPrivacy({"Trash", "Mail"});
              }),
              (LogRecord{Scan, Default, "blocked by privacy settings: Trash, Mail"}));
}

TEST(Log, ArgumentsAreTakenAsTheyStandWhateverTheyLookLike)
{
    EXPECT_EQ(loggedBy([] { log::refused("/h/%s%ld", "%{public}s"); }).message,
              "refused /h/%s%ld: %{public}s");
}

TEST(Log, AfterASinkIsGoneItHearsNothing)
{
    int heard = 0;
    {
        const ScopedLogSink sink([&](const LogRecord&) { ++heard; });
        log::updateCurrent();
    }
    log::updateCurrent();
    EXPECT_EQ(heard, 1);
}

TEST(Log, AnyThreadMayLogAndSinksHearOneAtATime)
{
    int heard = 0;
    {
        const ScopedLogSink sink([&](const LogRecord&) { ++heard; });
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([] {
                for (int n = 0; n < 250; ++n) {
                    log::alreadyGone("/h/x");
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
    EXPECT_EQ(heard, 1000);
}

TEST(Log, ALineOfTheTerminalSaysTheLevelWhereItMatters)
{
    EXPECT_EQ(terminalLine({App, Default, "fine"}), "zolva app: fine");
    EXPECT_EQ(terminalLine({Remove, Error, "bad"}), "zolva remove: error: bad");
    EXPECT_EQ(terminalLine({Remove, Fault, "worse"}), "zolva remove: fault: worse");
    EXPECT_EQ(terminalLine({Scan, Debug, "detail"}), "zolva scan: debug: detail");
}

TEST(Log, ANameCannotCommandTheTerminal)
{
    EXPECT_EQ(terminalLine({App, Default,
                            "a\x1B[2Jb\nc\x7F"
                            "d\xC2\x9B"
                            "e\xC3\xA4"}),
              "zolva app: a?[2Jb?c?d?e\xC3\xA4");
}

TEST(Log, ANameCannotPassForAnotherInTheTerminal)
{
    // Without the sign this would be shown as "photo_exe.jpg".
    EXPECT_EQ(terminalLine({App, Default, "photo_\u202Egpj.exe"}), "zolva app: photo_?gpj.exe");
    EXPECT_EQ(terminalLine({App, Default, "a\u2028b\u2066c\xE2\x80"}), "zolva app: a?b?c??");
    EXPECT_EQ(terminalLine({App, Default,
                            "\x9B"
                            "2J\u20AC"}),
              "zolva app: ?2J\u20AC");
}

} // namespace
} // namespace zolva
