import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Root
import Zolva.Test

// The ground of the tests of screens: a model of its own for each function, what shows it, and ways
// to find things in it as a person does, by what they are called or what is written. Every warning
// of the engine fails the test.
TestCase {
    id: ground

    property Fixture fixture: null
    property Item view: null

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

    function walk(item, wanted) {
        if (wanted(item))
            return item;
        for (let i = 0; i < item.children.length; ++i) {
            const found = walk(item.children[i], wanted);
            if (found)
                return found;
        }
        return null;
    }

    function all(item, wanted): var {
        let found = [];
        walk(item, each => {
            if (wanted(each))
                found.push(each);
            return false;
        });
        return found;
    }

    /// What a screen reader would find under that name.
    function spoken(name: string, within): Item {
        return walk(within ?? view, item => item.visible && !item.Accessible.ignored && item.Accessible.name === name);
    }

    function allSpoken(name: string, within): var {
        return all(within ?? view, item => item.visible && !item.Accessible.ignored && item.Accessible.name === name);
    }

    function written(text: string, within): Item {
        return walk(within ?? view, item => item.visible && item.opacity > 0 && item instanceof Text && item.text === text);
    }

    function typed(type: string, within): Item {
        return walk(within ?? view, item => item.toString().startsWith(type + "_"));
    }

    function allTyped(type: string, within): var {
        return all(within ?? view, item => item.visible && item.toString().startsWith(type + "_"));
    }

    /// Where it stands in the view.
    function place(item: Item, within): rect {
        return item.mapToItem(within ?? view, 0, 0, item.width, item.height);
    }

    function endY(rect: rect): real {
        return rect.y + rect.height;
    }

    function endX(rect: rect): real {
        return rect.x + rect.width;
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
