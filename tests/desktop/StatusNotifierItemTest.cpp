#include "desktop/linux/StatusNotifierItem.h"
#include "desktop/FakeTray.h"
#include "desktop/PrivateBus.h"
#include "support/qt/EventLoop.h"

#include <gtest/gtest.h>

#include <QDBusConnectionInterface>

#include <memory>
#include <vector>

namespace zolva::test {

namespace {

const auto itemInterface = QStringLiteral("org.kde.StatusNotifierItem");
const auto itemPath = QStringLiteral("/StatusNotifierItem");
const auto menuInterface = QStringLiteral("com.canonical.dbusmenu");
const auto menuPath = QStringLiteral("/MenuBar");

class Item : public ::testing::Test
{
protected:
    Item()
    {
        QObject::connect(&item, &TrayItem::shownChanged, &context, [this] { ++changes; });
        QObject::connect(&item, &TrayItem::activated, &context,
                         [this](const QRect& place) { clicks.push_back(place); });
        QObject::connect(&item, &TrayItem::chosen, &context,
                         [this](int entry) { chosen.push_back(entry); });
    }

    void show()
    {
        tray.appear();
        item.setEntries({{QStringLiteral("Open")},
                         {QStringLiteral("Look_up"), false},
                         {QStringLiteral("Quit")}});
        item.start();
        pumpUntil([this] { return item.isShown(); });
    }
    QVariant read(const char* name)
    {
        return tray.property(itemInterface, itemPath, QString::fromLatin1(name));
    }
    bool did(const QString& interface, const QString& path, const char* method,
             const QVariantList& arguments)
    {
        return tray.call(interface, path, QString::fromLatin1(method), arguments).type() ==
               QDBusMessage::ReplyMessage;
    }
    bool click(const char* method, int x, int y)
    {
        return did(itemInterface, itemPath, method, {x, y});
    }
    bool menuEvent(int id, const char* kind)
    {
        return did(menuInterface, menuPath, "Event",
                   {id, QString::fromLatin1(kind), QVariant::fromValue(QDBusVariant(0)), 0U});
    }
    MenuLayout layout()
    {
        const QDBusMessage reply =
            tray.call(menuInterface, menuPath, QStringLiteral("GetLayout"), {0, -1, QStringList()});
        return qdbus_cast<MenuLayout>(reply.arguments().value(1));
    }
    /// What is on its way has come.
    void settle() { static_cast<void>(read("Id")); }

