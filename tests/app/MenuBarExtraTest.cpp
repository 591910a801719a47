#include "app/MenuBarExtra.h"
#include "core/WholeModel.h"
#include "support/qt/EventLoop.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>

#include <chrono>
#include <memory>
#include <utility>
#include <vector>

namespace zolva::test {

namespace {

using std::chrono::milliseconds;

/// An item that notes what it is given, and is clicked by the test.
class ScriptedItem final : public TrayItem
{
public:
    void start() override { ++starts; }
    bool isShown() const override { return shown; }
    void setTexts(const QString& nowLabel, const QString& nowToolTip) override
    {
        label = nowLabel;
        toolTip = nowToolTip;
    }
    void setEntries(std::vector<TrayEntry> now) override { entries = std::move(now); }
    void setOnDark(bool is) override { isOnDark = is; }

    int starts = 0;
    bool shown = false;
    bool isOnDark = false;
    QString label;
    QString toolTip;
    std::vector<TrayEntry> entries;
};

class Extra : public WholeModel
{
protected:
    Extra()
    {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        engine.addImportPath(QStringLiteral("qrc:/qml"));
        begin();
    }
    /// Once more, with what the test has prepared.
    void begin()
    {
        extra.reset();
        screens.reset();
        store.values["zolva.seenAccessIntro"] = true;
        start({.meters = false});
        screens = std::make_unique<ScreenModel>(*model, clock);
        auto made = std::make_unique<ScriptedItem>();
        item = made.get();
        extra = std::make_unique<MenuBarExtra>(std::move(made), *screens, engine, clock);
        QObject::connect(screens->menu(), &MenuPanelModel::mainWanted, &context,
                         [this] { told.emplace_back("main"); });
        QObject::connect(screens->menu(), &MenuPanelModel::quitWanted, &context,
                         [this] { told.emplace_back("quit"); });
    }
    ~Extra() override
    {
        extra.reset();
        screens.reset();
    }

    static std::vector<QWindow*> panels()
    {
        std::vector<QWindow*> shown;
        for (QWindow* const window : QGuiApplication::topLevelWindows()) {
            if (window->isVisible()) {
                shown.push_back(window);
            }
        }
        return shown;
    }
    Steps titles() const
    {
        Steps all;
        for (const TrayEntry& entry : item->entries) {
            all.push_back(entry.title.toStdString() + (entry.isEnabled ? "" : " (off)"));
        }
        return all;
    }
    void click(const QRect& place = {})
    {
        Q_EMIT item->activated(place);
        pumpOnce();
    }

