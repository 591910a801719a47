#include "ctl/AppSource.h"
#include "ctl/Commands.h"
#include "ctl/JsonText.h"
#include "ctl/Table.h"
#include "files/DisplayPath.h"
#include "files/SizeText.h"
#include "scanners/LeftoverScan.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace zolva::ctl {

namespace {

Answer failed(std::string note)
{
    return {{}, std::move(note), Exit::Failed};
}

Json appJson(const UninstallApp& app)
{
    Json row = {{"name", displayText(app.name)},
                {"bundleID", displayText(app.bundleID)},
                {"source", displayText(app.source)},
                {"uninstallName", displayText(app.uninstallName)}};
    putPath(row, "path", app.path);
    row["size"] = displayText(app.size);
    row["version"] = textJson(app.version);
    row["installedDate"] = dateJson(app.installedDate);
    row["bundleBytes"] = app.bundleBytes ? Json(*app.bundleBytes) : Json(nullptr);
    return row;
}

std::string dayText(std::optional<TimePoint> date)
{
    return date ? dateJson(date).get<std::string>().substr(0, 10) : std::string("–");
}

Json residueJson(const std::vector<ResidueRow>& residue)
{
    Json rows = Json::array();
    for (const ResidueRow& found : residue) {
        Json& row = rows.emplace_back(Json::object());
        row["loc"] = found.loc;
        row["n"] = found.n;
        row["b"] = found.b;
        putPath(row, "p", found.p);
        row["shared"] = found.shared;
        row["sharedWith"] = textJson(found.sharedWith);
    }
    return {{"residue", rows}};
}

std::string residueText(const UninstallApp& app, const std::vector<ResidueRow>& residue,
                        const Look& look)
{
    if (residue.empty()) {
        return "No leftover files found for this app.\n";
    }
    Table table({{"SIZE", Side::Right}, {"FILES", Side::Right}, {"LOCATION"}, {"PATH"}, {}});
    std::int64_t bytes = 0;
    std::int64_t files = 0;
    for (const ResidueRow& found : residue) {
        bytes += found.b;
        files += found.n;
        const std::string owner = found.sharedWith.value_or("another installed app");
        table.row({{sizeText(found.b), Ink::Strong},
                   {countText(found.n)},
                   {found.loc},
                   {displayLine(found.p)},
                   {found.shared ? displayLine(owner) + " uses this same path." : "", Ink::Bad}});
    }
    const auto places = static_cast<std::int64_t>(residue.size());
    return painted(displayLine(app.name), Ink::Strong, look) + "  " + counted(files, "file") +
           " in " + counted(places, "location") + ", " + sizeText(bytes) + "\n" + table.text(look);
}

} // namespace

Answer apps(const Request& request)
{
    auto list = listedApps(request);
    if (!list) {
        return failed(list.error());
    }
    Json rows = Json::array();
    Table table({{"NAME"}, {"VERSION"}, {"SIZE", Side::Right}, {"ADDED"}, {"SOURCE"}, {"PATH"}});
    for (UninstallApp& listed : *list) {
        const UninstallApp app = enrichApp(std::move(listed));
        if (request.json) {
            rows.push_back(appJson(app));
            continue;
        }
        table.row({{displayLine(app.name), Ink::Strong},
                   {app.version ? displayLine(*app.version) : "–"},
                   {sizeText(app.bundleBytes.value_or(0))},
                   {dayText(app.installedDate)},
                   {displayLine(app.source)},
                   {displayLine(tildePath(app.path)), Ink::Faint}});
    }
    if (request.json) {
        return document({{"apps", rows}});
    }
    return {list->empty() ? "The list names no applications.\n" : table.text(request.look), {}, {}};
}

Answer leftovers(const Request& request)
{
    const auto list = listedApps(request);
    if (!list) {
        return failed(list.error());
    }
    const auto app = std::find_if(list->begin(), list->end(), [&](const UninstallApp& candidate) {
        return candidate.path == request.bundle;
    });
    if (app == list->end()) {
        return failed("no application in " +
                      displayLine(request.appsFile.value_or("the list of mo")) + " has the path " +
                      displayLine(request.bundle));
    }
    const std::vector<ResidueRow> residue = scanResidue(*app, *list);
    return request.json ? document(residueJson(residue))
                        : Answer{residueText(*app, residue, request.look), {}, {}};
}

} // namespace zolva::ctl
