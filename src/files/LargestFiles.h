#pragma once

#include "files/WalkFolder.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The rule by which a walk keeps its largest files, applied to the files in walk order: while
/// fewer than 20 are held, append; then a strictly larger one takes the place of the first of the
/// smallest. Not for two threads at once.
namespace zolva {

/// The rule on sizes alone.
class LargestSizes
{
public:
    static constexpr std::size_t capacity = 20;

    /// Only a size above this one changes anything.
    [[nodiscard]] std::int64_t bound() const { return m_count < capacity ? -1 : m_sizes[m_first]; }

    /// The place the size gets, or none.
    std::optional<std::size_t> offer(std::int64_t size);

private:
    std::array<std::int64_t, capacity> m_sizes{};
    std::size_t m_count = 0;
    std::size_t m_first = 0; ///< the first of the smallest
};

/// A file that was among the largest when it was met.
struct WalkHit
{
    std::int64_t size = 0;
    WalkFolderRef folder;
    std::string name;
};

/// The rule on files.
class LargestFiles
{
public:
    void offer(WalkHit hit);
    [[nodiscard]] std::int64_t bound() const { return m_sizes.bound(); }
    [[nodiscard]] const std::vector<WalkHit>& hits() const { return m_hits; }

private:
    LargestSizes m_sizes;
    std::vector<WalkHit> m_hits;
};

} // namespace zolva
