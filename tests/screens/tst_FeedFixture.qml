pragma ComponentBehavior: Bound
import QtQuick
import QtTest
import Zolva.Model
import Zolva.Test

TestCase {
    id: tests

    name: "FeedFixture"

    Component {
        id: fixtures

        FeedFixture {}
    }

    Component {
        id: without

        Fixture {}
    }

    function test_aCheckIsUnderWayUntilItsEndIsTold() {
        const fixture = createTemporaryObject(fixtures, tests);
        const updates = fixture.model.updates;
        compare(updates.title, "Zolva 0.1.0");
        verify(updates.canCheck);
        updates.act();
        compare(updates.actionTitle, "Checking…");
        verify(!updates.canAct);
        fixture.failUpdateCheck("No network.");
        compare(updates.message, "No network.");
        updates.check();
        fixture.offerUpdate("1.2", "Faster.");
        compare(updates.message, "Zolva 1.2 is available. Faster.");
        verify(updates.actionIsOffer);
        updates.act();
        updates.check();
        fixture.findNoUpdate();
        verify(!updates.actionIsOffer);
        compare(fixture.calls,
                ["update check", "update check", "page https://example.org/get", "update check"]);
    }

    function test_theUsualFixtureHasNoFeed() {
        const fixture = createTemporaryObject(without, tests);
        verify(!fixture.model.updates.hasAction);
        verify(!fixture.model.updates.canCheck);
        verify(fixture.model.updates.menuShown);
    }
}
