#include "platform/VolumeName.h"

#include <sys/attr.h>
#include <sys/mount.h>
#include <sys/param.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace zolva {

namespace {

struct Answer
{
    u_int32_t length;
    attrreference_t name;
    std::array<char, MAXPATHLEN> text;
} __attribute__((aligned(4), packed));

} // namespace

std::string volumeName(const std::string& path)
{
    struct statfs volume
    {};
    struct attrlist wanted
    {};
    wanted.bitmapcount = ATTR_BIT_MAP_COUNT;
    wanted.volattr = ATTR_VOL_INFO | ATTR_VOL_NAME;
    Answer answer{};
    if (::statfs(path.c_str(), &volume) != 0 ||
        ::getattrlist(volume.f_mntonname, &wanted, &answer, sizeof answer, 0) != 0) {
        return {};
    }
    const char* const start =
        reinterpret_cast<const char*>(&answer.name) + answer.name.attr_dataoffset;
    const auto most = static_cast<std::size_t>(answer.name.attr_length);
    return {start, std::find(start, start + most, '\0')};
}

} // namespace zolva
