import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Sheets

ScreenCase {
    id: tests

    name: "Access"

    Component {
        id: intros

        AccessIntro {
        }
    }

    Component {
        id: notices

        AccessNotice {
            height: implicitHeight
        }
    }

    function openIntro(labels): Item {
        if (labels.length > 0)
            fixture.setBlocked(labels);
        fixture.showIntro();
        return show(intros, {access: fixture.model.access});
    }

    function openNotice(labels): Item {
        fixture.setBlocked(labels);
        show(notices, {access: fixture.model.access});
        const shown = view;
        shown.height = Qt.binding(() => shown.implicitHeight);
        settle();
        return view;
    }

    function test_oneLocationIsIt() {
        openIntro(["Mail"]);
        verify(written("Zolva can't see everything yet"));
        verify(written("macOS is withholding Mail. Zolva will still work, but anything in it is missing from every total it shows you."));
        compare(view.card.Accessible.name, "Zolva cannot see everything yet. macOS is withholding Mail.");
    }

    function test_twoLocationsAreThem() {
        openIntro(["Mail", "Safari"]);
        verify(written("macOS is withholding Mail and Safari. Zolva will still work, but anything in them is missing from every total it shows you."));
    }

    function test_threeLocationsAreAllNamed() {
        openIntro(["Mail", "Messages", "Safari"]);
        compare(view.card.Accessible.name, "Zolva cannot see everything yet. macOS is withholding Mail, Messages and Safari.");
    }

    function test_withNoneLeftTheIntroNamesSome() {
        openIntro(["Mail"]);
        fixture.setBlocked([]);
        settle();
        verify(written("macOS is withholding some locations. Zolva will still work, but anything in them is missing from every total it shows you."));
        compare(view.card.Accessible.name, "Zolva cannot see everything yet. macOS is withholding some locations.");
    }

    function test_theStepsAreNumbered() {
        openIntro(["Mail"]);
        const steps = ["Open Privacy & Security → Full Disk Access", "Turn on Zolva in the list", "Come back and scan again"];
        const places = steps.map(step => place(written(step)));
        for (let i = 0; i < 3; ++i) {
            compare(written(steps[i]).size, 12.5);
            const number = written(String(i + 1));
            compare(number.size, 11);
            verify(number.Accessible.ignored);
            compare([number.parent.width, number.parent.height, number.parent.radius], [16, 16, 8]);
            verify(Math.abs(place(number.parent).y + 8 - places[i].y - places[i].height / 2) <= 1);
        }
        const row = written(steps[0]).parent;
        compare(place(written(steps[1]).parent).y - endY(place(row)), 9);
    }

    function test_theCardKeepsItsMeasures() {
        openIntro(["Mail"]);
        compare(view.card.width, 432);
        const symbol = walk(view, item => item.name === "lock.open.fill");
        compare(symbol.size, 30);
        compare([symbol.parent.width, symbol.parent.height, symbol.parent.radius], [44, 44, 22]);
        compare(written("Zolva can't see everything yet").size, 15);
        const notNow = spoken("Continue without full access");
        const settings = spoken("Open System Settings");
        compare([notNow.title, notNow.role, notNow.radius, notNow.font.pixelSize], ["Not now", PillButton.Neutral, 8, 13]);
        compare([settings.title, settings.role, settings.radius], ["Open Settings", PillButton.Accent, 8]);
        compare(notNow.width, settings.width);
    }

    function test_theButtonsSayWhatTheyDo() {
        openIntro(["Mail"]);
        compare(view.card.Accessible.role, Accessible.Dialog);
        compare(view.card.Accessible.description, fixture.model.access.introText);
        verify(fixture.model.access.introText !== "");
        compare(spoken("Continue without full access").Accessible.description, "Zolva will report only what it can see");
        compare(spoken("Open System Settings").Accessible.description, "Opens Privacy and Security so you can turn on Full Disk Access");
    }

    function test_notNowClosesForGoodAndOpensNothing() {
        openIntro(["Mail"]);
        click(spoken("Continue without full access"));
        verify(!fixture.model.access.introShown);
        verify(!fixture.calls.includes("access settings opened"));
        fixture.setBlocked(["Mail", "Safari"]);
        settle();
        verify(!fixture.model.access.introShown);
    }

    function test_openSettingsClosesAndOpensThem() {
        openIntro(["Mail"]);
        click(spoken("Open System Settings"));
        verify(!fixture.model.access.introShown);
        verify(fixture.calls.includes("access settings opened"));
    }

    function test_escapeIsNotNow() {
        openIntro(["Mail"]);
        tryVerify(() => focusedName() === "Continue without full access");
        press(Qt.Key_Escape);
        verify(!fixture.model.access.introShown);
        verify(!fixture.calls.includes("access settings opened"));
    }

    function test_aClickBesideTheCardChangesNothing() {
        openIntro(["Mail"]);
        mouseClick(view, 10, 10);
        verify(fixture.model.access.introShown);
    }

    function test_theIntroStandsOverTheWholeWindow() {
        showWindow("home");
        spoken("Scan").forceActiveFocus(Qt.TabFocusReason);
        fixture.showIntro();
        tryVerify(() => focusedName() === "Continue without full access");
        for (let i = 0; i < 3; ++i) {
            press(Qt.Key_Tab);
            verify(["Continue without full access", "Open System Settings"].includes(focusedName()));
        }
        mouseClick(view, 60, 164);
        settle();
        compare(fixture.model.screen, "home");
        press(Qt.Key_Escape);
        tryVerify(() => focusedName() === "Scan");
    }

    function test_afterTheIntroTheNoticeStandsUntilNothingIsBlocked() {
        fixture.categories(1, 1);
        showWindow("home");
        fixture.setBlocked(["Mail"]);
        fixture.showIntro();
        tryVerify(() => focusedName() === "Continue without full access");
        click(spoken("Continue without full access"));
        tryVerify(() => !fixture.model.access.introShown);
        verify(written("Mail not searched"));
        verify(spoken("Mail could not be searched. macOS is blocking access, so anything there is missing from these totals."));
        fixture.setBlocked([]);
        settle();
        verify(!typed("AccessNotice").visible);
        fixture.setBlocked(["Mail", "Safari"]);
        settle();
        verify(written("Mail and Safari not searched"));
        verify(!fixture.model.access.introShown);
    }

    function test_theNoticeNamesAllLocations() {
        openNotice(["Mail", "Messages", "Safari"]);
        compare(written("Mail, Messages and Safari not searched").size, 13);
        const words = written("macOS is blocking access, so anything there is missing from these totals.");
        compare(words.color.toString(), Theme.palette.label3.toString());
        compare(view.color.toString(), Theme.palette.card.toString());
        const lock = walk(view, item => item.name === "lock.fill");
        compare(lock.size, 12);
    }

    function test_theNoticeIsOneElement() {
        openNotice(["Mail", "Safari"]);
        compare(view.Accessible.name, "Mail and Safari could not be searched. macOS is blocking access, so anything there is missing from these totals.");
        const parts = all(view, item => item.visible && !item.Accessible.ignored && item.Accessible.name !== "");
        compare(parts.map(item => item.Accessible.name), [view.Accessible.name, "Open Settings"]);
    }

    function test_theNoticesButtonOpensTheSettings() {
        openNotice(["Mail"]);
        click(spoken("Open Settings"));
        compare(fixture.calls.filter(call => call === "access settings opened").length, 1);
    }

    function test_theNoticesButtonHasTheMeasuresOfThePills() {
        openNotice(["Mail"]);
        const button = spoken("Open Settings");
        compare(button.radius, 9);
        compare(button.font, Face.text(13, Font.Medium));
    }

    function test_theNoticeIsAbsentWhereNothingIsBlocked() {
        openNotice([]);
        verify(!view.visible);
    }

    function test_aLongListWrapsBesideTheButton() {
        openNotice(["Mail", "Messages", "Safari", "Photos", "Calendars", "Contacts", "Reminders", "Home data", "Containers"]);
        view.width = 500;
        settle();
        const title = walk(view, item => item instanceof Text && item.text.endsWith("not searched"));
        verify(title.lineCount > 1);
        verify(!title.truncated);
        verify(endX(place(title)) <= place(spoken("Open Settings")).x);
        verify(view.height >= title.height + 28);
    }
}
