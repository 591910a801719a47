pragma ComponentBehavior: Bound

import QtQuick
import Zolva.Frame
import Zolva.Model

// What can be reclaimed in all, and the ways to it.
Item {
    id: screen

    required property ScreenModel model

    Slot {
        anchors.fill: parent
        component: screen.model.home.isWelcome ? welcome : page
    }

    Component {
        id: welcome

        WelcomePage {
            icon: "externaldrive.fill"
            message: "Zolva finds caches, build artifacts, leftover installers and unused apps you can safely reclaim, all in one pass."
            scanning: false
            title: "Home"
            welcomeTitle: "Scan your Mac"

            onScan: screen.model.home.scanAll()
        }
    }

    Component {
        id: page

        CollapsingPage {
            canRescan: true
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
