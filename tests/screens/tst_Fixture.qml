pragma ComponentBehavior: Bound
import QtQuick
import QtTest
import Zolva.Model
import Zolva.Test

TestCase {
    id: tests

    name: "Fixture"

    Component {
        id: fixtures

        Fixture {}
    }

    Component {
        id: sheets

        Column {
            id: sheet

            required property ScreenModel model
            readonly property int count: labels.count

            function label(place: int): string {
                return (labels.itemAt(place) as Text).text;
            }

            Repeater {
                id: labels

                model: sheet.model.confirm.rows
                delegate: Text {
                    required property confirmRow modelData

                    text: modelData.label + " " + modelData.size
                }
            }
        }
    }

    Component {
        id: lists

        ListView {
            id: list

            required property ScreenModel screen

            height: 1000
            width: 100
            model: screen.clean.rows
            delegate: Column {
                id: row

                required property string rowId
                required property string name
                required property bool ticked
                required property bool open
                required property int trailingKind
                required property list<pathLine> lines
                readonly property int lineCount: paths.count

                function line(place: int): string {
                    return (paths.itemAt(place) as Text).text;
                }

                Text {
                    text: row.name + (row.trailingKind === CleanRows.Size ? " sized" : "")
                }
                Repeater {
                    id: paths

                    model: row.lines
                    delegate: Text {
                        required property pathLine modelData

                        text: modelData.text + " " + modelData.trailing
                    }
                }
            }
        }
    }

    function make(): Fixture {
        return createTemporaryObject(fixtures, tests);
    }

    function test_aModelBeginsOnTheHomeScreenWithNothingScanned() {
        const fixture = make();
        compare(fixture.model.screen, "home");
        verify(fixture.model.home.isWelcome);
        compare(fixture.model.clean.page, CleanModel.Welcome);
        compare(fixture.calls, []);
    }

    function test_aScanIsUnderWayUntilItIsFinished() {
        const fixture = make();
        fixture.beginCleanScan();
        compare(fixture.model.clean.page, CleanModel.Scanning);
        fixture.finishCleanScan();
        compare(fixture.model.clean.page, CleanModel.List);
        verify(fixture.model.clean.isEmpty);
        compare(fixture.calls, ["clean scan"]);
    }

    function test_aScanThatIsNotUnderWayCannotBeFinished() {
        const fixture = make();
        let thrown = "";
        try {
            fixture.finishCleanScan();
        } catch (error) {
            thrown = error.message;
        }
        compare(thrown, "a Clean scan is not under way");
    }

    function test_rowsOfTheTestReachTheDelegatesWithTheirLines() {
        const fixture = make();
        fixture.setCategories([{
            name: "Logs",
            paths: [{p: "~/Library/Logs/a", b: 2000000}, {p: "~/Library/Logs/b", b: 1000, prot: true}]
        }]);
        fixture.model.clean.toggleOpen("Logs");
        const list = createTemporaryObject(lists, tests, {screen: fixture.model});
        list.forceLayout();
        compare(list.count, 1);
        compare(list.itemAtIndex(0).name, "Logs");
        compare(list.itemAtIndex(0).trailingKind, CleanRows.Size);
        compare(list.itemAtIndex(0).lineCount, 2);
        compare(list.itemAtIndex(0).line(0), "~/Library/Logs/a 2.0 MB");
        compare(list.itemAtIndex(0).line(1), "~/Library/Logs/b Protected");
        fixture.model.clean.pick("Logs", false);
        verify(list.itemAtIndex(0).ticked);
    }

    function test_theSheetHasItsRows() {
        const fixture = make();
        fixture.categories(3, 5);
        fixture.pickAll("clean");
        fixture.model.clean.remove();
        verify(fixture.model.confirm.isOpen);
        const sheet = createTemporaryObject(sheets, tests, {model: fixture.model});
        compare(sheet.count, 14);
        compare(sheet.label(0), "~/Library/Caches/category1/path1 3.0 MB");
        compare(fixture.model.confirm.more, "and 1 more");
    }

    function test_aConfirmedRunRemovesFromTheDiskInMemory() {
        const fixture = make();
        fixture.categories(1, 2);
        fixture.pickAll("clean");
        fixture.model.clean.remove();
        fixture.model.confirm.confirm();
        tryCompare(fixture.model.bulk, "present", false);
        tryVerify(() => fixture.calls.includes("trash ~/Library/Caches/category1/path2"));
        tryVerify(() => fixture.model.toasts.rowCount() === 1);
    }

    function test_everyListIsFilledAndPicked() {
        const fixture = make();
        fixture.projects(2);
        fixture.installers(2);
        fixture.apps(2);
        const wanted = {
            purge: "Move 3.0 MB of build artifacts to the Trash?",
            installer: "Move 2 installers to the Trash?",
            uninstall: "Uninstall 2 apps?"
        };
        for (const list in wanted) {
            fixture.pickAll(list);
            fixture.openSheet(list);
            compare(fixture.model.confirm.title, wanted[list]);
            compare(fixture.model.confirm.rows.length, 2);
        }
    }

    function test_timeStandsUntilItIsMoved() {
        const fixture = make();
        fixture.addToast("success", "Done", "Again");
        compare(fixture.model.toasts.rowCount(), 1);
        const id = fixture.addToast("info", "Act", "Go");
        fixture.model.runToast(id);
        compare(fixture.calls, ["toast: Go"]);
        fixture.advance(9999);
        compare(fixture.model.toasts.rowCount(), 2);
        fixture.advance(1);
        compare(fixture.model.toasts.rowCount(), 0);
    }

    function test_theTrashHoldsWhatItIsGiven() {
        const fixture = make();
        verify(!fixture.model.sidebar.hasTrash);
        fixture.setTrash(3, 5e9);
        verify(fixture.model.sidebar.hasTrash);
        compare(fixture.model.sidebar.trashText, "5.00 GB");
        fixture.setTrash(3, 5e9, true);
        verify(!fixture.model.sidebar.hasTrash);
    }

    function test_themeAndDesktopChooseTheColours() {
        const fixture = make();
        verify(fixture.model.lightTheme);
        fixture.setDark(true);
        verify(!fixture.model.lightTheme);
        fixture.setTheme("light");
        verify(fixture.model.lightTheme);
    }

    function test_theIntroComesUpAndGoesForGood() {
        const fixture = make();
        fixture.setBlocked(["Mail", "Messages", "Safari"]);
        verify(!fixture.model.access.introShown);
        compare(fixture.model.access.noticeTitle, "Mail, Messages and Safari not searched");
        fixture.showIntro();
        verify(fixture.model.access.introShown);
        fixture.model.access.dismissIntro(true);
        verify(!fixture.model.access.introShown);
        compare(fixture.calls, ["installer scan", "access settings opened"]);
    }

    function test_aRunUnderWayIsAskedAboutBeforeTheEnd() {
        const fixture = make();
        fixture.setBulk("Removing caches", 4, 1, "~/a");
        compare(fixture.model.bulk.countText, "1 of 4");
        fixture.model.quit.ask();
        verify(fixture.model.quit.isAsking);
        compare(fixture.quits, 0);
        fixture.model.quit.stopAndQuit();
        fixture.clearBulk();
        fixture.advance(120);
        compare(fixture.quits, 1);
    }
}
