#include "ctl/Commands.h"
#include "ctl/JsonText.h"
#include "ctl/Table.h"
#include "ctl/TypedPath.h"
#include "files/DisplayPath.h"
#include "files/FolderTally.h"
#include "files/SizeText.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zolva::ctl {

Answer tally(const Request& request)
{
    std::vector<std::string> paths;
    for (const std::string& typed : request.operands) {
        paths.push_back(absolutePath(typed));
    }
    const std::vector<Tally> tallies = folderTallies(paths);
    Json rows = Json::array();
    Table table({{"SIZE", Side::Right}, {"FILES", Side::Right}, {"PATH"}});
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const Tally& found = tallies[i];
        if (request.json) {
            Json& row = rows.emplace_back(Json::object());
            putPath(row, "path", paths[i]);
            row["count"] = found.count;
            row["bytes"] = found.bytes;
        } else if (found.count < 1) {
            table.row({{"–", Ink::Faint},
                       {"0", Ink::Faint},
                       {displayLine(paths[i]) + " (nothing there)", Ink::Faint}});
        } else {
            table.row({{sizeText(found.bytes), Ink::Strong},
                       {countText(found.count)},
                       {displayLine(paths[i])}});
        }
    }
    return request.json ? document({{"tallies", rows}}) : Answer{table.text(request.look), {}, {}};
}

Answer size(const Request& request)
{
    Json rows = Json::array();
    Table table({{"BYTES", Side::Right}, {"TEXT"}});
    for (const std::string& typed : request.operands) {
        std::int64_t bytes = 0;
        const char* end = typed.data() + typed.size();
        const auto read = std::from_chars(typed.data(), end, bytes);
        if (read.ec == std::errc::result_out_of_range) {
            return {{}, "size: \"" + displayLine(typed) + "\" is out of range", Exit::WrongUsage};
        }
        if (read.ec != std::errc() || read.ptr != end) {
            return {{}, "size: \"" + displayLine(typed) + "\" is no integer", Exit::WrongUsage};
        }
        if (request.json) {
            rows.push_back({{"bytes", bytes}, {"text", sizeText(bytes)}});
        } else {
            table.row({{std::to_string(bytes)}, {sizeText(bytes), Ink::Strong}});
        }
    }
    return request.json ? document({{"sizes", rows}}) : Answer{table.text(request.look), {}, {}};
}

} // namespace zolva::ctl
