import QtQuick
import QtTest
import Zolva.Kit

// Every screen in every theme and size of window, before and after its scan; a warning of the
// engine fails the test.
ScreenCase {
    id: tests

    readonly property list<string> screens: ["home", "clean", "purge", "installer", "uninstall",
        "analyze", "status", "settings"]

    /// What shows what was found, of the screens that find something.
    readonly property var rowTypes: ({
            home: "HomeCard",
            clean: "CleanRow",
            purge: "PurgeRow",
            installer: "InstallerRow",
            uninstall: "AppRow",
            analyze: "AnalyzeRow"
        })

    name: "AllScreensLoad"

    function combinations() {
        let rows = [];
        for (const screen of screens) {
            for (const theme of ["light", "dark"])
                rows.push({tag: screen + ", " + theme, screen: screen, theme: theme});
        }
        return rows;
    }

    function fill() {
        fixture.categories(6, 16);
        fixture.projects(5);
        fixture.installers(4);
        fixture.apps(5);
        fixture.analysis("/home/ada", 12);
    }

    function pageOf(screen) {
        const name = screen[0].toUpperCase() + screen.slice(1) + "Screen";
        return typed(name);
    }

    function test_aScreenOpensBeforeAnyScan_data() {
        return combinations();
    }
    function test_aScreenOpensBeforeAnyScan(row) {
        fixture.setTheme(row.theme);
        showWindow(row.screen);
        verify(pageOf(row.screen) !== null);
        compare(Theme.light, row.theme === "light");
    }

    function test_aScreenOpensWithWhatWasFound_data() {
        return combinations();
    }
    function test_aScreenOpensWithWhatWasFound(row) {
        fixture.setTheme(row.theme);
        fill();
        showWindow(row.screen);
        verify(pageOf(row.screen) !== null);
        verify(pageOf(row.screen).height > 0);
        if (row.screen in rowTypes)
            verify(allTyped(rowTypes[row.screen]).length > 0);
    }

    function test_aScreenFollowsItsScanFromTheWelcomeToTheRows_data() {
        return Object.keys(rowTypes).map(screen => ({tag: screen, screen: screen}));
    }
    function test_aScreenFollowsItsScanFromTheWelcomeToTheRows(row) {
        showWindow(row.screen);
        verify(typed("ScanWelcome").visible);
        compare(allTyped(rowTypes[row.screen]).length, 0);
        fixture.beginCleanScan();
        fixture.beginPurgeScan();
        fixture.beginInstallerScan();
        fixture.beginAppsScan();
        settle();
        fixture.finishCleanScan();
        fixture.finishPurgeScan();
        fixture.finishInstallerScan();
        fixture.finishAppsScan();
        settle();
        fill();
        settle();
        compare(typed("ScanWelcome"), null);
        verify(allTyped(rowTypes[row.screen]).length > 0);
    }

    function test_aScreenChangesItsThemeWhileItIsShown_data() {
        return screens.map(screen => ({tag: screen, screen: screen}));
    }
    function test_aScreenChangesItsThemeWhileItIsShown(row) {
        fill();
        showWindow(row.screen);
        fixture.setTheme("dark");
        settle();
        verify(!Theme.light);
        fixture.setTheme("light");
        settle();
        verify(Theme.light);
    }

    function test_aScreenFitsEveryWindow_data() {
        let rows = [];
        for (const screen of screens) {
            for (const size of [[980, 660], [1220, 812], [2560, 1440]])
                rows.push({tag: screen + " " + size[0], screen: screen, width: size[0], height: size[1]});
        }
        return rows;
    }
    function test_aScreenFitsEveryWindow(row) {
        fill();
        showWindow(row.screen);
        view.width = row.width;
        view.height = row.height;
        settle();
        const page = pageOf(row.screen);
        compare(page.width, row.width - 264);
        compare(page.height, row.height);
    }

    function test_theScreensCanBeGoneThroughOneAfterTheOther() {
        fill();
        showWindow("home");
        for (const screen of screens) {
            fixture.model.go(screen);
            settle();
            verify(pageOf(screen) !== null, screen);
        }
    }

    function test_aRunGoesOnOverEveryScreen() {
        fill();
        showWindow("home");
        for (const screen of screens) {
            fixture.setBulk("Cleaning", 9, 3, "~/Library/Caches/a");
            fixture.model.go(screen);
            settle();
            verify(fixture.model.bulk.present, screen);
            const isShown = ["clean", "purge", "installer", "uninstall"].includes(screen);
            compare(written("Cleaning") !== null, isShown, screen);
            fixture.clearBulk();
            settle();
            compare(written("Cleaning"), null, screen);
        }
    }

    function test_anUnknownScreenIsTheHomeScreen() {
        showWindow("nowhere");
        verify(pageOf("home") !== null);
    }
}
