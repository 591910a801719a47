#include "platform/FileDates.h"

#include "platform/LongPath.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdint>

namespace zolva {

namespace {

/// A date that the clock cannot tell (before 1677, after 2262) becomes the nearest that it can.
FileDate dateOf(const struct statx_timestamp& stamp)
{
    using std::chrono::duration_cast;
    using std::chrono::nanoseconds;
    using std::chrono::seconds;
    constexpr std::int64_t last = duration_cast<seconds>(FileDate::duration::max()).count() - 1;
    if (stamp.tv_sec > last) {
        return FileDate::max();
    }
    if (stamp.tv_sec < -last) {
        return FileDate::min();
    }
    return FileDate(
        duration_cast<FileDate::duration>(seconds(stamp.tv_sec) + nanoseconds(stamp.tv_nsec)));
}

std::optional<struct statx> asked(const std::string& path, unsigned field)
{
    struct statx status
    {};
    const LongPath from(path);
    if (!from.reached() ||
        ::statx(from.at(), from.rest(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, field, &status) !=
            0 ||
        (status.stx_mask & field) == 0) {
        return std::nullopt;
    }
    return status;
}

} // namespace

std::optional<FileDate> contentModificationDate(const std::string& path)
{
    const auto status = asked(path, STATX_MTIME);
    return status ? std::optional(dateOf(status->stx_mtime)) : std::nullopt;
}

std::optional<FileDate> addedToFolderDate(const std::string&)
{
    return std::nullopt;
}

std::optional<FileDate> creationDate(const std::string& path)
{
    const auto status = asked(path, STATX_BTIME);
    return status ? std::optional(dateOf(status->stx_btime)) : std::nullopt;
}

} // namespace zolva
