import QtQuick
import QtTest

// Finds things as a person does, by what they are called or what is written; in `view`, unless told
// where.
TestCase {
    id: finder

    property Item view: null

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
}
