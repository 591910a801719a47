pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Model
import Zolva.Screens.Uninstall

// The installed applications, and what each of them would take along.
FocusScope {
    id: screen

    required property ScreenModel model
    readonly property UninstallModel uninstall: model.uninstall

    /// The button that was pressed is gone until there is a list again.
    function rescan() {
        uninstall.rescan();
        body.item.forceActiveFocus();
    }

    PageHeader {
        id: header

        canRescan: screen.uninstall.page === UninstallModel.List
        title: "Uninstall"
        width: screen.width

        trailing: Component {
            Row {
                spacing: 10

                SearchField {
                    query: screen.uninstall.query

                    onFinished: (body.item as UninstallPanes)?.takeFocus()
                    onSearched: text => screen.uninstall.query = text
                }

                HeaderMenu {
                    current: screen.uninstall.sort.current
                    entries: screen.uninstall.sort.names
                    label: screen.uninstall.sort.label

                    onChosen: place => screen.uninstall.sort.choose(place)
                }
            }
        }

        onRescan: screen.rescan()
    }

    Slot {
        id: body

        component: screen.uninstall.page === UninstallModel.List ? panes : screen.uninstall.page
                                                                 === UninstallModel.Failed ? failure : welcome
        height: screen.height - y
        width: screen.width
        y: header.height
    }

    Shortcut {
        enabled: header.canRescan && screen.enabled && screen.visible
        sequence: "Ctrl+R"
        onActivated: screen.rescan()
    }

    Component {
        id: welcome

        FocusScope {
            focus: true

            ScanWelcome {
                focus: true
                height: parent.height - header.height / 2
                icon: "square.grid.2x2.fill"
                message: "Zolva lists the apps you've installed and the leftover files each one leaves behind."
                scanning: screen.uninstall.page === UninstallModel.Scanning
                title: "Scan installed apps"
                width: parent.width - 80
                x: 40

                onScan: screen.uninstall.scan()
            }
        }
    }

    Component {
        id: failure

        Item {
            focus: true

            ReadFailure {
                text: screen.uninstall.failure
                width: parent.width - 80
                x: 40
            }
        }
    }

    Component {
        id: panes

        UninstallPanes {
            focus: true
            model: screen.model
        }
    }
}
