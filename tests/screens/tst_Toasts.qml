pragma ComponentBehavior: Bound
import QtQuick
import QtTest
import Zolva.Frame
import Zolva.Kit
import Zolva.Test

FindingCase {
    id: test

    property Fixture fixture
    property ToastStack stack

    function init() {
        Motion.reduced = false;
        fixture = createTemporaryObject(fixtures, test);
        stack = createTemporaryObject(stacks, test, {
            "model": fixture.model
        });
        waitForRendering(stack);
    }
    function cleanup() {
        Motion.reduced = false;
        stack.destroy();
        wait(0);
    }
    /// The toasts that are drawn, from above to below.
    function views(item) {
        let found = [];
        for (let i = 0; i < item.children.length; ++i) {
            const child = item.children[i];
            if (child instanceof ToastView)
                found.push(child);
            else
                found = found.concat(views(child));
        }
        return found.sort((a, b) => upperEdge(a) - upperEdge(b));
    }
    function upperEdge(view) {
        return view.mapToItem(stack, 0, 0).y;
    }
    function trailingEdge(view) {
        return view.mapToItem(stack, view.width, 0).x;
    }
    function symbolOf(view) {
        let found = null;
        const look = item => {
            for (let i = 0; i < item.children.length && !found; ++i) {
                if (item.children[i] instanceof Symbol)
                    found = item.children[i];
                else
                    look(item.children[i]);
            }
        };
        look(view);
        return found;
    }
    function shown(count) {
        tryVerify(() => views(stack).length === count);
        return views(stack);
    }
    function settle() {
        shown(stack.count);
        for (const view of views(stack))
            tryVerify(() => Math.abs(trailingEdge(view) - (stack.width - 20)) < 0.6 && view.opacity > 0.99);
        const last = views(stack).pop();
        tryVerify(() => Math.abs(upperEdge(last) + last.height - (stack.height - 20)) < 1);
    }
    function test_theyStandOneUnderTheOtherInTheCornerOldestFirst() {
        fixture.addToast("info", "First");
        fixture.addToast("success", "Second");
        fixture.addToast("warning", "Third");
        compare(stack.count, 3);
        settle();
        compare(views(stack).map(view => view.text), ["First", "Second", "Third"]);
        const all = views(stack);
        compare(upperEdge(all[1]), upperEdge(all[0]) + all[0].height + 10);
    }
    function test_eachKindHasItsSymbolAndItsTint_data() {
        return [
            {
                "tag": "info",
                "symbol": "info.circle.fill",
                "tint": "accent"
            },
            {
                "tag": "warning",
                "symbol": "exclamationmark.triangle.fill",
                "tint": "amber"
            },
            {
                "tag": "success",
                "symbol": "checkmark.circle.fill",
                "tint": "green"
            }
        ];
    }
    function test_eachKindHasItsSymbolAndItsTint(data) {
        fixture.addToast(data.tag, "Something");
        const symbol = symbolOf(shown(1)[0]);
        compare(symbol.name, data.symbol);
        compare(symbol.size, 14);
        compare(symbol.color.toString(), Theme.palette[data.tint].toString());
    }
    function test_aToastKeepsItsMeasures() {
        fixture.addToast("info", "Something");
        const view = shown(1)[0];
        const text = symbolOf(view).parent.children[1];
        compare([text.text, text.size, text.weight], ["Something", 13, Font.Medium]);
        compare(symbolOf(view).weight, Font.DemiBold);
        const cross = symbolOf(spoken("Dismiss notification", view));
        compare([cross.name, cross.size, cross.weight], ["xmark", 10, Font.Bold]);
        const card = view.children[1];
        compare([card.color.toString(), card.border.color.toString()], [Theme.palette.sheet.toString(), Theme.palette.sep
                .toString()]);
        compare([card.border.width, card.radius], [1, 12]);
        compare([view.children[0].strength, view.children[0].blur], [0.28, 12]);
    }
    function test_aShortToastIsThreeHundredAndFortyWideALongOneFourHundredAndSixty() {
        fixture.addToast("info", "Short");
        fixture.addToast("info", "long ".repeat(60));
        waitForRendering(stack);
        const all = shown(2);
        compare(all[0].width, 340);
        compare(all[1].width, 460);
        verify(all[1].height > all[0].height);
    }
    function test_aToastOfAVeryLongTextStaysSmallAndIsSpokenWhole() {
        const text = "Skipped ~/" + "folder/".repeat(500);
        fixture.addToast("warning", text);
        settle();
        const view = shown(1)[0];
        compare(view.width, 460);
        verify(view.height < 160, view.height);
        const words = symbolOf(view).parent.children[1];
        compare([words.lineCount, words.truncated], [6, true]);
        compare(view.Accessible.name, text);
    }
    function test_aToastComesFromTheTrailingEdgeAndStaysReadableWhenItHasCome() {
        fixture.addToast("info", "Here");
        // Made now, so that no frame is drawn before it is looked at.
        stack.children[0].forceLayout();
        const view = views(stack)[0];
        verify(trailingEdge(view) > stack.width);
        verify(view.opacity < 0.2);
        settle();
    }
    function test_aToastThatGoesLeavesTowardsTheTrailingEdge() {
        const id = fixture.addToast("info", "Going");
        settle();
        const view = views(stack)[0];
        const place = trailingEdge(view);
        let farthest = place;
        const look = () => farthest = Math.max(farthest, trailingEdge(view));
        view.xChanged.connect(look);
        fixture.model.dismissToast(id);
        compare(stack.count, 0);
        tryVerify(() => views(stack).length === 0);
        verify(farthest > place + 1, "from " + place + " to " + farthest);
    }
    function test_aToastDismissedWhileItComesInTurnsBack() {
        const id = fixture.addToast("info", "Hasty");
        stack.children[0].forceLayout();
        const view = views(stack)[0];
        let nearest = trailingEdge(view);
        view.xChanged.connect(() => nearest = Math.min(nearest, trailingEdge(view)));
        fixture.model.dismissToast(id);
        tryVerify(() => views(stack).length === 0);
        verify(nearest > stack.width, "as far in as " + nearest);
    }
    function test_thoseThatStayCloseTheGap() {
        const first = fixture.addToast("info", "First");
        fixture.addToast("info", "Second");
        const third = fixture.addToast("info", "Third");
        settle();
        fixture.model.dismissToast(third);
        tryVerify(() => views(stack).length === 2);
        settle();
        fixture.model.dismissToast(first);
        tryVerify(() => views(stack).length === 1);
        settle();
        compare(views(stack)[0].text, "Second");
    }
    function test_whereLessMotionIsAskedForTheyAreThereAndGoneAtOnce() {
        Motion.reduced = true;
        const id = fixture.addToast("info", "Quiet");
        const view = shown(1)[0];
        compare(view.opacity, 1);
        compare(trailingEdge(view), stack.width - 20);
        fixture.model.dismissToast(id);
        tryVerify(() => views(stack).length === 0, 200);
    }
    function test_theCrossTakesThatToastAway() {
        fixture.addToast("info", "Stays");
        fixture.addToast("info", "Goes");
        settle();
        const cross = spoken("Dismiss notification", views(stack)[1]);
        compare(cross.width, 20);
        compare(cross.height, 20);
        mouseClick(cross);
        compare(stack.count, 1);
        tryVerify(() => views(stack).length === 1);
        compare(views(stack)[0].text, "Stays");
    }
    function test_theActionIsAButtonThatRunsItAndTheToastStays() {
        fixture.addToast("success", "Moved 3 MB to the Trash", "Undo");
        settle();
        mouseClick(spoken("Undo", views(stack)[0]));
        verify(fixture.calls.includes("toast: Undo"));
        compare(stack.count, 1);
    }
    function test_aToastWithoutAnActionHasNoButtonForOne() {
        fixture.addToast("info", "Just so");
        compare(allTyped("LinkButton", shown(1)[0]).length, 0);
    }
    function test_theTabKeyReachesActionAndCrossAndEscTakesTheToastAway() {
        fixture.addToast("success", "Moved 3 MB to the Trash", "Undo");
        settle();
        const view = views(stack)[0];
        const action = spoken("Undo", view);
        action.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        verify(spoken("Dismiss notification", view).activeFocus);
        keyClick(Qt.Key_Escape);
        compare(stack.count, 0);
    }
    function test_aToastIsAnAlertThatSaysItsText() {
        fixture.addToast("info", "The Trash is already empty.");
        const view = shown(1)[0];
        compare(view.Accessible.role, Accessible.AlertMessage);
        compare(view.Accessible.name, "The Trash is already empty.");
    }
    function test_aToastGoesByItselfAfterItsTime() {
        fixture.addToast("info", "Ten seconds");
        fixture.advance(9900);
        compare(stack.count, 1);
        fixture.advance(200);
        tryCompare(stack, "count", 0);
    }
    function test_moreToastsThanFitLeaveTheNewestInSight() {
        for (let i = 0; i < 40; ++i)
            fixture.addToast("info", "Toast " + i);
        compare(stack.count, 40);
        tryVerify(() => views(stack).length === 40);
        settle();
        compare(views(stack).pop().text, "Toast 39");
    }
    function test_thePageBesideTheToastsCanStillBePressed() {
        fixture.addToast("info", "In the corner");
        settle();
        under.presses = 0;
        mouseClick(stack, 40, 40);
        compare(under.presses, 1);
        mouseClick(stack, stack.width - 480, stack.height - 40);
        compare(under.presses, 2);
        mouseClick(stack, stack.width - 200, stack.height - 22);
        compare(under.presses, 2);
    }
    function test_neitherAnyButtonNorTheWheelReachesWhatLiesUnderAToast() {
        fixture.addToast("info", "In the corner", "Undo");
        settle();
        const view = views(stack)[0];
        const parts = [view, symbolOf(view), spoken("Undo", view), spoken("Dismiss notification", view)];
        under.presses = 0;
        under.turns = 0;
        for (const part of parts) {
            for (const button of [Qt.RightButton, Qt.MiddleButton, Qt.BackButton])
                mouseClick(part, part.width / 2, part.height / 2, button);
            mouseWheel(part, part.width / 2, part.height / 2, 0, -120);
        }
        compare([under.presses, under.turns], [0, 0]);
        compare(stack.count, 1);
        verify(!fixture.calls.includes("toast: Undo"));
        mouseClick(stack, 40, 40, Qt.RightButton);
        mouseWheel(stack, 40, 40, 0, -120);
        compare([under.presses, under.turns], [1, 1]);
    }

    height: 600
    name: "Toasts"
    visible: true
    when: windowShown
    width: 900

    MouseArea {
        id: under

        property int presses: 0
        property int turns: 0

        acceptedButtons: Qt.AllButtons
        anchors.fill: parent
        onClicked: ++presses
        onWheel: ++turns
    }

    Component {
        id: fixtures

        Fixture {
        }
    }

    Component {
        id: stacks

        ToastStack {
            height: 600
            width: 900
        }
    }
}
