#pragma once

#include "files/WalkSystem.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <utility>

namespace zolva {

struct WalkRoot;
struct WalkFolder;

/// A share in a folder of the walk. The last one gone frees the folder, and its parents that were
/// only held by it, however many they are, without recursion.
class WalkFolderRef
{
public:
    WalkFolderRef() = default;
    /// Takes over a share that nobody else holds, as the first one of a new folder.
    explicit WalkFolderRef(WalkFolder* folder) : m_folder(folder) {}
    WalkFolderRef(const WalkFolderRef& other);
    WalkFolderRef(WalkFolderRef&& other) noexcept : m_folder(std::exchange(other.m_folder, nullptr))
    {}
    WalkFolderRef& operator=(WalkFolderRef other) noexcept
    {
        std::swap(m_folder, other.m_folder);
        return *this;
    }
    ~WalkFolderRef();

    [[nodiscard]] WalkFolder* get() const { return m_folder; }
    [[nodiscard]] WalkFolder* operator->() const { return m_folder; }
    [[nodiscard]] WalkFolder& operator*() const { return *m_folder; }
    [[nodiscard]] explicit operator bool() const { return m_folder != nullptr; }
    /// Gives up the share without freeing; the caller frees.
    [[nodiscard]] WalkFolder* release() { return std::exchange(m_folder, nullptr); }

private:
    WalkFolder* m_folder = nullptr;
};

/// A folder that has been opened and is still needed: because of what is below it, because one of
/// the largest files lies in it, or because its descriptor is still open. Constant after it was
/// opened but for the last group.
struct WalkFolder
{
    WalkFolderRef parent;     ///< none at the top
    std::string name;         ///< at the top the text of the root
    WalkRoot* root = nullptr; ///< the innermost root it belongs to
    bool spareTimes = true;   ///< whether the access times can be left alone
    std::atomic<std::uint32_t> shares{1};

    struct
    {
        int descriptor = -1;
        std::uint32_t unopened = 0; ///< folders in it that are still to be opened
        std::uint32_t users = 0;
        FolderId id; ///< known once the descriptor had to be closed before its time
        WalkFolder* older = nullptr;
        WalkFolder* newer = nullptr;
    } kept; ///< belongs to WalkDescriptors
};

/// `text` and the names from below `top` down to `name` in `folder`.
[[nodiscard]] std::string walkPath(const std::string& text, const WalkFolder* top,
                                   const WalkFolder* folder, const std::string& name);

} // namespace zolva
