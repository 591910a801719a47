pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame

// A page that has not scanned yet: its head, and the offer to scan in the middle of the rest.
FocusScope {
    id: page

    property string title
    property string subtitle
    property string welcomeTitle
    property string message
    property string icon
    property bool scanning: false
    property Component trailing: null

    signal scan

    PageHeader {
        id: header

        subtitle: page.subtitle
        title: page.title
        trailing: page.trailing
        width: page.width
    }

    ScanWelcome {
        focus: true
        height: page.height - y - header.height / 2
        icon: page.icon
        message: page.message
        scanning: page.scanning
        title: page.welcomeTitle
        width: page.width - 80
        x: 40
        y: header.height
        onScan: page.scan()
    }
}
