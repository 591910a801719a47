#include "ctl/Commands.h"
#include "ctl/JsonText.h"
#include "ctl/Table.h"
#include "files/DisplayPath.h"
#include "files/ExclusionRules.h"
#include "files/PathGuards.h"

#include <optional>
#include <string>
#include <vector>

namespace zolva::ctl {

Answer check(const Request& request)
{
    Json checks = Json::array();
    Table table({{"PATH"}, {"VERDICT"}});
    for (const std::string& path : request.operands) {
        const std::optional<std::string> refusal = pathRefusal(path);
        if (request.json) {
            Json& entry = checks.emplace_back(Json::object());
            putPath(entry, "path", path);
            entry["refusal"] = textJson(refusal);
        } else {
            table.row({{displayLine(path)},
                       refusal ? Cell{displayLine(*refusal), Ink::Bad}
                               : Cell{"may be touched", Ink::Good}});
        }
    }
    return request.json ? document({{"checks", checks}}) : Answer{table.text(request.look), {}, {}};
}

Answer excluded(const Request& request)
{
    const std::vector<std::string> list = request.exclusionList();
    Json checks = Json::array();
    Table table({{"PATH"}, {"EXCLUDED"}});
    for (const std::string& path : request.operands) {
        const bool covered = isExcluded(path, list);
        if (request.json) {
            Json& entry = checks.emplace_back(Json::object());
            putPath(entry, "path", path);
            entry["excluded"] = covered;
        } else {
            table.row({{displayLine(path)}, covered ? Cell{"yes", Ink::Bad} : Cell{"no"}});
        }
    }
    return request.json ? document({{"checks", checks}}) : Answer{table.text(request.look), {}, {}};
}

Answer validateExclusionText(const Request& request)
{
    const std::string& text = request.operands.front();
    const std::optional<std::string> message = validateExclusion(text, request.exclusionList());
    if (!request.json) {
        const std::string line =
            message ? painted(displayLine(*message), Ink::Bad, request.look)
                    : "Would be stored as " +
                          painted(displayLine(storedExclusion(text)), Ink::Strong, request.look);
        return {line + "\n", {}, {}};
    }
    Json json = {{"message", textJson(message)}};
    if (message) {
        json["stored"] = nullptr;
    } else {
        putPath(json, "stored", storedExclusion(text));
    }
    return document(json);
}

} // namespace zolva::ctl
