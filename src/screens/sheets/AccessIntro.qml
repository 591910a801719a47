pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model
import Zolva.Sheets

// Told once: some places cannot be looked into, and what to do about it.
OverlayCard {
    id: intro

    required property AccessModel access

    closesOnScrim: false
    firstFocus: notNow
    isOpen: access.introShown
    spokenBody: access.introText
    spokenName: access.introSpoken

    onCancelled: access.dismissIntro(false)

    Rectangle {
        Layout.alignment: Qt.AlignHCenter
        Layout.preferredHeight: 44
        Layout.preferredWidth: 44
        color: Theme.palette.accentTint
        radius: 22

        Symbol {
            anchors.centerIn: parent
            color: Theme.palette.accent
            name: "lock.open.fill"
            size: 30
        }
    }

    Label {
        Accessible.role: Accessible.Heading
        Layout.fillWidth: true
        Layout.topMargin: 14
        horizontalAlignment: Text.AlignHCenter
        size: 15
        text: "Zolva can't see everything yet"
        weight: Font.Bold
        wrapMode: Text.Wrap
    }

    Paragraph {
        Layout.fillWidth: true
        Layout.topMargin: 14
        text: intro.access.introText
    }

    ColumnLayout {
        Layout.fillWidth: true
        Layout.topMargin: 16
        spacing: 9

        Repeater {
            model: ["Open Privacy & Security → Full Disk Access", "Turn on Zolva in the list",
                "Come back and scan again"]

            delegate: RowLayout {
                id: step

                required property int index
                required property string modelData

                spacing: 9

                Rectangle {
                    Layout.preferredHeight: 16
                    Layout.preferredWidth: 16
                    color: Theme.palette.accent
                    radius: 8

                    Label {
                        Accessible.ignored: true
                        anchors.centerIn: parent
                        color: "white"
                        size: 11
                        text: step.index + 1
                        weight: Font.DemiBold
                    }
                }

                Label {
                    Layout.fillWidth: true
                    size: 12.5
                    text: step.modelData
                    wrapMode: Text.Wrap
                }
            }
        }
    }

    RowLayout {
        Layout.fillWidth: true
        Layout.topMargin: 20
        spacing: 10

        PillButton {
            id: notNow

            KeyNavigation.right: settings
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            font: Face.text(13, Font.Medium)
            radius: 8
            role: PillButton.Neutral
            spokenHint: "Zolva will report only what it can see"
            spokenName: "Continue without full access"
            title: "Not now"

            onClicked: intro.access.dismissIntro(false)
        }

        PillButton {
            id: settings

            Layout.fillWidth: true
            Layout.preferredWidth: 1
            font: Face.text(13, Font.DemiBold)
            radius: 8
            role: PillButton.Accent
            spokenHint: "Opens Privacy and Security so you can turn on Full Disk Access"
            spokenName: "Open System Settings"
            title: "Open Settings"

            onClicked: intro.access.dismissIntro(true)
        }
    }
}
