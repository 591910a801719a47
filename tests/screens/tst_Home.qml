import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Root
import Zolva.Screens.Home

ScreenCase {
    id: tests

    readonly property var longList: ["Downloads", "Desktop", "Documents", "iCloud Drive", "Trash", "Mail", "Messages", "Safari", "Calendars"]

    name: "Home"

    Component {
        id: screens

        HomeScreen {
        }
    }

    Component {
        id: roots

        ZolvaRootView {
            focus: true
        }
    }

    function open(): Item {
        return show(screens, {model: fixture.model});
    }

    function openScanned(): Item {
        fixture.categories(3, 2);
        fixture.projects(2);
        fixture.installers(2);
        fixture.apps(2);
        return open();
    }

    function card(name: string): Item {
        return allTyped("HomeCard").find(card => card.name === name) ?? null;
    }

    function heading(): string {
        return typed("HomeBody") ? typed("HomeBody").children[0].children[0].text : "";
    }

    function test_beforeAnyScanThePageOffersOne() {
        open();
        verify(written("Home"));
        verify(written("Scan your Mac"));
        verify(written("Zolva finds caches, build artifacts, leftover installers and unused apps you can safely reclaim, all in one pass."));
        compare(typed("ScanWelcome").icon, "externaldrive.fill");
        verify(spoken("Scan"));
        compare(typed("HomeBody"), null);
    }

    function test_theOfferStartsEveryScan() {
        open();
        click(spoken("Scan"));
        compare(fixture.calls.slice().sort(), ["apps read", "clean scan", "installer scan", "purge scan"]);
        compare(fixture.model.home.isWelcome, false);
        verify(typed("HomeBody"));
    }

    function test_theOfferIsTakenByTheKeyboard() {
        open();
        spoken("Scan").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        verify(fixture.calls.includes("clean scan"));
        // The keyboard has come along to the page.
        verify(view.activeFocus);
    }

    function test_whileScanningTheHeadingCountsAndTheCardsSayScanning() {
        fixture.beginCleanScan();
        fixture.beginPurgeScan();
        open();
        compare(heading(), "Counting what you\ncan reclaim…");
        compare(card("Clean").size, "Scanning…");
        compare(card("Clean").sub, "Rebuildable caches and logs");
        compare(card("Purge").size, "Scanning…");
        compare(card("Purge").sub, "Project build artifacts");
        compare(card("Installers").size, "0 bytes");
        compare(card("Uninstall").sub, "Installed applications");
    }

    function test_theHeadingCountsUntilTheLastScanHasEnded() {
        fixture.beginPurgeScan();
        fixture.categories(3, 1);
        open();
        compare(card("Clean").size, fixture.model.sidebar.data(fixture.model.sidebar.index(1, 0), Qt.UserRole + 5));
        verify(card("Clean").size !== "Scanning…");
        compare(heading(), "Counting what you\ncan reclaim…");
        fixture.finishPurgeScan();
        settle();
        compare(heading(), "You can reclaim\n6.0 MB today");
        fixture.beginInstallerScan();
        settle();
        compare(heading(), "Counting what you\ncan reclaim…");
        fixture.finishInstallerScan();
        settle();
        compare(heading(), "You can reclaim\n6.0 MB today");
    }

    function test_nothingToReclaimIsZeroBytes() {
        fixture.setCategories([]);
        fixture.setProjects([]);
        open();
        compare(heading(), "You can reclaim\n0 bytes today");
    }

    function test_whatIsExcludedOrProtectedIsNotInTheSum() {
        fixture.setCategories([{name: "A", paths: [{p: "~/a", b: 4000000}, {p: "~/b", b: 2000000, prot: true}]}]);
        fixture.setProjects([{p: "~/code", artifact: "build", b: 8000000}]);
        open();
        compare(heading(), "You can reclaim\n12.0 MB today");
        fixture.exclude("~/code");
        settle();
        compare(heading(), "You can reclaim\n4.0 MB today");
    }

    function test_theFourCardsStandInTheirOrder() {
        openScanned();
        compare(allTyped("HomeCard").map(card => [card.name, card.symbol, card.goTo, card.muted]), [["Clean", "sparkles",
                    "clean", false], ["Purge", "folder.badge.minus", "purge", false], ["Installers",
                    "square.and.arrow.down", "installer", false], ["Uninstall", "trash", "uninstall", true]]);
        compare(allTyped("HomeCard").map(card => card.sub), ["3 categories of rebuildable files", "2 project build folders",
                    "2 disk image or packages", "2 apps installed"]);
        compare(card("Uninstall").size, "—");
    }

    function test_oneOfEachIsWrittenInTheSingular() {
        fixture.categories(1, 1);
        fixture.projects(1);
        fixture.installers(1);
        fixture.apps(1);
        open();
        compare(allTyped("HomeCard").map(card => card.sub), ["1 category of rebuildable files", "1 project build folder",
                    "1 disk image or package", "1 app installed"]);
    }

    function test_noInstallerIsWrittenInTheOddPlural() {
        fixture.categories(1, 1);
        fixture.setInstallers([]);
        open();
        compare(card("Installers").sub, "0 disk image or packages");
    }

    function test_aMutedSizeIsFainter() {
        fixture.beginCleanScan();
        open();
        compare(written("Scanning…", card("Clean")).color.toString(), Theme.palette.label3.toString());
        fixture.finishCleanScan();
        settle();
        compare(written("0 bytes", card("Clean")).color.toString(), Theme.palette.label.toString());
    }

    function test_aCardLeadsToItsScreen_data() {
        return [{tag: "Clean", to: "clean"}, {tag: "Purge", to: "purge"}, {tag: "Installers", to: "installer"}, {tag: "Uninstall",
                to: "uninstall"}];
    }
    function test_aCardLeadsToItsScreen(row) {
        openScanned();
        click(card(row.tag));
        compare(fixture.model.screen, row.to);
    }

    function test_aCardIsPressedByTheKeyboard_data() {
        return [{tag: "Space", key: Qt.Key_Space}, {tag: "Return", key: Qt.Key_Return}];
    }
    function test_aCardIsPressedByTheKeyboard(row) {
        openScanned();
        card("Purge").forceActiveFocus(Qt.TabFocusReason);
        press(row.key);
        compare(fixture.model.screen, "purge");
    }

    function test_theTabKeyGoesThroughThePageFromTheTop() {
        fixture.setBlocked(["Mail"]);
        openScanned();
        let names = [];
        for (let i = 0; i < 8; ++i) {
            press(Qt.Key_Tab);
            names.push(focusedName());
            verify(focused().visualFocus, names[i]);
        }
        compare(names, ["Rescan", "Rescan", "Review Clean", "Open Settings", "Clean", "Purge", "Installers", "Uninstall"]);
    }

    function test_aCardSaysWhatItHolds() {
        openScanned();
        compare(card("Purge").Accessible.role, Accessible.Button);
        compare(card("Purge").Accessible.description, "2 project build folders, 3.0 MB");
    }

    function test_aCardIsLitWhileThePointerIsOverIt() {
        openScanned();
        const fill = typed("HoverFill", card("Clean"));
        compare(fill.color.toString(), Theme.palette.card.toString());
        mouseMove(card("Clean"), 20, 20);
        tryVerify(() => fill.color.toString() === Theme.palette.cardHover.toString());
        mouseMove(view, 1, 1);
        tryVerify(() => fill.color.toString() === Theme.palette.card.toString());
    }

    function test_rescanScansAllAgainButTheAppsThatAreHeld() {
        openScanned();
        const before = fixture.calls.length;
        click(spoken("Rescan", typed("HomeBody")));
        compare(fixture.calls.slice(before).sort(), ["clean scan", "installer scan", "purge scan"]);
    }

    function test_theHeadersRescanDoesTheSame() {
        openScanned();
        const before = fixture.calls.length;
        click(typed("RescanButton"));
        compare(fixture.calls.slice(before).sort(), ["clean scan", "installer scan", "purge scan"]);
    }

    function test_reviewCleanLeadsToClean() {
        openScanned();
        click(spoken("Review Clean"));
        compare(fixture.model.screen, "clean");
    }

    function test_theHeroKeepsItsMeasures() {
        openScanned();
        const hero = written(heading());
        compare(hero.size, 40);
        compare(hero.weight, Font.Bold);
        compare(hero.tracking, -1);
        compare(place(hero).x, 40);
        compare(place(hero).y - endY(place(typed("PageHeader"))), 8);
        const words = written("Scanned live with mo across your caches, project folders and downloads. Nothing is deleted, every command previews first.");
        compare(words.size, 15);
        verify(words.width <= 460);
        compare(words.color.toString(), Theme.palette.label2.toString());
        compare(place(words).y - endY(place(hero)), 15);
        const rescan = spoken("Rescan", typed("HomeBody"));
        compare(place(rescan).y - endY(place(words)), 26);
        compare([rescan.height, rescan.hpad, rescan.radius, rescan.role], [38, 22, 9, PillButton.Accent]);
        const review = spoken("Review Clean");
        compare([review.height, review.hpad, review.radius, review.role], [38, 18, 9, PillButton.Neutral]);
        compare(place(review).y, place(rescan).y);
    }

    function test_theCardsKeepTheirMeasures() {
        openScanned();
        const first = place(card("Clean"));
        const second = place(card("Purge"));
        compare(first.x, 40);
        compare(endX(second), tests.width - 40);
        compare(second.x - endX(first), 14);
        compare(first.width, second.width);
        compare(place(card("Installers")).y - endY(first), 14);
        compare(first.y - endY(place(spoken("Review Clean"))), 26);
        const symbol = typed("Symbol", card("Clean")) ?? walk(card("Clean"), item => item.name === "sparkles" && item.size === 24);
        compare(symbol.size, 24);
        compare(place(symbol.parent, card("Clean")), Qt.rect(22, place(symbol.parent, card("Clean")).y, 34, 38));
        const name = written("Clean", card("Clean"));
        const sub = written(card("Clean").sub, card("Clean"));
        compare([name.size, name.weight, sub.size], [14, Font.DemiBold, 12.5]);
        compare(place(sub).y - endY(place(name)), 7);
        const size = written(card("Clean").size, card("Clean"));
        compare([size.size, size.weight], [16, Font.DemiBold]);
        compare(endX(place(size, card("Clean"))), card("Clean").width - 22);
    }

    function test_thePageEndsThirtyTwoBelowTheCards() {
        openScanned();
        compare(endY(place(typed("HomeBody"))) - endY(place(card("Uninstall"))), 32);
    }

    function test_theNoticeStandsBetweenTheHeroAndTheCards() {
        fixture.setBlocked(["Mail", "Messages", "Safari"]);
        openScanned();
        const notice = typed("AccessNotice");
        verify(notice.visible);
        compare(place(notice).y - endY(place(spoken("Review Clean"))), 30);
        compare(place(card("Clean")).y - endY(place(notice)), 26);
        compare(notice.width, tests.width - 80);
    }

    function test_aLongNoticeIsReadWholeAtEveryWidth() {
        fixture.setBlocked(longList);
        openScanned();
        for (let width = tests.width; width >= 980 - 264; width -= 36) {
            view.width = width;
            settle();
            const notice = typed("AccessNotice");
            const title = written(fixture.model.access.noticeTitle);
            verify(!title.truncated);
            verify(endY(place(title)) < endY(place(notice)), width);
            compare(place(card("Clean")).y - endY(place(notice)), 26, width);
        }
    }

    function test_aLongNoticeIsReadWholeThoughItComesWithThePage() {
        view = roots.createObject(tests, {height: 660, model: fixture.model, width: 980});
        fixture.categories(1, 1);
        fixture.setBlocked(longList);
        settle();
        const title = written(fixture.model.access.noticeTitle);
        verify(title.lineCount > 1);
        verify(endY(place(title)) < endY(place(typed("AccessNotice"))));
    }

    function test_thereIsNoNoticeWhereNothingIsBlocked() {
        openScanned();
        verify(!typed("AccessNotice").visible);
        fixture.setBlocked(["Mail"]);
        settle();
        verify(typed("AccessNotice").visible);
        fixture.setBlocked([]);
        settle();
        verify(!typed("AccessNotice").visible);
    }

    function test_nothingOfACardIsCutInTheSmallestWindow() {
        openScanned();
        view.width = 980 - 264;
        view.height = 660;
        settle();
        for (const card of allTyped("HomeCard")) {
            for (const text of all(card, item => item instanceof Text))
                verify(!text.truncated, text.text);
        }
    }

    function test_aSheetCoversTheCards() {
        fixture.categories(3, 2);
        showWindow("home");
        const covered = card("Purge");
        fixture.openSheet("emptytrash");
        settle();
        mouseClick(covered, 20, 20);
        settle();
        compare(fixture.model.screen, "home");
        verify(!covered.enabled);
    }
}
