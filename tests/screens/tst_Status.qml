import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Status

ScreenCase {
    id: tests

    readonly property var reading: ({
            health: 91,
            healthMsg: "Good",
            cpu: 12.6,
            load1: 0.5,
            load5: 0.25,
            load15: 1,
            used: 8040000000,
            total: 16600000000,
            usedPercent: 48,
            model: "Workbench",
            cpuModel: "Eight cores",
            uptime: "3d 4h"
        })

    name: "Status"

    Component {
        id: screens

        StatusScreen {
        }
    }

    Component {
        id: lines

        SeriesLine {
            color: "#ff0000"
            height: 110
            width: 200
        }
    }

    Component {
        id: windows

        Window {
            readonly property alias screen: screen
            required property ScreenModel model

            height: 660
            visible: true
            width: 980

            StatusScreen {
                id: screen

                anchors.fill: parent
                model: parent.Window.window.model
            }
        }
    }

    function open(): Item {
        return show(screens, {model: fixture.model});
    }

    function openLive(): Item {
        open();
        fixture.setSpace(80760000000, 270550000000);
        fixture.readStatus(reading);
        fixture.readStatus(reading);
        settle();
        return view;
    }

    function read(changes) {
        fixture.readStatus(Object.assign({}, reading, changes));
        settle();
    }

    function tile(name: string): Item {
        return allTyped("Tile").find(tile => tile.label === name) ?? null;
    }

    function seriesLines(): var {
        return all(view, item => item.toString().includes("SeriesLine"));
    }

    function words(name: string): var {
        const it = tile(name);
        return [it.label, it.figure, it.unit, it.sub];
    }

    // Which page

    function test_untilTheFirstReadingTheScreenWaits() {
        open();
        const waiting = written("Reading system status…");
        compare(waiting.size, 13);
        verify(typed("Spinner").visible);
        fuzzyCompare(place(waiting.parent).x + waiting.parent.width / 2, tests.width / 2, 0.5);
        compare(allTyped("Tile").length, 0);
        compare(allTyped("StatusCard").length, 0);
        fixture.readStatus(reading);
        settle();
        verify(!written("Reading system status…"));
        compare(allTyped("Tile").length, 4);
    }

    function test_theHeadHasNeitherSubtitleNorRescan() {
        openLive();
        compare(typed("PageHeader").title, "Status");
        compare(typed("PageHeader").subtitle, "");
        verify(!typed("RescanButton").visible);
    }

    function test_anErrorStandsInACardOfItsOwn() {
        openLive();
        fixture.failStatus("mo isn’t installed");
        settle();
        compare(allTyped("Tile").length, 0);
        compare(allTyped("StatusCard").length, 0);
        const card = typed("StatusError");
        compare(card.color.toString(), Theme.palette.card.toString());
        const text = written("mo isn’t installed", card);
        compare(text.size, 13);
        const dot = walk(card, item => item.width === 8 && item.height === 8);
        compare(place(dot, card).x, 18);
        compare(place(text, card).x - endX(place(dot, card)), 13);
        compare(place(card).y - endY(place(written("Status"))), 24);
        compare(place(card).x, 40);
        compare(endX(place(card)), tests.width - 40);
    }

    function test_retryReadsAgainAndTheReadingTakesThePlaceOfTheError() {
        open();
        fixture.failStatus("no");
        settle();
        const streams = fixture.statusStreams;
        click(spoken("Retry"));
        compare(fixture.statusStreams, streams + 1);
        verify(written("Reading system status…"));
        verify(!typed("StatusError").visible);
        fixture.readStatus(reading);
        settle();
        compare(allTyped("Tile").length, 4);
    }

    function test_retryIsPressedByTheKeyboardAndKeepsItWhereItFailsAgain() {
        fixture.model.go("status");
        showWindow("status");
        fixture.failStatus("no");
        settle();
        spoken("Retry").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        fixture.failStatus("still no");
        settle();
        verify(written("still no"));
        compare(focusedName(), "Retry");
        press(Qt.Key_Space);
        verify(written("Reading system status…"));
    }

    function test_aReadingThatIsHeldIsShownAtOnceOnComingBack() {
        showWindow("status");
        fixture.readStatus(reading);
        fixture.model.go("home");
        settle();
        fixture.model.go("status");
        settle();
        compare(words("CPU")[1], "13");
        verify(!written("Reading system status…"));
    }

    // The stream

    function test_theStreamIsHeldOnceWhileTheScreenIsOnDisplay() {
        showWindow("home");
        compare(fixture.statusRefs, 0);
        fixture.model.go("status");
        settle();
        compare(fixture.statusRefs, 1);
        fixture.model.go("status");
        settle();
        compare(fixture.statusRefs, 1);
        compare(fixture.statusStreams, 1);
        fixture.model.go("clean");
        tryCompare(fixture, "statusRefs", 0);
    }

    function test_leavingAndComingBackInOneTurnHoldsItOnce() {
        showWindow("status");
        fixture.model.go("home");
        fixture.model.go("status");
        settle();
        compare(fixture.statusRefs, 1);
    }

    function test_theStreamStopsWhileTheWindowIsOutOfSight_data() {
        return [{tag: "hidden", how: Window.Hidden}, {tag: "minimised", how: Window.Minimized}];
    }
    function test_theStreamStopsWhileTheWindowIsOutOfSight(row) {
        const window = windows.createObject(tests, {model: fixture.model});
        tryCompare(fixture, "statusRefs", 1);
        window.visibility = row.how;
        tryCompare(fixture, "statusRefs", 0);
        window.visibility = Window.Windowed;
        tryCompare(fixture, "statusRefs", 1);
        compare(fixture.statusStreams, 2);
        window.close();
        tryCompare(fixture, "statusRefs", 0);
        window.destroy();
        wait(0);
    }

    // Tiles

    function test_theFourTilesStandInTheirOrder() {
        openLive();
        compare(allTyped("Tile").map(tile => tile.label), ["Health", "CPU", "Memory", "Free space"]);
        compare(words("Health"), ["Health", "91", "/ 100", "Good"]);
        compare(words("CPU"), ["CPU", "13", "%", "Load 0.50 · 0.25 · 1.00"]);
        compare(words("Memory"), ["Memory", "8.0", "of 17 GB", "Pressure normal"]);
        compare(words("Free space"), ["Free space", "81", "GB", "30% of 271 GB"]);
    }

    function test_aVolumeOfUnknownSizeReadsZeroPercentOfZero() {
        open();
        fixture.readStatus(reading);
        settle();
        verify(written("0% of 0 GB", tile("Free space")));
    }

    function test_aSampleChangesWhatIsWritten() {
        openLive();
        read({cpu: 99.4, pressure: "warn"});
        verify(written("99", tile("CPU")));
        verify(written("warn", tile("Memory")));
    }

    function test_theTilesKeepTheirMeasures() {
        openLive();
        const tiles = allTyped("Tile").map(tile => place(tile));
        compare(tiles[0].x, 40);
        compare(endX(tiles[3]), tests.width - 40);
        for (let i = 1; i < 4; ++i) {
            compare(tiles[i].x - endX(tiles[i - 1]), 14);
            fuzzyCompare(tiles[i].width, tiles[0].width, 1);
            compare([tiles[i].y, tiles[i].height], [tiles[0].y, tiles[0].height]);
        }
        const cpu = tile("CPU");
        const [label, value, unit, sub] = words("CPU").map(text => written(text, cpu));
        compare([label.size, value.size, unit.size, sub.size], [12.5, 28, 13, 12.5]);
        compare([value.weight, value.tracking], [Font.Bold, -0.5]);
        compare([label, unit].map(text => text.color.toString()), [Theme.palette.label2.toString(), Theme.palette.label2.toString()]);
        compare(sub.color.toString(), Theme.palette.label3.toString());
        compare([place(label, cpu).x, place(label, cpu).y], [22, 20]);
        compare(place(value, cpu).y - endY(place(label, cpu)), 14);
        compare(place(sub, cpu).y - endY(place(value, cpu)), 14);
        compare(place(value, cpu).y + value.baselineOffset, place(unit, cpu).y + unit.baselineOffset);
    }

    function test_aUnitWithoutRoomBesideItsValueStandsBelowIt() {
        view = screens.createObject(tests, {width: 980 - 264, height: 660, model: fixture.model});
        fixture.readStatus(Object.assign({}, reading, {used: 128400000000, total: 256000000000}));
        settle();
        const memory = tile("Memory");
        const unit = place(written("of 256 GB", memory), memory);
        compare([unit.x, unit.y], [22, endY(place(written("128.4", memory), memory))]);
        verify(place(written("%", tile("CPU")), tile("CPU")).x > 22);
    }

    function test_everythingFitsInTheSmallestWindow() {
        view = screens.createObject(tests, {width: 980 - 264, height: 660, model: fixture.model});
        settle();
        fixture.setSpace(1080760000000, 2270550000000);
        fixture.readStatus(Object.assign({}, reading, {used: 128400000000, total: 256000000000, cpu: 100, health: 100}));
        settle();
        for (const one of allTyped("Tile")) {
            for (const text of all(one, item => item instanceof Text)) {
                verify(!text.truncated, text.text);
                verify(endX(place(text, one)) <= one.width - 22 + 0.5, text.text);
            }
        }
        const footer = written(fixture.model.status.footer);
        verify(endY(place(footer)) <= 660);
    }

    // Chart

    function test_theChartKeepsItsMeasures() {
        openLive();
        const card = typed("StatusCard");
        const chart = typed("StatusChart");
        compare(place(card).y - endY(place(tile("CPU"))), 28);
        compare(chart.height, 150);
        compare(place(chart, card).x, 24);
        compare(chart.width, card.width - 48);
        compare(card.height - endY(place(chart, card)), 18);
        const title = written("Last 60 seconds", card);
        compare([title.size, title.weight, place(title, card).y], [13, Font.DemiBold, 22]);
        compare(place(chart, card).y - endY(place(title.parent, card)), 16);
        const [cpu, memory] = allTyped("LegendEntry", card);
        compare([cpu.word, memory.word], ["CPU", "Memory"]);
        compare(place(memory).x - endX(place(cpu)), 14);
        compare(endX(place(memory, card)), card.width - 24);
        for (const entry of [cpu, memory]) {
            compare([entry.children[0].width, entry.children[0].height], [8, 2]);
            compare(entry.children[1].size, 12);
        }
        compare(cpu.color.toString(), Theme.palette.accent.toString());
        verify(cpu.color.toString() !== memory.color.toString());
        const footer = written(fixture.model.status.footer);
        compare(footer.size, 12.5);
        compare(footer.color.toString(), Theme.palette.label3.toString());
        compare(place(footer).y - endY(place(card)), 20);
    }

    function test_theChartsColoursFollowTheTheme() {
        openLive();
        fixture.setTheme("dark");
        Theme.light = false;
        settle();
        compare(seriesLines().map(line => line.color.toString()), [Theme.palette.green.toString(), Theme.palette.accent.toString()]);
    }

    /// Where in its column a line of these values stands, or -1.
    function lineAt(values, across: real): real {
        const line = createTemporaryObject(lines, tests, {x: 0, y: 20});
        line.values = values;
        view = line;
        settle();
        const image = grabImage(tests);
        view = null;
        let best = -1;
        let strength = 0;
        for (let y = 0; y <= 140; ++y) {
            const red = image.red(Math.min(across * 200, 199), y);
            const blue = image.blue(Math.min(across * 200, 199), y);
            if (red - blue > strength) {
                strength = red - blue;
                best = y - 20;
            }
        }
        line.destroy();
        wait(0);
        return best;
    }

    function test_aHundredStandsAtFortyFortyFourthsOfTheHeight() {
        // 110 high: 100 from the lower edge.
        fuzzyCompare(lineAt([100, 100], 0.5), 10, 1);
        fuzzyCompare(lineAt([0, 0], 0.5), 110, 1);
        fuzzyCompare(lineAt([50, 50], 0.5), 60, 1);
    }

    function test_valuesAreClamped() {
        fuzzyCompare(lineAt([300, 300], 0.5), 10, 1);
        fuzzyCompare(lineAt([-40, -40], 0.5), 110, 1);
    }

    function test_aShortSeriesIsStretchedOverTheWholeWidth() {
        fuzzyCompare(lineAt([0, 100], 0.25), 85, 1);
        fuzzyCompare(lineAt([0, 100], 0.75), 35, 1);
        fuzzyCompare(lineAt([0, 100, 0], 0.5), 10, 2);
        fuzzyCompare(lineAt([100, 100, 0], 0.02), 10, 1);
    }

    function test_fewerThanTwoSamplesDrawNothing() {
        compare(lineAt([], 0.5), -1);
        compare(lineAt([100], 0.5), -1);
        compare(lineAt([100], 0), -1);
    }

    function test_aSingleSampleLeavesTheChartEmpty() {
        open();
        fixture.readStatus(reading);
        settle();
        compare(seriesLines().map(line => line.values.length), [1, 1]);
        compare(fixture.model.toasts.rowCount(), 0);
    }

    function test_bothSeriesReachTheChart() {
        openLive();
        read({cpu: 80, usedPercent: 55});
        const chart = typed("StatusChart");
        compare(chart.cpu, [12.6, 12.6, 80]);
        compare(chart.mem, [48, 48, 55]);
    }

    // The warning

    function test_aLoadThatStaysWarnsOnceAndLeadsToTheSettings() {
        showWindow("status");
        for (let i = 0; i < 8; ++i)
            fixture.readStatus(Object.assign({}, reading, {cpu: 100}));
        settle();
        compare(fixture.model.toasts.rowCount(), 1);
        const toast = spoken("CPU has been above 80% for a minute.");
        compare(toast.kind, "warning");
        click(spoken("Adjust threshold"));
        compare(fixture.model.screen, "settings");
    }

    function test_aLoadThatStoodOnLeavingIsNotWarnedOfOnReturning() {
        showWindow("status");
        for (let i = 0; i < 8; ++i)
            fixture.readStatus(Object.assign({}, reading, {cpu: 100}));
        fixture.model.go("home");
        fixture.advance(10000);
        settle();
        compare(fixture.model.toasts.rowCount(), 0);
        fixture.model.go("status");
        settle();
        fixture.readStatus(Object.assign({}, reading, {cpu: 100}));
        settle();
        compare(fixture.model.toasts.rowCount(), 0);
    }

    // Spoken

    function test_aTileIsSpokenAsAWholeAndItsPartsAreNot() {
        openLive();
        const cpu = spoken("CPU");
        compare(cpu.Accessible.role, Accessible.StaticText);
        compare(cpu.Accessible.description, "13%. Load 0.50 · 0.25 · 1.00");
        compare(all(cpu, item => item instanceof Text && !item.Accessible.ignored).length, 0);
    }

    function test_nothingOfATileThatChangesHasANameOfItsOwn() {
        openLive();
        // Each name that changes is an event for a screen reader.
        const it = tile("CPU");
        for (const text of [it.figure, it.unit, it.sub])
            compare(written(text, it).Accessible.name, "");
    }

    function test_theChartIsToldInWords() {
        openLive();
        const chart = spoken("Last 60 seconds");
        compare(chart.Accessible.role, Accessible.Chart);
        compare(chart.Accessible.description, "CPU 13%, highest 13%. Memory 48%, highest 48%");
    }

    function test_anErrorIsAnAlert() {
        open();
        fixture.failStatus("no");
        settle();
        compare(spoken("no").Accessible.role, Accessible.AlertMessage);
        compare(spoken("Retry").Accessible.description, "Starts reading the system status again");
    }
}
