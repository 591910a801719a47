pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Screens.Status

// Both series, one over the other.
Item {
    id: chart

    required property list<real> cpu
    required property list<real> mem
    required property color cpuColor
    required property color memColor

    SeriesLine {
        anchors.fill: parent
        color: chart.memColor
        values: chart.mem
    }

    SeriesLine {
        anchors.fill: parent
        color: chart.cpuColor
        values: chart.cpu
    }
}
