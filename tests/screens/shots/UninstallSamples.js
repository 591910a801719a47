.pragma library

// Believable applications, and what the first of them has left behind.
const applications = [
    ["Lumen Editor", "org.example.lumen", "4.2.1", 412600000],
    ["Skylark Chat", "net.example.skylark", "2.18.3", 318400000],
    ["Tern Player", "org.example.tern", "0.9", 96200000],
    ["Paperwork", "com.example.paperwork", "11.0", 64100000],
    ["Lumen Editor Beta", "org.example.lumen", "5.0b2", 455900000],
    ["Harbour Mail for Teams and Other Crowds", "com.example.harbour", "7.1", 205300000],
    ["Meadow", "com.example.meadow", "1.0", 12400000],
    ["Orchard Maps", "com.example.maps", "3.3", 178200000],
    ["Pebble", "com.example.pebble", "1.9", 2100000],
    ["Quarry", "com.example.quarry", "24.1", 1310000000],
    ["Thistle Notes", "com.example.notes", "6.0.2", 44800000],
    ["Compass", "com.example.compass", "8.8", 33500000]
].map(([name, bundleID, version, bundleBytes]) => ({
    name, bundleID, version, bundleBytes,
    path: "/Applications/" + name + ".app",
    installed: "2026-03-14"
}));

function shared(loc, path, n, b) {
    return {loc, p: "~/Library/" + path, n, b, shared: true, sharedWith: "Lumen Editor Beta"};
}

const leftovers = [
    {loc: "Application bundle", p: "/Applications/Lumen Editor.app", n: 1843, b: 412600000},
    shared("Caches", "Caches/org.example.lumen", 226, 187300000),
    {loc: "Application Support", p: "~/Library/Application Support/Lumen Editor", n: 58, b: 61400000},
    shared("Saved application state", "Saved Application State/org.example.lumen.savedState", 4, 1230000),
    {loc: "Logs", p: "~/Library/Logs/Lumen Editor", n: 1, b: 128000},
    shared("Preferences", "Preferences/org.example.lumen.plist", 1, 4100)
];
