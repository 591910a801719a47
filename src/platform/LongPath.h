#pragma once

#include <string>

namespace zolva {

/// A path of any length, for the calls that take a folder's descriptor and a path from there: where
/// it is too long for one call, its folders are opened one part after the other, links followed.
/// Must not outlive the text it was made of. One thread.
class LongPath
{
public:
    explicit LongPath(const std::string& path);
    ~LongPath();
    LongPath(const LongPath&) = delete;
    LongPath& operator=(const LongPath&) = delete;

    /// False with errno if a folder on the way could not be opened.
    [[nodiscard]] bool reached() const;
    /// Where the rest begins: a descriptor that serves only to reach what is below, or AT_FDCWD.
    [[nodiscard]] int at() const { return m_at; }
    [[nodiscard]] const char* rest() const { return m_rest; }

private:
    void step(const std::string& folder);

    const char* m_rest;
    int m_at;
    int m_error = 0;
};

} // namespace zolva
