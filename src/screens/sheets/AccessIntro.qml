pragma ComponentBehavior: Bound

import QtQuick
import Zolva.Kit
import Zolva.Model

// Told once: some places cannot be looked into, and what to do about it.
OverlayCard {
    id: intro

    required property AccessModel access

    closesOnScrim: false
    firstFocus: notNow
    isOpen: access.introShown
    spokenName: access.introSpoken

    onCancelled: access.dismissIntro(false)

    Column {
        width: parent.width

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            color: Theme.palette.accentTint
            height: 44
            radius: 22
            width: 44

            Symbol {
                anchors.centerIn: parent
                color: Theme.palette.accent
                name: "lock.open.fill"
                size: 30
            }
        }

        Item {
            height: 14
            width: 1
        }

        Label {
            horizontalAlignment: Text.AlignHCenter
            size: 15
            text: "Zolva can't see everything yet"
            weight: Font.Bold
            width: parent.width
            wrapMode: Text.Wrap
        }

        Item {
            height: 14
            width: 1
        }

        Label {
            color: Theme.palette.label2
            horizontalAlignment: Text.AlignHCenter
            size: 12.5
            text: intro.access.introText
            width: parent.width
            wrapMode: Text.Wrap
        }

        Item {
            height: 16
            width: 1
        }

        Column {
            spacing: 9
            width: parent.width

            Repeater {
                model: ["Open Privacy & Security → Full Disk Access", "Turn on Zolva in the list",
                    "Come back and scan again"]

                Row {
                    id: step

                    required property int index
                    required property string modelData

                    spacing: 9

                    Rectangle {
                        anchors.verticalCenter: parent.verticalCenter
                        color: Theme.palette.accentTint
                        height: 16
                        radius: 8
                        width: 16

                        Label {
                            Accessible.ignored: true
                            anchors.centerIn: parent
                            color: Theme.palette.accent
                            size: 11
                            text: step.index + 1
                            weight: Font.DemiBold
                        }
                    }

                    Label {
                        anchors.verticalCenter: parent.verticalCenter
                        size: 12.5
                        text: step.modelData
                    }
                }
            }
        }

        Item {
            height: 20
            width: 1
        }

        Row {
            spacing: 10
            width: parent.width

            PillButton {
                id: notNow

                font: Face.text(13, Font.Medium)
                radius: 8
                role: PillButton.Neutral
                spokenHint: "Zolva will report only what it can see"
                spokenName: "Continue without full access"
                title: "Not now"
                width: (parent.width - 10) / 2

                onClicked: intro.access.dismissIntro(false)
            }

            PillButton {
                font: Face.text(13, Font.DemiBold)
                radius: 8
                role: PillButton.Accent
                spokenHint: "Opens Privacy and Security so you can turn on Full Disk Access"
                spokenName: "Open System Settings"
                title: "Open Settings"
                width: (parent.width - 10) / 2

                onClicked: intro.access.dismissIntro(true)
            }
        }
    }
}
