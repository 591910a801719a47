#include "scanners/LeftoverScan.h"

#include "files/DisplayPath.h"
#include "files/FolderTally.h"
#include "files/HomeFolder.h"
#include "files/PathGuards.h"
#include "files/PathText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace zolva {

namespace {

/// What tools print where they know no identifier.
constexpr std::array<std::string_view, 11> placeholderNames = {
    "", "unknown", "Unknown", "UNKNOWN", "N/A", "--", "null", "(null)", "nil", ".", ".."};

enum class Key
{
    BundleID,
    Name
};

/// A place below home: `before`, the key of the application, `after`.
struct Place
{
    std::string_view loc;
    std::string_view before;
    Key key;
    std::string_view after;
};

constexpr std::array<Place, 10> places = {{
    {"Caches", "Library/Caches/", Key::BundleID, ""},
    {"Containers", "Library/Containers/", Key::BundleID, ""},
    {"Group Containers", "Library/Group Containers/", Key::BundleID, ""},
    {"Preferences", "Library/Preferences/", Key::BundleID, ".plist"},
    {"Saved application state", "Library/Saved Application State/", Key::BundleID, ".savedState"},
    {"WebKit storage", "Library/WebKit/", Key::BundleID, ""},
    {"HTTP storage", "Library/HTTPStorages/", Key::BundleID, ""},
    {"Cookies", "Library/Cookies/", Key::BundleID, ".binarycookies"},
    {"Application Support", "Library/Application Support/", Key::Name, ""},
    {"Logs", "Library/Logs/", Key::Name, ""},
}};

/// A candidate, with the other application that has the same key.
struct ResidueTarget
{
    std::string_view loc;
    std::string path;
    const UninstallApp* owner = nullptr;
};

using AppText = std::string UninstallApp::*;

/// The key as it goes into paths, if it is fit for them, and who else has it.
struct KeyInUse
{
    const std::string* text = nullptr;
    const UninstallApp* owner = nullptr;
};

KeyInUse keyInUse(AppText field, const UninstallApp& app, const std::vector<UninstallApp>& apps)
{
    if (!isUsableIdentifier(app.*field)) {
        return {};
    }
    const std::string id = app.id();
    const auto owner = std::find_if(apps.begin(), apps.end(), [&](const UninstallApp& other) {
        return other.*field == app.*field && other.id() != id;
    });
    return {&(app.*field), owner == apps.end() ? nullptr : &*owner};
}

std::vector<ResidueTarget> targetsOf(const UninstallApp& app, const std::vector<UninstallApp>& apps)
{
    std::vector<ResidueTarget> targets;
    // The guard judges the standardized path, so that is the one to measure: with "/.." behind a
    // link in it, the disk would lead elsewhere than the text.
    if (app.path.starts_with('/')) {
        targets.push_back({bundleLabel, standardizedPath(app.path)});
    }
    const KeyInUse bundleID = keyInUse(&UninstallApp::bundleID, app, apps);
    const KeyInUse name = keyInUse(&UninstallApp::name, app, apps);
    const std::string home = homeFolder();
    for (const Place& place : places) {
        const KeyInUse& key = place.key == Key::BundleID ? bundleID : name;
        if (key.text != nullptr) {
            const std::string below =
                std::string(place.before) + *key.text + std::string(place.after);
            targets.push_back({place.loc, joinedPath(home, below), key.owner});
        }
    }
    return targets;
}

} // namespace

bool isUsableIdentifier(std::string_view text)
{
    const std::string_view trimmed = trimmedText(text);
    return std::find(placeholderNames.begin(), placeholderNames.end(), trimmed) ==
               placeholderNames.end() &&
           trimmed.find('/') == std::string_view::npos && !trimmed.starts_with("..");
}

std::vector<ResidueRow> scanResidue(const UninstallApp& app, const std::vector<UninstallApp>& apps)
{
    std::vector<ResidueTarget> targets = targetsOf(app, apps);
    std::erase_if(targets,
                  [](const ResidueTarget& target) { return pathRefusal(target.path).has_value(); });
    std::vector<std::string> paths;
    paths.reserve(targets.size());
    for (const ResidueTarget& target : targets) {
        paths.push_back(target.path);
    }
    const std::vector<Tally> tallies = folderTallies(paths);

    std::vector<ResidueRow> rows;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        const ResidueTarget& target = targets[i];
        const Tally& tally = tallies[i];
        if (tally.count < 1 || (tally.bytes == 0 && target.loc != bundleLabel)) {
            continue;
        }
        ResidueRow row;
        row.loc = target.loc;
        row.n = tally.count;
        row.b = tally.bytes;
        row.p = tildePath(target.path);
        if (target.owner != nullptr) {
            row.shared = true;
            row.sharedWith = target.owner->name;
        }
        rows.push_back(std::move(row));
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const ResidueRow& a, const ResidueRow& b) { return a.b > b.b; });
    return rows;
}

} // namespace zolva
