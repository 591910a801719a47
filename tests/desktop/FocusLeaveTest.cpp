#include "desktop/FocusLeave.h"

#include "support/ScopedHome.h"

#include <gtest/gtest.h>

#include <QByteArray>

namespace zolva::test {

namespace {

constexpr auto variable = "XDG_ACTIVATION_TOKEN";

TEST(FocusLeave, StandsInTheEnvironmentOnlyAsLongAsItLives)
{
    const ScopedVariable none(variable, std::nullopt);
    {
        const FocusLeave leave(QStringLiteral("leave 7"));
        EXPECT_EQ(qgetenv(variable), "leave 7");
    }
    EXPECT_FALSE(qEnvironmentVariableIsSet(variable));
}

TEST(FocusLeave, TakesThePlaceOfAnOlderOneThatIsOfNoUseAnyMore)
{
    const ScopedVariable older(variable, "leave 6");
    {
        const FocusLeave leave(QStringLiteral("leave 7"));
        EXPECT_EQ(qgetenv(variable), "leave 7");
    }
    EXPECT_FALSE(qEnvironmentVariableIsSet(variable));
}

TEST(FocusLeave, ThatIsEmptyChangesNothing)
{
    const ScopedVariable older(variable, "leave 6");
    {
        const FocusLeave leave{QString()};
        EXPECT_EQ(qgetenv(variable), "leave 6");
    }
    EXPECT_EQ(qgetenv(variable), "leave 6");
}

} // namespace

} // namespace zolva::test
