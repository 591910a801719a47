pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model

// What of a category is in sight even while it is closed; it ticks it.
PointerButton {
    id: head

    required property string name
    required property string desc
    required property bool tickable
    required property bool ticked
    required property string trailing
    required property int trailingKind
    required property bool openerHovered
    readonly property bool isSize: trailingKind === CleanRows.Size

    Accessible.checkable: tickable
    Accessible.checked: ticked
    enabled: tickable
    implicitHeight: 62
    ringInset: 4
    ringRadius: 13
    spokenHint: "Include this category in the next clean"
    spokenName: name

    HoverFill {
        anchors.fill: parent
        anchors.margins: 4
        hover: Theme.palette.cardHover
        hovering: head.hovering || head.openerHovered
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
        elide: Text.ElideRight
        size: 14
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
        color: Theme.palette.label2
        elide: Text.ElideRight
        maximumLineCount: 1
        size: 12.5
        text: head.desc
    }

    Label {
        id: amount

        Accessible.ignored: true
        anchors.right: parent.right
        anchors.rightMargin: 48
        anchors.verticalCenter: parent.verticalCenter
        color: head.isSize ? Theme.palette.label : Theme.palette.label3
        size: head.isSize ? 14 : head.trailingKind === CleanRows.NeedsPassword ? 12.5 : 12
        text: head.trailing
        weight: head.isSize ? Font.DemiBold : Font.Normal
    }
}
