pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Home
import Zolva.Sheets

// The sum in large letters, what it lacks, and a card for each of the ways.
Item {
    id: body

    required property ScreenModel model

    implicitHeight: column.implicitHeight + 40

    ColumnLayout {
        id: column

        spacing: 0
        width: parent.width - 80
        x: 40
        y: 8

        Label {
            Accessible.role: Accessible.Heading
            Layout.fillWidth: true
            size: 40
            text: body.model.home.heading
            tracking: -1
            weight: Font.Bold
            wrapMode: Text.Wrap
        }

        Label {
            Layout.fillWidth: true
            Layout.maximumWidth: 460
            Layout.topMargin: 15
            color: Theme.palette.label2
            lineHeight: 1.15
            size: 15
            text: "Scanned live with mo across your caches, project folders and downloads. Nothing is deleted, every command previews first."
            wrapMode: Text.Wrap
        }

        RowLayout {
            Layout.topMargin: 26
            spacing: 10

            PillButton {
                font: Face.text(13.5, Font.DemiBold)
                role: PillButton.Accent
                title: "Rescan"

                onClicked: body.model.home.scanAll()
            }

            PillButton {
                font: Face.text(13.5, Font.Medium)
                hpad: 18
                role: PillButton.Neutral
                title: "Review Clean"

                onClicked: body.model.go("clean")
            }
        }

        AccessNotice {
            Layout.fillWidth: true
            Layout.topMargin: 30
            access: body.model.access
        }

        GridLayout {
            Layout.fillWidth: true
            Layout.topMargin: 26
            columnSpacing: 14
            columns: 2
            rowSpacing: 14

            Repeater {
                model: body.model.home

                delegate: HomeCard {
                    Layout.fillHeight: true
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1

                    onClicked: body.model.go(goTo)
                }
            }
        }
    }
}
