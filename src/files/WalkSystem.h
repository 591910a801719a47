#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

/// What the walker asks of the system: folders opened, listed and measured without a link followed
/// that was not named by the caller. One file per system behind it. Any thread.
namespace zolva {

enum class NodeKind
{
    File,
    Folder,
    Link,
    Other,
    Unknown
};

/// What tells one folder from every other while both exist.
struct FolderId
{
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    friend bool operator==(const FolderId&, const FolderId&) = default;
};

/// The answer about one thing: what it is and the bytes it occupies.
struct NodeStatus
{
    NodeKind kind = NodeKind::Unknown;
    std::int64_t allocated = 0;
    FolderId id;
};

enum class LastLink
{
    Follow,
    Refuse
};

/// The descriptor of a folder to be listed, or -1 with errno; never opens anything that is no
/// folder. `spareTimes` asks for the access time to be left alone and becomes false where that is
/// not permitted.
[[nodiscard]] int openFolder(int parent, const char* name, LastLink link, bool& spareTimes);

/// The same for a path of any length.
[[nodiscard]] int openFolder(const std::string& path, bool& spareTimes);

/// A descriptor that serves only to reach what is below the folder, or -1 with errno. The path must
/// be short enough for the system.
[[nodiscard]] int openStep(int parent, const char* path, LastLink link);

/// `openStep` from nowhere, for a path of any length, links followed.
[[nodiscard]] int openStep(const std::string& path);

/// False with errno if nothing can be told.
[[nodiscard]] bool statusOf(int folder, const char* name, NodeStatus& status);
[[nodiscard]] bool statusOf(int descriptor, NodeStatus& status);
/// Whether something stands where the link leads.
[[nodiscard]] bool leadsSomewhere(int folder, const char* link);
/// For a path of any length.
[[nodiscard]] bool statusOf(const std::string& path, LastLink link, NodeStatus& status);

/// Longest path, its end mark included, that the system takes in one call.
[[nodiscard]] std::size_t longestPath();
/// Descriptors that the process may have.
[[nodiscard]] std::size_t descriptorLimit();

/// So many threads gain from walking at the same time, however many cores there are.
[[nodiscard]] unsigned mostWalkThreads();

/// A part of a folder's listing, in a buffer of its own.
class FolderEntries
{
public:
    struct Entry
    {
        const char* name = nullptr; ///< good as long as the buffer
        NodeKind kind = NodeKind::Unknown;
        std::uint64_t inode = 0;
    };

    /// Reads the next part of the open folder; false at its end and where reading failed.
    [[nodiscard]] bool fill(int folder);
    /// The next entry but "." and ".."; false if there is none left here.
    [[nodiscard]] bool next(Entry& entry);
    [[nodiscard]] bool failed() const { return m_failed; }

private:
    std::unique_ptr<char[]> m_buffer; ///< made when first filled
    std::size_t m_at = 0;
    std::size_t m_filled = 0;
    bool m_failed = false;
};

/// Lists whole folders, one after the other, through one buffer.
class FolderReader
{
public:
    using Entry = FolderEntries::Entry;

    void start(int folder);
    /// The next entry, good until the next call; false at the end and where reading failed.
    [[nodiscard]] bool next(Entry& entry);
    [[nodiscard]] bool failed() const { return m_entries.failed(); }

private:
    FolderEntries m_entries;
    int m_folder = -1;
};

} // namespace zolva
