#include "files/LargestFiles.h"

#include <algorithm>
#include <utility>

namespace zolva {

std::optional<std::size_t> LargestSizes::offer(std::int64_t size)
{
    if (size <= bound()) {
        return std::nullopt;
    }
    const std::size_t place = m_count < capacity ? m_count++ : m_first;
    m_sizes[place] = size;
    if (m_count == capacity) {
        const auto* smallest = std::min_element(m_sizes.begin(), m_sizes.end());
        m_first = static_cast<std::size_t>(smallest - m_sizes.begin());
    }
    return place;
}

void LargestFiles::offer(WalkHit hit)
{
    const std::optional<std::size_t> place = m_sizes.offer(hit.size);
    if (!place) {
        return;
    }
    if (*place == m_hits.size()) {
        m_hits.push_back(std::move(hit));
    } else {
        m_hits[*place] = std::move(hit);
    }
}

} // namespace zolva
