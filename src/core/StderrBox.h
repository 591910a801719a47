#pragma once

#include <string>
#include <string_view>

namespace zolva {

/// The whole of what one child wrote to its standard error, however much. It is read as it comes,
/// and its text stands from the moment on when the end has been reached. Main thread.
class StderrBox
{
public:
    void take(std::string_view bytes) { m_bytes.append(bytes); }

    /// At the end of standard error, once: makes the text.
    void close();

    /// UTF-8, with U+FFFD for what was none; empty before the end.
    [[nodiscard]] const std::string& text() const { return m_text; }

private:
    std::string m_bytes;
    std::string m_text;
};

} // namespace zolva
