pragma ComponentBehavior: Bound
import QtQuick

// The place of something that is made from a component, as large as that wants to be unless the
// slot is given a size. The loader of Qt 6.4 would do, were it not that it refuses bound components.
Item {
    id: slot

    property Component component: null
    property Item item: null

    implicitHeight: item ? item.implicitHeight : 0
    implicitWidth: item ? item.implicitWidth : 0

    // Where the keyboard was inside, it goes on inside.
    onComponentChanged: {
        const hadFocus = item !== null && item.activeFocus;
        if (item) {
            item.visible = false;
            item.destroy();
        }
        item = component ? component.createObject(slot) as Item : null;
        if (hadFocus && item)
            item.forceActiveFocus();
    }

    Binding {
        property: "width"
        target: slot.item
        value: slot.width
        when: slot.item !== null
    }

    Binding {
        property: "height"
        target: slot.item
        value: slot.height
        when: slot.item !== null
    }
}
