pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// Takes one row out of a list.
LinkButton {
    color: Theme.palette.label2
    font: Face.text(13)
    hoverColor: Theme.palette.red
    title: "Remove"
}
