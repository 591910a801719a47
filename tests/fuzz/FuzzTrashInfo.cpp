#include "fuzz/FuzzInput.h"

#include "platform/linux/TrashInfo.h"

/// Whatever another program wrote: what is read from it is a path, and is the same after it was
/// written by us and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace zolva;
    const auto info = parsedTrashInfo(fuzz::textOf(data, size));
    if (info) {
        fuzz::must(!info->path.empty() && info->path.find('\0') == std::string::npos,
                   "a path has bytes, and no NUL among them");
        const auto again = parsedTrashInfo(trashInfoText(info->path, 0));
        fuzz::must(again && again->path == info->path, "a path is read as it was written");
    }
    return 0;
}
