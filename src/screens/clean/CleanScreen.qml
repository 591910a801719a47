pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Lists
import Zolva.Screens.Clean

// The categories of what the machine makes anew by itself.
ListScreen {
    id: screen

    icon: "wand.and.sparkles"
    linkWeight: Font.Normal
    list: model.clean
    message: "Zolva looks through your caches, logs and build artifacts, the things macOS rebuilds on its own."
    nothing: "Nothing to clean right now. Your caches are already at their floor."
    title: "Clean"
    welcomeTitle: "Scan for cleanable files"

    row: CleanRow {
        clean: screen.model.clean
        list: screen.list
        width: ListView.view.width
    }
    summary: CleanSummary {
        clean: screen.model.clean
    }
}