    QObject context;
    QQmlEngine engine;
    std::unique_ptr<ScreenModel> screens;
    ScriptedItem* item = nullptr;
    std::unique_ptr<MenuBarExtra> extra;
    Steps told;
};

TEST_F(Extra, MakesNoWindowBeforeItIsClicked)
{
    extra->start();
    EXPECT_EQ(item->starts, 1);
    pumpOnce();
    EXPECT_TRUE(QGuiApplication::topLevelWindows().isEmpty());
}

TEST_F(Extra, MakesThePanelAheadAWhileAfterTheItemCameInSight)
{
    extra->start();
    item->shown = true;
    Q_EMIT item->shownChanged();
    clock.advance(panelDelay - milliseconds(1));
    EXPECT_TRUE(QGuiApplication::topLevelWindows().isEmpty());
    clock.advance(milliseconds(1));
    ASSERT_EQ(QGuiApplication::topLevelWindows().size(), 1);
    EXPECT_GT(QGuiApplication::topLevelWindows().front()->height(), 400) << "before any frame";
    EXPECT_TRUE(panels().empty());
    EXPECT_EQ(installers.count(), 0U);
}

TEST_F(Extra, ClickOpensThePanelThatLooksAround)
{
    click();
    ASSERT_EQ(panels().size(), 1U);
    EXPECT_EQ(panels().front()->width(), 320);
    EXPECT_GT(panels().front()->height(), 400);
    EXPECT_EQ(held.clean.count(), 1U);
    EXPECT_EQ(held.purge.count(), 1U);
    EXPECT_EQ(installers.count(), 1U);
}

TEST_F(Extra, NextClickClosesItAndTheOneAfterOpensItAgain)
{
    click();
    click();
    EXPECT_TRUE(panels().empty());
    clock.advance(milliseconds(300));
    click();
    EXPECT_EQ(panels().size(), 1U);
    EXPECT_EQ(installers.count(), 2U);
}

TEST_F(Extra, ClickThatTookTheKeysAwayFromThePanelDoesNotOpenItAnew)
{
    click();
    panels().front()->hide();
    click();
    EXPECT_TRUE(panels().empty());
}

TEST_F(Extra, PanelStandsBesideTheItem)
{
    click({500, 10, 1, 1});
    ASSERT_EQ(panels().size(), 1U);
    EXPECT_EQ(panels().front()->position(), QPoint(500 - 160, 17));
}

TEST_F(Extra, PanelAboveItsItemGrowsUpwards)
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    click({500, screen.bottom() - 20, 1, 1});
    ASSERT_EQ(panels().size(), 1U);
    QWindow& panel = *panels().front();
    const int end = panel.y() + panel.height();
    panel.setHeight(panel.height() + 14);
    pumpOnce();
    EXPECT_EQ(panel.y() + panel.height(), end);
}

TEST_F(Extra, PanelIsGoneWhenTheWindowIsWanted)
{
    click();
    screens->menu()->runCommand(0);
    EXPECT_TRUE(panels().empty());
    EXPECT_EQ(told, (Steps{"main"}));
}

TEST_F(Extra, PanelIsGoneWhenTheEndIsWanted)
{
    click();
    screens->menu()->runCommand(3);
    EXPECT_TRUE(panels().empty());
    EXPECT_EQ(told, (Steps{"quit"}));
}

TEST_F(Extra, ItemCarriesTheSum)
{
    EXPECT_EQ(item->label, "");
    model->scanInstallers();
    InstallerItem found = installer("/i");
    found.b = 3'000'000;
    installers.answer(0, {found});
    EXPECT_EQ(item->label, "3.0 MB");
    EXPECT_EQ(item->toolTip, "3.0 MB reclaimable");
}

TEST_F(Extra, MenuLeadsToTheWindowAndTheEnd)
{
    bundle = AppBundle();
    begin();
    EXPECT_EQ(titles(), (Steps{"Open Zolva", "Check for Updates… (off)", "Quit Zolva"}));
    for (const int entry : {0, 2, 3, -1}) {
        Q_EMIT item->chosen(entry);
    }
    EXPECT_EQ(told, (Steps{"main", "quit"}));
}

TEST_F(Extra, MenuLooksForUpdatesAndBringsTheirScreen)
{
    bundle = bundleWithFeed(tree.root());
    begin();
    EXPECT_EQ(titles(), (Steps{"Open Zolva", "Check for Updates…", "Quit Zolva"}));
    Q_EMIT item->chosen(1);
    EXPECT_EQ(told, (Steps{"main"}));
    EXPECT_EQ(model->screen(), "settings");
    EXPECT_EQ(updateChecks.count(), 1U);
    EXPECT_EQ(titles().at(1), "Check for Updates… (off)") << "one is under way";
}

TEST_F(Extra, MenuHasNoUpdatesWhereOthersBringThem)
{
    bundle = bundleWithFeed(tree.root());
    bundle->checksForUpdates = false;
    begin();
    EXPECT_EQ(titles(), (Steps{"Open Zolva", "Quit Zolva"}));
    Q_EMIT item->chosen(1);
    EXPECT_EQ(told, (Steps{"quit"}));
}

TEST_F(Extra, TellsWhetherTheItemIsShown)
{
    const Told changes(extra.get(), &MenuBarExtra::shownChanged);
    EXPECT_FALSE(extra->isShown());
    item->shown = true;
    Q_EMIT item->shownChanged();
    EXPECT_TRUE(extra->isShown());
    EXPECT_EQ(changes.count(), 1);
}

} // namespace

} // namespace zolva::test
