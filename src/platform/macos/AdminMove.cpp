#include "platform/AdminMove.h"

#include "platform/NumberedName.h"
#include "platform/OpenFolder.h"
#include "platform/SystemTrash.h"

namespace zolva {

namespace {

constexpr const char* script =
    "on run argv\n"
    "    set srcPath to item 1 of argv\n"
    "    set dstPath to item 2 of argv\n"
    "    do shell script (\"mv \" & quoted form of srcPath & \" \" & quoted form of dstPath) "
    "with administrator privileges\n"
    "end run";

} // namespace

std::vector<std::string> adminMoveCommand(const std::string& source, const std::string& destination)
{
    return {"/usr/bin/osascript", "-e", script, source, destination};
}

std::string adminMoveName(const std::string& name, int attempt)
{
    return attempt == 0 ? name : numberedName(name, attempt + 1);
}

bool isTrashNameTaken(const std::string& home, const std::string& name)
{
    return somethingAt(homeTrashFolder(home) + "/" + name);
}

bool adminMove(const std::string& home, const std::string& source, const std::string& name,
               const ToolRunner& run)
{
    return run(adminMoveCommand(source, homeTrashFolder(home) + "/" + name)) == 0;
}

} // namespace zolva
