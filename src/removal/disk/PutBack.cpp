#include "removal/disk/PutBack.h"

#include "files/HomeFolder.h"
#include "files/PathGuards.h"
#include "files/PathText.h"
#include "platform/OpenFolder.h"
#include "platform/SystemTrash.h"

namespace zolva {

tl::expected<void, std::string> putBackItem(const std::string& landed, const std::string& original,
                                            const std::optional<FileIdentity>& expected)
{
    const auto done = putBackFromTrash(landed, standardizedPath(expandTilde(original)),
                                       MissingParent::IsAnError, expected);
    if (!done) {
        return tl::unexpected(done.error().text);
    }
    return {};
}

tl::expected<std::string, std::string> putBackByName(const std::string& name)
{
    const auto problem = [&name](const std::string& text) {
        return tl::unexpected(name + ": " + text);
    };
    const auto trash = pinHomeTrash(homeFolder());
    if (!trash) {
        return problem(trash.error().text);
    }
    const std::string landed = joinedPath(trash->path, name);
    const bool isChild = !name.empty() && name != "." && name != ".." &&
                         name.find('/') == std::string::npos &&
                         name.find('\0') == std::string::npos;
    if (!isChild || presenceAt(landed) == Presence::Absent) {
        return problem("not in the Trash");
    }
    const auto origin = trashOrigin(*trash, name);
    if (!origin) {
        return problem("no record of where it came from (" + origin.error().text + ")");
    }
    const std::string original = standardizedPath(*origin);
    if (const auto refusal = pathRefusal(original)) {
        return problem(*refusal);
    }
    const auto done = putBackFromTrash(landed, original, MissingParent::IsMadeAnew);
    if (!done) {
        return problem(original + ": " + done.error().text);
    }
    return original;
}

} // namespace zolva
