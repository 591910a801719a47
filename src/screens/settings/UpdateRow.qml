pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Settings

// Which version this is, what is known of a newer one, and the next step.
CardRow {
    id: row

    required property UpdateModel updates

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 5

        Label {
            Layout.fillWidth: true
            size: 13
            text: row.updates.title
            weight: Font.Medium
        }

        Label {
            Layout.fillWidth: true
            color: Theme.palette.label2
            size: 12.5
            text: row.updates.message
            wrapMode: Text.Wrap
        }
    }

    PillButton {
        enabled: row.updates.canAct
        hpad: 16
        opacity: row.updates.canAct ? 1 : 0.45
        pillHeight: 32
        role: row.updates.actionIsOffer ? PillButton.Accent : PillButton.Neutral
        title: row.updates.actionTitle
        visible: row.updates.hasAction

        onClicked: row.updates.act()
    }
}
