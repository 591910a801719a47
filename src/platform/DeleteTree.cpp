#include "platform/DeleteTree.h"

#include "platform/FileDescriptor.h"
#include "platform/FileIdentity.h"
#include "platform/OpenWithin.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <optional>
#include <utility>

namespace zolva {

namespace {

constexpr std::size_t toldProblems = 100;
/// Folders held open at once; those above are closed and found again through "..".
constexpr std::size_t heldFolders = 32;
/// How often a folder is listed again because entries appeared or were passed over.
constexpr int mostListings = 64;

struct CloseStream
{
    void operator()(DIR* stream) const { ::closedir(stream); }
};
using Stream = std::unique_ptr<DIR, CloseStream>;

struct Level
{
    std::string name;
    Stream stream;         ///< none while closed to spare descriptors
    FileIdentity identity; ///< set when it is closed
    std::vector<std::string> folders;
    int listings = 0;
    bool listed = false;
    bool kept = false; ///< something below stays

    [[nodiscard]] int fd() const { return ::dirfd(stream.get()); }
};

class TreeDeletion
{
public:
    explicit TreeDeletion(int folder) : m_folder(folder) {}

    DeleteReport run(const std::string& name)
    {
        removeEntry(m_folder, name);
        while (!m_levels.empty()) {
            if (!m_levels.back().listed) {
                list();
            } else if (!m_levels.back().folders.empty()) {
                const std::string next = std::move(m_levels.back().folders.back());
                m_levels.back().folders.pop_back();
                enter(m_levels.back().fd(), next);
            } else {
                leave();
            }
        }
        return std::move(m_report);
    }

private:
    /// Of a kind not known: a folder is entered, anything else removed.
    void removeEntry(int folder, const std::string& name)
    {
        if (unlinked(folder, name) == Kind::Folder) {
            enter(folder, name);
        }
    }

    enum class Kind
    {
        Folder,
        Other
    };

    /// Removes what is no folder, and tells what it was.
    Kind unlinked(int folder, const std::string& name)
    {
        if (::unlinkat(folder, name.c_str(), 0) == 0) {
            ++m_report.removed;
            return Kind::Other;
        }
        const int error = errno;
        if (error == EISDIR || error == EPERM) {
            const auto identity = identityAt(folder, name);
            if (identity && identity->isFolder()) {
                return Kind::Folder;
            }
        }
        if (error != ENOENT) {
            tell(name, error);
        }
        return Kind::Other;
    }

    void list()
    {
        Level& level = m_levels.back();
        level.listed = true;
        ++level.listings;
        while (true) {
            errno = 0;
            const dirent* entry = ::readdir(level.stream.get()); // NOLINT(concurrency-mt-unsafe)
            if (entry == nullptr) {
                break;
            }
            const std::string name = entry->d_name;
            if (name == "." || name == "..") {
                continue;
            }
            if (entry->d_type == DT_DIR || unlinked(level.fd(), name) == Kind::Folder) {
                level.folders.push_back(name);
            }
        }
        if (errno != 0) {
            tell({}, errno);
        }
    }

    void enter(int folder, const std::string& name)
    {
        FileDescriptor inner = openWithin(folder, name);
        if (inner.isOpen()) {
            push(name, std::move(inner));
            return;
        }
        const int error = errno;
        if (error == ENOENT) {
            return;
        }
        if (error == ELOOP || error == ENOTDIR) {
            // Something else took its place meanwhile.
            if (unlinked(folder, name) == Kind::Folder) {
                tell(name, error);
            }
            return;
        }
        // An empty folder goes without being read.
        if (::unlinkat(folder, name.c_str(), AT_REMOVEDIR) == 0) {
            ++m_report.removed;
        } else if (errno != ENOENT) {
            tell(name, error);
        }
    }

    void push(const std::string& name, FileDescriptor inner)
    {
        Stream stream(::fdopendir(inner.get()));
        if (!stream) {
            tell(name, errno);
            return;
        }
        static_cast<void>(inner.release());
        m_levels.push_back({name, std::move(stream), {}, {}, 0, false, false});
        if (m_levels.size() > heldFolders) {
            Level& above = m_levels[m_levels.size() - 1 - heldFolders];
            if (const auto identity = above.stream ? identityOf(above.fd()) : std::nullopt) {
                above.identity = *identity;
                above.stream.reset();
            }
        }
    }

    /// The folder of the last level, open again if it was closed; -1 if it is not where it was.
    int folderAbove()
    {
        if (m_levels.size() == 1) {
            return m_folder;
        }
        Level& above = m_levels[m_levels.size() - 2];
        if (above.stream) {
            return above.fd();
        }
        FileDescriptor found(
            ::openat(m_levels.back().fd(), "..", O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        const auto identity = found.isOpen() ? identityOf(found.get()) : std::nullopt;
        if (!identity) {
            return -1;
        }
        if (*identity != above.identity) {
            errno = ESTALE;
            return -1;
        }
        above.stream.reset(::fdopendir(found.get()));
        if (!above.stream) {
            return -1;
        }
        return found.release();
    }

    void leave()
    {
        const int above = folderAbove();
        if (above < 0) {
            tell({}, errno);
            m_levels.clear();
            return;
        }
        Level& level = m_levels.back();
        if (!level.kept && ::unlinkat(above, level.name.c_str(), AT_REMOVEDIR) == 0) {
            ++m_report.removed;
        } else if (!level.kept && errno != ENOENT) {
            const int error = errno;
            if ((error == ENOTEMPTY || error == EEXIST) && level.listings < mostListings) {
                ::rewinddir(level.stream.get());
                level.listed = false;
                return;
            }
            tell({}, error);
        }
        const bool kept = level.kept;
        m_levels.pop_back();
        if (kept && !m_levels.empty()) {
            m_levels.back().kept = true;
        }
    }

    /// About an entry of the last level, or with no name about that folder itself.
    void tell(const std::string& name, int error)
    {
        ++m_report.failed;
        if (!m_levels.empty()) {
            m_levels.back().kept = true;
        }
        if (m_report.problems.size() >= toldProblems) {
            return;
        }
        std::string path;
        for (const Level& level : m_levels) {
            path += (path.empty() ? "" : "/") + level.name;
        }
        if (!name.empty()) {
            path += (path.empty() ? "" : "/") + name;
        }
        m_report.problems.push_back({std::move(path), error});
    }

    int m_folder;
    std::vector<Level> m_levels;
    DeleteReport m_report;
};

} // namespace

DeleteReport deleteTree(int folder, const std::string& name)
{
    return TreeDeletion(folder).run(name);
}

} // namespace zolva
