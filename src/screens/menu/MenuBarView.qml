pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Menu

// The summary behind the item in the menu bar: the disk, what can be reclaimed, and the commands.
FocusScope {
    id: view

    required property ScreenModel model
    readonly property MenuPanelModel panel: model.menu

    /// Something was chosen that is not in here, or the panel was sent away.
    signal dismissed

    /// The keys go through the rows as by Tab.
    function step(forward: bool) {
        const from = Window.activeFocusItem ?? view;
        const to = from.nextItemInFocusChain(forward);
        if (to)
            to.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    Keys.onDownPressed: step(true)
    Keys.onUpPressed: step(false)
    implicitHeight: content.implicitHeight
    implicitWidth: 320

    Rectangle {
        anchors.fill: parent
        color: Theme.palette.win
    }

    ColumnLayout {
        id: content

        spacing: 0
        width: parent.width

        DiskHead {
            Layout.fillWidth: true
            panel: view.panel
        }

        Separator {
            Layout.fillWidth: true
        }

        ReclaimBlock {
            Layout.fillWidth: true
            panel: view.panel
        }

        Separator {
            Layout.fillWidth: true
        }

        Column {
            Layout.bottomMargin: 6
            Layout.fillWidth: true
            Layout.topMargin: 6

            Repeater {
                model: view.panel.commands

                delegate: MenuRow {
                    required property int index

                    width: parent?.width ?? 0
                    onClicked: view.panel.runCommand(index)
                }
            }
        }
    }

    // The edge against whatever window lies below.
    Rectangle {
        anchors.fill: parent
        border.color: Theme.palette.sep
        color: "transparent"
    }

    Shortcut {
        sequence: "Esc"
        onActivated: view.dismissed()
    }

    Connections {
        function onMainWanted() {
            view.dismissed();
        }

        function onQuitWanted() {
            view.dismissed();
        }

        target: view.panel
    }
}
