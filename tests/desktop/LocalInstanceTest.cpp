#include "desktop/LocalInstance.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"
#include "support/qt/EventLoop.h"

#include <gtest/gtest.h>

#include <QLocalSocket>
#include <QStringList>

#include <chrono>
#include <filesystem>
#include <future>
#include <string>

namespace zolva::test {

namespace {

using Standing = SingleInstance::Standing;

Standing claimElsewhere(const std::string& folder, const QString& token)
{
    auto claim = std::async(std::launch::async,
                            [&folder, &token] { return LocalInstance(folder).claim(token); });
    pumpUntil(
        [&claim] { return claim.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
    return claim.get();
}

TEST(LocalInstance, SecondAsksTheFirstToComeForwardWithItsToken)
{
    const TempTree tree;
    LocalInstance first(tree.root());
    QStringList tokens;
    QObject::connect(&first, &SingleInstance::asked, &first,
                     [&tokens](const QString& token) { tokens.append(token); });
    ASSERT_EQ(first.claim(QStringLiteral("own")), Standing::First);
    EXPECT_EQ(claimElsewhere(tree.root(), QStringLiteral("token 7")), Standing::FirstTold);
    EXPECT_EQ(claimElsewhere(tree.root(), {}), Standing::FirstTold);
    EXPECT_EQ(claimElsewhere(tree.root(), QStringLiteral("two\nlines")), Standing::FirstTold);
    EXPECT_EQ(tokens,
              (QStringList{QStringLiteral("token 7"), QString(), QStringLiteral("two lines")}));
}

TEST(LocalInstance, PlaceIsFreeWhenTheFirstHasEnded)
{
    const TempTree tree;
    {
        LocalInstance first(tree.root());
        ASSERT_EQ(first.claim({}), Standing::First);
    }
    EXPECT_EQ(LocalInstance(tree.root()).claim({}), Standing::First);
}

TEST(LocalInstance, TakesThePlaceOfOneThatDidNotCleanUp)
{
    TempTree tree;
    tree.file("zolva.lock");
    tree.file("zolva.socket");
    LocalInstance first(tree.root());
    ASSERT_EQ(first.claim({}), Standing::First);
    EXPECT_EQ(claimElsewhere(tree.root(), {}), Standing::FirstTold);
}

TEST(LocalInstance, IsFirstWhereThereIsNoPlaceForALock)
{
    const TempTree tree;
    EXPECT_EQ(LocalInstance("").claim({}), Standing::First);
    EXPECT_EQ(LocalInstance(tree.path("missing")).claim({}), Standing::First);
}

TEST(LocalInstance, DoesNotFollowALinkToItsLock)
{
    TempTree tree;
    const std::string target = tree.path("elsewhere");
    tree.link("zolva.lock", target);
    EXPECT_EQ(LocalInstance(tree.root()).claim({}), Standing::First);
    EXPECT_FALSE(std::filesystem::exists(target));
}

TEST(LocalInstance, OutlivesVisitorsThatSaySomethingElse)
{
    const TempTree tree;
    LocalInstance first(tree.root());
    int asked = 0;
    QObject::connect(&first, &SingleInstance::asked, &first, [&asked] { ++asked; });
    ASSERT_EQ(first.claim({}), Standing::First);
    for (const QByteArray& said : {QByteArray("\n"), QByteArray("quit\n"), QByteArray(100'000, 'x'),
                                   QByteArray("\0\n", 2)}) {
        QLocalSocket visitor;
        visitor.connectToServer(QString::fromStdString(tree.path("zolva.socket")));
        pumpUntil([&visitor] { return visitor.state() == QLocalSocket::ConnectedState; });
        visitor.write(said);
        pumpUntil([&visitor] { return visitor.state() == QLocalSocket::UnconnectedState; });
    }
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(claimElsewhere(tree.root(), {}), Standing::FirstTold);
    EXPECT_EQ(asked, 1);
}

TEST(SessionFolder, IsTheUsersAloneOrNone)
{
    TempTree tree;
    const std::string folder = tree.folder("run");
    tree.setMode("run", 0700);
    {
        const ScopedVariable variable("XDG_RUNTIME_DIR", folder);
        EXPECT_EQ(sessionFolder(), folder);
        tree.setMode("run", 0777);
        EXPECT_EQ(sessionFolder(), "");
    }
    for (const std::string& none :
         {std::string(), std::string("run"), tree.path("missing"), tree.file("file")}) {
        const ScopedVariable variable("XDG_RUNTIME_DIR", none);
        EXPECT_EQ(sessionFolder(), "") << none;
    }
    const ScopedVariable variable("XDG_RUNTIME_DIR", std::nullopt);
    EXPECT_EQ(sessionFolder(), "");
}

TEST(ActivationToken, IsTheNewOneBeforeTheOldOne)
{
    const ScopedVariable old("DESKTOP_STARTUP_ID", "old");
    {
        const ScopedVariable fresh("XDG_ACTIVATION_TOKEN", "new");
        EXPECT_EQ(activationToken(), QStringLiteral("new"));
    }
    const ScopedVariable none("XDG_ACTIVATION_TOKEN", std::nullopt);
    EXPECT_EQ(activationToken(), QStringLiteral("old"));
}

} // namespace

} // namespace zolva::test
