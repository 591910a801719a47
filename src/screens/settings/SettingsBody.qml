pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Settings

// All sections, one below the other.
FocusScope {
    id: body

    required property ScreenModel model
    readonly property SettingsModel settings: model.settings

    implicitHeight: column.implicitHeight + 48

    ColumnLayout {
        id: column

        spacing: 24
        width: parent.width - 80
        x: 40
        y: 8

        Section {
            title: "Appearance"

            CardRow {
                Label {
                    Accessible.ignored: true
                    Layout.fillWidth: true
                    size: 13
                    text: picker.title
                }

                SegmentedPicker {
                    id: picker

                    current: body.settings.theme
                    names: body.settings.themes
                    title: "Theme"

                    onChosen: place => body.settings.theme = place
                }
            }
        }

        Section {
            title: "Removing"

            SwitchRow {
                heading: "Move to the Trash instead of deleting"
                note: body.settings.keepInTrashNote
                on: body.settings.keepInTrash
                spokenState: body.settings.keepInTrashSpoken

                onClicked: body.settings.keepInTrash = !on
            }
        }

        Section {
            title: "Never touch these"

            ExclusionList {
                Layout.fillWidth: true
                settings: body.settings
            }
        }

        Section {
            title: "Status polling"

            PollingRows {
                Layout.fillWidth: true
                settings: body.settings
            }
        }

        Section {
            title: "Administrator access"

            CardRow {
                bottomPadding: 0

                Label {
                    Layout.fillWidth: true
                    color: Theme.palette.label2
                    size: 13
                    text: "Authorisation lasts for one run and expires when Zolva quits."
                    wrapMode: Text.Wrap
                }
            }

            SwitchRow {
                heading: "Ask with Touch ID when a path needs sudo"
                on: body.settings.touchid

                onClicked: body.settings.touchid = !on
            }
        }

        Section {
            title: "Updates"

            UpdateRow {
                updates: body.model.updates
            }
        }

        Section {
            title: "Open source"

            ToolNotice {
                Layout.fillWidth: true
                settings: body.settings
            }
        }
    }
}
