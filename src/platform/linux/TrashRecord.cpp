#include "platform/linux/TrashFolders.h"
#include "platform/linux/TrashInfo.h"
#include "platform/linux/TrashNames.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>

namespace zolva {

namespace {

int writeAll(int file, const std::string& text)
{
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t written = ::write(file, text.data() + done, text.size() - done);
        if (written > 0) {
            done += static_cast<std::size_t>(written);
        } else if (written == 0 || errno != EINTR) {
            return written == 0 ? EIO : errno;
        }
    }
    return 0;
}

} // namespace

int recordTrashOrigin(const TrashFolders& trash, const std::string& name, const std::string& origin)
{
    const std::string info = name + std::string(trashInfoSuffix);
    FileDescriptor file(::openat(trash.info.get(), info.c_str(),
                                 O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!file.isOpen()) {
        return errno;
    }
    int error = writeAll(file.get(), trashInfoText(origin, std::time(nullptr)));
    if (error == 0 && (::fsync(file.get()) != 0 || file.close() != 0)) {
        error = errno;
    }
    if (error != 0) {
        ::unlinkat(trash.info.get(), info.c_str(), 0);
    }
    return error;
}

} // namespace zolva
