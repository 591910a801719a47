pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// The text of a card, with three more between its lines than the face has.
Label {
    color: Theme.palette.label2
    horizontalAlignment: Text.AlignHCenter
    lineHeight: Math.ceil(metrics.height) + 3
    lineHeightMode: Text.FixedHeight
    size: 12.5
    wrapMode: Text.Wrap

    FontMetrics {
        id: metrics

        font: Face.text(12.5)
    }
}
