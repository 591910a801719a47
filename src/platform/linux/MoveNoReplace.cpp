#include "platform/MoveNoReplace.h"

#include "platform/linux/PlacedMove.h"

#include <cerrno>
#include <cstdio>

namespace zolva {

int moveNoReplace(int fromFolder, const std::string& from, int toFolder, const std::string& to)
{
    if (::renameat2(fromFolder, from.c_str(), toFolder, to.c_str(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    // A folder into itself is EINVAL too, and stays so without the flag.
    if (errno == EINVAL || errno == ENOSYS) {
        return placedMove(fromFolder, from, toFolder, to);
    }
    return errno;
}

} // namespace zolva
