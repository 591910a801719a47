#include "platform/linux/MountId.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace zolva {

std::optional<std::uint64_t> mountId([[maybe_unused]] int folder)
{
#ifdef STATX_MNT_ID
    struct statx status
    {};
    if (::statx(folder, "", AT_EMPTY_PATH, STATX_MNT_ID, &status) == 0 &&
        (status.stx_mask & STATX_MNT_ID) != 0) {
        return status.stx_mnt_id;
    }
#endif
    return std::nullopt;
}

} // namespace zolva
