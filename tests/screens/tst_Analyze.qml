import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Analyze

ScreenCase {
    id: tests

    name: "Analyze"

    Component {
        id: screens

        AnalyzeScreen {
        }
    }

    Component {
        id: waits

        AnalyzeWait {
        }
    }

    function open(): Item {
        return show(screens, {model: fixture.model});
    }

    function home(path: string): string {
        return fixture.homeFolder + path;
    }

    function entries(path: string): var {
        return [
            {path: path + "/big", size: 600000000, isDir: true},
            {path: path + "/film.mov", size: 300000000},
            {path: path + "/small", size: 100000000, isDir: true}];
    }

    function largeFiles(count: int): var {
        let files = [];
        for (let i = 1; i <= count; ++i)
            files.push({path: home("/Downloads/big/file " + i + ".iso"), size: (100 - i) * 1000000});
        return files;
    }

    function downloads(files: int) {
        fixture.setAnalysis({path: home("/Downloads"), entries: entries(home("/Downloads")), largeFiles: largeFiles(files), totalSize: 1000000000, totalFiles: 1234});
    }

    function rows(): var {
        return allTyped("AnalyzeRow").sort((a, b) => a.index - b.index);
    }

    function names(): var {
        return rows().map(row => row.name);
    }

    function fileRows(): var {
        return allTyped("LargeFileRow").sort((a, b) => a.index - b.index);
    }

    function crumbs(): var {
        return allTyped("AnalyzeCrumb").sort((a, b) => a.index - b.index);
    }

    function walks(): var {
        return fixture.calls.filter(call => call.startsWith("analyze "));
    }

    function test_beforeAnyWalkThePageOffersOne() {
        open();
        verify(written("Analyze"));
        verify(written("Analyze your storage"));
        verify(written("Zolva scans your whole Mac and shows where the space is going, largest first. This can take a moment."));
        compare(typed("ScanWelcome").icon, "chart.pie.fill");
        compare(typed("ScanWelcome").scanning, false);
        compare(walks(), []);
        click(spoken("Scan"));
        compare(walks(), ["analyze "]);
    }

    function test_thereIsNoRescanButton() {
        open();
        compare(spoken("Rescan"), null);
        downloads(1);
        settle();
        compare(spoken("Rescan"), null);
    }

    function test_theOrdersStandInTheHeadOfEveryState() {
        open();
        compare(spoken("Largest first").entries.slice(), ["Largest first", "Smallest first", "Name"]);
        fixture.model.analyze.scan();
        settle();
        verify(spoken("Largest first"));
        downloads(1);
        settle();
        verify(spoken("Largest first"));
    }

    function test_whileThePlaceIsWalkedItIsNamed() {
        open();
        fixture.model.analyze.scan();
        settle();
        const words = written("Scanning your Mac… this can take a moment.");
        compare(words.size, 13.5);
        verify(typed("Spinner").visible);
        compare(place(typed("Spinner")).x, 40);
        compare(typed("ScanWelcome"), null);
        compare(crumbs(), []);
    }

    function test_aFolderBelowTheHomeIsWalkedByItsShortName() {
        downloads(0);
        open();
        fixture.model.analyze.open(0);
        settle();
        verify(written("Scanning ~/Downloads/big… this can take a moment."));
        compare(rows(), []);
        compare(fileRows(), []);
    }

    function test_aFailureStandsInThePlaceOfTheWaitingLine() {
        const wait = show(waits, {waitText: "Scanning", failText: "It cannot be read.", width: 600, height: 40});
        const words = written("It cannot be read.");
        compare(words.size, 13.5);
        compare(written("Scanning"), null);
        const dots = all(wait, item => item instanceof Rectangle && item.width === 8 && item.height === 8 && item.visible);
        compare(dots.length, 1);
        compare(place(dots[0]).x, 40);
        verify(!typed("Spinner").visible);
    }

    function test_theWholeDiskShowsTheFreeSpace() {
        fixture.setAnalysis({path: "", entries: [{name: "Home", path: home(""), size: 5, isDir: true}], totalSize: 10});
        open();
        compare(crumbs().map(crumb => crumb.modelData), ["Computer"]);
        compare(written("0 bytes free").size, 13);
        compare(written("Computer").weight, Font.DemiBold);
        compare(spoken("Computer").Accessible.role, Accessible.StaticText);
    }

    function test_aFolderShowsItsTotals() {
        downloads(0);
        open();
        const totals = written("1.00 GB · 1234 files");
        compare(totals.size, 13);
        compare(endX(place(totals)), tests.width - 40);
    }

    function test_theCrumbsLeadBack() {
        downloads(0);
        open();
        compare(crumbs().map(crumb => crumb.modelData), ["Computer", "~", "Downloads"]);
        compare(place(crumbs()[0]).x, 40);
        const last = written("Downloads");
        compare([last.size, last.weight], [13, Font.DemiBold]);
        compare(spoken("Downloads").Accessible.role, Accessible.StaticText);
        compare(allTyped("LinkButton").map(link => link.title), ["Computer", "~"]);
        const chevrons = all(typed("AnalyzeHead"), item => item.name === "chevron.right" && item.visible);
        compare(chevrons.map(symbol => symbol.size), [9, 9]);
        click(spoken("~"));
        compare(walks().slice(-1), ["analyze " + home("")]);
        fixture.finishAnalysis({path: home(""), entries: []});
        settle();
        compare(crumbs().map(crumb => crumb.modelData), ["Computer", "~"]);
        click(spoken("Computer"));
        compare(walks().slice(-1), ["analyze "]);
    }

    function test_aLongWayWrapsAndLeavesRoomForTheTotals() {
        let path = home("");
        for (let i = 0; i < 30; ++i)
            path += "/a rather long name " + i;
        fixture.setAnalysis({path: path, entries: []});
        open();
        const edge = place(written("0 bytes · 0 files")).x;
        verify(crumbs().every(crumb => endX(place(crumb)) < edge));
        verify(place(crumbs()[31]).y > place(crumbs()[0]).y);
        verify(place(written("Empty.")).y > endY(place(crumbs()[31])));
    }

    function test_anEntryIsSizedAgainstTheWhole() {
        downloads(0);
        open();
        compare(names(), ["big", "film.mov", "small"]);
        const row = rows()[0];
        verify(written("60.0%", row));
        verify(written("600.0 MB", row));
        const track = all(row, item => item instanceof Rectangle && item.width === 120 && item.height === 5)[0];
        compare(track.color.toString(), Theme.palette.well.toString());
        compare(track.children[0].width, 72);
        compare(track.children[0].color.toString(), Theme.palette.accent.toString());
        compare(all(row, item => item.name === "folder.fill").length, 1);
        compare(all(rows()[1], item => item.name === "doc.fill").length, 1);
    }

    function test_theBarOfASmallShareIsNoLongerThanThat() {
        fixture.setAnalysis({path: home("/Downloads"), entries: [{path: home("/Downloads/small"), size: 10000000, isDir: true}], totalSize: 1000000000});
        open();
        const track = all(rows()[0], item => item instanceof Rectangle && item.width === 120 && item.height === 5)[0];
        fuzzyCompare(track.children[0].width, 1.2, 0.001);
    }

    function test_aFolderIsAButtonAndAFileIsNone() {
        downloads(0);
        open();
        const folder = spoken("big");
        compare(folder.Accessible.role, Accessible.Button);
        compare(folder.Accessible.description, "600.0 MB, 60.0%");
        compare(spoken("film.mov").Accessible.role, Accessible.ListItem);
        compare(spoken("film.mov").Accessible.description, "300.0 MB, 30.0%");
        click(rows()[1]);
        compare(walks().length, 1);
        click(rows()[2]);
        compare(walks().slice(-1), ["analyze " + home("/Downloads/small")]);
    }

    function test_theSortMenuChangesTheOrder() {
        downloads(0);
        open();
        spoken("Largest first").chosen(1);
        settle();
        compare(names(), ["small", "film.mov", "big"]);
        spoken("Smallest first").chosen(2);
        settle();
        compare(names(), ["big", "film.mov", "small"]);
        verify(spoken("Name"));
    }

    function test_withoutAnEntryTheListIsEmpty() {
        fixture.setAnalysis({path: home("/nothing"), entries: []});
        open();
        compare(written("Empty.").size, 13);
        verify(!typed("RowsCard").visible);
        verify(written("No large files here."));
        compare(fileRows(), []);
    }

    function test_theRowsStandOnOneCard() {
        downloads(0);
        open();
        const card = place(typed("RowsCard"));
        compare([card.x, card.width], [40, tests.width - 80]);
        compare(card.y, place(rows()[0]).y);
        compare(endY(card), endY(place(rows()[2])));
    }

    function test_ofSevenLargeFilesSixAreShown() {
        downloads(7);
        open();
        compare(fileRows().map(row => row.name), [1, 2, 3, 4, 5, 6].map(i => "file " + i + ".iso"));
    }

    function test_ofSixLargeFilesSixAreShown() {
        downloads(6);
        open();
        compare(fileRows().length, 6);
    }

    function test_theLargestFilesHaveTheirHead() {
        downloads(1);
        open();
        compare(written("Largest files").size, 12.5);
        const note = written("These move to the Trash and can be put back.");
        compare(note.size, 12.5);
        compare(note.color.toString(), Theme.palette.label3.toString());
        verify(place(written("Largest files")).y > endY(place(rows()[2])));
        const row = fileRows()[0];
        compare(written("file 1.iso", row).size, 13);
        const path = written(home("/Downloads/big/file 1.iso"), row);
        compare(path.elide, Text.ElideMiddle);
        compare(path.color.toString(), Theme.palette.label3.toString());
        verify(written("99.0 MB", row));
        compare(written("Move to Trash", row).font.pixelSize, Face.text(12.5).pixelSize);
        compare(typed("PillButton", row).radius, 9);
    }

    function test_aLargeFileMovesAtOnceAndIsMarked() {
        downloads(2);
        showWindow("analyze");
        click(spoken("Move file 1.iso to the Trash, 99.0 MB"));
        verify(!fixture.model.confirm.isOpen);
        verify(fixture.calls.includes("move " + home("/Downloads/big/file 1.iso")));
        const row = fileRows()[0];
        verify(written("In the Trash", row));
        compare(written("Move to Trash", row), null);
        const marked = spoken("file 1.iso is in the Trash");
        compare(marked.Accessible.description, "You can put it back from the Trash");
        compare(marked.Accessible.role, Accessible.StaticText);
        compare(spoken("Move file 1.iso to the Trash, 99.0 MB"), null);
        verify(written("Moved 99.0 MB to the Trash"));
        mouseClick(row, row.width - 60, row.height / 2);
        settle();
        compare(fixture.calls.filter(call => call.startsWith("move ")).length, 1);
    }

    function test_aLargeFileComesBackByTheToast() {
        downloads(2);
        showWindow("analyze");
        click(spoken("Move file 2.iso to the Trash, 98.0 MB"));
        click(spoken("Undo"));
        verify(fixture.calls.includes("back " + home("/Downloads/big/file 2.iso")));
        verify(spoken("Move file 2.iso to the Trash, 98.0 MB"));
    }

    function test_whatIsInTheTrashStaysMarkedAfterAnotherScreen() {
        downloads(2);
        showWindow("analyze");
        click(spoken("Move file 1.iso to the Trash, 99.0 MB"));
        fixture.model.go("home");
        settle();
        fixture.model.go("analyze");
        settle();
        compare(names(), ["big", "film.mov", "small"]);
        verify(spoken("file 1.iso is in the Trash"));
        compare(walks().length, 1);
    }

    function test_aRunUnderWayDoesNotHoldThePage() {
        downloads(1);
        showWindow("analyze");
        fixture.setBulk("Cleaning", 4, 1, "~/a");
        settle();
        compare(typed("CollapsingPage").opacity, 1);
        click(rows()[0]);
        compare(walks().length, 2);
    }

    function test_theWholePageIsReachedByTheTabKey() {
        downloads(2);
        open();
        let reached = [];
        for (let i = 0; i < 5; ++i) {
            press(Qt.Key_Tab);
            reached.push(focusedName());
        }
        compare(reached, ["Largest first", "Computer", "~", "big", "Move file 1.iso to the Trash, 99.0 MB"]);
    }

    function test_theArrowsGoThroughTheRowsAndReturnOpens() {
        downloads(0);
        showWindow("analyze");
        spoken("big").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Down);
        compare(focusedName(), "film.mov");
        press(Qt.Key_Return);
        compare(walks().length, 1);
        press(Qt.Key_Down);
        press(Qt.Key_Down);
        compare(focusedName(), "small");
        press(Qt.Key_Up);
        press(Qt.Key_End);
        compare(focusedName(), "small");
        press(Qt.Key_Return);
        compare(walks().slice(-1), ["analyze " + home("/Downloads/small")]);
    }

    function test_theKeyboardGoesOnInTheNextPlaceAndWhereItCameFrom() {
        downloads(0);
        showWindow("analyze");
        spoken("big").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_End);
        press(Qt.Key_Right);
        fixture.finishAnalysis({path: home("/Downloads/small"), entries: [{path: home("/Downloads/small/a"), size: 5}]});
        settle();
        compare(focusedName(), "a");
        verify(typed("AnalyzeRow").activeFocus);
        press(Qt.Key_Left);
        compare(walks().slice(-1), ["analyze " + home("/Downloads")]);
        fixture.finishAnalysis({path: home("/Downloads"), entries: entries(home("/Downloads"))});
        settle();
        compare(focusedName(), "small");
        verify(focused().visualFocus);
    }

    function test_inAnotherOrderThePageBeginsWhereItCameFromToo() {
        downloads(0);
        showWindow("analyze");
        spoken("big").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_End);
        press(Qt.Key_Right);
        fixture.finishAnalysis({path: home("/Downloads/small"), entries: [{path: home("/Downloads/small/a"), size: 5}]});
        settle();
        press(Qt.Key_Left);
        fixture.finishAnalysis({path: home("/Downloads"), entries: entries(home("/Downloads"))});
        settle();
        compare(focusedName(), "small");
        fixture.model.analyze.sort.choose(1);
        settle();
        compare(names(), ["small", "film.mov", "big"]);
        fixture.model.go("home");
        fixture.model.go("analyze");
        settle();
        spoken("~").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Tab);
        compare(focusedName(), "small");
    }

    function test_whoeverUsesThePointerGetsNoRing() {
        downloads(0);
        showWindow("analyze");
        click(rows()[0]);
        fixture.finishAnalysis({path: home("/Downloads/big"), entries: entries(home("/Downloads/big"))});
        settle();
        compare(all(view, item => item.toString().startsWith("FocusRing_") && item.visible), []);
    }

    function test_theMoveByTheKeysKeepsTheKeyboardOnTheRow() {
        downloads(2);
        showWindow("analyze");
        spoken("Move file 1.iso to the Trash, 99.0 MB").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Space);
        compare(focusedName(), "file 1.iso is in the Trash");
        press(Qt.Key_Return);
        press(Qt.Key_Down);
        compare(focusedName(), "Move file 2.iso to the Trash, 98.0 MB");
        compare(fixture.calls.filter(call => call.startsWith("move ")).length, 1);
    }

    function test_anEntryIsShownInTheFileManagerByItsMenu() {
        downloads(0);
        showWindow("analyze");
        mouseClick(rows()[1], 300, 20, Qt.RightButton);
        settle();
        click(spoken("Show in Finder", tests.Window.window.contentItem));
        compare(fixture.calls.filter(call => call.startsWith("revealed ")), ["revealed " + home("/Downloads/film.mov")]);
        compare(walks().length, 1);
    }

    function test_theMenuOfAnEntryGoesWithIt() {
        downloads(0);
        open();
        const within = tests.Window.window.contentItem;
        mouseClick(rows()[1], 300, 20, Qt.RightButton);
        tryVerify(() => spoken("Show in Finder", within) !== null);
        downloads(0);
        tryVerify(() => spoken("Show in Finder", within) === null);
    }

    function test_theWholePathOfALargeFileIsItsTip() {
        const path = home("/" + "very-long-name/".repeat(30) + "film.mov");
        fixture.setAnalysis({path: home(""), largeFiles: [{path: path, size: 1000000}], totalSize: 1000000000});
        open();
        const tip = Array.from(fileRows()[0].data).find(each => each instanceof HintTip);
        compare(tip.text, path);
        verify(!tip.visible);
        mouseMove(fileRows()[0], 100, 40);
        tryVerify(() => tip.visible);
    }

    function test_theMenusOpenByTheKeysToo() {
        downloads(2);
        showWindow("analyze");
        spoken("big").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Menu);
        press(Qt.Key_Down);
        press(Qt.Key_Return);
        compare(fixture.calls.filter(call => call.startsWith("revealed ")), ["revealed " + home("/Downloads/big")]);
        compare(focusedName(), "big");
        spoken("Move file 2.iso to the Trash, 98.0 MB").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_F10, Qt.ShiftModifier);
        press(Qt.Key_Down);
        press(Qt.Key_Down);
        press(Qt.Key_Return);
        compare(fixture.calls.filter(call => call.startsWith("move ")), ["move " + home("/Downloads/big/file 2.iso")]);
    }

    function test_aFileInTheTrashCannotBeMovedByItsMenu() {
        downloads(1);
        showWindow("analyze");
        click(spoken("Move file 1.iso to the Trash, 99.0 MB"));
        mouseClick(fileRows()[0], 100, 20, Qt.RightButton);
        settle();
        const items = allSpoken("Move to Trash", tests.Window.window.contentItem).filter(item => item.Accessible.role === Accessible.MenuItem);
        compare(items.length, 1);
        verify(!items[0].enabled);
    }

    function test_ofAHundredThousandEntriesOnlyThoseInSightAreMade() {
        fixture.analysis(home("/many"), 100000);
        open();
        const made = () => all(typed("CollapsingPage"), item => item.toString().startsWith("AnalyzeRow_")).length;
        verify(made() < 60);
        const list = typed("CollapsingPage").listView;
        compare(list.count, 100000);
        list.positionViewAtEnd();
        settle();
        verify(rows().some(row => row.name === "folder 100000"));
        verify(made() < 60);
        fixture.model.analyze.sort.choose(1);
        settle();
        list.positionViewAtBeginning();
        settle();
        compare(rows()[0].name, "folder 100000");
        verify(made() < 60);
    }
}
