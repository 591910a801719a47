#include "mole/TrashSize.h"

#include "files/HomeFolder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace zolva::mole {

TrashSize::TrashSize(std::string folder) : m_folder(std::move(folder)), m_open(nullptr, ::closedir)
{}

void TrashSize::begin()
{
    m_pending = {m_folder};
    m_found = 0;
    m_overlooked = false;
}

/// Opens the next folder; false if none is left.
bool TrashSize::openNext()
{
    while (!m_open && !m_pending.empty()) {
        m_openPath = std::move(m_pending.back());
        m_pending.pop_back();
        m_open.reset(::opendir(m_openPath.c_str()));
        // What is gone holds nothing: a Trash that was never used, or a folder just put back.
        m_overlooked = m_overlooked || (!m_open && errno != ENOENT);
    }
    return m_open != nullptr;
}

void TrashSize::countNext()
{
    errno = 0;
    const dirent* entry = ::readdir(m_open.get());
    if (!entry) {
        m_overlooked = m_overlooked || errno != 0;
        m_open.reset();
        return;
    }
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") {
        return;
    }
    struct stat status
    {};
    if (::fstatat(::dirfd(m_open.get()), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
        m_overlooked = m_overlooked || errno != ENOENT;
    } else if (S_ISDIR(status.st_mode)) {
        m_pending.push_back(m_openPath + "/" + entry->d_name);
    } else if (S_ISREG(status.st_mode)) {
        m_found += static_cast<std::int64_t>(status.st_blocks) * 512;
    }
}

TrashReading TrashSize::read(std::chrono::nanoseconds budget)
{
    constexpr int entriesBetweenLooksAtTheClock = 32;
    const auto end = std::chrono::steady_clock::now() + budget;
    const bool whole = !m_open && m_pending.empty();
    if (whole) {
        begin();
    }
    for (int entries = 1; openNext(); ++entries) {
        countNext();
        if (entries % entriesBetweenLooksAtTheClock == 0 &&
            std::chrono::steady_clock::now() >= end) {
            break;
        }
    }
    if (m_open || !m_pending.empty()) {
        return {m_counted ? m_last : m_found, true};
    }
    m_counted = true;
    m_last = m_found;
    return {m_last, !whole || m_overlooked};
}

std::string homeTrashFolder()
{
    const char* data = std::getenv("XDG_DATA_HOME");
    const bool told = data && data[0] == '/';
    return (told ? std::string(data) : homeFolder() + "/.local/share") + "/Trash/files";
}

} // namespace zolva::mole
