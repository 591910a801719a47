pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Clean

// One category; its paths below it while it is open.
FocusScope {
    id: row

    required property CleanModel clean
    required property int index
    required property string rowId
    required property string name
    required property string desc
    required property bool ticked
    required property bool tickable
    required property string trailing
    required property int trailingKind
    required property string detail
    required property bool open
    required property string spokenValue
    required property list<pathLine> lines
    required property string more
    /// The one that the Tab key comes to; what has the focus cannot give that up.
    readonly property bool isCurrent: ListView.isCurrentItem || activeFocus || (index === 0
                                                        && ListView.view.currentIndex < 0)
    readonly property bool isLast: index === ListView.view.count - 1

    function stepTo(place: int) {
        const view = ListView.view;
        // There and in its place before it gets the focus, so that the page can follow.
        view.positionViewAtIndex(place, ListView.Contain);
        view.currentIndex = place;
        (view.currentItem as CleanRow).takeFocus();
    }

    /// What cannot be ticked can still be opened.
    function takeFocus() {
        const target = tickable ? head : opener;
        target.forceActiveFocus(Qt.TabFocusReason);
        // The list may have given it the focus before, and for a reason without a ring.
        target.focusReason = Qt.TabFocusReason;
    }

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

    implicitHeight: head.height + paths.height

    Keys.onDownPressed: {
        if (!isLast)
            stepTo(index + 1);
    }
    Keys.onLeftPressed: {
        if (open)
            toggleOpen();
    }
    Keys.onRightPressed: {
        if (!open)
            toggleOpen();
    }
    Keys.onUpPressed: event => {
        event.accepted = index > 0;
        if (index > 0)
            stepTo(index - 1);
    }
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (event.accepted)
            stepTo(event.key === Qt.Key_Home ? 0 : ListView.view.count - 1);
    }
    // Where the keyboard goes on after the pointer.
    onActiveFocusChanged: {
        if (activeFocus)
            ListView.view.currentIndex = index;
    }

    CleanRowHead {
        id: head

        activeFocusOnTab: row.isCurrent && row.tickable
        desc: row.desc
        focus: row.tickable
        name: row.name
        openerHovered: opener.hovering
        spokenValue: row.spokenValue
        tickable: row.tickable
        ticked: row.ticked
        trailing: row.trailing
        trailingKind: row.trailingKind
        width: row.width - 80
        x: 40

        onClicked: {
            row.ListView.view.currentIndex = row.index;
            row.clean.pick(row.rowId, shiftHeld);
        }
    }

    // Beside the rest of the row, so that it opens also what cannot be ticked.
    PointerButton {
        id: opener

        activeFocusOnTab: row.isCurrent
        focus: !row.tickable
        height: head.height
        ringInset: 8
        ringRadius: 15
        spokenHint: row.open ? "Hides the list of paths" : "Shows the list of paths"
        spokenName: row.name
        // The rest of such a row is never come to.
        spokenValue: row.tickable ? "" : row.spokenValue
        width: 48
        x: head.x + head.width - width

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
        width: head.width - 51 - 18
        x: head.x + 51
        y: head.height
    }

    Component {
        id: opened

        CleanPaths {
            detail: row.detail
            lines: row.lines
            more: row.more
        }
    }

    Separator {
        color: Theme.palette.sep2
        visible: !row.isLast
        width: head.width - 51
        x: head.x + 51
        y: row.height - 1
    }
}
