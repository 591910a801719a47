pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Lists
import Zolva.Model
import Zolva.Screens.Clean

// One category; its paths below it while it is open.
TickRow {
    id: row

    required property CleanModel clean
    required property int trailingKind
    required property string detail
    required property bool open
    required property list<pathLine> lines
    required property string more

    /// The row stays where it is, though another one above it may close, and moves only as far as
    /// brings its paths into sight.
    function toggleOpen() {
        const view = ListView.view;
        const before = y - view.contentY;
        clean.toggleOpen(rowId);
        if (open)
            (paths.item as CleanPaths).forceLayout();
        view.forceLayout();
        view.contentY = y - before;
        view.returnToBounds();
        view.positionViewAtIndex(index, ListView.Contain);
    }

    head.descColor: Theme.palette.label2
    head.isLit: head.hovering || opener.hovering
    head.isSize: trailingKind === CleanRows.Size
    head.nameElide: Text.ElideRight
    head.nameSize: 14
    head.room: 48
    head.spokenHint: "Include this category in the next clean"
    head.wordsSize: trailingKind === CleanRows.NeedsPassword ? 12.5 : 12
    implicitHeight: head.height + paths.height
    // What cannot be ticked can still be opened.
    target: tickable ? head : opener

    Keys.onLeftPressed: {
        if (open)
            toggleOpen();
    }
    Keys.onRightPressed: {
        if (!open)
            toggleOpen();
    }

    // Beside the rest of the row, so that it opens also what cannot be ticked.
    PointerButton {
        id: opener

        activeFocusOnTab: row.isCurrent
        focus: !row.tickable
        height: row.head.height
        ringInset: 8
        ringRadius: 15
        spokenHint: row.open ? "Hides the list of paths" : "Shows the list of paths"
        spokenName: row.name
        // The rest of such a row is never come to.
        spokenValue: row.tickable ? "" : row.spokenValue
        width: 48
        x: row.head.x + row.head.width - width

        onClicked: row.toggleOpen()

        Chevron {
            anchors.centerIn: parent
            color: opener.hovering ? Theme.palette.label : Theme.palette.label3
            open: row.open
            size: 12
        }
    }

    Slot {
        id: paths

        component: row.open ? opened : null
        height: implicitHeight
        width: row.head.width - 51 - 18
        x: row.head.x + 51
        y: row.head.height
    }

    Component {
        id: opened

        CleanPaths {
            detail: row.detail
            lines: row.lines
            more: row.more
        }
    }
}
