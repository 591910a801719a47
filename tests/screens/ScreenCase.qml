import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Root
import Zolva.Test

// The ground of the tests of screens: a model of its own for each function, and what shows it. Every
// warning of the engine fails the test.
FindingCase {
    id: ground

    property Fixture fixture: null

    height: 812
    visible: true
    when: windowShown
    width: 1220

    Component {
        id: fixtures

        Fixture {
        }
    }

    Component {
        id: windows

        ZolvaRootView {
            focus: true
        }
    }

    function init() {
        failOnWarning(/.?/);
        Motion.reduced = true;
        Theme.light = true;
        fixture = fixtures.createObject(ground);
        fixture.setTheme("light");
    }

    // What shows a model goes before it.
    function cleanup() {
        if (view)
            view.destroy();
        fixture.destroy();
        view = null;
        fixture = null;
        wait(0);
    }

    function show(component: Component, properties): Item {
        view = component.createObject(ground, Object.assign({
            width: ground.width,
            height: ground.height
        }, properties));
        verify(view !== null);
        view.forceActiveFocus();
        settle();
        return view;
    }

    /// The whole window on one screen.
    function showWindow(screen: string): Item {
        fixture.model.go(screen);
        return show(windows, {
            model: fixture.model
        });
    }

    // Layouts find their places when a frame is drawn; there is none where nothing has changed.
    function settle() {
        wait(0);
        waitForRendering(view, 30);
        wait(0);
    }

    function focused(): Item {
        return view.Window.activeFocusItem;
    }

    function focusedName(): string {
        return focused() ? focused().Accessible.name : "";
    }

    function press(key: int, modifiers) {
        keyClick(key, modifiers ?? Qt.NoModifier);
        settle();
    }

    function click(item: Item, modifiers) {
        mouseClick(item, item.width / 2, item.height / 2, Qt.LeftButton, modifiers ?? Qt.NoModifier);
        settle();
    }
}
