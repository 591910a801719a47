pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Status

// The way the last readings went.
Card {
    id: card

    required property StatusModel status
    readonly property string title: "Last 60 seconds"

    Accessible.description: status.chartSpoken
    Accessible.focusable: false
    Accessible.name: title
    Accessible.role: Accessible.Chart
    implicitHeight: column.implicitHeight + 40

    ColumnLayout {
        id: column

        spacing: 16
        width: parent.width - 48
        x: 24
        y: 22

        RowLayout {
            Layout.fillWidth: true
            spacing: 14

            Label {
                Accessible.ignored: true
                Layout.fillWidth: true
                size: 13
                text: card.title
                weight: Font.DemiBold
            }

            LegendEntry {
                color: chart.cpuColor
                word: "CPU"
            }

            LegendEntry {
                color: chart.memColor
                word: "Memory"
            }
        }

        StatusChart {
            id: chart

            Layout.fillWidth: true
            Layout.preferredHeight: 150
            cpu: card.status.cpuSeries
            cpuColor: Theme.palette.accent
            mem: card.status.memSeries
            memColor: Theme.palette.green
        }
    }
}
