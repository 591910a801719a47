#include "platform/LongPath.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <string_view>

namespace zolva {

namespace {

// Neither asks for the permission to list the folder.
#ifdef O_PATH
constexpr int stepFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;
#else
constexpr int stepFlags = O_SEARCH | O_DIRECTORY | O_CLOEXEC;
#endif

} // namespace

LongPath::LongPath(const std::string& path) : m_rest(path.c_str()), m_at(AT_FDCWD)
{
    std::size_t left = path.size();
    while (left >= PATH_MAX && m_error == 0) {
        const std::string_view head(m_rest, PATH_MAX - 1);
        const std::size_t cut = head.rfind('/');
        if (cut == std::string_view::npos || cut == 0) {
            m_error = ENAMETOOLONG;
            return;
        }
        step(std::string(head.substr(0, cut)));
        std::size_t next = cut;
        while (m_rest[next] == '/') {
            ++next;
        }
        m_rest += next;
        left -= next;
        if (left == 0) {
            m_rest = ".";
        }
    }
}

LongPath::~LongPath()
{
    const int kept = errno;
    if (m_at >= 0) {
        ::close(m_at);
    }
    errno = kept;
}

bool LongPath::reached() const
{
    errno = m_error;
    return m_error == 0;
}

void LongPath::step(const std::string& folder)
{
    const int next = ::openat(m_at, folder.c_str(), stepFlags);
    if (next < 0) {
        m_error = errno;
        return;
    }
    if (m_at >= 0) {
        ::close(m_at);
    }
    m_at = next;
}

} // namespace zolva
