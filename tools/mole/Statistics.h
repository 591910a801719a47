#pragma once

#include <string>

namespace zolva::mole {

/// One use of the statistics library, from its start to its end: every reading that goes through
/// the library needs one alive. One thread, one at a time.
class Statistics
{
public:
    Statistics();
    ~Statistics();
    Statistics(const Statistics&) = delete;
    Statistics& operator=(const Statistics&) = delete;
};

/// The library's texts may be missing.
[[nodiscard]] inline std::string textOf(const char* text)
{
    return text ? std::string(text) : std::string();
}

} // namespace zolva::mole
