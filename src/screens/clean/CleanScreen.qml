pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Model
import Zolva.Screens.Clean

// The categories of what the machine makes anew by itself.
FocusScope {
    id: screen

    required property ScreenModel model

    Slot {
        anchors.fill: parent
        component: screen.model.clean.page === CleanModel.List ? list : welcome
    }

    Component {
        id: welcome

        WelcomePage {
            focus: true
            icon: "wand.and.sparkles"
            message: "Zolva looks through your caches, logs and build artifacts, the things macOS rebuilds on its own."
            scanning: screen.model.clean.page === CleanModel.Scanning
            subtitle: screen.model.clean.subtitle
            title: "Clean"
            welcomeTitle: "Scan for cleanable files"

            onScan: screen.model.clean.scan()
        }
    }

    Component {
        id: list

        CleanList {
            focus: true
            model: screen.model
        }
    }
}
