#include "screens/model/UpdateMessages.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace zolva::test {

namespace {

UpdateCheckResult offer(std::optional<std::string> notes)
{
    return UpdateAvailable{{7, "1.2", "https://example.org/get", std::move(notes)}};
}

std::string messageOf(const UpdateState& state)
{
    return updateWords(state).message.toStdString();
}

UpdateState idle(UpdateCheckResult result)
{
    return {.configured = true, .result = std::move(result)};
}

UpdateState checking(UpdateCheckResult result)
{
    return {.configured = true, .checking = true, .result = std::move(result)};
}

constexpr auto noFeed = "This build has no update feed, so it will not check for updates.";

} // namespace

TEST(UpdateWords, OfABuildWithoutAFeedAreTheSameWhateverElseIsTrue)
{
    for (const bool isChecking : {false, true}) {
        for (const UpdateCheckResult& result :
             {UpdateCheckResult(UpdateNotConfigured()), offer("x"),
              UpdateCheckResult(UpdateCheckFailed{"x"})}) {
            const UpdateState state{.checking = isChecking, .result = result};
            EXPECT_EQ(messageOf(state), noFeed);
            EXPECT_TRUE(updateWords(state).action.isEmpty());
            EXPECT_FALSE(updateWords(state).canAct);
        }
    }
}

TEST(UpdateWords, OfABuildThatLeavesThemToOthersSaySo)
{
    const UpdateState state{.switchedOff = true, .result = {}};
    EXPECT_EQ(messageOf(state),
              "This build does not check for updates. They come the way Zolva was installed.");
    EXPECT_TRUE(updateWords(state).action.isEmpty());
}

TEST(UpdateWords, OfACheckUnderWayComeBeforeThoseOfTheLastResult)
{
    for (const UpdateCheckResult& result :
         {UpdateCheckResult(UpToDate()), offer("x"), UpdateCheckResult(UpdateCheckFailed{"x"})}) {
        EXPECT_EQ(messageOf(checking(result)), "Checking for updates…");
    }
}

TEST(UpdateWords, OfEachResult)
{
    EXPECT_EQ(messageOf(idle(UpToDate())),
              "Up to date. Checked daily, and verified before anything is offered.");
    EXPECT_EQ(messageOf(idle(UpdateCheckFailed{"The update information was unreadable."})),
              "The update information was unreadable.");
    EXPECT_EQ(messageOf(idle(UpdateNotConfigured())), noFeed);
    EXPECT_EQ(messageOf(idle(offer("Faster."))), "Zolva 1.2 is available. Faster.");
}

TEST(UpdateWords, OfAnOfferWithoutNotesEndWithoutASpace)
{
    EXPECT_EQ(messageOf(idle(offer(std::nullopt))), "Zolva 1.2 is available.");
    EXPECT_EQ(messageOf(idle(offer(""))), "Zolva 1.2 is available. ");
}

TEST(UpdateWords, TheButtonOfAnOfferStaysDuringANewCheck)
{
    for (const UpdateState& state : {idle(offer("x")), checking(offer("x"))}) {
        const UpdateWords words = updateWords(state);
        EXPECT_EQ(words.action, QStringLiteral("Download"));
        EXPECT_TRUE(words.isOffer);
        EXPECT_TRUE(words.canAct);
    }
}

TEST(UpdateWords, TheButtonOfAnyOtherResultChecksUnlessACheckRuns)
{
    for (const UpdateCheckResult& result :
         {UpdateCheckResult(UpToDate()), UpdateCheckResult(UpdateCheckFailed{"x"})}) {
        const UpdateWords quiet = updateWords(idle(result));
        EXPECT_EQ(quiet.action, QStringLiteral("Check now"));
        EXPECT_FALSE(quiet.isOffer);
        EXPECT_TRUE(quiet.canAct);
        const UpdateWords busy = updateWords(checking(result));
        EXPECT_EQ(busy.action, QStringLiteral("Checking…"));
        EXPECT_FALSE(busy.canAct);
    }
}

} // namespace zolva::test
