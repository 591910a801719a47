import QtQuick
import QtTest
import Zolva.Frame
import Zolva.Kit
import Zolva.Sheets

// What moves, beside a clock that began with it: both are moved on by the same step of time.
ScreenCase {
    id: tests

    name: "Motion"

    NumberAnimation {
        id: clock

        from: 0
        property: "passed"
        target: tests
        to: 1
    }

    property real passed: 0

    /// Begins the motion until it was seen on its way, and compares each place with the curve's.
    /// `begin` gives back what then gives the place.
    function follow(duration: int, curve, begin) {
        clock.duration = duration;
        for (let go = 0; go < 20; ++go) {
            clock.stop();
            passed = 0;
            const place = begin(go);
            let seen = [];
            const look = () => seen.push([passed, place()]);
            clock.start();
            passedChanged.connect(look);
            tryVerify(() => !clock.running);
            passedChanged.disconnect(look);
            tryVerify(() => place() === 1);
            for (const [time, at] of seen)
                fuzzyCompare(at, curve(time), 0.02);
            if (seen.some(([time]) => time > 0.2 && time < 0.8))
                return;
        }
        fail("it was never seen on its way");
    }

    function easeOut(time: real): real {
        return time * (2 - time);
    }

    function easeInOut(time: real): real {
        return time < 0.5 ? 2 * time * time : 1 - 2 * (1 - time) * (1 - time);
    }

    function test_aSheetComesWithAnEaseOutOfEighteenHundredths() {
        showWindow("home");
        Motion.reduced = false;
        const sheet = typed("ConfirmSheet");
        follow(180, easeOut, () => {
            fixture.openSheet("");
            tryCompare(sheet, "arrival", 0);
            fixture.openSheet("emptytrash");
            return () => sheet.arrival;
        });
    }

    function test_theSelectionMovesWithAnEaseInOutOfAFifth() {
        showWindow("home");
        Motion.reduced = false;
        const rows = allTyped("NavRow");
        follow(200, easeInOut, go => {
            fixture.model.go(go % 2 === 0 ? "clean" : "home");
            const fill = rows[go % 2 === 0 ? 1 : 0].background.children[1];
            compare(fill.color.toString(), Theme.palette.accent.toString());
            return () => fill.opacity;
        });
    }

    function test_theBarOfARunMovesWithAnEaseOutOfAFifth() {
        fixture.categories(2, 1);
        showWindow("clean");
        fixture.setBulk("Cleaning", 10, 0, "~/a");
        settle();
        Motion.reduced = false;
        const track = walk(typed("BulkProgressView"), item => item.visible && item.height === 5 && item.children.length > 0);
        const fill = track.children[0];
        follow(200, easeOut, () => {
            fixture.setBulk("Cleaning", 10, 0, "~/a");
            tryCompare(fill, "width", 0);
            fixture.setBulk("Cleaning", 10, 10, "~/a");
            return () => fill.width / track.width;
        });
    }
}
