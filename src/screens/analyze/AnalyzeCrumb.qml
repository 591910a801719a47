pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// One step of the way; the last one is where we are.
Row {
    id: crumb

    required property int index
    required property string modelData
    required property bool isCurrent

    signal clicked

    spacing: 7

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.palette.label3
        name: "chevron.right"
        size: 9
        visible: crumb.index > 0
        weight: Font.DemiBold
    }

    LinkButton {
        font: Face.text(13)
        hoverColor: Theme.palette.accentHover
        title: crumb.modelData
        visible: !crumb.isCurrent
        width: Math.min(implicitWidth, 240)

        onClicked: crumb.clicked()
    }

    Label {
        elide: Text.ElideMiddle
        size: 13
        text: crumb.modelData
        visible: crumb.isCurrent
        weight: Font.DemiBold
        width: Math.min(implicitWidth, 320)
    }
}
