#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace zolva::test {

/// A tree of its own below the folder for temporary files, removed at the end, unreadable folders
/// included. Paths are relative to its root; parents are made as needed; every call throws
/// std::system_error if the disk will not have it.
class TempTree
{
public:
    TempTree();
    ~TempTree();
    TempTree(const TempTree&) = delete;
    TempTree& operator=(const TempTree&) = delete;

    [[nodiscard]] const std::string& root() const { return m_root; }
    [[nodiscard]] std::string path(const std::string& relative) const;

    /// Each returns the full path of what it made.
    std::string folder(const std::string& relative);
    /// A file that really occupies at least `bytes` (written, not a hole).
    std::string file(const std::string& relative, std::int64_t bytes = 0);
    std::string text(const std::string& relative, const std::string& content);
    std::string link(const std::string& relative, const std::string& target);
    std::string hardLink(const std::string& relative, const std::string& existing);
    std::string fifo(const std::string& relative);

    void setModified(const std::string& relative, std::chrono::system_clock::time_point time);
    void setMode(const std::string& relative, unsigned mode);

private:
    std::string m_root;
};

/// Bytes on disk of the thing itself, by lstat.
[[nodiscard]] std::int64_t blocksOf(const std::string& path);

} // namespace zolva::test
