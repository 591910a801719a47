import QtQuick
import QtTest
import Zolva.Frame
import Zolva.Kit

FindingCase {
    id: test

    function page(properties) {
        return createTemporaryObject(pages, test, properties);
    }
    function spokenIn(item, wanted) {
        return all(item, each => each.visible && !each.Accessible.ignored && wanted(each));
    }
    function scrollTo(made, offset) {
        made.listView.contentY = made.listView.originY + offset;
    }
    function headerOf(made) {
        return typed("PageHeader", made);
    }
    function barOf(made) {
        return typed("CompactBar", made);
    }
    function test_aPageWithoutASubtitleCollapsesOverFortyPoints() {
        const made = page({});
        scrollTo(made, 20);
        compare(made.progress, 0.5);
        scrollTo(made, 40);
        compare(made.progress, 1);
    }
    function test_aPageWithASubtitleCollapsesOverFiftyEightPoints() {
        const made = page({
            "subtitle": "Rebuilt when needed"
        });
        scrollTo(made, 29);
        compare(made.progress, 0.5);
        scrollTo(made, 40);
        verify(made.progress < 1);
        scrollTo(made, 58);
        compare(made.progress, 1);
    }
    function test_theProgressStaysBetweenNothingAndAll() {
        const made = page({});
        scrollTo(made, -30);
        compare(made.progress, 0);
        scrollTo(made, 900);
        compare(made.progress, 1);
    }
    function test_anUnscrolledPageShowsItsHeadAndNoBar() {
        const made = page({});
        compare(made.offset, 0);
        compare(headerOf(made).opacity, 1);
        compare(barOf(made).progress, 0);
    }
    function test_theHeadFadesAsTheBarComes() {
        const made = page({});
        scrollTo(made, 10);
        compare(headerOf(made).opacity, 0.75);
        compare(barOf(made).progress, 0.25);
    }
    function test_theCompactBarKeepsItsMeasures() {
        const made = page({
            "canRescan": true
        });
        scrollTo(made, 10);
        const bar = barOf(made);
        const ground = bar.children[1];
        const line = bar.children[2];
        compare(ground.color.toString(), Theme.palette.content.toString());
        compare([ground.opacity, line.opacity], [0.25, 0.25]);
        compare([line.height, line.y], [1, 52]);
        scrollTo(made, 200);
        waitForRendering(made, 50);
        compare([ground.opacity, line.opacity], [1, 1]);
        const title = spokenIn(bar, item => item.Accessible.role === Accessible.Heading)[0];
        compare([title.text, title.size, title.weight], ["Clean", 15, Font.DemiBold]);
        compare(title.mapToItem(bar, 0, 0).x, 40);
        const rescan = typed("RescanButton", bar);
        compare(rescan.mapToItem(bar, rescan.width, 0).x, 700 - 40);
        compare(rescan.x - title.x - title.width, 10);
    }
    function test_ofHeadAndBarOnlyOneIsSpokenOf() {
        const made = page({
            "canRescan": true,
            "subtitle": "Rebuilt when needed"
        });
        const heads = () => spokenIn(made, item => item.Accessible.role === Accessible.Heading).length;
        const rescans = () => spokenIn(made, item => item.Accessible.name === "Rescan").length;
        compare([heads(), rescans()], [1, 1]);
        scrollTo(made, 40);
        compare([heads(), rescans()], [1, 1]);
        const room = made.listView.headerItem.height;
        scrollTo(made, 300);
        compare([heads(), rescans()], [1, 1]);
        compare(made.listView.headerItem.height, room);
        scrollTo(made, 0);
        compare([heads(), rescans()], [1, 1]);
    }
    function test_theCompactBarIsFiftyTwoHighAndStaysAtTheTop() {
        const made = page({});
        scrollTo(made, 500);
        compare(barOf(made).height, 52);
        compare(barOf(made).mapToItem(made, 0, 0).y, 0);
    }
    function test_theTopIsKeptWhileWhatIsAboveTheRowsGrows() {
        const made = page({
            "header": growing
        });
        compare(made.offset, 0);
        const grown = findChild(made, "growing");
        grown.implicitHeight = 300;
        waitForRendering(made);
        compare(made.offset, 0);
        grown.implicitHeight = 20;
        waitForRendering(made);
        compare(made.offset, 0);
    }
    function test_aPageOpensAtItsTopHoweverManyRowsItHas() {
        for (let rows = 0; rows <= 16; ++rows) {
            const made = page({
                "header": growing,
                "model": rows,
                "subtitle": "Rebuilt when needed",
                "trailing": growing
            });
            waitForRendering(made, 50);
            compare(made.offset, 0, rows + " rows");
            compare(barOf(made).progress, 0, rows + " rows");
            made.destroy();
        }
    }
    function test_thePageStaysAtItsTopWhileItIsResizedHoweverManyRowsItHas() {
        for (let rows = 0; rows <= 16; ++rows) {
            const made = page({
                "header": growing,
                "model": rows,
                "subtitle": "Rebuilt when needed, ".repeat(6)
            });
            waitForRendering(made, 50);
            for (const [width, height] of [[300, 500], [700, 300], [120, 500], [700, 500]]) {
                made.width = width;
                made.height = height;
                waitForRendering(made, 50);
                compare(made.offset, 0, rows + " rows, " + width + " by " + height);
            }
            made.destroy();
        }
    }
    function test_ofTenThousandRowsOnlyThoseInSightAreMade() {
        const made = page({
            "model": 10000
        });
        waitForRendering(made);
        verify(made.listView.contentItem.children.length < 60);
    }
    function test_theRescanButtonOfTheHeadRescans() {
        const made = page({
            "canRescan": true
        });
        const spy = createTemporaryObject(spies, test, {
            "target": made,
            "signalName": "rescan"
        });
        const button = typed("RescanButton", headerOf(made));
        mouseClick(button);
        compare(spy.count, 1);
    }
    function test_theRescanButtonOfTheBarRescansOnceTheHeadIsGone() {
        const made = page({
            "canRescan": true
        });
        const spy = createTemporaryObject(spies, test, {
            "target": made,
            "signalName": "rescan"
        });
        scrollTo(made, 200);
        mouseClick(typed("RescanButton", barOf(made)));
        compare(spy.count, 1);
    }
    function test_aPageThatCannotRescanShowsNoButton() {
        const made = page({});
        compare(typed("RescanButton", headerOf(made)).visible, false);
    }
    function test_aRowUnderTheBarIsNotPressedThroughIt() {
        const made = page({});
        waitForRendering(made);
        scrollTo(made, 400);
        test.pressed = -1;
        mouseClick(made, 300, 30);
        compare(test.pressed, -1);
        mouseClick(made, 300, 100);
        verify(test.pressed >= 0);
    }
    function test_aDimmedPageShowsNoRowThroughItsBar() {
        const made = page({
            "delegate": reds,
            "opacity": 0.5
        });
        waitForRendering(made);
        scrollTo(made, 300);
        waitForRendering(made);
        const image = grabImage(made);
        for (let y = 0; y < 52; ++y)
            fuzzyCompare(image.green(350, y), image.red(350, y), 8);
        verify(image.red(350, 80) > image.green(350, 80) + 40);
    }
    function test_theArrowsMoveTheFocusFromRowToRowAndThePageFollows() {
        const made = page({});
        waitForRendering(made);
        made.listView.itemAtIndex(0).forceActiveFocus(Qt.TabFocusReason);
        for (let i = 0; i < 20; ++i)
            keyClick(Qt.Key_Down);
        const row = made.listView.itemAtIndex(20);
        verify(row.activeFocus);
        const y = row.mapToItem(made, 0, 0).y;
        verify(y >= 52 && y + row.height <= made.height);
        for (let k = 0; k < 18; ++k)
            keyClick(Qt.Key_Up);
        const back = made.listView.itemAtIndex(2);
        verify(back.activeFocus);
        verify(back.mapToItem(made, 0, 0).y >= 52);
    }
    function test_thePageKeysTurnThePageAndStopAtItsEnds() {
        const made = page({});
        waitForRendering(made);
        keyClick(Qt.Key_PageDown);
        verify(made.offset > 200);
        keyClick(Qt.Key_PageUp);
        keyClick(Qt.Key_PageUp);
        compare(made.offset, 0);
        for (let i = 0; i < 20; ++i)
            keyClick(Qt.Key_PageDown);
        verify(made.listView.atYEnd);
    }
    function test_controlAndRRescansOnlyAPageThatCan() {
        const still = page({});
        const none = createTemporaryObject(spies, test, {
            "target": still,
            "signalName": "rescan"
        });
        keyClick(Qt.Key_R, Qt.ControlModifier);
        compare(none.count, 0);
        still.destroy();
        wait(0);
        const made = page({
            "canRescan": true
        });
        const spy = createTemporaryObject(spies, test, {
            "target": made,
            "signalName": "rescan"
        });
        keyClick(Qt.Key_R, Qt.ControlModifier);
        compare(spy.count, 1);
    }

    property int pressed: -1

    height: 500
    name: "CollapsingPage"
    visible: true
    when: windowShown
    width: 700

    Component {
        id: pages

        CollapsingPage {
            id: made

            height: 500
            model: 40
            title: "Clean"
            width: 700

            delegate: PointerButton {
                required property int index

                height: 46
                width: 700
                onClicked: test.pressed = index
            }
        }
    }

    Component {
        id: reds

        Rectangle {
            color: "red"
            height: 46
            width: 700
        }
    }

    Component {
        id: growing

        Item {
            implicitHeight: 100
            objectName: "growing"
        }
    }

    Component {
        id: spies

        SignalSpy {
        }
    }
}
