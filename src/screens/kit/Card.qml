pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

Rectangle {
    color: Theme.light ? "white" : "black"
}
