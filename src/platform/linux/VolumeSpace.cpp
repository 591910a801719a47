#include "platform/VolumeSpace.h"

#include <sys/statvfs.h>

#include <limits>

namespace zolva {

namespace {

/// Some network file systems tell more than 63 bits can hold.
std::int64_t bytesOf(std::uint64_t blocks, std::uint64_t blockSize)
{
    std::uint64_t bytes = 0;
    constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (__builtin_mul_overflow(blocks, blockSize, &bytes) || bytes > most) {
        bytes = most;
    }
    return static_cast<std::int64_t>(bytes);
}

} // namespace

VolumeSpace volumeSpace(const std::string& path)
{
    struct statvfs volume
    {};
    if (::statvfs(path.c_str(), &volume) != 0) {
        return {};
    }
    const std::uint64_t blockSize = volume.f_frsize != 0 ? volume.f_frsize : volume.f_bsize;
    return {bytesOf(volume.f_bavail, blockSize), bytesOf(volume.f_blocks, blockSize)};
}

} // namespace zolva
