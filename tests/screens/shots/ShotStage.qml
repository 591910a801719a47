import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Root
import Zolva.Screens.Menu
import Zolva.Test
import "UninstallSamples.js" as Samples

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

    Component {
        id: panels

        MenuBarView {
            anchors.fill: parent
        }
    }

    // When the page has its height.
    Timer {
        id: toEnd

        interval: 150
        onTriggered: stage.scrollToEnd(stage.view)
    }

    function take(state: string, theme: string) {
        if (view) {
            // A menu goes with what it belongs to.
            view.visible = false;
            view.destroy();
        }
        if (fixture)
            fixture.destroy();
        Motion.reduced = true;
        fixture = fixtures.createObject(stage);
        fixture.setTheme(theme);
        Theme.light = theme === "light";
        view = (state.startsWith("panel") ? panels : views).createObject(stage, {
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

    function projects(): list<var> {
        const rows = [["~/Projects/harbour", "target", 6210000000, 41], ["~/Code/lantern", "node_modules", 1840000000, 2], ["~/Projects/meadow/web", "node_modules", 1320000000, 153], ["~/Code/orchard", ".venv", 986000000, 6], ["~/Code/quarry", "node_modules", 744000000, 402], ["~/Projects/compass-for-the-very-long-way-home/packages/navigation/source/client", "build", 512000000, 33], ["~/Projects/meadow/web", "dist", 208000000, 153], ["~/Projects/thistle", ".gradle", 97000000, 1]];
        return rows.map(row => ({
                    p: row[0],
                    artifact: row[1],
                    b: row[2],
                    age: row[3]
                }));
    }

    function installers(): list<var> {
        const rows = [["Lumen Editor 4.2.dmg", "Downloads", "~/Downloads", 1480000000, 64], ["debian-12-netinst.iso", "Downloads", "~/Downloads", 658000000, 210], ["Skylark Chat.dmg", "Desktop", "~/Desktop", 214000000, 12], ["printer-driver.pkg", "Downloads", "~/Downloads", 96000000, 1], ["ffmpeg--7.0.dmg", "Homebrew cache", "~/Library/Caches/Homebrew/downloads", 61000000, 45], ["fonts.pkg", "iCloud Drive", "~/Library/Mobile Documents/com~apple~CloudDocs/Downloads", 2400000, 55]];
        return rows.map(row => ({
                    name: row[0],
                    src: row[1],
                    p: row[2] + "/" + row[0],
                    b: row[3],
                    age: row[4]
                }));
    }

    function scanned(caches: int) {
        fixture.setCategories(categories(caches));
        fixture.setProjects(projects());
        fixture.setInstallers(installers());
        fixture.apps(37);
        fixture.setTrash(3, 233000000);
    }

    function panelScanning() {
        fixture.setVolumeName("Quiet Disk");
        fixture.setVolumeSpace(118400000000, 494380000000);
        fixture.model.menu.opened();
        fixture.setTrash(3, 233000000);
    }

    function panelLoaded() {
        panelScanning();
        scanned(9);
    }

    function panelEmpty() {
        fixture.setVolumeName("");
        fixture.setVolumeSpace(402400000000, 494380000000);
        fixture.setCategories([]);
        fixture.setTrash(0, 0);
        fixture.model.menu.opened();
    }

    function panelBlocked() {
        panelLoaded();
        fixture.setVolumeName("A backup volume with quite a long name of its own");
        fixture.model.menu.opened();
        fixture.setTrash(0, 0, true);
        view.step(true);
        view.step(true);
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

    function purgeWelcome() {
        fixture.model.go("purge");
    }

    function purgeScanning() {
        fixture.model.go("purge");
        fixture.beginPurgeScan();
    }

    function purgeEmpty() {
        fixture.setProjects([]);
        fixture.model.go("purge");
    }

    function purgeLoaded() {
        scanned(9);
        fixture.model.go("purge");
        fixture.model.purge.pick("~/Projects/harbour/target", false);
        fixture.model.purge.pick("~/Code/quarry/node_modules", false);
    }

    function purgeExcluded() {
        fixture.exclude("~/Projects/meadow");
        purgeLoaded();
    }

    function purgeRun() {
        purgeLoaded();
        fixture.setBulk("Removing build artifacts", 2, 1, "~/Code/quarry/node_modules");
    }

    function installersWelcome() {
        fixture.model.go("installer");
    }

    function installersScanning() {
        fixture.model.go("installer");
        fixture.beginInstallerScan();
    }

    function installersEmpty() {
        fixture.setInstallers([]);
        fixture.model.go("installer");
    }

    function installersLoaded() {
        scanned(9);
        fixture.model.go("installer");
        fixture.model.installer.pick("~/Downloads/Lumen Editor 4.2.dmg", false);
        fixture.model.installer.pick("~/Desktop/Skylark Chat.dmg", false);
    }

    function find(item: Item, type: string): Item {
        if (item.toString().startsWith(type + "_"))
            return item;
        for (let i = 0; i < item.children.length; ++i) {
            const found = find(item.children[i], type);
            if (found)
                return found;
        }
        return null;
    }

    // The rows have to be in their places first.
    Timer {
        id: later

        interval: 50
        onTriggered: {
            const row = stage.find(stage.view, "InstallerRow");
            stage.find(stage.view, "InstallerScreen").menu.openFor(row, Qt.point(300, 30));
        }
    }

    function installersMenu() {
        installersLoaded();
        later.start();
    }

    function installersRun() {
        installersLoaded();
        fixture.setBulk("Removing installers", 2, 1, "~/Desktop/Skylark Chat.dmg");
    }

    function uninstallWelcome() {
        fixture.model.go("uninstall");
    }

    function uninstallScanning() {
        fixture.model.go("uninstall");
        fixture.model.uninstall.scan();
    }

    function uninstallFailed() {
        fixture.model.go("uninstall");
        fixture.beginAppsScan();
        fixture.failAppsScan();
    }

    function uninstallLooking() {
        scanned(9);
        fixture.setApps(Samples.applications);
        fixture.model.go("uninstall");
    }

    function uninstallLoaded() {
        uninstallLooking();
        fixture.finishLeftovers(Samples.leftovers);
        for (const name of ["Lumen Editor", "Tern Player"])
            fixture.model.uninstall.pick(Samples.applications.filter(one => one.name === name).map(one => one.bundleID + one.path)[0], false);
    }

    function uninstallNothingLeft() {
        uninstallLooking();
        fixture.finishLeftovers([]);
    }

    function uninstallNoMatch() {
        uninstallLoaded();
        fixture.model.uninstall.query = "lantern";
    }

    function uninstallNone() {
        scanned(9);
        fixture.setApps([]);
        fixture.model.go("uninstall");
    }

    function uninstallSheet() {
        uninstallLoaded();
        fixture.model.uninstall.uninstall();
    }

    function uninstallRun() {
        uninstallLoaded();
        fixture.setBulk("Emptying the Trash", 0, 0, "");
    }

    function uninstallStuck() {
        uninstallLoaded();
        fixture.addToast("warning", "Couldn't uninstall 1 app. It may need an administrator password.", "Authenticate…");
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
        fixture.model.clean.remove();
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

    AnalyzeShots {
        id: places

        fixture: stage.fixture
    }

    function analyzeWelcome() {
        fixture.model.go("analyze");
    }

    function analyzeScanning() {
        places.walk();
    }

    function analyzeOverview() {
        places.overview();
    }

    function analyzeFolder() {
        places.folder();
    }

    function analyzeTrashed() {
        places.folder();
        fixture.addToast("success", "Moved 658.0 MB to the Trash", "Undo");
    }

    function analyzeDeep() {
        places.deep();
    }

    function analyzeEmpty() {
        places.empty();
    }

    function intro() {
        fixture.setBlocked(["Downloads", "Desktop", "iCloud Drive"]);
        fixture.showIntro();
    }
}
