#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

/// How counters that only grow become rates. Pure.
namespace zolva::mole {

using Seconds = std::chrono::duration<double>;

constexpr double bytesPerMegabyte = 1e6;

/// Growth a second; 0 for a counter that fell, because it began anew, and for no time at all.
[[nodiscard]] inline double perSecond(std::uint64_t before, std::uint64_t after, Seconds elapsed)
{
    if (after <= before || elapsed.count() <= 0) {
        return 0;
    }
    return static_cast<double>(after - before) / elapsed.count();
}

/// `part` of `whole` in percent, kept within 0 and 100; 0 of nothing.
[[nodiscard]] inline double percent(double part, double whole)
{
    return whole > 0 ? std::clamp(100 * part / whole, 0.0, 100.0) : 0.0;
}

/// The last readings of one rate, oldest first.
class History
{
public:
    static constexpr std::size_t limit = 60;

    void add(double value)
    {
        if (m_values.size() == limit) {
            m_values.erase(m_values.begin());
        }
        m_values.push_back(value);
    }
    [[nodiscard]] const std::vector<double>& values() const { return m_values; }

private:
    std::vector<double> m_values;
};

} // namespace zolva::mole
