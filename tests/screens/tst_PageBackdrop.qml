import QtQuick
import QtTest
import Zolva.Frame
import Zolva.Kit

TestCase {
    id: test

    function made(properties) {
        return createTemporaryObject(backdrops, test, properties ?? {});
    }
    function symbolOf(backdrop) {
        for (let i = 0; i < backdrop.children.length; ++i) {
            if (backdrop.children[i].toString().includes("BlurredSymbol"))
                return backdrop.children[i];
        }
        return null;
    }
    function init() {
        test.Window.window.requestActivate();
        tryVerify(() => test.Window.active);
    }
    function cleanup() {
        Motion.reduced = false;
        Motion.software = false;
    }
    function test_eachScreenHasItsSymbol_data() {
        return [
            {
                "tag": "home",
                "symbol": "externaldrive.fill"
            },
            {
                "tag": "clean",
                "symbol": "wand.and.sparkles"
            },
            {
                "tag": "purge",
                "symbol": "hammer.fill"
            },
            {
                "tag": "installer",
                "symbol": "opticaldisc.fill"
            },
            {
                "tag": "uninstall",
                "symbol": "square.grid.2x2.fill"
            },
            {
                "tag": "analyze",
                "symbol": "chart.pie.fill"
            },
            {
                "tag": "status",
                "symbol": "waveform.path.ecg"
            },
            {
                "tag": "settings",
                "symbol": "gearshape.fill"
            },
            {
                "tag": "elsewhere",
                "symbol": "sparkles"
            }
        ];
    }
    function test_eachScreenHasItsSymbol(data) {
        compare(symbolOf(made({
                    "screen": data.tag
                })).name, data.symbol);
    }
    function test_theSymbolIsFourHundredAndSixtyLargeAndBlurredByFortyEight() {
        const symbol = symbolOf(made());
        compare(symbol.size, 460);
        compare(symbol.blur, 48);
    }
    function test_theFirstPoseIsTurnedByFourteenDegreesAndReachesBeyondTheCorner() {
        Motion.reduced = true;
        const backdrop = made();
        const symbol = symbolOf(backdrop);
        compare(symbol.rotation, -14);
        compare(symbol.x, backdrop.width - 460 + 80);
        compare(symbol.y, -80);
    }
    function test_theSecondPoseIsTurnedByTwoDegreesAndFurtherOut() {
        Motion.reduced = true;
        const backdrop = made();
        backdrop.phase = 1;
        const symbol = symbolOf(backdrop);
        compare(symbol.rotation, -2);
        compare(symbol.x, backdrop.width - 460 + 150);
        compare(symbol.y, 10);
    }
    function test_theWayBackIsTheWayThere() {
        Motion.reduced = true;
        const backdrop = made();
        backdrop.phase = 0.3;
        const there = symbolOf(backdrop).rotation;
        backdrop.phase = 1.7;
        fuzzyCompare(symbolOf(backdrop).rotation, there, 1e-9);
    }
    function test_itDriftsWhileTheWindowIsLookedAt() {
        const backdrop = made();
        tryVerify(() => backdrop.seen);
        tryVerify(() => backdrop.phase > 0);
    }
    function test_whereLessMotionIsAskedForNothingMoves() {
        Motion.reduced = true;
        const backdrop = made();
        const before = backdrop.phase;
        wait(200);
        compare(backdrop.phase, before);
    }
    function test_inSoftwareItMovesAtMostEightTimesASecond() {
        Motion.software = true;
        const backdrop = made();
        tryVerify(() => backdrop.phase > 0);
        const spy = createTemporaryObject(spies, test, {
            "target": backdrop,
            "signalName": "phaseChanged"
        });
        wait(500);
        verify(spy.count >= 1);
        verify(spy.count <= 5);
        verify(backdrop.stepTime >= 125);
    }
    function test_aWindowThatIsHiddenDriftsNothing() {
        const window = createTemporaryObject(windows, test);
        const backdrop = window.backdrop;
        window.show();
        window.requestActivate();
        tryVerify(() => backdrop.phase > 0);
        window.hide();
        tryVerify(() => !backdrop.drifts);
        const before = backdrop.phase;
        wait(100);
        compare(backdrop.phase, before);
        window.showMinimized();
        wait(100);
        compare(backdrop.phase, before);
    }
    function test_aWindowThatIsNotInFrontDriftsNothing() {
        const window = createTemporaryObject(windows, test);
        const other = createTemporaryObject(windows, test);
        // A window that hangs on another is active whenever that one is.
        window.transientParent = null;
        other.transientParent = null;
        window.show();
        window.requestActivate();
        tryVerify(() => window.backdrop.phase > 0);
        other.show();
        other.requestActivate();
        tryVerify(() => !window.active);
        const before = window.backdrop.phase;
        wait(100);
        compare(window.backdrop.phase, before);
    }

    height: 400
    name: "PageBackdrop"
    visible: true
    when: windowShown
    width: 600

    Component {
        id: backdrops

        PageBackdrop {
            height: 400
            screen: "home"
            width: 600
        }
    }

    Component {
        id: windows

        Window {
            property alias backdrop: backdrop

            height: 300
            width: 300

            PageBackdrop {
                id: backdrop

                anchors.fill: parent
                screen: "home"
            }
        }
    }

    Component {
        id: spies

        SignalSpy {
        }
    }
}
