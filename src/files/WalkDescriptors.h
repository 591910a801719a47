#pragma once

#include "files/WalkFolder.h"

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>

namespace zolva {

/// The descriptors of the folders whose subfolders are still to be opened, and never more of them
/// than allowed (plus those in use at the moment): the one kept longest is closed first, since a
/// walk in depth comes back to it last. A folder whose descriptor was closed is reached again from
/// its nearest open parent, in steps that the system takes, and is taken only if it is still the
/// same one. A folder lives as long as its descriptor is kept here, so a walk that ends early may
/// let go of it whenever it likes. Any thread.
class WalkDescriptors
{
public:
    explicit WalkDescriptors(std::size_t capacity) : m_capacity(capacity) {}
    ~WalkDescriptors();
    WalkDescriptors(const WalkDescriptors&) = delete;
    WalkDescriptors& operator=(const WalkDescriptors&) = delete;

    /// What suits the limit of the process.
    [[nodiscard]] static std::size_t suitableCapacity();

    /// Opens a root by its text, links followed. -1 with errno.
    [[nodiscard]] int openRoot(const std::string& text, bool& spareTimes);

    /// Takes over the folder's descriptor until `unopened` calls of `openChild` have used it.
    void keep(WalkFolder& folder, int descriptor, std::uint32_t unopened);

    /// Opens a folder found in `parent`, links refused. -1 with errno; ENOENT also where the parent
    /// is no longer what it was.
    [[nodiscard]] int openChild(WalkFolder& parent, const char* name, bool& spareTimes);

private:
    int acquire(WalkFolder& folder);
    void giveUp(WalkFolder& folder);
    void pin(WalkFolder& folder);
    void unpin(WalkFolder& folder);
    void link(WalkFolder& folder);
    [[nodiscard]] WalkFolderRef unlink(WalkFolder& folder);
    void closeBeyond(std::size_t capacity);
    void closeIdle();
    template <typename Open>
    int withRoom(const Open& open);

    std::mutex m_mutex; ///< guards everything below and `kept` of every folder
    const std::size_t m_capacity;
    std::size_t m_open = 0;
    WalkFolder* m_oldest = nullptr; ///< open and not in use; the list has a share in each
    WalkFolder* m_newest = nullptr;
};

} // namespace zolva
