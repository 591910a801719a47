import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Root
import Zolva.Test

// Brings the window into one of its states, over a model that holds believable things.
Item {
    id: stage

    property Fixture fixture: null
    property Item view: null

    Component {
        id: fixtures

        FeedFixture {
        }
    }

    Component {
        id: views

        ZolvaRootView {
            anchors.fill: parent
            focus: true
        }
    }

    // When the page has its height.
    Timer {
        id: toEnd

        interval: 150
        onTriggered: stage.scrollToEnd(stage.view)
    }

    function take(state: string, theme: string) {
        if (view)
            view.destroy();
        if (fixture)
            fixture.destroy();
        Motion.reduced = true;
        fixture = fixtures.createObject(stage);
        fixture.setTheme(theme);
        view = views.createObject(stage, {
            model: fixture.model
        });
        view.forceActiveFocus();
        stage[state]();
    }

    function cachePaths(count: int): list<var> {
        const names = ["com.example.browser", "org.example.lumen", "net.example.skylark", "pip", "Yarn", "com.example.maps", "com.example.music", "typescript", "com.example.paperwork", "org.example.tern", "JetBrains", "Homebrew", "go-build", "com.example.weather", "com.example.notes", "com.example.podcasts"];
        const paths = [];
        for (let i = 0; i < count; ++i)
            paths.push({
                p: "~/Library/Caches/" + names[i],
                b: 4210000000 / (i + 1)
            });
        return paths;
    }

    function categories(caches: int): list<var> {
        return [{
                name: "Application caches",
                desc: "App caches macOS rebuilds on demand",
                paths: cachePaths(caches)
            }, {
                name: "Xcode DerivedData",
                desc: "Build intermediates Xcode recreates",
                paths: [{
                        p: "~/Library/Developer/Xcode/DerivedData/Lantern-abcdefgh",
                        b: 5640000000
                    }, {
                        p: "~/Library/Developer/Xcode/DerivedData/Harbour-ijklmnop",
                        b: 2870000000
                    }]
            }, {
                name: "Xcode device support",
                desc: "Symbols for iOS devices you've connected",
                paths: [{
                        p: "~/Library/Developer/Xcode/iOS DeviceSupport/17.4 (21E219)",
                        b: 4310000000
                    }]
            }, {
                name: "npm cache",
                desc: "Downloaded npm packages",
                paths: [{
                        p: "~/.npm/_cacache",
                        b: 1920000000
                    }]
            }, {
                name: "Go build cache",
                desc: "Compiled Go objects",
                paths: [{
                        p: "~/Library/Caches/go-build",
                        b: 861000000
                    }]
            }, {
                name: "Application logs",
                desc: "Diagnostic logs apps rewrite",
                paths: [{
                        p: "~/Library/Logs/Skylark Chat",
                        b: 214000000
                    }, {
                        p: "~/Library/Logs/Mail",
                        b: 38000000,
                        prot: true
                    }]
            }, {
                name: "Saved application state",
                desc: "Window state apps recreate",
                paths: [{
                        p: "~/Library/Saved Application State/org.example.lumen.savedState",
                        b: 61000000
                    }]
            }];
    }

    function scanned(caches: int) {
        fixture.setCategories(categories(caches));
        fixture.projects(12);
        fixture.installers(4);
        fixture.apps(37);
        fixture.setTrash(3, 233000000);
    }

    function cleanLoaded() {
        scanned(9);
        fixture.model.go("clean");
        for (const name of ["Xcode DerivedData", "npm cache", "Go build cache"])
            fixture.model.clean.pick(name, false);
    }

    function opened(name: string, caches: int) {
        scanned(caches);
        fixture.model.go("clean");
        fixture.model.clean.pick(name, false);
        fixture.model.clean.toggleOpen(name);
    }

    function homeWelcome() {
        fixture.setTrash(3, 233000000);
    }

    function homeScanning() {
        fixture.model.home.scanAll();
    }

    function homeLoaded() {
        scanned(9);
    }

    function homeNotice() {
        scanned(9);
        fixture.setBlocked(["Downloads", "Desktop", "iCloud Drive"]);
    }

    function cleanWelcome() {
        fixture.model.go("clean");
    }

    function cleanScanning() {
        fixture.model.go("clean");
        fixture.beginCleanScan();
    }

    function cleanEmpty() {
        fixture.setCategories([]);
        fixture.model.go("clean");
    }

    function open15() {
        opened("Application caches", 15);
    }

    function open16() {
        opened("Application caches", 16);
    }

    function cleanProtected() {
        scanned(9);
        fixture.setCategories(categories(9).map(row => row.name !== "Xcode device support" ? row : Object.assign({}, row, {
                paths: row.paths.map(path => Object.assign({}, path, {
                            prot: true
                        }))
            })));
        fixture.model.go("clean");
        fixture.model.clean.pick("Application logs", false);
        fixture.model.clean.toggleOpen("Application logs");
    }

    function cleanExcluded() {
        fixture.exclude("~/Library/Developer/Xcode/DerivedData/Lantern-abcdefgh");
        opened("Xcode DerivedData", 9);
    }

    /// A minute in which the processor was busy twice.
    function readMinute(samples: int) {
        fixture.setSpace(80760000000, 270550000000);
        fixture.model.go("status");
        for (let i = 0; i < samples; ++i) {
            const burst = Math.exp(-Math.pow((i - 17) / 4, 2)) * 62 + Math.exp(-Math.pow((i - 44) / 6, 2)) * 48;
            fixture.readStatus({
                health: 91,
                healthMsg: "Good",
                cpu: 9 + burst + 5 * Math.sin(i * 1.9) + 3 * Math.sin(i * 0.7),
                load1: 1.42,
                load5: 1.18,
                load15: 0.96,
                used: 9640000000,
                total: 16600000000,
                usedPercent: 56 + i * 0.05 + burst * 0.08,
                model: "Workbench 14",
                cpuModel: "Example Core 8",
                uptime: "3d 4h"
            });
        }
    }

    function statusLive() {
        readMinute(60);
    }

    function statusShort() {
        readMinute(5);
    }

    function statusWaiting() {
        fixture.model.go("status");
    }

    function statusFailed() {
        fixture.model.go("status");
        fixture.failStatus("mo isn’t installed");
    }

    function settingsTop() {
        fixture.exclude("~/Projects/thesis");
        fixture.exclude("~/Library/Caches/com.example.browser");
        fixture.model.go("settings");
    }

    function settingsError() {
        settingsTop();
        fixture.setKeepInTrash(false);
        fixture.model.settings.draft = "~/Projects/thesis/figures";
    }

    /// The lower part of the page.
    function settingsEnd() {
        settingsTop();
        fixture.model.updates.check();
        fixture.offerUpdate("0.2.0", "Installers are listed by where they came from.");
        toEnd.start();
    }

    function scrollToEnd(item) {
        if (item instanceof CollapsingPage)
            item.turn(9);
        for (let i = 0; i < item.children.length; ++i)
            scrollToEnd(item.children[i]);
    }

    function sheetOf(caches: int) {
        scanned(caches);
        fixture.model.go("clean");
        fixture.model.clean.pick("Application caches", false);
        fixture.model.clean.clean();
    }

    function sheet14() {
        sheetOf(14);
    }

    function sheet15() {
        sheetOf(15);
    }

    function sheetTrash() {
        scanned(9);
        fixture.model.sidebar.askEmptyTrash();
    }

    function run() {
        cleanLoaded();
        fixture.setBulk("Removing caches", 4, 1, "~/Library/Developer/Xcod…ata/Harbour-ijklmnop");
    }

    function stopping() {
        cleanLoaded();
        fixture.setBulk("Removing caches", 4, 2, "~/.npm/_cacache");
        fixture.model.bulk.requestCancel();
    }

    function quitAlert() {
        run();
        fixture.model.quit.ask();
    }

    function toasts() {
        cleanLoaded();
        fixture.addToast("info", "Stopped. 3 items already removed, 2 left alone.");
        fixture.addToast("success", "Moved 10.42 GB to the Trash", "Open Trash");
        fixture.addToast("warning", "Skipped 4 items: 4 paths couldn't be removed");
    }

    function intro() {
        fixture.setBlocked(["Downloads", "Desktop", "iCloud Drive"]);
        fixture.showIntro();
    }
}
