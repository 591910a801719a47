import QtQuick
import Zolva.Test

// Believable places for the Analyze screen.
QtObject {
    required property Fixture fixture

    function home(path: string): string {
        return fixture.homeFolder + path;
    }

    function show(result) {
        fixture.setSpace(214700000000, 494300000000);
        fixture.setAnalysis(result);
        fixture.model.go("analyze");
    }

    function rows(path: string, all): list<var> {
        return all.map(row => ({
                    path: path + "/" + row[0],
                    size: row[1],
                    isDir: !row[0].includes(".")
                }));
    }

    function largeFiles(): list<var> {
        return [["Movies/rehearsal.mov", 38200000000], ["Virtual Machines/Debian.utm/Data/disk-0.qcow2", 21400000000], ["Downloads/debian-12-netinst.iso", 658000000], ["Movies/birthday.mp4", 512000000], ["Pictures/Photos Library.photoslibrary/originals/0/0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9.heic", 214000000], ["Music/session 14.aiff", 98000000]].map(row => ({
                    path: "/home/ada/" + row[0],
                    size: row[1]
                }));
    }

    function walk() {
        fixture.setAnalysis({
            path: home(""),
            entries: rows(home(""), [["Downloads", 5]])
        });
        fixture.model.go("analyze");
        fixture.model.analyze.open(0);
    }

    function overview() {
        show({
            path: "",
            totalSize: 279600000000,
            entries: [["Home", 184300000000], ["User Library", 61200000000], ["Applications", 38900000000], ["Xcode DerivedData", 12600000000], ["System Library", 9870000000], ["Old Downloads (90d+)", 4210000000], ["Gradle Cache", 1730000000], ["System Logs", 214000000], ["Homebrew Cache", 0]].map(row => ({
                        name: row[0],
                        path: "/" + row[0],
                        size: row[1],
                        isDir: true
                    })),
            largeFiles: largeFiles()
        });
    }

    function folder() {
        show({
            path: home("/Downloads"),
            totalFiles: 18234,
            entries: rows(home("/Downloads"), [["old projects", 8210000000], ["holiday-photos.zip", 2870000000], ["a very long name of a file that nobody would type by hand, exported on 2023-11-04 at 10.42.17.csv", 1310000000], ["kept", 412000000], ["invoice.pdf", 91000], ["empty", 0]]),
            largeFiles: largeFiles().slice(2)
        });
    }

    function deep() {
        const path = home("/Library/Developer/Xcode/DerivedData/Lantern-abcdefghijklmnopqrstuvwxyz/Build/Intermediates.noindex/Lantern.build/Debug/Lantern.build/Objects-normal");
        show({
            path: path,
            entries: rows(path, [["arm64", 310000000], ["x86_64", 290000000]])
        });
    }

    function empty() {
        show({
            path: home("/Downloads/empty"),
            entries: []
        });
    }
}
