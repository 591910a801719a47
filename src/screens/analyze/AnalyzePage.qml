pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Lists
import Zolva.Model
import Zolva.Screens.Analyze

// One place: the way to it, what is in it, and the largest files; or that it is being walked.
FocusScope {
    id: page

    required property AnalyzeModel analyze
    property alias trailing: scroll.trailing
    /// Whoever uses the pointer has no use for a ring that comes up by itself.
    property bool byKeys: false
    readonly property bool isLoaded: analyze.page === AnalyzeModel.Loaded
    readonly property alias scroll: scroll
    readonly property alias menu: menu

    /// The keyboard goes on among the rows that have come.
    function begin() {
        const view = scroll.listView;
        if (!isLoaded || view.count === 0)
            return;
        view.forceLayout();
        view.currentIndex = analyze.startRow;
        if (!activeFocus || !byKeys)
            return;
        view.positionViewAtIndex(analyze.startRow, ListView.Contain);
        (view.currentItem as ListRow).takeFocus();
    }

    /// The Tab key and a reader go on in the order in which things were made, and rows are made
    /// later than what stands below them.
    function putFilesBehindRows() {
        const below = scroll.listView.footerItem;
        const all = scroll.listView.contentItem.children;
        if (below === all[all.length - 1])
            return;
        below.parent = null;
        below.parent = scroll.listView.contentItem;
    }

    onIsLoadedChanged: Qt.callLater(begin)
    Component.onCompleted: Qt.callLater(begin)

    Connections {
        function onCurrentItemChanged() {
            if (scroll.listView.currentItem)
                page.putFilesBehindRows();
        }

        target: scroll.listView
    }

    CollapsingPage {
        id: scroll

        anchors.fill: parent
        focus: true
        footer: page.isLoaded ? files : null
        header: page.isLoaded ? crumbs : waiting
        model: page.analyze.rows
        title: "Analyze"

        delegate: AnalyzeRow {
            id: entry

            analyze: page.analyze
            width: ListView.view.width

            onMenuWanted: at => menu.openFor(entry, at)
        }

        RowTap {
            view: scroll.listView

            onMenuWanted: (row, at) => menu.openFor(row, at)
        }
    }

    RowsCard {
        view: scroll.listView
    }

    RowMenu {
        id: menu

        PopupItem {
            symbol: "folder"
            text: "Show in Finder"

            onTriggered: page.analyze.reveal(menu.place)
        }
    }

    Component {
        id: waiting

        AnalyzeWait {
            failText: page.analyze.failText
            waitText: page.analyze.waitText
        }
    }

    Component {
        id: crumbs

        AnalyzeHead {
            analyze: page.analyze
        }
    }

    Component {
        id: files

        LargestFiles {
            analyze: page.analyze
        }
    }
}
