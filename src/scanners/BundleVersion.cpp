#include "scanners/AppInventory.h"

#include "files/PathText.h"
#include "scanners/PlistLimits.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace zolva {

namespace {

struct OpenFile
{
    int fd;
    explicit OpenFile(const std::string& path)
        // Without O_NONBLOCK, opening a fifo would wait for somebody to write into it.
        : fd(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY))
    {}
    ~OpenFile()
    {
        if (fd >= 0) {
            ::close(fd);
        }
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
};

/// The bytes of a regular file; nothing for anything else, and for one that is too large to be a
/// property list.
std::optional<std::string> smallFile(const std::string& path)
{
    const OpenFile file(path);
    struct stat status
    {};
    if (file.fd < 0 || ::fstat(file.fd, &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > static_cast<off_t>(largestPlist)) {
        return std::nullopt;
    }
    // One more byte than it had, so that the end shows; it may grow meanwhile.
    std::string bytes(static_cast<std::size_t>(status.st_size) + 1, '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t got = ::read(file.fd, bytes.data() + filled, bytes.size() - filled);
        if (got == 0) {
            break;
        }
        if (got > 0) {
            filled += static_cast<std::size_t>(got);
        } else if (errno != EINTR) {
            return std::nullopt;
        }
    }
    bytes.resize(filled);
    return bytes;
}

} // namespace

std::optional<std::string> bundleVersion(const std::string& bundle)
{
    if (bundle.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    const std::optional<std::string> bytes = smallFile(bundle + "/Contents/Info.plist");
    if (!bytes) {
        return std::nullopt;
    }
    for (const char* key : {"CFBundleShortVersionString", "CFBundleVersion"}) {
        if (const auto text = plistText(*bytes, key)) {
            if (const std::string_view version = trimmedText(*text); !version.empty()) {
                return std::string(version);
            }
        }
    }
    return std::nullopt;
}

} // namespace zolva
