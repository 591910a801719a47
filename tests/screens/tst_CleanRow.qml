import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Clean

ScreenCase {
    id: tests

    // Of 59 and of 58 characters.
    readonly property string longPath: "~/Library/Caches/com.example/" + "0123456789012345678901234567" + "/z"
    readonly property string wholePath: "~/Library/Caches/com.example/" + "012345678901234567890123456" + "/z"

    name: "CleanRow"

    Component {
        id: screens

        CleanScreen {
        }
    }

    function open(categories): Item {
        fixture.setCategories(categories);
        return show(screens, {model: fixture.model});
    }

    function openMany(count: int, paths): Item {
        fixture.categories(count, paths ?? 1);
        return show(screens, {model: fixture.model});
    }

    function row(name: string): Item {
        return allTyped("CleanRow").find(row => row.name === name) ?? null;
    }

    function head(name: string): Item {
        return typed("TickHead", row(name));
    }

    function opener(name: string): Item {
        return allSpoken(name, row(name)).find(item => item !== head(name)) ?? null;
    }

    function ticked(): var {
        return allTyped("CleanRow").filter(row => row.ticked).map(row => row.name).sort();
    }

    function paths(count: int): var {
        let paths = [];
        for (let i = 0; i < count; ++i)
            paths.push({p: "~/cache/" + i, b: 1000000 * (count - i)});
        return paths;
    }

    function lines(name: string): var {
        return allTyped("CleanPath", row(name));
    }

    readonly property var mixed: [
        {name: "Mixed", desc: "Some stay", paths: [{p: "~/m/go", b: 3000000}, {p: "~/m/stay", b: 2000000, prot: true}]},
        {name: "Kept", desc: "All stay", paths: [{p: "~/k/a", b: 1000000, prot: true}, {p: "~/k/b", b: 500000, prot: true}]},
        {name: "Owned", desc: "Of the system", sudo: true, paths: [{p: "/var/log/a", b: 400000}]}
    ]

    function test_aRowShowsWhatCanGo() {
        open(mixed);
        verify(written("Mixed", row("Mixed")));
        verify(written("Some stay", row("Mixed")));
        const size = written("3.0 MB", row("Mixed"));
        compare([size.size, size.weight], [14, Font.DemiBold]);
        compare([written("Mixed", row("Mixed")).size, written("Mixed", row("Mixed")).weight], [14, Font.Medium]);
        compare(written("Some stay", row("Mixed")).size, 12.5);
        compare(written("Some stay", row("Mixed")).color.toString(), Theme.palette.label2.toString());
    }

    function test_aRowOfWhichNothingCanGoSaysSoAndKeepsItsBoxOff() {
        open(mixed);
        compare(written("All 1.5 MB protected", row("Kept")).size, 12);
        const box = typed("CheckBox", row("Kept"));
        verify(box.dimmed);
        verify(!box.on);
        click(head("Kept"));
        fixture.pickAll("clean");
        settle();
        verify(!typed("CheckBox", row("Kept")).on);
        verify(typed("CheckBox", row("Mixed")).on);
    }

    function test_whatNeedsAPasswordSaysThatBeforeAllElse() {
        open(mixed.concat([{name: "Both", sudo: true, paths: [{p: "~/x", b: 1, prot: true}]}]));
        compare(written("Needs password", row("Owned")).size, 12.5);
        verify(written("Needs password", row("Both")));
    }

    function test_excludingTheLastPathOfARowTakesItsTick() {
        open([{name: "A", paths: [{p: "~/a/b", b: 1000000}]}]);
        click(head("A"));
        verify(typed("CheckBox", row("A")).on);
        fixture.exclude("~/a/b");
        settle();
        verify(!typed("CheckBox", row("A")).on);
        verify(written("All 1.0 MB protected", row("A")));
        verify(!head("A").enabled);
    }

    function test_aClickTicksAndTicksOff() {
        openMany(2);
        click(head("Category 1"));
        compare(ticked(), ["Category 1"]);
        click(head("Category 1"));
        compare(ticked(), []);
    }

    function test_theChevronOpensAndClosesWithoutTicking() {
        open(mixed);
        click(opener("Mixed"));
        verify(row("Mixed").open);
        verify(typed("Chevron", row("Mixed")).open);
        compare(ticked(), []);
        click(opener("Mixed"));
        verify(!row("Mixed").open);
        compare(lines("Mixed").length, 0);
    }

    function test_oneRowIsOpenAtMost() {
        open(mixed);
        click(opener("Mixed"));
        click(opener("Kept"));
        verify(!row("Mixed").open);
        verify(row("Kept").open);
        compare(lines("Mixed").length, 0);
        compare(lines("Kept").length, 2);
    }

    function test_aRowThatOpensStaysInItsPlaceWhileOneAboveItCloses() {
        openMany(40, 15);
        click(opener("Category 2"));
        const list = typed("CollapsingPage").listView;
        list.contentY = row("Category 10").y - 150;
        settle();
        click(opener("Category 10"));
        verify(row("Category 10").open);
        fuzzyCompare(place(row("Category 10")).y, 150, 1);
        click(opener("Category 10"));
        fuzzyCompare(place(row("Category 10")).y, 150, 1);
    }

    function test_aRowThatOpensLowMovesOnlyAsFarAsItsPathsNeed() {
        openMany(40, 15);
        const list = typed("CollapsingPage").listView;
        list.contentY = row("Category 8").y - 500;
        settle();
        click(opener("Category 8"));
        fuzzyCompare(endY(place(row("Category 8"))), place(typed("ListBar")).y, 1);
    }

    function test_anOpenRowDoesNotHoldThePageAtItsTop() {
        openMany(60, 15);
        const list = typed("CollapsingPage").listView;
        const top = place(row("Category 1")).y;
        click(opener("Category 2"));
        for (let i = 0; i < 3; ++i) {
            const first = allTyped("CleanRow").find(row => place(row).y > 52).index;
            press(Qt.Key_PageDown);
            verify(allTyped("CleanRow").find(row => place(row).y > 52).index > first);
        }
        for (let i = 0; i < 6; ++i)
            press(Qt.Key_PageUp);
        compare(list.contentY, list.originY);
        compare(place(row("Category 1")).y, top);
    }

    function test_theLastRowInSightBringsItsPathsIntoSight() {
        openMany(10, 5);
        const list = typed("CollapsingPage").listView;
        const last = allTyped("CleanRow").filter(row => endY(place(row)) < list.height).pop();
        click(opener(last.name));
        verify(last.open);
        verify(endY(place(last)) <= list.height + 0.5);
        verify(list.contentY > list.originY);
        click(opener(last.name));
        verify(place(last).y >= 0 && endY(place(last)) <= list.height + 0.5);
    }

    function test_anOpenRowIsAsTallAsItsPaths() {
        open(mixed);
        const closed = row("Mixed").height;
        const next = place(row("Kept")).y;
        click(opener("Mixed"));
        verify(row("Mixed").height > closed + 40);
        compare(place(row("Kept")).y - next, row("Mixed").height - closed);
        verify(endY(place(lines("Mixed")[1])) < endY(place(row("Mixed"))));
        click(opener("Mixed"));
        compare(row("Mixed").height, closed);
    }

    function test_anOpenRowTellsWhatItGivesAndWhatIsProtected() {
        open(mixed.concat([{name: "Free", paths: [{p: "~/f", b: 7000000}]}]));
        click(opener("Mixed"));
        verify(written("3.0 MB removable, 2.0 MB protected", row("Mixed")));
        click(opener("Free"));
        verify(written("7.0 MB removable", row("Free")));
    }

    function test_aPathSaysItsSizeOrWhyItStays() {
        open([{name: "A", paths: [{p: "~/a/1", b: 3000000}, {p: "~/a/2", b: 2000000, prot: true}, {p: "~/a/3", b: 1000000, sudo: true}, {p: "~/a/4",
                        b: 500000}]}]);
        fixture.exclude("~/a/4");
        click(opener("A"));
        compare(lines("A").map(line => line.Accessible.description), ["3.0 MB", "Protected", "Needs password", "Protected"]);
        const size = written("3.0 MB", lines("A")[0]);
        compare(size.size, 12.5);
        compare(endX(place(size)), endX(place(lines("A")[0])));
        const path = written("~/a/1", lines("A")[0]);
        compare([path.size, path.mono], [12.5, true]);
    }

    function test_fifteenPathsAreAllShown() {
        open([{name: "A", paths: paths(15)}]);
        click(opener("A"));
        compare(lines("A").length, 15);
        compare(all(row("A"), item => item.visible && item instanceof Text && item.text.startsWith("+ ")).length, 0);
    }

    function test_ofSixteenPathsOneIsCounted() {
        open([{name: "A", paths: paths(16)}]);
        click(opener("A"));
        compare(lines("A").length, 15);
        compare(written("+ 1 smaller path, also included", row("A")).size, 12);
    }

    function test_ofSeventeenPathsTwoAreCounted() {
        open([{name: "A", paths: paths(17)}]);
        click(opener("A"));
        verify(written("+ 2 smaller paths, also included", row("A")));
    }

    function test_aLongPathIsShortenedAndSpokenWhole() {
        compare([longPath.length, wholePath.length], [59, 58]);
        open([{name: "A", paths: [{p: longPath, b: 2000}, {p: wholePath, b: 1000}]}]);
        click(opener("A"));
        const shortened = longPath.slice(0, 24) + "…" + longPath.slice(-31);
        verify(written(shortened, lines("A")[0]));
        compare(shortened.length, 56);
        verify(written(wholePath, lines("A")[1]));
        compare(lines("A")[0].Accessible.name, longPath);
    }

    function test_aLongNameIsCutAtItsEndAndLeavesTheSizeInSight() {
        const name = "N".repeat(300);
        open([{name: name, desc: "d ".repeat(400), paths: [{p: "~/a", b: 3000000}]}]);
        view.width = 716;
        settle();
        const title = written(name);
        verify(title.truncated);
        compare(title.elide, Text.ElideRight);
        compare(written("d ".repeat(400)).lineCount, 1);
        verify(endX(place(title)) < place(written("3.0 MB", row(name))).x);
        compare(row(name).height, 62);
    }

    function test_theSeparatorIsMissingUnderTheLastRowAlone() {
        openMany(3);
        const shown = name => typed("Separator", row(name)).visible;
        compare([shown("Category 1"), shown("Category 2"), shown("Category 3")], [true, true, false]);
        fixture.model.clean.sort.choose(1);
        settle();
        compare([shown("Category 1"), shown("Category 2"), shown("Category 3")], [true, true, false]);
    }

    function test_theBoxStandsAtTheLeadingSideAndTheChevronAtTheOther() {
        openMany(1);
        const box = place(typed("CheckBox", row("Category 1")));
        compare([box.width, box.height], [19, 19]);
        verify(box.x > 40 && box.x < place(written("Category 1")).x);
        compare(endX(place(opener("Category 1"))), tests.width - 40);
        verify(endX(place(written("1.0 MB", head("Category 1")))) <= place(opener("Category 1")).x);
    }

    function test_aRowIsOneButtonThatSaysItsState() {
        open(mixed);
        compare(head("Mixed").Accessible.role, Accessible.Button);
        compare(head("Mixed").Accessible.description, "Not selected. Include this category in the next clean");
        click(head("Mixed"));
        compare(head("Mixed").Accessible.description, "Selected, 3.0 MB will be deleted. Include this category in the next clean");
        verify(head("Mixed").Accessible.checked);
        compare(head("Kept").Accessible.description, "Protected, cannot be selected. Include this category in the next clean");
        verify(!head("Kept").Accessible.checkable);
    }

    function test_theChevronSaysWhatItWillDo() {
        open(mixed);
        compare(opener("Mixed").Accessible.role, Accessible.Button);
        compare(opener("Mixed").Accessible.description, "Shows the list of paths");
        click(opener("Mixed"));
        compare(opener("Mixed").Accessible.description, "Hides the list of paths");
    }

    function test_aScreenReaderTicksOneRow() {
        openMany(3);
        head("Category 2").Accessible.pressAction();
        settle();
        compare(ticked(), ["Category 2"]);
    }

    function test_shiftTicksAllBetweenTwoRows() {
        openMany(6);
        click(head("Category 2"));
        click(head("Category 3"));
        click(head("Category 3"));
        click(head("Category 2"));
        click(head("Category 2"));
        click(head("Category 5"), Qt.ShiftModifier);
        compare(ticked(), ["Category 2", "Category 3", "Category 4", "Category 5"]);
    }

    function test_shiftTicksUpwardsToo() {
        openMany(6);
        click(head("Category 5"));
        click(head("Category 3"), Qt.ShiftModifier);
        compare(ticked(), ["Category 3", "Category 4", "Category 5"]);
    }

    function test_shiftWithoutAnAnchorFlipsOneRowAndSetsIt() {
        openMany(6);
        click(head("Category 3"), Qt.ShiftModifier);
        compare(ticked(), ["Category 3"]);
        click(head("Category 4"), Qt.ShiftModifier);
        compare(ticked(), ["Category 3", "Category 4"]);
    }

    function test_shiftWithAnAnchorThatHasLeftTheListFlipsOneRow() {
        openMany(6);
        click(head("Category 6"));
        fixture.categories(5, 1);
        settle();
        click(head("Category 2"), Qt.ShiftModifier);
        compare(ticked(), ["Category 2"]);
    }

    function test_theArrowsGoFromRowToRow() {
        openMany(4);
        row("Category 1").takeFocus();
        press(Qt.Key_Down);
        verify(focused() === head("Category 2"), focusedName());
        verify(focused().visualFocus);
        press(Qt.Key_Down);
        press(Qt.Key_Up);
        verify(focused() === head("Category 2"), focusedName());
        press(Qt.Key_End);
        verify(focused() === head("Category 4"), focusedName());
        press(Qt.Key_Down);
        verify(focused() === head("Category 4"), focusedName());
        press(Qt.Key_Home);
        verify(focused() === head("Category 1"), focusedName());
    }

    function test_theTabKeyComesBackToTheRowItLeft() {
        openMany(4);
        row("Category 1").takeFocus();
        press(Qt.Key_Down);
        press(Qt.Key_Down);
        press(Qt.Key_Tab);
        verify(focused() === opener("Category 3"), focusedName());
        press(Qt.Key_Tab);
        compare(focusedName(), "Select all");
        press(Qt.Key_Backtab);
        press(Qt.Key_Backtab);
        verify(focused() === head("Category 3"), focusedName());
    }

    function test_spaceTicksTheRowOfTheKeyboard() {
        openMany(4);
        row("Category 1").takeFocus();
        press(Qt.Key_Down);
        press(Qt.Key_Space);
        compare(ticked(), ["Category 2"]);
        press(Qt.Key_Return);
        compare(ticked(), []);
    }

    function test_shiftAndSpaceTickARange() {
        openMany(6);
        row("Category 1").takeFocus();
        press(Qt.Key_Down);
        press(Qt.Key_Space);
        press(Qt.Key_Down);
        press(Qt.Key_Down);
        press(Qt.Key_Space, Qt.ShiftModifier);
        compare(ticked(), ["Category 2", "Category 3", "Category 4"]);
    }

    function test_theArrowsAcrossOpenAndClose() {
        openMany(3, 2);
        row("Category 1").takeFocus();
        press(Qt.Key_Down);
        press(Qt.Key_Right);
        verify(row("Category 2").open);
        press(Qt.Key_Right);
        verify(row("Category 2").open);
        press(Qt.Key_Left);
        verify(!row("Category 2").open);
        verify(focused() === head("Category 2"), focusedName());
    }

    function test_returnOnTheChevronOpensAndCloses() {
        openMany(2);
        row("Category 1").takeFocus();
        press(Qt.Key_Tab);
        verify(focused() === opener("Category 1"), focusedName());
        press(Qt.Key_Return);
        verify(row("Category 1").open);
        press(Qt.Key_Space);
        verify(!row("Category 1").open);
    }

    function test_theKeyboardComesToARowThatCannotBeTicked() {
        open(mixed);
        row("Mixed").takeFocus();
        press(Qt.Key_Down);
        verify(focused() === opener("Kept"), focusedName());
        press(Qt.Key_Return);
        verify(row("Kept").open);
        press(Qt.Key_Down);
        verify(focused() === head("Owned"), focusedName());
        press(Qt.Key_Up);
        verify(focused() === opener("Kept"), focusedName());
    }

    function test_aRowThatCannotBeTickedSaysSoToTheKeyboard() {
        open(mixed);
        row("Mixed").takeFocus();
        press(Qt.Key_Down);
        compare(focusedName(), "Kept");
        verify(focused().visualFocus);
        compare(focused().Accessible.description, "Protected, cannot be selected. Shows the list of paths");
        press(Qt.Key_Space);
        compare(focused().Accessible.description, "Protected, cannot be selected. Hides the list of paths");
        compare(ticked(), []);
        compare(opener("Mixed").Accessible.description, "Shows the list of paths");
    }

    function test_theRowOfTheKeyboardIsScrolledIntoSight() {
        openMany(200);
        row("Category 1").takeFocus();
        for (let i = 0; i < 40; ++i)
            keyClick(Qt.Key_Down);
        settle();
        verify(focused() === head("Category 41"), focusedName());
        const at = place(focused());
        verify(at.y >= 52 && endY(at) <= place(typed("ListBar")).y);
        press(Qt.Key_End);
        verify(focused() === head("Category 200"), focusedName());
        verify(endY(place(focused())) <= place(typed("ListBar")).y);
        press(Qt.Key_Home);
        verify(focused() === head("Category 1"), focusedName());
        verify(place(focused()).y >= 52);
    }

    function test_anotherOrderLeavesTheKeyboardAmongTheRows() {
        open([{name: "B", paths: [{p: "~/b", b: 3000000}]}, {name: "A", paths: [{p: "~/a", b: 1000000}]}]);
        row("B").takeFocus();
        fixture.model.clean.sort.choose(1);
        settle();
        verify(typed("CollapsingPage").activeFocus);
        press(Qt.Key_End);
        verify(focused() === head("B"), focusedName());
        press(Qt.Key_Up);
        verify(focused() === head("A"), focusedName());
    }

    function test_theKeyboardGoesOnWhereThePointerPressed() {
        openMany(5);
        click(head("Category 3"));
        row("Category 1").ListView.view.currentItem.takeFocus();
        verify(focused() === head("Category 3"), focusedName());
    }

    function test_theRowIsLitUnderThePointerAlsoOverItsChevron() {
        openMany(2);
        const fill = typed("HoverFill", row("Category 1"));
        mouseMove(head("Category 1"), 100, 30);
        tryVerify(() => fill.color.toString() === Theme.palette.cardHover.toString());
        mouseMove(opener("Category 1"), 20, 30);
        tryVerify(() => opener("Category 1").hovering);
        compare(fill.color.toString(), Theme.palette.cardHover.toString());
        mouseMove(view, 1, 1);
        tryVerify(() => fill.color.toString() !== Theme.palette.cardHover.toString());
    }
}
