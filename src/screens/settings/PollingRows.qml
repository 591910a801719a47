pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Model
import Zolva.Screens.Settings

// How often the status is read, and from which load on it warns.
Item {
    id: rows

    required property SettingsModel settings

    implicitHeight: column.implicitHeight + 28

    ColumnLayout {
        id: column

        spacing: 11
        width: parent.width - 36
        x: 18
        y: 14

        SliderRow {
            Layout.fillWidth: true
            from: 1
            to: 10
            title: "Interval"
            value: rows.settings.interval
            valueText: rows.settings.intervalText

            onChosen: value => rows.settings.interval = value
        }

        SliderRow {
            Layout.fillWidth: true
            from: 50
            to: 99
            title: "Sustained CPU alert"
            value: rows.settings.threshold
            valueText: rows.settings.thresholdText

            onChosen: value => rows.settings.threshold = value
        }
    }
}
