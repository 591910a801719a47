#include "json/IsoDate.h"

#include <cstdint>
#include <string>

namespace zolva {

namespace {

/// Reads the text from its front; once something did not fit, it stays that way.
class DateScan
{
public:
    explicit DateScan(std::string_view text) : m_rest(text) {}

    int digits(std::size_t count)
    {
        int value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            if (m_rest.empty() || m_rest.front() < '0' || m_rest.front() > '9') {
                m_fits = false;
                return 0;
            }
            value = value * 10 + (m_rest.front() - '0');
            m_rest.remove_prefix(1);
        }
        return value;
    }

    bool take(char wanted)
    {
        if (m_rest.empty() || m_rest.front() != wanted) {
            return false;
        }
        m_rest.remove_prefix(1);
        return true;
    }

    void expect(char wanted) { m_fits = take(wanted) && m_fits; }

    /// Any number of digits, at least one; what is finer than a microsecond is cut off.
    std::chrono::microseconds fraction()
    {
        std::int64_t value = 0;
        std::int64_t unit = 1'000'000;
        const std::size_t before = m_rest.size();
        while (!m_rest.empty() && m_rest.front() >= '0' && m_rest.front() <= '9') {
            unit /= 10;
            value += unit * (m_rest.front() - '0');
            m_rest.remove_prefix(1);
        }
        m_fits = m_fits && m_rest.size() < before;
        return std::chrono::microseconds(value);
    }

    [[nodiscard]] bool complete() const { return m_fits && m_rest.empty(); }

private:
    std::string_view m_rest;
    bool m_fits = true;
};

/// How far the zone is ahead of UTC; nothing where the hours and minutes are no time of day.
std::optional<std::chrono::minutes> zone(DateScan& scan)
{
    if (scan.take('Z')) {
        return std::chrono::minutes(0);
    }
    const int sign = scan.take('-') ? -1 : 1;
    if (sign > 0) {
        scan.expect('+');
    }
    const int hours = scan.digits(2);
    scan.expect(':');
    const int minutes = scan.digits(2);
    if (hours > 23 || minutes > 59) {
        return std::nullopt;
    }
    return std::chrono::minutes(sign * (hours * 60 + minutes));
}

} // namespace

std::optional<DateTime> parseIsoDate(std::string_view text)
{
    using namespace std::chrono;
    DateScan scan(text);
    const int y = scan.digits(4);
    scan.expect('-');
    const int m = scan.digits(2);
    scan.expect('-');
    const int d = scan.digits(2);
    scan.expect('T');
    const int h = scan.digits(2);
    scan.expect(':');
    const int min = scan.digits(2);
    scan.expect(':');
    const int s = scan.digits(2);
    const microseconds part = scan.take('.') ? scan.fraction() : microseconds(0);
    const std::optional<minutes> ahead = zone(scan);

    const year_month_day date{year(y), month(static_cast<unsigned>(m)),
                              day(static_cast<unsigned>(d))};
    if (!scan.complete() || !ahead || !date.ok() || h > 23 || min > 59 || s > 59) {
        return std::nullopt;
    }
    return sys_days(date) + hours(h) + minutes(min) + seconds(s) + part - *ahead;
}

} // namespace zolva
