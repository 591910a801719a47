#include "desktop/linux/BusInstance.h"
#include "desktop/PrivateBus.h"
#include "support/qt/EventLoop.h"

#include <gtest/gtest.h>

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QStringList>

#include <chrono>
#include <future>

namespace zolva::test {

namespace {

using Standing = SingleInstance::Standing;

const auto id = QStringLiteral("org.zolva.Zolva");
const auto path = QStringLiteral("/org/zolva/Zolva");
const auto interface = QStringLiteral("org.freedesktop.Application");

/// Notes with which tokens it was asked to come forward.
void noteAsked(SingleInstance& instance, QStringList& tokens)
{
    QObject::connect(&instance, &SingleInstance::asked, &instance,
                     [&tokens](const QString& token) { tokens.append(token); });
}

/// A claim made as another process makes it, while this one goes on.
Standing claimElsewhere(const QDBusConnection& bus, const QString& token)
{
    auto claim =
        std::async(std::launch::async, [&bus, &token] { return BusInstance(bus).claim(token); });
    pumpUntil(
        [&claim] { return claim.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
    return claim.get();
}

TEST(BusInstance, OfASessionIsTheFirstThatClaims)
{
    PrivateBus bus;
    QDBusConnection connection = bus.connection();
    BusInstance first(connection);
    EXPECT_EQ(first.claim({}), Standing::First);
    EXPECT_TRUE(bus.connection().interface()->isServiceRegistered(id));
}

TEST(BusInstance, SecondAsksTheFirstToComeForwardWithItsToken)
{
    PrivateBus bus;
    BusInstance first(bus.connection());
    QStringList tokens;
    noteAsked(first, tokens);
    ASSERT_EQ(first.claim(QStringLiteral("own token")), Standing::First);
    EXPECT_EQ(claimElsewhere(bus.connection(), QStringLiteral("token 7")), Standing::FirstTold);
    EXPECT_EQ(claimElsewhere(bus.connection(), {}), Standing::FirstTold);
    EXPECT_EQ(tokens, (QStringList{QStringLiteral("token 7"), QString()}));
}

TEST(BusInstance, PlaceIsFreeWhenTheFirstHasEnded)
{
    PrivateBus bus;
    const auto name = QStringLiteral("first-one");
    {
        BusInstance first(
            QDBusConnection::connectToBus(QString::fromStdString(bus.address()), name));
        ASSERT_EQ(first.claim({}), Standing::First);
    }
    QDBusConnection::disconnectFromBus(name);
    QDBusConnection other = bus.connection();
    pumpUntil([&other] { return !other.interface()->isServiceRegistered(id); });
    EXPECT_EQ(BusInstance(other).claim({}), Standing::First);
}

TEST(BusInstance, TellsWhereTheFirstDoesNotKnowTheCall)
{
    PrivateBus bus;
    QDBusConnection stranger = bus.connection();
    ASSERT_TRUE(stranger.registerService(id));
    EXPECT_EQ(claimElsewhere(bus.connection(), {}), Standing::FirstSilent);
}

TEST(BusInstance, IsFirstWhereThereIsNoBus)
{
    EXPECT_EQ(BusInstance(noBus()).claim({}), Standing::First);
}

TEST(BusInstance, AnswersEveryCallOfTheDesktop)
{
    PrivateBus bus;
    BusInstance first(bus.connection());
    QStringList tokens;
    noteAsked(first, tokens);
    ASSERT_EQ(first.claim({}), Standing::First);
    const QDBusConnection desktop = bus.connection();
    const auto call = [&desktop](const char* method, const QVariantList& arguments) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(id, path, interface, QString::fromLatin1(method));
        message.setArguments(arguments);
        const QDBusPendingCall pending = desktop.asyncCall(message);
        pumpUntil([&pending] { return pending.isFinished(); });
        return !pending.isError();
    };
    const QVariantMap token = {{QStringLiteral("activation-token"), QStringLiteral("a")}};
    const QVariantMap old = {{QStringLiteral("desktop-startup-id"), QStringLiteral("b")}};
    EXPECT_TRUE(call("Activate", {token}));
    EXPECT_TRUE(call("Open", {QStringList{QStringLiteral("file:///x")}, old}));
    EXPECT_FALSE(call("Activate", {QStringLiteral("no map")}));
    EXPECT_FALSE(call("Unknown", {}));
    EXPECT_EQ(tokens, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

} // namespace

} // namespace zolva::test
