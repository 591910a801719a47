pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// What a page's selection can be used for, at the page's lower edge.
Item {
    id: bar

    default property alias content: column.data

    implicitHeight: column.height + 39

    Separator {
        width: bar.width
    }

    Column {
        id: column

        width: bar.width - 80
        x: 40
        y: 17
    }
}
