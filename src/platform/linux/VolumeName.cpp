#include "platform/VolumeName.h"

#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>

#include <array>

namespace zolva {

std::string volumeName(const std::string& path)
{
    const FileDescriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    std::array<char, FSLABEL_MAX + 1> label{}; // ends with a zero whatever the system writes
    if (!folder.isOpen() || ::ioctl(folder.get(), FS_IOC_GETFSLABEL, label.data()) != 0) {
        return {};
    }
    return label.data();
}

} // namespace zolva
