#include "ctl/StatusText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zolva::ctl {

namespace {

using ::testing::HasSubstr;

TEST(StatusText, LetsNoTextOfTheToolDriveTheTerminal)
{
    StatusResult status;
    status.healthScoreMsg = "a\x1b[2J\nb";
    const std::string text = statusText(statusTiles(status, {}), {});
    EXPECT_THAT(text, HasSubstr("a\xef\xbf\xbd[2J\xef\xbf\xbd"
                                "b\n"));
    EXPECT_THAT(text, Not(HasSubstr("\x1b")));
}

TEST(DrawnInPlace, GoesBackUpByTheLinesThatWereDrawn)
{
    EXPECT_EQ(drawnInPlace("a\nb\n", true), "\x1b[?7la\x1b[K\nb\x1b[K\n\x1b[?7h");
    EXPECT_EQ(drawnInPlace("a\nb\n", false), "\x1b[?7l\x1b[2Aa\x1b[K\nb\x1b[K\n\x1b[?7h");
}

} // namespace

} // namespace zolva::ctl
