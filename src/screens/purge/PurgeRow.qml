// Not bound: the loaders of Qt 6.4 refuse bound components.
import QtQuick
import Zolva.Kit
import Zolva.Lists

// One build folder of a project.
TickRow {
    id: row

    required property string spokenName
    required property bool recent

    head.descColor: recent ? Theme.palette.amber : Theme.palette.label3
    // Where it is protected, the bystander speaks for it.
    head.isSpoken: tickable
    head.spokenHint: "Include this build folder in the next purge"
    head.spokenName: spokenName
    target: tickable ? head : bystander.item

    Loader {
        id: bystander

        active: !row.tickable
        focus: active
        height: row.head.height
        width: row.head.width
        x: row.head.x

        sourceComponent: Bystander {
            activeFocusOnTab: row.isCurrent
            focus: true
            spokenName: row.spokenName
            spokenText: row.spokenValue + ". " + row.head.spokenHint
        }
    }
}
