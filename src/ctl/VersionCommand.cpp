#include "core/MoLocation.h"
#include "ctl/Commands.h"
#include "ctl/JsonText.h"
#include "files/DisplayPath.h"

#include <optional>
#include <string>

namespace zolva::ctl {

namespace {

std::string moText(const MoLocation& location, const std::optional<std::string>& version)
{
    const std::string place = displayLine(location.path);
    if (location.kind == MoLocation::Kind::Absent) {
        return "mo is not installed; it was looked for at " + place;
    }
    return "mo" + (version ? " " + displayLine(*version) : "") + ", " + kindText(location.kind) +
           ", at " + place;
}

} // namespace

Answer version(const Request& request)
{
    const MoLocation& location = moLocation();
    const std::optional<std::string> moVersion = zolva::moVersion(location);
    if (!request.json) {
        return {"zolvactl " ZOLVA_VERSION ", build " + std::to_string(ZOLVA_BUILD) + "\n" +
                    moText(location, moVersion) + "\n",
                {},
                {}};
    }
    Json mo = Json::object();
    putPath(mo, "path", location.path);
    mo["kind"] = kindText(location.kind);
    mo["version"] = textJson(moVersion);
    return document({{"version", ZOLVA_VERSION}, {"build", ZOLVA_BUILD}, {"mo", mo}});
}

} // namespace zolva::ctl
