#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace zolva {

/// Cuts what is read from a child into lines at line feeds; a carriage return before one goes with
/// it. However long a line is, no more than `longestLine` of it is held. One thread.
class LineSplitter
{
public:
    static constexpr std::size_t longestLine = std::size_t{1024} * 1024;

    struct Line
    {
        std::string_view text; ///< without its line end; valid during the call only
        bool tooLong = false;  ///< longer than `longestLine`; the text is then empty
    };
    using Told = std::function<void(const Line&)>;

    /// Tells every line that ends within these bytes, in order.
    void feed(std::string_view bytes, const Told& told);

    /// At the end of the input: tells what stands behind the last line feed, if anything.
    void finish(const Told& told);

private:
    void hold(std::string_view part);
    void tell(std::string_view line, const Told& told);

    std::string m_begun;
    bool m_tooLong = false;
};

} // namespace zolva
