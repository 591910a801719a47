pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Lists
import Zolva.Model
import Zolva.Screens.Analyze

// Where the space went: the whole disk, then any folder.
FocusScope {
    id: screen

    required property ScreenModel model
    readonly property AnalyzeModel analyze: model.analyze
    /// How the place was left that was shown last.
    property bool byKeys: false

    Connections {
        function onLeaving() {
            const at = screen.Window.activeFocusItem;
            screen.byKeys = at instanceof PointerButton ? at.visualFocus : at instanceof Bystander;
        }

        target: screen.analyze
    }

    Slot {
        anchors.fill: parent
        component: screen.analyze.page === AnalyzeModel.Welcome ? welcome : page
    }

    Component {
        id: orders

        HeaderMenu {
            current: screen.analyze.sort.current
            entries: screen.analyze.sort.names
            label: screen.analyze.sort.label

            onChosen: place => screen.analyze.sort.choose(place)
        }
    }

    Component {
        id: welcome

        WelcomePage {
            focus: true
            icon: "chart.pie.fill"
            message: "Zolva scans your whole Mac and shows where the space is going, largest first. This can take a moment."
            title: "Analyze"
            trailing: orders
            welcomeTitle: "Analyze your storage"

            onScan: screen.analyze.scan()
        }
    }

    Component {
        id: page

        AnalyzePage {
            analyze: screen.analyze
            byKeys: screen.byKeys
            focus: true
            trailing: orders
        }
    }
}
