pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Model

// The keys that hold in the whole window.
Item {
    id: keys

    required property ScreenModel model
    /// An overlay wants its answer first.
    property bool isHeld: false

    signal closeWanted

    Instantiator {
        model: keys.model.sidebar

        delegate: Shortcut {
            required property int index
            required property string itemId

            enabled: !keys.isHeld
            sequence: "Ctrl+" + (index + 1)
            onActivated: keys.model.go(itemId)
        }
    }

    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: keys.model.quit.ask()
    }

    Shortcut {
        sequence: "Ctrl+W"
        onActivated: keys.closeWanted()
    }
}
