#include "core/LineSplitter.h"

#include <utility>

namespace zolva {

void LineSplitter::feed(std::string_view bytes, const Told& told)
{
    for (std::size_t end = bytes.find('\n'); end != std::string_view::npos;
         end = bytes.find('\n')) {
        const std::string_view part = bytes.substr(0, end);
        bytes.remove_prefix(end + 1);
        if (m_begun.empty() && !m_tooLong) {
            tell(part, told);
        } else {
            hold(part);
            finish(told);
        }
    }
    hold(bytes);
}

void LineSplitter::finish(const Told& told)
{
    if (m_begun.empty() && !m_tooLong) {
        return;
    }
    const bool tooLong = m_tooLong;
    const std::string line = std::move(m_begun);
    m_begun.clear();
    m_tooLong = false;
    if (tooLong) {
        told(Line{{}, true});
    } else {
        tell(line, told);
    }
}

void LineSplitter::hold(std::string_view part)
{
    if (m_tooLong) {
        return;
    }
    // One byte more is room for the carriage return that does not count.
    if (m_begun.size() + part.size() > longestLine + 1) {
        m_tooLong = true;
        std::string().swap(m_begun);
        return;
    }
    m_begun.append(part);
}

void LineSplitter::tell(std::string_view line, const Told& told)
{
    if (!line.empty() && line.back() == '\r') {
        line.remove_suffix(1);
    }
    if (line.size() > longestLine) {
        told(Line{{}, true});
        return;
    }
    told(Line{line, false});
}

} // namespace zolva
