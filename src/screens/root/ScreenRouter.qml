pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Model
import Zolva.Screens.Analyze
import Zolva.Screens.Clean
import Zolva.Screens.Home
import Zolva.Screens.Installer
import Zolva.Screens.Purge
import Zolva.Screens.Settings
import Zolva.Screens.Status
import Zolva.Screens.Uninstall

// The page of the screen that was chosen; made anew at each visit.
Item {
    id: router

    required property ScreenModel model

    Slot {
        anchors.fill: parent
        component: {
            switch (router.model.screen) {
            case "home":
                return home;
            case "clean":
                return clean;
            case "analyze":
                return analyze;
            case "status":
                return status;
            case "purge":
                return purge;
            case "uninstall":
                return uninstall;
            case "installer":
                return installer;
            case "settings":
                return settings;
            default:
                return home;
            }
        }
    }

    Component {
        id: home

        HomeScreen {
            model: router.model
        }
    }

    Component {
        id: clean

        CleanScreen {
            model: router.model
        }
    }

    Component {
        id: analyze

        AnalyzeScreen {
            model: router.model
        }
    }

    Component {
        id: status

        StatusScreen {
            model: router.model
        }
    }

    Component {
        id: purge

        PurgeScreen {
            model: router.model
        }
    }

    Component {
        id: uninstall

        UninstallScreen {
            model: router.model
        }
    }

    Component {
        id: installer

        InstallerScreen {
            model: router.model
        }
    }

    Component {
        id: settings

        SettingsScreen {
            model: router.model
        }
    }
}
