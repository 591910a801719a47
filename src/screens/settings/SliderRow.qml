pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Zolva.Kit

// A whole number between two others.
ColumnLayout {
    id: row

    required property string title
    required property string valueText
    required property int value
    required property int from
    required property int to
    /// Of a value beyond either end the slider shows the end, and leaves it alone.
    readonly property int bounded: Math.max(from, Math.min(to, value))

    signal chosen(int value)

    spacing: 6

    RowLayout {
        Layout.fillWidth: true

        Label {
            Accessible.ignored: true
            Layout.fillWidth: true
            size: 13
            text: row.title
        }

        Label {
            Accessible.ignored: true
            color: Theme.palette.label2
            size: 13
            text: row.valueText
        }
    }

    T.Slider {
        id: slider

        Accessible.description: row.valueText
        Accessible.name: row.title
        Keys.onPressed: event => {
            event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
            if (event.accepted)
                row.chosen(event.key === Qt.Key_Home ? row.from : row.to);
        }
        Layout.fillWidth: true
        activeFocusOnTab: true
        focusPolicy: Qt.TabFocus
        from: row.from
        implicitHeight: 22
        snapMode: T.Slider.SnapAlways
        stepSize: 1
        to: row.to
        value: row.bounded

        background: Rectangle {
            color: Theme.palette.btnHover
            height: 4
            radius: 2
            width: slider.width
            y: (slider.height - height) / 2

            Rectangle {
                color: Theme.palette.accent
                height: parent.height
                radius: 2
                width: slider.handle.x + slider.handle.width / 2
            }
        }
        handle: Item {
            height: 18
            width: 18
            x: slider.visualPosition * (slider.width - width)
            y: (slider.height - height) / 2

            Shadow {
                anchors.fill: parent
                blur: 1
                radius: height / 2
                strength: 0.3
            }

            Rectangle {
                anchors.fill: parent
                color: "white"
                radius: height / 2
            }

            FocusRing {
                ringRadius: 9
                visible: slider.visualFocus
            }
        }

        // By the pointer, the keys or assistive technology alike.
        onValueChanged: {
            if (Math.round(value) !== row.bounded)
                row.chosen(Math.round(value));
        }

        // In a part of its own, which leaves the presses of the other buttons of the pointer alone.
        Item {
            anchors.fill: parent

            HoverCursor {
            }
        }
    }
}
