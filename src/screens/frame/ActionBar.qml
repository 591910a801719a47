pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit

// What a page's selection can be used for, in a row at the page's lower edge.
Item {
    id: bar

    default property alias content: row.data

    implicitHeight: row.implicitHeight + 39
    implicitWidth: row.implicitWidth + 80

    Separator {
        width: bar.width
    }

    RowLayout {
        id: row

        spacing: 12

        anchors {
            fill: parent
            leftMargin: 40
            rightMargin: 40
            topMargin: 17
            bottomMargin: 22
        }
    }
}
