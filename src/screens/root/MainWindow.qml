pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

Window {
    width: 980; height: 660; visible: true
    Card { anchors.fill: parent; Component.onCompleted: console.log("card here", Theme.light) }
}
