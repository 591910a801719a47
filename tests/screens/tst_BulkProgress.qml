import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Sheets

ScreenCase {
    id: tests

    name: "BulkProgress"

    Component {
        id: strips

        BulkProgressView {
            height: implicitHeight
        }
    }

    SignalSpy {
        id: stops

        signalName: "stop"
    }

    function open(total: int, done: int, current: string, properties): Item {
        fixture.setBulk("Cleaning", total, done, current);
        show(strips, Object.assign({bulk: fixture.model.bulk, width: 600}, properties));
        const shown = view;
        shown.height = Qt.binding(() => shown.implicitHeight);
        stops.target = view;
        stops.clear();
        settle();
        return view;
    }

    function track(): Item {
        return walk(view, item => item.visible && item.height === 5 && item.radius === 2.5 && item.children.length > 0);
    }

    function fill(): Item {
        return track().children[0];
    }

    function test_theRunIsNamedAndCounted() {
        open(12, 5, "~/a");
        const title = written("Cleaning");
        compare([title.size, title.weight], [13, Font.Medium]);
        const count = written("5 of 12");
        compare(count.size, 12.5);
        compare(count.color.toString(), Theme.palette.label2.toString());
        const current = written("~/a");
        compare([current.size, current.maximumLineCount], [12, 1]);
        compare(current.color.toString(), Theme.palette.label3.toString());
        verify(typed("Spinner").visible);
    }

    function test_theBarIsFiveHighAndFilledByItsShare() {
        open(12, 3, "~/a");
        compare(track().color.toString(), Theme.palette.well.toString());
        compare(fill().color.toString(), Theme.palette.accent.toString());
        compare(fill().width, track().width / 4);
        fixture.setBulk("Cleaning", 12, 12, "~/a");
        compare(fill().width, track().width);
    }

    function test_theBarMovesInAFifthOfASecond() {
        Motion.reduced = false;
        open(10, 0, "~/a");
        fixture.setBulk("Cleaning", 10, 10, "~/a");
        compare(Motion.bar, 200);
        verify(fill().width < track().width);
        tryCompare(fill(), "width", track().width);
    }

    function test_withNothingToCountTheBarIsFullAndThereIsNoCount() {
        open(0, 0, "");
        compare(fill().width, track().width);
        compare(all(view, item => item.visible && item instanceof Text && item.text.includes(" of ")).length, 0);
        compare(view.Accessible.description, "In progress");
    }

    function test_itIsOneElementThatSaysHowFarItIs() {
        open(12, 5, "");
        compare(view.Accessible.role, Accessible.ProgressBar);
        compare(view.Accessible.name, "Cleaning");
        compare(view.Accessible.description, "5 of 12");
        fixture.setBulk("Cleaning", 12, 6, "~/b");
        compare(view.Accessible.description, "6 of 12, currently ~/b");
        const spokenParts = all(view, item => item.visible && !item.Accessible.ignored && item.Accessible.name !== "");
        compare(spokenParts.map(item => item.Accessible.name), ["Cleaning", "Stop removing"]);
    }

    function test_stopSaysWhatItDoes() {
        open(12, 5, "~/a");
        const stop = spoken("Stop removing");
        compare(stop.title, "Stop");
        compare(stop.Accessible.description, "Items already removed are not restored");
        compare(stop.font, Face.text(12.5, Font.DemiBold));
        click(stop);
        compare(stops.count, 1);
        stop.forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        compare(stops.count, 2);
    }

    function test_whatCannotBeStoppedHasNoStop() {
        open(12, 5, "~/a", {canStop: false});
        compare(spoken("Stop removing"), null);
        compare(endX(place(written("5 of 12"))), view.width - 18);
    }

    function test_theStripKeepsItsHeightWhenTheFirstPathComes() {
        open(12, 0, "");
        const height = view.implicitHeight;
        fixture.setBulk("Cleaning", 12, 0, "~/a");
        settle();
        compare(view.implicitHeight, height);
    }

    function test_aLongPathStaysOnOneLineInsideTheStrip() {
        open(12, 0, "~/" + "long/".repeat(100));
        const current = written("~/" + "long/".repeat(100));
        compare(current.lineCount, 1);
        verify(current.truncated);
        verify(endX(place(current)) <= view.width - 18);
    }

    function test_theWordsOfARowStandOnOneLine() {
        open(12, 5, "~/a");
        const middle = item => place(item).y + place(item).height / 2;
        verify(Math.abs(middle(written("Cleaning")) - middle(written("5 of 12"))) <= 1);
        verify(Math.abs(middle(written("Cleaning")) - middle(spoken("Stop removing"))) <= 1);
    }
}
