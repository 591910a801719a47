#include <QAccessible>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace zolva {
namespace {

/// A window made from QML, with a pointer and a screen reader.
class PointerButtons : public ::testing::Test
{
protected:
    PointerButtons() { m_engine.addImportPath(QStringLiteral("qrc:/qml")); }

    void show(const char* content)
    {
        QQmlComponent component(&m_engine);
        component.setData("import QtQuick\nimport Zolva.Kit\n"
                          "Window { width: 300; height: 200; visible: true\n" +
                              QByteArray(content) + "}",
                          QUrl(QStringLiteral("qrc:/test.qml")));
        m_window.reset(qobject_cast<QQuickWindow*>(component.create()));
        ASSERT_NE(m_window, nullptr) << qPrintable(component.errorString());
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    }

    QObject* named(const char* name) { return m_window->findChild<QObject*>(QLatin1String(name)); }

    Qt::CursorShape shapeAt(int x, int y)
    {
        QTest::mouseMove(m_window.get(), QPoint(x, y));
        QCoreApplication::processEvents();
        return m_window->cursor().shape();
    }

    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

constexpr const char* oneButton = R"(
    PointerButton {
        objectName: "button"
        property int clicks: 0
        property bool shiftAtClick: false
        width: 100; height: 50
        spokenName: "Caches"; spokenValue: "1 GB"; spokenHint: "Shows the list of paths"
        onClicked: { clicks++; shiftAtClick = shiftHeld }
        contentItem: Label { text: "Never spoken"; Accessible.ignored: true }
    }
)";

} // namespace

TEST_F(PointerButtons, ThePointerIsAHandOverOneAndAnArrowBesideIt)
{
    show(oneButton);
    EXPECT_EQ(shapeAt(200, 150), Qt::ArrowCursor);
    EXPECT_EQ(shapeAt(20, 20), Qt::PointingHandCursor);
    EXPECT_EQ(shapeAt(200, 150), Qt::ArrowCursor);
}

TEST_F(PointerButtons, ThePointerIsAnArrowOverADisabledOne)
{
    show(oneButton);
    named("button")->setProperty("enabled", false);
    EXPECT_EQ(shapeAt(20, 20), Qt::ArrowCursor);
}

TEST_F(PointerButtons, NoHandIsLeftBehindWhenOneGoesAwayUnderThePointer)
{
    show(oneButton);
    ASSERT_EQ(shapeAt(20, 20), Qt::PointingHandCursor);
    delete named("button");
    EXPECT_EQ(shapeAt(21, 20), Qt::ArrowCursor);
}

TEST_F(PointerButtons, NoHandIsLeftBehindWhenOneIsHiddenUnderThePointer)
{
    show(oneButton);
    ASSERT_EQ(shapeAt(20, 20), Qt::PointingHandCursor);
    named("button")->setProperty("visible", false);
    EXPECT_EQ(shapeAt(21, 20), Qt::ArrowCursor);
}

TEST_F(PointerButtons, ComingAndGoingManyTimesLeavesAnArrow)
{
    show(oneButton);
    for (int i = 0; i < 20; ++i) {
        ASSERT_EQ(shapeAt(20 + i, 20), Qt::PointingHandCursor);
        ASSERT_EQ(shapeAt(200, 150 - i), Qt::ArrowCursor);
    }
}

TEST_F(PointerButtons, AScreenReaderFindsAButtonWithNameValueAndHint)
{
    show(oneButton);
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(named("button"));
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->role(), QAccessible::Button);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Caches"));
    EXPECT_EQ(spoken->text(QAccessible::Description),
              QStringLiteral("1 GB. Shows the list of paths"));
    EXPECT_TRUE(spoken->state().focusable);
    EXPECT_EQ(spoken->childCount(), 0);
}

TEST_F(PointerButtons, AScreenReadersPressIsOneClickWithoutShift)
{
    show(oneButton);
    QTest::mouseClick(m_window.get(), Qt::LeftButton, Qt::ShiftModifier, QPoint(20, 20));
    ASSERT_TRUE(named("button")->property("shiftAtClick").toBool());
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(named("button"));
    ASSERT_NE(spoken->actionInterface(), nullptr);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(named("button")->property("clicks").toInt(), 2);
    EXPECT_FALSE(named("button")->property("shiftAtClick").toBool());
}

TEST_F(PointerButtons, AScreenReaderCannotPressADisabledOne)
{
    show(oneButton);
    named("button")->setProperty("enabled", false);
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(named("button"));
    EXPECT_FALSE(spoken->state().focusable);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(named("button")->property("clicks").toInt(), 0);
}

TEST_F(PointerButtons, NothingThatOnlyDecoratesIsSpokenOf)
{
    show(R"(
        Item {
            objectName: "decoration"
            Accessible.role: Accessible.Grouping
            Symbol { name: "trash" } Mascot { symbol: "trash" } Chevron { } CheckBox { on: true }
            Spinner { } FocusRing { } Separator { } Card { } Shadow { } NoiseOverlay { }
            BlurredSymbol { name: "trash" }
        }
    )");
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(named("decoration"));
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->childCount(), 0);
}

TEST_F(PointerButtons, APillIsSpokenOfOnceByItsTitle)
{
    show(R"(PillButton { objectName: "button"; title: "Clean 1 GB" })");
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(named("button"));
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Clean 1 GB"));
    EXPECT_EQ(spoken->text(QAccessible::Description), QString());
    EXPECT_EQ(spoken->childCount(), 0);
}

TEST_F(PointerButtons, ALabelBesideOneIsSpokenAsItsText)
{
    show(R"(Label { objectName: "label"; text: "Installed applications" })");
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(named("label"));
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->role(), QAccessible::StaticText);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Installed applications"));
}

} // namespace zolva
