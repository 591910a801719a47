pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

/// The head above a card of settings.
Label {
    Accessible.role: Accessible.Heading
    size: 13
    weight: Font.DemiBold
}
