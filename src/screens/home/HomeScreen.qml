pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Model
import Zolva.Screens.Home

// What can be reclaimed in all, and the ways to it.
FocusScope {
    id: screen

    required property ScreenModel model

    Slot {
        anchors.fill: parent
        component: screen.model.home.isWelcome ? welcome : page
    }

    Component {
        id: welcome

        WelcomePage {
            focus: true
            icon: "externaldrive.fill"
            message: "Zolva finds caches, build artifacts, leftover installers and unused apps you can safely reclaim, all in one pass."
            title: "Home"
            welcomeTitle: "Scan your Mac"

            onScan: screen.model.home.scanAll()
        }
    }

    Component {
        id: page

        CollapsingPage {
            canRescan: true
            focus: true
            title: "Home"

            header: Component {
                HomeBody {
                    model: screen.model
                }
            }

            onRescan: screen.model.home.scanAll()
        }
    }
}
