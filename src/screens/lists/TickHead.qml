// Not bound: the loaders of Qt 6.4 refuse bound components.
import QtQuick
import Zolva.Kit

// A box, two lines beside it and an amount, which together are one button that ticks.
PointerButton {
    id: head

    required property string name
    required property string desc
    required property bool tickable
    required property bool ticked
    required property string trailing
    property real nameSize: 13.5
    property int nameElide: Text.ElideMiddle
    property color descColor: Theme.palette.label3
    /// An amount, or else words in its place.
    property bool isSize: tickable
    property real wordsSize: 12
    /// At the trailing side, for what stands there beside the amount.
    property real room: 18
    property bool isSpoken: true
    /// Also by what stands on it.
    property bool isLit: hovering

    Accessible.checkable: tickable
    Accessible.checked: ticked
    Accessible.ignored: !isSpoken
    enabled: tickable
    implicitHeight: 62
    ringInset: 4
    ringRadius: 13
    spokenName: name

    HoverFill {
        anchors.fill: parent
        anchors.margins: 4
        hover: Theme.palette.cardHover
        hovering: head.isLit
        radius: 9
    }

    CheckBox {
        id: box

        anchors.verticalCenter: parent.verticalCenter
        dimmed: !head.tickable
        on: head.ticked
        x: 18
    }

    Label {
        id: title

        Accessible.ignored: true
        anchors.left: box.right
        anchors.leftMargin: 14
        anchors.right: amount.left
        anchors.rightMargin: 16
        elide: head.nameElide
        maximumLineCount: 1
        size: head.nameSize
        text: head.name
        weight: Font.Medium
        y: Math.round((head.height - height - 3 - words.height) / 2)
    }

    Label {
        id: words

        Accessible.ignored: true
        anchors.left: title.left
        anchors.right: title.right
        anchors.top: title.bottom
        anchors.topMargin: 3
        color: head.descColor
        elide: Text.ElideRight
        maximumLineCount: 1
        size: 12.5
        text: head.desc
    }

    Label {
        id: amount

        Accessible.ignored: true
        anchors.right: parent.right
        anchors.rightMargin: head.room
        anchors.verticalCenter: parent.verticalCenter
        color: head.isSize ? Theme.palette.label : Theme.palette.label3
        size: head.isSize ? 14 : head.wordsSize
        text: head.trailing
        weight: head.isSize ? Font.DemiBold : Font.Normal
    }

    // Of every row: the tip is made when it is wanted.
    Loader {
        active: head.hovering && title.truncated
        anchors.fill: parent

        sourceComponent: Item {
            HintTip {
                text: head.name
                visible: true
            }
        }
    }
}
