#include "ctl/Commands.h"
#include "ctl/JsonText.h"
#include "ctl/Progress.h"
#include "ctl/Table.h"
#include "ctl/TypedPath.h"
#include "files/DisplayPath.h"
#include "files/FolderListing.h"
#include "files/SizeText.h"
#include "scanners/DiskAccess.h"
#include "scanners/StorageAnalysis.h"

#include <optional>
#include <string>
#include <vector>

namespace zolva::ctl {

namespace {

Json analysisJson(const AnalyzeResult& result, std::optional<std::int64_t> available)
{
    Json json = Json::object();
    putPath(json, "path", result.path);
    json["overview"] = result.overview;
    Json entries = Json::array();
    for (const AnalyzeEntry& found : result.entries) {
        Json& entry = entries.emplace_back(Json::object());
        entry["name"] = displayText(found.name);
        putPath(entry, "path", found.path);
        entry["size"] = found.size;
        entry["is_dir"] = found.isDir;
        entry["last_access"] = dateJson(found.lastAccess);
    }
    json["entries"] = entries;
    Json large = Json::array();
    for (const LargeFile& found : result.largeFiles) {
        Json& entry = large.emplace_back(Json::object());
        entry["name"] = displayText(found.name);
        putPath(entry, "path", found.path);
        entry["size"] = found.size;
    }
    json["large_files"] = large;
    json["total_size"] = result.totalSize;
    json["total_files"] = result.totalFiles;
    if (available) {
        json["available"] = *available;
    }
    return json;
}

std::string entriesText(const AnalyzeResult& result, const Look& look)
{
    Table table({{"SIZE", Side::Right}, {"SHARE"}, {{}, Side::Right}, {"NAME"}, {}});
    for (const AnalyzeEntry& entry : result.entries) {
        const std::string name = displayLine(entry.name);
        table.row({{sizeText(entry.size), Ink::Strong},
                   {shareBar(entry.size, result.totalSize), Ink::Bar},
                   {shareText(entry.size, result.totalSize)},
                   {entry.isDir && !result.overview ? name + "/" : name},
                   {result.overview ? displayLine(tildePath(entry.path)) : "", Ink::Faint}});
    }
    return result.entries.empty() ? std::string() : "\n" + table.text(look);
}

std::string largeFilesText(const AnalyzeResult& result, const Look& look)
{
    if (result.largeFiles.empty()) {
        return {};
    }
    Table table({{{}, Side::Right}, {}});
    for (const LargeFile& file : result.largeFiles) {
        table.row({{sizeText(file.size), Ink::Strong}, {displayLine(tildePath(file.path))}});
    }
    return "\n" + painted("Largest files", Ink::Strong, look) + "\n" + table.text(look);
}

std::string overviewText(const AnalyzeResult& result, std::int64_t available, const Look& look)
{
    return painted(sizeText(result.totalSize), Ink::Strong, look) + " used, " +
           painted(sizeText(available), Ink::Strong, look) + " available\n" +
           entriesText(result, look) + "\n" +
           painted("Shares are of the used space. Places lie within one another: they do not add "
                   "up.",
                   Ink::Faint, look) +
           "\n" + largeFilesText(result, look);
}

std::string folderText(const AnalyzeResult& result, const Look& look)
{
    return painted(displayLine(tildePath(result.path)), Ink::Strong, look) + "  " +
           sizeText(result.totalSize) + " in " + counted(result.totalFiles, "file") + "\n" +
           entriesText(result, look) + largeFilesText(result, look);
}

/// Why a folder gave nothing, where that is not because it is empty.
std::string whyEmpty(const std::string& path)
{
    if (!existsAt(path)) {
        return displayLine(path) + ": nothing there";
    }
    if (!isFolderAt(path)) {
        return displayLine(path) + ": not a folder";
    }
    return listFolder(path, HiddenEntries::Keep) ? "" : displayLine(path) + ": cannot be read";
}

} // namespace

Answer analyze(const Request& request)
{
    if (request.operands.empty()) {
        std::pair<AnalyzeResult, std::int64_t> found;
        {
            Progress progress;
            found = overview(request.now, progress.teller());
        }
        const auto& [result, available] = found;
        return request.json ? document(analysisJson(result, available))
                            : Answer{overviewText(result, available, request.look), {}, {}};
    }
    const std::string path = absolutePath(request.operands.front());
    AnalyzeResult result;
    {
        Progress progress;
        result = drillDown(path, progress.teller());
    }
    Answer answer = request.json ? document(analysisJson(result, std::nullopt))
                                 : Answer{folderText(result, request.look), {}, {}};
    answer.note = result.entries.empty() ? whyEmpty(path) : std::string();
    return answer;
}

Answer blocked(const Request& request)
{
    Json rows = Json::array();
    Table table({{"PLACE"}, {"PATH"}});
    for (const diskAccess::Location& location : diskAccess::blockedLocations()) {
        if (request.json) {
            Json& row = rows.emplace_back(Json::object());
            row["id"] = location.id;
            row["label"] = location.label;
            putPath(row, "path", location.path);
        } else {
            table.row({{location.label, Ink::Bad}, {displayLine(tildePath(location.path))}});
        }
    }
    if (request.json) {
        return document({{"blocked", rows}});
    }
    const std::string text = table.text(request.look);
    return {text.find('\n') + 1 == text.size() ? "Nothing is blocked.\n" : text, {}, {}};
}

} // namespace zolva::ctl
