pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Settings

// What is never touched, a place for more, and what is wrong with what is typed there.
ColumnLayout {
    id: list

    required property SettingsModel settings

    spacing: 0

    Repeater {
        model: list.settings.exclusions

        delegate: ColumnLayout {
            id: entry

            required property int index
            required property string path

            Layout.fillWidth: true
            spacing: 0

            CardRow {
                Label {
                    Layout.fillWidth: true
                    elide: Text.ElideMiddle
                    size: 13
                    text: entry.path
                }

                RemoveLink {
                    spokenHint: entry.path

                    onClicked: list.settings.remove(entry.index)
                }
            }

            Separator {
                Layout.fillWidth: true
                Layout.leftMargin: 18
                color: Theme.palette.sep2
            }
        }
    }

    CardRow {
        Item {
            Layout.fillWidth: true
            implicitHeight: field.implicitHeight

            ExclusionField {
                id: field

                anchors.fill: parent
                settings: list.settings
            }

            FocusRing {
                inset: -7
                ringRadius: 1
                visible: field.activeFocus
            }
        }

        LinkButton {
            enabled: list.settings.canAdd
            font: Face.text(13, Font.Medium)
            hoverColor: Theme.palette.accentHover
            opacity: list.settings.canAdd ? 1 : 0.45
            title: "Add"

            onClicked: list.settings.add()
        }
    }

    CardRow {
        topPadding: 0
        visible: list.settings.draftError !== ""

        Symbol {
            Layout.alignment: Qt.AlignTop
            color: Theme.palette.amber
            name: "exclamationmark.triangle.fill"
            size: 13
        }

        Label {
            Accessible.role: Accessible.AlertMessage
            Layout.fillWidth: true
            Layout.leftMargin: -6
            color: Theme.palette.label2
            size: 12.5
            text: list.settings.draftError
            wrapMode: Text.Wrap
        }
    }
}
