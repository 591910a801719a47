pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Analyze

// The way to the place that is shown, what it comes to, and that nothing is in it.
Item {
    id: head

    required property AnalyzeModel analyze
    readonly property list<string> steps: analyze.crumbs

    implicitHeight: column.height + 14

    Column {
        id: column

        spacing: 14
        width: head.width - 80
        x: 40

        Item {
            height: way.height
            width: parent.width

            Flow {
                id: way

                spacing: 7
                width: totals.x - 20

                Repeater {
                    model: head.steps

                    delegate: AnalyzeCrumb {
                        isCurrent: index === head.steps.length - 1

                        onClicked: head.analyze.goTo(index)
                    }
                }
            }

            Label {
                id: totals

                anchors.right: parent.right
                color: Theme.palette.label2
                size: 13
                text: head.analyze.totals
            }
        }

        Label {
            color: Theme.palette.label2
            size: 13
            text: "Empty."
            visible: head.analyze.isEmpty
        }
    }
}
