import QtQuick
import QtTest
import Zolva.Kit

ScreenCase {
    id: tests

    name: "QuitAlert"

    function ask() {
        showWindow("clean");
        fixture.setBulk("Cleaning", 9, 3, "~/a");
        fixture.model.quit.ask();
        settle();
    }

    function alert(): Item {
        return typed("QuitAlert");
    }

    function test_withoutARunThereIsNoAlert() {
        showWindow("clean");
        fixture.model.quit.ask();
        settle();
        verify(!alert().visible);
        compare(fixture.quits, 1);
    }

    function test_duringARunTheAlertSaysWhatQuittingWouldDo() {
        ask();
        verify(alert().visible);
        verify(written("Zolva is still removing files", alert()));
        verify(written("Quitting now would stop partway through, leaving some items removed and others not. Stop the run first, or wait for it to finish.", alert()));
        compare(typed("Mascot", alert()).symbol, "exclamationmark.triangle.fill");
        compare(typed("Mascot", alert()).tint.toString(), Theme.palette.amber.toString());
        compare(alert().card.Accessible.name, "Zolva is still removing files");
        compare(alert().card.Accessible.description, fixture.model.quit.detail);
        verify(fixture.model.quit.detail !== "");
        compare(fixture.quits, 0);
    }

    function test_theButtonsStandInTheirOrder() {
        ask();
        verify(endX(place(spoken("Keep Going"))) < place(spoken("Stop and Quit")).x);
        compare(spoken("Stop and Quit").role, PillButton.Destructive);
    }

    function test_keepGoingLetsTheRunGoOn() {
        ask();
        click(spoken("Keep Going"));
        verify(!alert().visible);
        verify(fixture.model.bulk.present);
        fixture.clearBulk();
        fixture.advance(1000);
        compare(fixture.quits, 0);
    }

    function test_stopAndQuitEndsWhenTheRunHasEnded() {
        ask();
        click(spoken("Stop and Quit"));
        fixture.advance(1000);
        compare(fixture.quits, 0);
        fixture.clearBulk();
        fixture.advance(120);
        tryCompare(fixture, "quits", 1);
    }

    function test_aRunThatEndedMeanwhileDoesNotHoldTheEnd() {
        ask();
        fixture.clearBulk();
        verify(alert().visible);
        click(spoken("Stop and Quit"));
        fixture.advance(120);
        tryCompare(fixture, "quits", 1);
    }

    function test_escapeKeepsGoing() {
        ask();
        tryVerify(() => focusedName() === "Keep Going");
        press(Qt.Key_Escape);
        verify(!alert().visible);
        fixture.clearBulk();
        fixture.advance(1000);
        compare(fixture.quits, 0);
    }

    function test_returnPressesTheButtonOfTheKeyboard() {
        ask();
        tryVerify(() => focusedName() === "Keep Going");
        press(Qt.Key_Right);
        compare(focusedName(), "Stop and Quit");
        press(Qt.Key_Left);
        press(Qt.Key_Return);
        verify(!alert().visible);
        verify(fixture.model.bulk.present);
    }

    function test_aClickBesideTheAlertAnswersNothing() {
        ask();
        mouseClick(view, 10, 10);
        settle();
        verify(alert().visible);
    }

    function test_aSheetBehindTheAlertCannotBeAnswered() {
        showWindow("clean");
        fixture.setBulk("Cleaning", 9, 3, "~/a");
        fixture.setTrash(2, 1000);
        fixture.openSheet("emptytrash");
        tryVerify(() => focusedName() === "Cancel");
        fixture.model.quit.ask();
        tryVerify(() => focusedName() === "Keep Going");
        for (let i = 0; i < 4; ++i) {
            press(Qt.Key_Tab);
            verify(["Keep Going", "Stop and Quit"].includes(focusedName()), focusedName());
        }
        press(Qt.Key_Escape);
        verify(!alert().visible);
        verify(fixture.model.confirm.isOpen);
        // The keyboard is back in the sheet.
        tryVerify(() => focusedName() === "Cancel");
    }
}
