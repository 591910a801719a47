#pragma once

#include <string>

namespace zolva {

/// Tells that something in one folder was added, removed or renamed, or the folder itself was. Its
/// descriptor becomes readable then, and stays so until it is drained. One thread.
class FolderWatch
{
public:
    /// A folder that cannot be watched is not retried. One that goes away later is watched again,
    /// on Linux, as soon as one stands at its path, also where the one above it went with it.
    explicit FolderWatch(const std::string& folder);
    ~FolderWatch();
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    /// -1 where nothing is watched; else the same for good.
    [[nodiscard]] int descriptor() const { return m_queue; }
    /// Forgets what was told so far, without waiting.
    void drain();

private:
    void watchAnew();

    int m_queue = -1;
    /// Where the system watches a path.
    [[maybe_unused]] std::string m_path;
    [[maybe_unused]] bool m_isThere = false;
    /// Where the system watches an open folder.
    [[maybe_unused]] int m_folder = -1;
};

} // namespace zolva
