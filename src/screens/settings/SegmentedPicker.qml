pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// One of a few, all in sight. The Tab key comes to the chosen one, the arrows choose its neighbour.
Rectangle {
    id: picker

    required property string title
    required property list<string> names
    required property int current

    signal chosen(int place)

    function choose(place: int) {
        if (place < 0 || place >= names.length)
            return;
        chosen(place);
        segments.itemAt(place).forceActiveFocus(Qt.TabFocusReason);
    }

    Accessible.name: title
    Accessible.role: Accessible.Grouping
    color: Theme.palette.btn
    implicitHeight: 30
    implicitWidth: row.width + 4
    radius: 8

    Row {
        id: row

        x: 2
        y: 2

        Repeater {
            id: segments

            model: picker.names

            delegate: PointerButton {
                id: segment

                required property int index
                required property string modelData
                readonly property bool isCurrent: index === picker.current

                Accessible.checkable: true
                Accessible.checked: isCurrent
                // The toolkit puts its own in their place as soon as somebody listens.
                Accessible.onCheckableChanged: Accessible.checkable = true
                Accessible.onCheckedChanged: Accessible.checked = Qt.binding(() => segment.isCurrent)
                // What has the focus cannot give that up.
                activeFocusOnTab: isCurrent || activeFocus
                height: picker.height - 4
                leftPadding: 16
                ringRadius: 6
                rightPadding: 16
                spokenName: modelData
                spokenRole: Accessible.RadioButton

                background: Rectangle {
                    color: segment.isCurrent ? Theme.palette.accent : segment.hovering
                                               ? Theme.palette.btn : "transparent"
                    radius: 6
                }
                contentItem: Label {
                    Accessible.ignored: true
                    color: segment.isCurrent ? "white" : Theme.palette.label
                    size: 13
                    text: segment.modelData
                    verticalAlignment: Text.AlignVCenter
                    weight: segment.isCurrent ? Font.DemiBold : Font.Normal
                }

                Keys.onLeftPressed: picker.choose(index - 1)
                Keys.onRightPressed: picker.choose(index + 1)
                onClicked: picker.chosen(index)
            }
        }
    }
}
