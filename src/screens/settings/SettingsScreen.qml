pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Model
import Zolva.Screens.Settings

// What the user decides for all screens.
FocusScope {
    id: screen

    required property ScreenModel model

    CollapsingPage {
        anchors.fill: parent
        focus: true
        subtitle: "Zolva keeps no state of its own. Everything here is passed to mo on the next run."
        title: "Settings"

        header: Component {
            SettingsBody {
                focus: true
                model: screen.model
            }
        }
    }
}
