#include "platform/MoveNoReplace.h"

#include <stdio.h>

#include <cerrno>

namespace zolva {

int moveNoReplace(int fromFolder, const std::string& from, int toFolder, const std::string& to)
{
    return ::renameatx_np(fromFolder, from.c_str(), toFolder, to.c_str(), RENAME_EXCL) == 0 ? 0
                                                                                            : errno;
}

} // namespace zolva
