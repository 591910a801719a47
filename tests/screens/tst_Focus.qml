import QtQuick
import QtTest
import Zolva.Kit

// Where the keyboard goes on in the whole window when what had it goes away.
ScreenCase {
    id: tests

    name: "Focus"

    function startFrom(name: string): Item {
        const from = spoken(name);
        from.forceActiveFocus(Qt.TabFocusReason);
        return from;
    }

    /// The keyboard is there, and to be seen there.
    function isOn(name: string, within) {
        tryVerify(() => focusedName() === name, 1000, "on " + name);
        verify(focused().visualFocus, name);
        if (within)
            verify(walk(within, item => item === focused()), name);
    }

    function test_afterAScanTheKeyboardIsOnThePagesFirstButton() {
        showWindow("clean");
        startFrom("Scan");
        press(Qt.Key_Return);
        fixture.categories(3, 1);
        tryVerify(() => typed("ListPage"));
        isOn("Rescan", typed("ListPage"));
        press(Qt.Key_Tab);
        isOn("Largest first", typed("ListPage"));
    }

    function test_afterAScanTheArrowsGoThroughThePage() {
        showWindow("clean");
        startFrom("Scan");
        press(Qt.Key_Return);
        fixture.categories(3, 1);
        tryVerify(() => typed("ListPage"));
        isOn("Rescan", typed("ListPage"));
        press(Qt.Key_Down);
        isOn("Largest first", typed("ListPage"));
        press(Qt.Key_Up);
        isOn("Rescan", typed("ListPage"));
    }

    function test_afterARescanTheKeyboardIsOnRescanAgain() {
        fixture.categories(3, 1);
        showWindow("clean");
        startFrom("Rescan");
        press(Qt.Key_Return);
        verify(written("Scanning…"));
        fixture.finishCleanScan();
        isOn("Rescan", typed("ListPage"));
    }

    function test_homesScanLeavesTheKeyboardOnItsPage() {
        showWindow("home");
        startFrom("Scan");
        press(Qt.Key_Return);
        isOn("Rescan", typed("PageHeader"));
    }

    function test_theWayToAnotherScreenEndsOnItsFirstButton() {
        fixture.categories(3, 1);
        showWindow("home");
        startFrom("Review Clean");
        press(Qt.Key_Return);
        isOn("Rescan", typed("ListPage"));
    }

    function test_afterThePointerTheFocusComesWithoutARing() {
        fixture.categories(3, 1);
        showWindow("home");
        const review = spoken("Review Clean");
        review.forceActiveFocus(Qt.MouseFocusReason);
        click(review);
        tryVerify(() => focusedName() === "Rescan");
        verify(!focused().visualFocus);
    }

    function test_theTabKeyStaysOnThePageThatItCameTo() {
        fixture.categories(3, 1);
        fixture.pickAll("clean");
        showWindow("home");
        startFrom("Review Clean");
        press(Qt.Key_Return);
        isOn("Rescan");
        let names = [];
        for (let i = 0; i < 5; ++i) {
            press(Qt.Key_Tab);
            names.push(focusedName());
        }
        compare(names, ["Largest first", "Category 1", "Category 1", "Deselect all", "Clean 6.0 MB"]);
    }

    function test_afterARunTheKeyboardIsOnSomethingThatCanBePressed() {
        fixture.categories(3, 1);
        fixture.pickAll("clean");
        showWindow("clean");
        startFrom("Clean 6.0 MB");
        press(Qt.Key_Return);
        tryVerify(() => focusedName() === "Cancel");
        press(Qt.Key_Escape);
        fixture.setBulk("Cleaning", 4, 1, "~/a");
        tryVerify(() => focusedName() === "Stop removing");
        fixture.clearBulk();
        isOn("Deselect all", typed("ListBar"));
    }

    function test_aButtonThatGoesDeadHandsTheKeyboardToTheNearest() {
        fixture.categories(2, 1);
        fixture.pickAll("clean");
        showWindow("clean");
        startFrom("Clean 3.0 MB");
        keyClick(Qt.Key_Shift);
        fixture.pickAll("clean", false);
        isOn("Select all");
    }

    function test_fromTheHiddenTrashButtonItGoesToTheSidebarsRow() {
        fixture.setTrash(1, 1000);
        showWindow("clean");
        startFrom("Empty Trash");
        keyClick(Qt.Key_Shift);
        fixture.setTrash(0, 0);
        isOn("Clean", typed("Sidebar"));
    }

    function test_emptyingTheTrashByTheKeysEndsOnTheSidebarsRow() {
        fixture.setTrash(1, 1000);
        showWindow("clean");
        startFrom("Empty Trash");
        press(Qt.Key_Return);
        tryVerify(() => focusedName() === "Cancel");
        press(Qt.Key_Right);
        press(Qt.Key_Return);
        fixture.setTrash(0, 0);
        isOn("Clean", typed("Sidebar"));
    }

    function test_aPageScrolledByTheKeysKeepsTheSameButton_data() {
        return [{tag: "Rescan"}, {tag: "Largest first"}];
    }
    function test_aPageScrolledByTheKeysKeepsTheSameButton(row) {
        fixture.categories(60, 1);
        showWindow("clean");
        startFrom(row.tag);
        press(Qt.Key_PageDown);
        const page = typed("CollapsingPage");
        verify(page.offset > 200);
        isOn(row.tag, typed("CompactBar"));
        press(Qt.Key_PageUp);
        compare(page.offset, 0);
        isOn(row.tag, typed("PageHeader", page));
    }

    function test_aToastThatIsDismissedGivesTheKeyboardBack_data() {
        return [{tag: "less motion", reduced: true}, {tag: "motion", reduced: false}];
    }
    function test_aToastThatIsDismissedGivesTheKeyboardBack(row) {
        fixture.categories(3, 1);
        showWindow("clean");
        Motion.reduced = row.reduced;
        startFrom("Largest first");
        fixture.addToast("info", "Moved", "Undo");
        tryVerify(() => spoken("Undo"));
        startFrom("Undo");
        press(Qt.Key_Escape);
        isOn("Largest first");
        // Nor can the one that leaves be come to.
        verify(!typed("ToastView")?.enabled);
    }

    function test_aToastWhoseTimeIsOverGivesTheKeyboardBack() {
        fixture.categories(3, 1);
        showWindow("clean");
        startFrom("Largest first");
        fixture.addToast("info", "Moved", "Undo");
        tryVerify(() => spoken("Undo"));
        startFrom("Undo");
        press(Qt.Key_Tab);
        isOn("Dismiss notification");
        fixture.advance(10100);
        isOn("Largest first");
    }

    function test_aToastWithoutTheKeyboardGoesWithoutTakingIt() {
        fixture.categories(3, 1);
        showWindow("clean");
        const id = fixture.addToast("info", "Moved", "Undo");
        const menu = startFrom("Largest first");
        fixture.model.dismissToast(id);
        settle();
        verify(focused() === menu, focusedName());
    }

    function test_aToastOverASheetGivesTheKeyboardToTheSheet() {
        fixture.setTrash(1, 1000);
        showWindow("clean");
        fixture.openSheet("emptytrash");
        tryVerify(() => focusedName() === "Cancel");
        fixture.addToast("info", "Moved", "Undo");
        tryVerify(() => spoken("Undo"));
        startFrom("Undo");
        press(Qt.Key_Escape);
        isOn("Cancel", typed("ConfirmSheet"));
        press(Qt.Key_Escape);
        verify(!fixture.model.confirm.isOpen);
    }

    function test_theSheetThatAsksSomethingElseBeginsAgainAtCancel() {
        fixture.categories(2, 1);
        fixture.pickAll("clean");
        fixture.setTrash(2, 1000);
        showWindow("clean");
        fixture.openSheet("erase");
        tryVerify(() => focusedName() === "Cancel");
        press(Qt.Key_Right);
        compare(focusedName(), "Confirm: Clean");
        fixture.openSheet("emptytrash");
        compare(focusedName(), "Cancel");
        press(Qt.Key_Return);
        verify(!fixture.model.confirm.isOpen);
        verify(!fixture.model.bulk.present);
    }

    function test_theSheetThatOnlyCountsAgainLeavesTheKeyboard() {
        fixture.categories(2, 1);
        fixture.pickAll("clean");
        showWindow("clean");
        fixture.openSheet("erase");
        tryVerify(() => focusedName() === "Cancel");
        press(Qt.Key_Right);
        fixture.model.clean.pick("Category 2", false);
        settle();
        compare(focusedName(), "Confirm: Clean");
    }

    function test_aMenuThatIsOpenGoesWithItsPageAndTheKeyboardStaysInTheWindow() {
        fixture.categories(3, 1);
        showWindow("clean");
        const pill = startFrom("Largest first");
        press(Qt.Key_Space);
        tryVerify(() => pill.menu.opened);
        press(Qt.Key_Down);
        fixture.model.go("home");
        tryVerify(() => focused() && focused().activeFocusOnTab, 1000, "on " + focused());
        verify(walk(view, item => item === focused()));
        verify(focused().visible && focused().enabled);
        compare(allTyped("PopupItem", view.Window.contentItem).length, 0);
    }

    function test_aMenuThatIsOpenGoesUnderASheetAndCancelHasTheKeyboard() {
        fixture.categories(3, 1);
        fixture.setTrash(2, 1000);
        showWindow("clean");
        const pill = startFrom("Largest first");
        press(Qt.Key_Space);
        tryVerify(() => pill.menu.opened);
        fixture.openSheet("emptytrash");
        tryVerify(() => !pill.menu.visible);
        tryVerify(() => focusedName() === "Cancel");
        press(Qt.Key_Escape);
        verify(!fixture.model.confirm.isOpen);
        isOn("Largest first");
    }
}
