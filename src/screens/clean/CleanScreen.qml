pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Model

Item {
    id: page

    required property ScreenModel model

    PageHeader {
        title: "Clean"
        width: page.width
    }
}
