pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model
import Zolva.Sheets

// The sum in large letters, what it lacks, and a card for each of the ways.
Item {
    id: body

    required property ScreenModel model

    implicitHeight: column.height + 8 + 32

    Column {
        id: column

        width: parent.width - 80
        x: 40
        y: 8

        Label {
            lineHeight: 1.06
            size: 40
            text: body.model.home.heading
            tracking: -1
            weight: Font.Bold
            width: parent.width
            wrapMode: Text.Wrap

            Accessible.role: Accessible.Heading
        }

        Item {
            height: 15
            width: 1
        }

        Label {
            color: Theme.palette.label2
            lineHeight: 1.2
            size: 15
            text: "Scanned live with mo across your caches, project folders and downloads. Nothing is deleted, every command previews first."
            width: Math.min(460, parent.width)
            wrapMode: Text.Wrap
        }

        Item {
            height: 26
            width: 1
        }

        Row {
            spacing: 10

            PillButton {
                hpad: 22
                pillHeight: 38
                radius: 9
                role: PillButton.Accent
                title: "Rescan"

                onClicked: body.model.home.scanAll()
            }

            PillButton {
                hpad: 18
                pillHeight: 38
                radius: 9
                role: PillButton.Neutral
                title: "Review Clean"

                onClicked: body.model.go("clean")
            }
        }

        Item {
            height: 30
            visible: notice.visible
            width: 1
        }

        AccessNotice {
            id: notice

            access: body.model.access
            width: parent.width
        }

        Item {
            height: 26
            width: 1
        }

        GridLayout {
            columnSpacing: 14
            columns: 2
            rowSpacing: 14
            width: parent.width

            Repeater {
                model: body.model.home

                HomeCard {
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1

                    onClicked: body.model.go(goTo)
                }
            }
        }
    }
}