    PrivateBus bus;
    FakeTray tray{bus.connection()};
    StatusNotifierItem item{bus.connection(), "/pictures"};
    QObject context;
    int changes = 0;
    std::vector<QRect> clicks;
    std::vector<int> chosen;
};

TEST_F(Item, IsNotShownWithoutABus)
{
    StatusNotifierItem alone(noBus(), "");
    alone.start();
    pumpOnce();
    EXPECT_FALSE(alone.isShown());
}

TEST_F(Item, IsNotShownBeforeItIsStarted)
{
    tray.appear();
    pumpOnce();
    EXPECT_FALSE(item.isShown());
    EXPECT_TRUE(tray.items().isEmpty());
}

TEST_F(Item, RegistersByANameOfItsOwnAndTellsOnce)
{
    show();
    ASSERT_EQ(tray.items().size(), 1);
    EXPECT_TRUE(bus.connection().interface()->isServiceRegistered(tray.items().front()));
    EXPECT_EQ(changes, 1);
}

TEST_F(Item, IsShownWhenTheDesktopsWatcherComesLater)
{
    item.start();
    pumpOnce();
    EXPECT_FALSE(item.isShown());
    tray.appear();
    pumpUntil([this] { return item.isShown(); });
}

TEST_F(Item, GoesWithTheWatcherAndComesBackWithTheNext)
{
    show();
    tray.vanish();
    pumpUntil([this] { return !item.isShown(); });
    tray.appear();
    pumpUntil([this] { return item.isShown(); });
    EXPECT_EQ(tray.items().size(), 1);
    EXPECT_EQ(changes, 3);
}

TEST_F(Item, IsNotShownWhereNobodyDrawsIt)
{
    tray.appear();
    tray.setHost(false);
    item.start();
    pumpUntil([this] { return !tray.items().isEmpty(); });
    settle();
    EXPECT_FALSE(item.isShown());
    tray.setHost(true);
    pumpUntil([this] { return item.isShown(); });
    tray.setHost(false);
    pumpUntil([this] { return !item.isShown(); });
}

TEST_F(Item, IsNotShownWhereItIsRefused)
{
    tray.setRefusing(true);
    tray.appear();
    item.start();
    tray.setHost(true);
    for (int turn = 0; turn < 3; ++turn) {
        const QDBusPendingCall turnOfTheBus =
            bus.connection().asyncCall(QDBusMessage::createMethodCall(
                QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
        pumpUntil([&] { return turnOfTheBus.isFinished(); });
    }
    EXPECT_FALSE(item.isShown());
    EXPECT_EQ(changes, 0);
}

TEST_F(Item, TellsWhatItIs)
{
    show();
    EXPECT_EQ(read("Id").toString(), "org.zolva.Zolva");
    EXPECT_EQ(read("Category").toString(), "SystemServices");
    EXPECT_EQ(read("Status").toString(), "Active");
    EXPECT_EQ(read("Title").toString(), "Zolva");
    EXPECT_FALSE(read("ItemIsMenu").toBool());
    EXPECT_EQ(read("Menu").value<QDBusObjectPath>().path(), menuPath);
    EXPECT_EQ(read("IconName").toString(), "org.zolva.Zolva-symbolic");
    EXPECT_EQ(read("IconThemePath").toString(), "/pictures");
}

TEST_F(Item, LabelAndToolTipCarryTheSumAndATotalOfNothingThePictureAlone)
{
    show();
    EXPECT_EQ(read("XAyatanaLabel").toString(), "");
    item.setTexts(QStringLiteral("4.20 GB"), QStringLiteral("4.20 GB reclaimable"));
    EXPECT_EQ(read("XAyatanaLabel").toString(), "4.20 GB");
    EXPECT_EQ(read("Title").toString(), "Zolva, 4.20 GB reclaimable");
    const auto tip = qdbus_cast<TrayToolTip>(read("ToolTip"));
    EXPECT_EQ(tip.title, "Zolva");
    EXPECT_EQ(tip.text, "4.20 GB reclaimable");
    item.setTexts({}, {});
    EXPECT_EQ(read("XAyatanaLabel").toString(), "");
    EXPECT_EQ(read("Title").toString(), "Zolva");
}

/// The colour of its most solid pixel, as it goes over the bus, and whether it has clear ones.
struct Ink
{
    std::vector<int> argb;
    bool hasClear = false;
};

Ink inkOf(const TrayPixmap& pixmap)
{
    Ink ink{{0, 0, 0, 0}, false};
    for (qsizetype at = 0; at + 3 < pixmap.pixels.size(); at += 4) {
        const auto byte = [&](int which) {
            return static_cast<int>(static_cast<unsigned char>(pixmap.pixels.at(at + which)));
        };
        ink.hasClear = ink.hasClear || byte(0) == 0;
        if (byte(0) > ink.argb[0]) {
            ink.argb = {byte(0), byte(1), byte(2), byte(3)};
        }
    }
    return ink;
}

TEST_F(Item, PictureIsDarkOnLightAndLightOnDark)
{
    show();
    const auto light = qdbus_cast<QList<TrayPixmap>>(read("IconPixmap"));
    ASSERT_FALSE(light.isEmpty());
    for (const TrayPixmap& pixmap : light) {
        EXPECT_EQ(pixmap.pixels.size(), qsizetype{4} * pixmap.width * pixmap.height);
        EXPECT_TRUE(inkOf(pixmap).hasClear);
    }
    EXPECT_EQ(inkOf(light.back()).argb, (std::vector{204, 0, 0, 0}));
    item.setOnDark(true);
    const auto dark = qdbus_cast<QList<TrayPixmap>>(read("IconPixmap"));
    EXPECT_EQ(inkOf(dark.back()).argb, (std::vector{255, 255, 255, 255}));
}

TEST_F(Item, TellsItsDrawersOfEveryChangeAndOfNothingElse)
{
    show();
    const QDBusConnection drawer = bus.connection();
    const HeardSignals titles(drawer, itemPath, itemInterface, QStringLiteral("NewTitle"));
    const HeardSignals labels(drawer, itemPath, itemInterface, QStringLiteral("XAyatanaNewLabel"));
    const HeardSignals icons(drawer, itemPath, itemInterface, QStringLiteral("NewIcon"));
    const HeardSignals layouts(drawer, menuPath, menuInterface, QStringLiteral("LayoutUpdated"));
    settle();
    for (int again = 0; again < 2; ++again) {
        item.setTexts(QStringLiteral("1 GB"), {});
        item.setOnDark(true);
        item.setEntries({{QStringLiteral("Open")}});
    }
    pumpUntil([&] { return layouts.count() == 1; });
    EXPECT_EQ(titles.count(), 1);
    EXPECT_EQ(labels.count(), 1);
    EXPECT_EQ(icons.count(), 1);
}

TEST_F(Item, TellsWhereItWasClicked)
{
    show();
    EXPECT_TRUE(click("Activate", 1200, 14));
    EXPECT_TRUE(click("SecondaryActivate", 10, 20));
    EXPECT_TRUE(click("ContextMenu", 30, 40)) << "where the desktop draws no menus";
    EXPECT_EQ(clicks, (std::vector<QRect>{{1200, 14, 1, 1}, {10, 20, 1, 1}, {30, 40, 1, 1}}));
}

TEST_F(Item, TellsThatThePlaceOfAClickIsNotKnown)
{
    show();
    EXPECT_TRUE(click("Activate", 0, 0));
    ASSERT_EQ(clicks.size(), 1U);
    EXPECT_TRUE(clicks.front().isEmpty());
}

TEST_F(Item, WheelChangesNothing)
{
    show();
    EXPECT_TRUE(did(itemInterface, itemPath, "Scroll", {120, QStringLiteral("vertical")}));
    EXPECT_TRUE(clicks.empty());
}

TEST_F(Item, LeaveToTakeTheFocusIsForTheOneClickThatFollows)
{
    show();
    constexpr auto variable = "XDG_ACTIVATION_TOKEN";
    const auto give = [this](const char* token) {
        EXPECT_TRUE(did(itemInterface, itemPath, "ProvideXdgActivationToken",
                        {QString::fromLatin1(token)}));
    };
    give("leave 7");
    EXPECT_FALSE(qEnvironmentVariableIsSet(variable)) << "nothing was clicked yet";
    QByteArrayList seen;
    const auto look = [&seen] { seen.append(qgetenv(variable)); };
    QObject::connect(&item, &TrayItem::activated, &context, look);
    QObject::connect(&item, &TrayItem::chosen, &context, look);
    EXPECT_TRUE(click("Activate", 1, 2));
    EXPECT_FALSE(qEnvironmentVariableIsSet(variable));
    EXPECT_TRUE(click("Activate", 1, 2));
    give("leave 8");
    EXPECT_TRUE(menuEvent(1, "clicked"));
    EXPECT_FALSE(qEnvironmentVariableIsSet(variable));
    EXPECT_TRUE(menuEvent(1, "clicked"));
    EXPECT_EQ(seen, (QByteArrayList{"leave 7", {}, "leave 8", {}}));
}

TEST_F(Item, MenuHasTheEntriesInTheirOrder)
{
    show();
    const MenuLayout root = layout();
    EXPECT_EQ(root.id, 0);
    ASSERT_EQ(root.children.size(), 3);
    const auto labelOf = [&root](qsizetype at) {
        return root.children.at(at).properties.value(QStringLiteral("label")).toString();
    };
    EXPECT_EQ(labelOf(0), "Open");
    EXPECT_EQ(labelOf(1), "Look__up") << "one underline would mark a key";
    EXPECT_EQ(labelOf(2), "Quit");
    const auto enabled = QStringLiteral("enabled");
    EXPECT_TRUE(root.children.at(0).properties.value(enabled).toBool());
    EXPECT_FALSE(root.children.at(1).properties.value(enabled).toBool());
}

TEST_F(Item, TellsWhichEntryWasChosen)
{
    show();
    EXPECT_TRUE(menuEvent(1, "hovered"));
    EXPECT_TRUE(menuEvent(3, "clicked"));
    EXPECT_TRUE(menuEvent(1, "clicked"));
    EXPECT_EQ(chosen, (std::vector{2, 0}));
}

TEST_F(Item, EntryThatIsDisabledOrUnknownIsNotChosen)
{
    show();
    for (const int id : {-1, 0, 2, 4, 1000}) {
        EXPECT_TRUE(menuEvent(id, "clicked"));
    }
    EXPECT_TRUE(chosen.empty());
}

TEST_F(Item, MenuAnswersGroupsOfQuestions)
{
    show();
    const QDBusMessage events =
        tray.call(menuInterface, menuPath, QStringLiteral("EventGroup"),
                  {QVariant::fromValue(QList<MenuEvent>{{3, QStringLiteral("clicked"), 0, 0},
                                                        {9, QStringLiteral("clicked"), 0, 0}})});
    EXPECT_EQ(qdbus_cast<QList<int>>(events.arguments().value(0)), QList<int>{9});
    EXPECT_EQ(chosen, std::vector{2});
    const QDBusMessage shown =
        tray.call(menuInterface, menuPath, QStringLiteral("AboutToShowGroup"),
                  {QVariant::fromValue(QList<int>{0, 1, 9})});
    EXPECT_TRUE(qdbus_cast<QList<int>>(shown.arguments().value(0)).isEmpty());
    EXPECT_EQ(qdbus_cast<QList<int>>(shown.arguments().value(1)), QList<int>{9});
    const auto group = QStringLiteral("GetGroupProperties");
    const QDBusMessage some = tray.call(menuInterface, menuPath, group,
                                        {QVariant::fromValue(QList<int>{2, 9}), QStringList()});
    const auto told = qdbus_cast<QList<MenuItemProperties>>(some.arguments().value(0));
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told.front().id, 2);
    const QDBusMessage all = tray.call(menuInterface, menuPath, group,
                                       {QVariant::fromValue(QList<int>()), QStringList()});
    EXPECT_EQ(qdbus_cast<QList<MenuItemProperties>>(all.arguments().value(0)).size(), 4);
}

TEST_F(Item, IsTakenAwayAtItsEnd)
{
    tray.appear();
    auto other = std::make_unique<StatusNotifierItem>(bus.connection(), "");
    other->start();
    pumpUntil([&] { return other->isShown(); });
    EXPECT_EQ(read("IconName").toString(), "") << "there are no pictures";
    const QString name = tray.items().front();
    other.reset();
    EXPECT_FALSE(bus.connection().interface()->isServiceRegistered(name));
    EXPECT_EQ(tray.call(itemInterface, itemPath, QStringLiteral("Activate"), {1, 1}).type(),
              QDBusMessage::ErrorMessage);
}

} // namespace

} // namespace zolva::test
