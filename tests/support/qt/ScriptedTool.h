#pragma once

#include "support/TempTree.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zolva::test {

/// A stand-in for the outside tool that does what a test tells it: a shell script in a folder of
/// its own, which the script knows as `$here`. It has its arguments as a script has them.
class ScriptedTool
{
public:
    explicit ScriptedTool(const std::string& script);

    [[nodiscard]] const std::string& path() const { return m_path; }
    /// Puts a file beside the tool, for it to print: `cat "$here/NAME"`.
    void put(const std::string& name, const std::string& content);
    /// What the tool wrote into a file beside it; empty while there is none.
    [[nodiscard]] std::string written(const std::string& name) const;
    /// The whole numbers in such a file, one on each line that is complete.
    [[nodiscard]] std::vector<int> numbers(const std::string& name) const;
    void remove() const;

private:
    TempTree m_tree;
    std::string m_path;
};

/// Whether no process of that id runs any more; one that only nobody has collected yet does not.
[[nodiscard]] bool isGone(int pid);

/// `usual`, or `large` where the environment asks for long runs (ZOLVA_LONG=1).
[[nodiscard]] std::int64_t bySize(std::int64_t usual, std::int64_t large);

} // namespace zolva::test
