#pragma once

#include <string>

namespace zolva {

/// Tells that something in one folder was added, removed or renamed, or the folder itself was. Its
/// descriptor becomes readable then, and stays so until it is drained. One thread.
class FolderWatch
{
public:
    /// A folder that cannot be watched is not retried.
    explicit FolderWatch(const std::string& folder);
    ~FolderWatch();
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    /// -1 where nothing is watched.
    [[nodiscard]] int descriptor() const { return m_queue; }
    /// Forgets what was told so far, without waiting.
    void drain() const;

private:
    int m_queue = -1;
    /// Where the system watches an open folder.
    [[maybe_unused]] int m_folder = -1;
};

} // namespace zolva
