pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Clean

// The paths of an open category, as far as they are listed.
Column {
    id: paths

    required property list<pathLine> lines
    required property string more
    required property string detail

    bottomPadding: 14
    spacing: 6

    Label {
        bottomPadding: 2
        color: Theme.palette.label2
        elide: Text.ElideRight
        size: 12.5
        text: paths.detail
        weight: Font.Medium
        width: paths.width
    }

    Repeater {
        model: paths.lines

        delegate: CleanPath {
            width: paths.width
        }
    }

    Label {
        color: Theme.palette.label3
        size: 12
        text: paths.more
        visible: text !== ""
    }
}
