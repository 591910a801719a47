#include "platform/FileDates.h"

#include "platform/LongPath.h"

#include <fcntl.h>
#include <sys/attr.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>

namespace zolva {

namespace {

/// A date that the clock cannot tell becomes the nearest that it can.
FileDate dateOf(const struct timespec& stamp)
{
    using std::chrono::duration_cast;
    using std::chrono::nanoseconds;
    using std::chrono::seconds;
    constexpr std::int64_t last = duration_cast<seconds>(FileDate::duration::max()).count() - 1;
    // Seconds first: the clock here counts microseconds, and nanoseconds would reach less far.
    if (stamp.tv_sec > last) {
        return FileDate::max();
    }
    if (stamp.tv_sec < -last) {
        return FileDate::min();
    }
    return FileDate(duration_cast<FileDate::duration>(seconds(stamp.tv_sec)) +
                    duration_cast<FileDate::duration>(nanoseconds(stamp.tv_nsec)));
}

std::optional<struct stat> statusOf(const std::string& path)
{
    struct stat status
    {};
    const LongPath from(path);
    if (!from.reached() || ::fstatat(from.at(), from.rest(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return std::nullopt;
    }
    return status;
}

/// As getattrlist(2) lays it out when asked for what it returned and the date.
struct __attribute__((aligned(4), packed)) AddedReply
{
    std::uint32_t length;
    attribute_set_t returned;
    struct timespec added;
};

} // namespace

std::optional<FileDate> contentModificationDate(const std::string& path)
{
    const auto status = statusOf(path);
    return status ? std::optional(dateOf(status->st_mtimespec)) : std::nullopt;
}

std::optional<FileDate> addedToFolderDate(const std::string& path)
{
    struct attrlist wanted
    {};
    wanted.bitmapcount = ATTR_BIT_MAP_COUNT;
    wanted.commonattr = ATTR_CMN_RETURNED_ATTRS | ATTR_CMN_ADDEDTIME;
    AddedReply reply{};
    const LongPath from(path);
    if (!from.reached() ||
        ::getattrlistat(from.at(), from.rest(), &wanted, &reply, sizeof(reply), FSOPT_NOFOLLOW) !=
            0 ||
        (reply.returned.commonattr & ATTR_CMN_ADDEDTIME) == 0) {
        return std::nullopt;
    }
    const struct timespec added = reply.added;
    return dateOf(added);
}

std::optional<FileDate> creationDate(const std::string& path)
{
    const auto status = statusOf(path);
    return status ? std::optional(dateOf(status->st_birthtimespec)) : std::nullopt;
}

} // namespace zolva
