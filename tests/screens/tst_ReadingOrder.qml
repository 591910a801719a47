import QtQuick
import QtTest
import Zolva.Frame

TestCase {
    id: test

    function listOf(count) {
        const made = createTemporaryObject(lists, test);
        for (let i = 0; i < count; ++i)
            made.rows.append({
                "number": i
            });
        waitForRendering(made);
        return made;
    }
    /// The numbers of the rows as they stand among the list's children.
    function read(made) {
        return Array.from(made.contentItem.children).map(each => each.number).filter(
                    number => number !== undefined);
    }
    function isRising(numbers) {
        return numbers.length > 2 && numbers.every((each, i) => i === 0 || numbers[i - 1] < each);
    }

    function test_aRowThatComesInAtTheTopIsReadFirst() {
        const made = listOf(60);
        made.positionViewAtIndex(59, ListView.End);
        made.positionViewAtIndex(20, ListView.Beginning);
        made.positionViewAtIndex(15, ListView.Beginning);
        tryVerify(() => isRising(read(made)) && read(made).includes(15));
    }
    function test_rowsInANewOrderAreReadInIt() {
        const made = listOf(8);
        made.rows.move(7, 0, 1);
        tryVerify(() => read(made).join() === "7,0,1,2,3,4,5,6");
    }
    function test_aRowThatIsPutInIsReadInItsPlace() {
        const made = listOf(8);
        made.rows.insert(3, {
            "number": 100
        });
        tryVerify(() => read(made).join() === "0,1,2,100,3,4,5,6,7");
    }
    function test_whatStandsBelowTheRowsIsReadLast() {
        const made = listOf(4);
        made.rows.clear();
        waitForRendering(made);
        made.rows.append({
            "number": 1
        });
        tryVerify(() => {
            const all = Array.from(made.contentItem.children);
            const row = all.findIndex(each => each.number === 1);
            return row >= 0 && all.indexOf(made.headerItem) < row && row < all.indexOf(made.footerItem);
        });
    }

    name: "ReadingOrder"
    visible: true
    when: windowShown
    height: 300
    width: 300

    Component {
        id: lists

        ListView {
            id: list

            readonly property ListModel rows: ListModel {
            }

            currentIndex: -1
            height: 200
            model: rows
            width: 200

            delegate: Item {
                required property int index
                required property int number

                height: 20
                width: 200
            }
            footer: Item {
                height: 10
                width: 10
            }
            header: Item {
                height: 10
                width: 10
            }

            ReadingOrder {
                list: list
            }
        }
    }
}
