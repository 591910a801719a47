#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <dirent.h>

namespace zolva::mole {

struct TrashReading
{
    std::int64_t bytes = 0;
    bool approximate = false; ///< false only if all of it was counted in this very reading
};

/// The size of a Trash folder, counted a little at a time, so that a large one does not keep the
/// other readings waiting: a reading works for the time it is given and goes on where the one
/// before it stopped. Until the first count is through, the bytes found so far are told, and from
/// then on those of the last count. Regular files at their size on disk; links are not followed.
/// One thread.
class TrashSize
{
public:
    explicit TrashSize(std::string folder);
    [[nodiscard]] TrashReading read(std::chrono::nanoseconds budget);

private:
    void begin();
    bool openNext();
    void countNext();

    std::string m_folder;
    std::vector<std::string> m_pending; ///< folders that are still to be read
    std::unique_ptr<DIR, int (*)(DIR*)> m_open;
    std::string m_openPath;
    std::int64_t m_found = 0;
    bool m_overlooked = false; ///< something could not be read in this count
    std::int64_t m_last = 0;
    bool m_counted = false; ///< at least one count is through
};

/// The Trash of this user's home.
[[nodiscard]] std::string homeTrashFolder();

} // namespace zolva::mole
