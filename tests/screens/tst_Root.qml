pragma ComponentBehavior: Bound
import QtQuick
import QtTest
import Zolva.Frame
import Zolva.Kit
import Zolva.Root
import Zolva.Sheets
import Zolva.Test

FindingCase {
    id: test

    property Fixture fixture
    property MainWindow window

    function init() {
        fixture = createTemporaryObject(fixtures, test);
        window = createTemporaryObject(windows, test, {
            "model": fixture.model
        });
        window.show();
        window.requestActivate();
        tryVerify(() => window.active);
        wait(0);
    }
    function cleanup() {
        window.destroy();
        wait(0);
    }
    function ofType(type) {
        return typed(type, window.contentItem);
    }
    function button(name) {
        return walk(window.contentItem, item => item.spokenName === name && item.visible && item.enabled);
    }
    /// What the column shows.
    function page() {
        return walk(window.contentItem, item => /^[A-Za-z]+Screen(_QMLTYPE|\()/.test(item.toString()) && item.visible);
    }
    function depth(item) {
        let at = item;
        while (at.parent !== root())
            at = at.parent;
        return Array.prototype.indexOf.call(root().children, at);
    }
    function root() {
        return ofType("ZolvaRootView");
    }
    function test_theWindowOpensAtTwelveHundredAndTwentyByEightHundredAndTwelve() {
        compare(window.width, 1220);
        compare(window.height, 812);
        compare(window.title, "Zolva");
    }
    function test_theWindowIsNeverSmallerThanNineHundredAndEightyBySixHundredAndSixty() {
        compare(window.minimumWidth, 980);
        compare(window.minimumHeight, 660);
    }
    function test_theSidebarIsTwoHundredAndSixtyFourWideAndTheColumnTakesTheRest() {
        const column = ofType("ContentColumn");
        compare(ofType("Sidebar").width, 264);
        compare(column.x, 264);
        compare(column.width, 1220 - 264);
        window.width = 980;
        tryCompare(column, "width", 716);
        compare(ofType("Sidebar").width, 264);
    }
    function test_eachIdShowsItsScreen_data() {
        return [
            {
                "tag": "home",
                "page": "HomeScreen"
            },
            {
                "tag": "clean",
                "page": "CleanScreen"
            },
            {
                "tag": "analyze",
                "page": "AnalyzeScreen"
            },
            {
                "tag": "status",
                "page": "StatusScreen"
            },
            {
                "tag": "purge",
                "page": "PurgeScreen"
            },
            {
                "tag": "uninstall",
                "page": "UninstallScreen"
            },
            {
                "tag": "installer",
                "page": "InstallerScreen"
            },
            {
                "tag": "settings",
                "page": "SettingsScreen"
            }
        ];
    }
    function test_eachIdShowsItsScreen(data) {
        fixture.model.go(data.tag);
        verify(page().toString().startsWith(data.page));
    }
    function test_anUnknownIdShowsTheHomeScreen() {
        fixture.model.go("clean");
        fixture.model.go("Clean");
        verify(page().toString().startsWith("HomeScreen"));
    }
    function test_aPageIsMadeAnewAtEachVisit() {
        fixture.model.go("clean");
        const first = page();
        first.objectName = "first";
        fixture.model.go("status");
        fixture.model.go("clean");
        wait(0);
        verify(page().toString().startsWith("CleanScreen"));
        compare(page().objectName, "");
    }
    function test_thePaletteFollowsTheEffectiveTheme() {
        fixture.setTheme("dark");
        compare(Theme.light, false);
        compare(window.color.toString(), Theme.palette.win.toString());
        fixture.setTheme("light");
        compare(Theme.light, true);
        fixture.setTheme("system");
        fixture.setDark(true);
        compare(Theme.light, false);
        fixture.setDark(false);
        compare(Theme.light, true);
    }
    function test_fromBackToFrontComeTheRowTheGrainTheSheetTheIntroTheAlertAndTheToasts() {
        const order = ["Sidebar", "ConfirmSheet", "AccessIntro", "QuitAlert", "ToastStack"].map(type => depth(ofType(type)));
        for (let i = 1; i < order.length; ++i)
            verify(order[i] > order[i - 1]);
        const grain = walk(window.contentItem, item => item instanceof NoiseOverlay);
        verify(depth(grain) > order[0] && depth(grain) < order[1]);
        compare(grain.opacity, 0.04);
        compare(grain.width, window.width);
    }
    function test_navigatingWithASheetOpenClosesItWithoutRunningAnything() {
        fixture.setTrash(2, 1000);
        fixture.openSheet("emptytrash");
        verify(fixture.model.confirm.isOpen);
        const before = fixture.calls.length;
        fixture.model.go("status");
        verify(!fixture.model.confirm.isOpen);
        compare(fixture.calls.length, before);
        compare(fixture.model.bulk.present, false);
    }
    function test_underAnOpenSheetNothingOfTheRowCanBePressedOrFocused() {
        fixture.setTrash(2, 1000);
        fixture.openSheet("emptytrash");
        wait(300);
        const row = walk(window.contentItem, item => item instanceof NavRow);
        compare(row.enabled, false);
        for (let i = 0; i < 12; ++i) {
            keyClick(Qt.Key_Tab);
            verify(walk(ofType("ConfirmSheet"), item => item === window.activeFocusItem));
        }
    }
    function test_afterTheSheetTheFocusIsBackWhereItWas() {
        fixture.setTrash(2, 1000);
        const trash = button("Empty Trash");
        trash.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        tryVerify(() => fixture.model.confirm.isOpen && window.activeFocusItem !== trash);
        wait(250);
        keyClick(Qt.Key_Escape);
        verify(!fixture.model.confirm.isOpen);
        tryVerify(() => trash.activeFocus);
    }
    function test_controlAndADigitGoToThatRowOfTheSidebar_data() {
        return ["home", "clean", "purge", "installer", "uninstall", "analyze", "status", "settings"].map((id, place) => ({
                    "tag": id,
                    "key": Qt.Key_1 + place
                }));
    }
    function test_controlAndADigitGoToThatRowOfTheSidebar(data) {
        fixture.model.go(data.tag === "home" ? "clean" : "home");
        keyClick(data.key, Qt.ControlModifier);
        compare(fixture.model.screen, data.tag);
    }
    function test_controlAndQQuitsWhereNoRunIsGoing() {
        keyClick(Qt.Key_Q, Qt.ControlModifier);
        tryCompare(fixture, "quits", 1);
    }
    function test_controlAndQAsksWhileARunIsGoingAndHoldsTheOtherKeys() {
        fixture.setBulk("Cleaning", 10, 3, "/tmp/x");
        keyClick(Qt.Key_Q, Qt.ControlModifier);
        tryVerify(() => fixture.model.quit.isAsking);
        compare(fixture.quits, 0);
        keyClick(Qt.Key_2, Qt.ControlModifier);
        compare(fixture.model.screen, "home");
    }
    function test_controlAndWAsksTheProgramToCloseTheWindow() {
        closes.target = window;
        closes.clear();
        keyClick(Qt.Key_W, Qt.ControlModifier);
        compare(closes.count, 1);
        verify(window.visible);
    }
    function test_closingTheWindowIsLeftToTheProgram() {
        closes.target = window;
        closes.clear();
        window.close();
        compare(closes.count, 1);
        verify(window.visible);
    }
    function test_aToastIsShownOverAnOpenSheet() {
        fixture.setTrash(2, 1000);
        fixture.openSheet("emptytrash");
        fixture.addToast("info", "Above", "Undo");
        wait(900);
        mouseClick(button("Undo"));
        verify(fixture.calls.includes("toast: Undo"));
    }
    function test_theColumnsBackdropFollowsTheScreen() {
        const backdrop = walk(window.contentItem, item => item instanceof PageBackdrop);
        fixture.model.go("settings");
        compare(backdrop.symbol, "gearshape.fill");
        fixture.model.go("elsewhere");
        compare(backdrop.symbol, "sparkles");
    }

    name: "Root"
    when: windowShown

    SignalSpy {
        id: closes

        signalName: "closeWanted"
    }

    Component {
        id: fixtures

        Fixture {
        }
    }

    Component {
        id: windows

        MainWindow {
        }
    }
}
