import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Screens.Settings
import Zolva.Test

ScreenCase {
    id: tests

    name: "Settings"

    Component {
        id: screens

        SettingsScreen {
        }
    }

    // The same build with an update feed.
    Component {
        id: feedFixtures

        FeedFixture {
        }
    }

    function open(): Item {
        return show(screens, {model: fixture.model});
    }

    function openWithFeed(): Item {
        fixture.destroy();
        fixture = feedFixtures.createObject(tests) as FeedFixture;
        return open();
    }

    function section(title: string): Item {
        return allTyped("Section").find(section => section.title === title) ?? null;
    }

    function slider(title: string): Item {
        return allTyped("SliderRow").find(row => row.title === title).children[1];
    }

    function field(): Item {
        return spoken("Add a folder or file to never touch");
    }

    function type(text: string) {
        field().forceActiveFocus(Qt.TabFocusReason);
        for (const key of text)
            keyClick(key);
        settle();
    }

    function paths(): var {
        return allTyped("RemoveLink").map(link => link.spokenHint);
    }

    // The page

    function test_thePageSaysWhatItIsAbout() {
        open();
        compare(typed("PageHeader").title, "Settings");
        compare(typed("PageHeader").subtitle, "Zolva keeps no state of its own. Everything here is passed to mo on the next run.");
        verify(!typed("RescanButton").visible);
    }

    function test_theSectionsStandInTheirOrderEachAHeadAndACard() {
        open();
        compare(allTyped("Section").map(section => section.title), ["Appearance", "Removing", "Never touch these",
                "Status polling", "Administrator access", "Updates", "Open source"]);
        let end = endY(place(typed("PageHeader")));
        for (const one of allTyped("Section")) {
            verify(place(one).y > end);
            end = endY(place(one));
            const head = written(one.title, one);
            compare([head.size, head.weight], [13, Font.DemiBold]);
            compare(head.Accessible.role, Accessible.Heading);
            const card = typed("Card", one);
            compare(card.color.toString(), Theme.palette.card.toString());
            compare([place(card).x, endX(place(card))], [40, tests.width - 40]);
        }
    }

    function test_everythingIsReachedByTheTabKeyFromTheTop() {
        fixture.exclude("/keep");
        fixture.model.settings.draft = "/more";
        open();
        let names = [];
        for (let i = 0; i < 10; ++i) {
            press(Qt.Key_Tab);
            names.push(focusedName());
        }
        compare(names, ["Light", "Move to the Trash instead of deleting", "Remove", "Add a folder or file to never touch",
                "Add", "Interval", "Sustained CPU alert", "Ask with Touch ID when a path needs sudo", "View source", "License"]);
    }

    function test_thePageFollowsTheKeyboardToItsEnd() {
        open();
        spoken("License").forceActiveFocus(Qt.TabFocusReason);
        settle();
        verify(endY(place(spoken("License"))) <= tests.height);
        spoken("Light").forceActiveFocus(Qt.TabFocusReason);
        settle();
        verify(place(spoken("Light")).y >= 0);
    }

    // Appearance

    function test_theThemeIsChosenByAPress() {
        open();
        compare(allTyped("SegmentedPicker")[0].current, 1);
        click(spoken("Dark"));
        verify(!fixture.model.lightTheme);
        verify(spoken("Dark").Accessible.checked);
        verify(!spoken("Light").Accessible.checked);
        fixture.setDark(false);
        click(spoken("System"));
        verify(fixture.model.lightTheme);
    }

    function test_theThemeIsChosenByTheArrows() {
        open();
        spoken("Light").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Right);
        compare(fixture.model.settings.theme, 2);
        compare(focusedName(), "Dark");
        verify(focused().visualFocus);
        press(Qt.Key_Right);
        compare(fixture.model.settings.theme, 2);
        press(Qt.Key_Left);
        press(Qt.Key_Left);
        compare(fixture.model.settings.theme, 0);
        compare(focusedName(), "System");
    }

    function test_thePickerIsSpokenOfAsAChoice() {
        open();
        const picker = spoken("Theme");
        compare(picker.Accessible.role, Accessible.Grouping);
        compare(["System", "Light", "Dark"].map(name => spoken(name, picker).Accessible.checkable), [true, true, true]);
    }

    // Removing

    function test_theSwitchChangesWhatBecomesOfWhatIsRemoved() {
        open();
        const row = spoken("Move to the Trash instead of deleting");
        verify(row.Accessible.checked);
        verify(written("Clean, Purge, Installers and Uninstall put things in the Trash, where you can put them back. The space comes back when you empty it."));
        verify(row.Accessible.description.startsWith("On, removals are recoverable"));
        click(row);
        compare(fixture.model.settings.keepInTrash, false);
        verify(!row.Accessible.checked);
        verify(written("Clean, Purge, Installers and Uninstall remove things for good. Nothing goes to the Trash and nothing can be undone."));
        verify(row.Accessible.description.startsWith("Off, removals are permanent"));
        row.forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Space);
        compare(fixture.model.settings.keepInTrash, true);
        press(Qt.Key_Return);
        compare(fixture.model.settings.keepInTrash, false);
    }

    function test_theSwitchKeepsItsMeasures() {
        open();
        const pill = typed("PillSwitch", section("Removing"));
        compare([pill.width, pill.height], [38, 23]);
        const knob = pill.children[0];
        compare([knob.width, knob.height, knob.y], [19, 19, 2]);
        compare(knob.x, 38 - 19 - 2);
        compare(pill.color.toString(), Theme.palette.green.toString());
        const shadow = knob.children[0];
        compare([shadow.blur, shadow.strength], [1, 0.3]);
        compare(knob.children[1].color.toString(), "#ffffff");
        click(spoken("Move to the Trash instead of deleting"));
        tryCompare(knob, "x", 2);
        tryVerify(() => Qt.colorEqual(pill.color, Theme.palette.btnHover));
    }

    // Never touch these

    function test_anEmptyDraftCannotBeAddedAndShowsNoError() {
        open();
        const add = spoken("Add");
        verify(!add.enabled);
        compare(add.opacity, 0.45);
        verify(!walk(section("Never touch these"), item => item.visible && item.parent.visible && item.name === "exclamationmark.triangle.fill"));
        field().forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        compare(paths(), []);
    }

    function test_theDraftIsCheckedAtEachKeystroke() {
        fixture.exclude("/keep");
        open();
        type("k");
        verify(written("Enter a full path, starting with / or ~."));
        verify(!spoken("Add").enabled);
        keyClick(Qt.Key_Backspace);
        settle();
        verify(!written("Enter a full path, starting with / or ~."));
        type("/");
        verify(written("That would exclude everything, switching Zolva off."));
        type("keep");
        verify(written("Already covered by an existing exclusion."));
        type("er");
        verify(!written("Already covered by an existing exclusion."));
        verify(spoken("Add").enabled);
        compare(spoken("Add").opacity, 1);
    }

    function test_addAndReturnBothTakeThePathIntoTheList() {
        open();
        type("/one");
        click(spoken("Add"));
        compare(paths(), ["/one"]);
        compare(field().text, "");
        type("/two");
        press(Qt.Key_Return);
        compare(paths(), ["/one", "/two"]);
        compare(field().text, "");
        verify(field().activeFocus);
    }

    function test_aRowIsRemovedAndTheOthersStay() {
        for (const path of ["/a", "/b", "/c"])
            fixture.exclude(path);
        open();
        click(allTyped("RemoveLink")[1]);
        compare(paths(), ["/a", "/c"]);
        allTyped("RemoveLink")[0].forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        compare(paths(), ["/c"]);
    }

    function test_removeTurnsRedUnderThePointer() {
        fixture.exclude("/a");
        open();
        const link = typed("RemoveLink");
        const words = written("Remove", link);
        compare(words.color.toString(), Theme.palette.label2.toString());
        mouseMove(link, link.width / 2, link.height / 2);
        tryVerify(() => words.color.toString() === Theme.palette.red.toString());
    }

    function test_theErrorStandsBesideASignThatIsNotSpoken() {
        open();
        type("k");
        const text = written("Enter a full path, starting with / or ~.");
        const sign = walk(text.parent, item => item.name === "exclamationmark.triangle.fill");
        compare(sign.Accessible.name, "");
        compare(field().Accessible.description, text.text);
    }

    function test_whatIsTypedStaysWhereAnotherScreenWasShown() {
        showWindow("settings");
        type("/half");
        fixture.model.go("home");
        settle();
        fixture.model.go("settings");
        settle();
        compare(field().text, "/half");
    }

    function test_aLongPathIsShortenedInTheMiddleAndKeepsItsButton() {
        const path = "/" + "long/".repeat(80) + "end";
        fixture.exclude(path);
        open();
        const words = written(path);
        compare([words.truncated, words.elide], [true, Text.ElideMiddle]);
        verify(endX(place(words)) < place(typed("RemoveLink")).x);
        verify(endX(place(typed("RemoveLink"))) <= tests.width - 40 - 18 + 0.5);
    }

    // Sliders

    function test_theIntervalSaysItsSeconds() {
        open();
        verify(written("1 second"));
        const one = slider("Interval");
        compare([one.from, one.to, one.stepSize], [1, 10, 1]);
        one.forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Right);
        compare(fixture.model.settings.interval, 2);
        verify(written("2 seconds"));
        compare(one.Accessible.description, "2 seconds");
        press(Qt.Key_End);
        compare(fixture.model.settings.interval, 10);
        press(Qt.Key_Right);
        compare(fixture.model.settings.interval, 10);
        press(Qt.Key_Home);
        compare(fixture.model.settings.interval, 1);
        press(Qt.Key_Left);
        compare(fixture.model.settings.interval, 1);
    }

    function test_theThresholdIsSetInStepsOfOne() {
        open();
        const one = slider("Sustained CPU alert");
        compare([one.from, one.to, one.stepSize, one.value], [50, 99, 1, 80]);
        one.forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Left);
        compare(fixture.model.settings.threshold, 79);
        verify(written("79%"));
    }

    function test_aSliderIsDraggedByThePointer() {
        open();
        const one = slider("Interval");
        mousePress(one, 9, 11);
        mouseMove(one, one.width / 2, 11);
        mouseMove(one, one.width - 9, 11);
        mouseRelease(one, one.width - 9, 11);
        compare(fixture.model.settings.interval, 10);
    }

    function test_anIntervalBeyondTheSliderIsShownAndLeftAlone() {
        fixture.model.settings.interval = 60;
        open();
        compare(slider("Interval").value, 10);
        verify(written("60 seconds"));
        compare(fixture.model.settings.interval, 60);
        slider("Interval").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Left);
        compare(fixture.model.settings.interval, 9);
    }

    function test_aSliderIsSpokenOfWithItsValue() {
        open();
        const one = slider("Sustained CPU alert");
        compare(one.Accessible.name, "Sustained CPU alert");
        compare(one.Accessible.description, "80%");
        one.increase();
        compare(fixture.model.settings.threshold, 81);
    }

    // Administrator access

    function test_theFingerIsAskedForOrNot() {
        open();
        verify(written("Authorisation lasts for one run and expires when Zolva quits."));
        const row = spoken("Ask with Touch ID when a path needs sudo");
        compare(row.Accessible.description, "On");
        click(row);
        compare(fixture.model.settings.touchid, false);
        compare(row.Accessible.description, "Off");
    }

    // Updates

    function button(): Item {
        return typed("PillButton", section("Updates"));
    }

    function message(): string {
        return written("Zolva 0.1.0", section("Updates")).parent.children[1].text;
    }

    function test_aBuildWithoutAFeedSaysSoAndHasNoButton() {
        open();
        compare(message(), "This build has no update feed, so it will not check for updates.");
        verify(!button().visible);
    }

    function test_aCheckIsStartedAndItsButtonWaits() {
        openWithFeed();
        compare(message(), "Up to date. Checked daily, and verified before anything is offered.");
        compare([button().title, button().role, button().radius], ["Check now", PillButton.Neutral, 9]);
        click(button());
        compare(message(), "Checking for updates…");
        compare(button().title, "Checking…");
        verify(!button().enabled);
        fixture.findNoUpdate();
        settle();
        compare(button().title, "Check now");
        verify(button().enabled);
    }

    function test_whatIsOnOfferIsDownloaded() {
        openWithFeed();
        fixture.model.updates.check();
        fixture.offerUpdate("0.2.0", "Better.");
        settle();
        compare(message(), "Zolva 0.2.0 is available. Better.");
        compare([button().title, button().role], ["Download", PillButton.Accent]);
        click(button());
        verify(fixture.calls.includes("page https://example.org/get"));
    }

    function test_anOfferWithoutNotesEndsWithoutASpace() {
        openWithFeed();
        fixture.model.updates.check();
        fixture.offerUpdate("0.2.0");
        settle();
        compare(message(), "Zolva 0.2.0 is available.");
    }

    function test_duringANewCheckTheOfferStays() {
        openWithFeed();
        fixture.model.updates.check();
        fixture.offerUpdate("0.2.0");
        fixture.model.updates.check();
        settle();
        compare(message(), "Checking for updates…");
        compare(button().title, "Download");
        verify(button().enabled);
    }

    function test_aFailureIsToldAsItStands() {
        openWithFeed();
        fixture.model.updates.check();
        fixture.failUpdateCheck("The update information could not be verified.");
        settle();
        compare(message(), "The update information could not be verified.");
        compare(button().title, "Check now");
    }

    // Open source

    function test_theNoticeLeadsToTheSourceAndToTheLicense() {
        open();
        verify(written("Bundled mole (mo)"));
        verify(written("mo an unknown version · Bundled (modified) · GPL-3.0"));
        spoken("View source").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        spoken("License").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Space);
        compare(fixture.calls.length, 2);
        verify(fixture.calls[0].startsWith("page https://"));
        verify(!fixture.calls[0].includes("/tree/"));
        compare(fixture.calls[1], "license opened");
    }

    function test_nothingIsCutOffInTheSmallestWindow() {
        fixture.exclude("/keep");
        view = screens.createObject(tests, {width: 980 - 264, height: 660, model: fixture.model});
        view.forceActiveFocus();
        settle();
        for (const text of all(view, item => item instanceof Text && item.visible && item.opacity > 0)) {
            verify(!text.truncated, text.text);
            verify(endX(place(text)) <= 980 - 264 - 40 + 0.5, text.text);
        }
    }
}
