#pragma once

#include "ctl/ChildRun.h"
#include "support/TempTree.h"

#include <string>
#include <vector>

namespace zolva::test {

/// zolvactl as it is installed, in a tree of its own that is its home too, with a script in the
/// place of the tool it ships. The script knows the tree as `$here` and has its arguments as a
/// script has them.
class ToolTree
{
public:
    /// Without any tool.
    ToolTree();
    explicit ToolTree(const std::string& script);

    [[nodiscard]] TempTree& tree() { return m_tree; }
    [[nodiscard]] const TempTree& tree() const { return m_tree; }
    [[nodiscard]] std::string tool() const { return m_tree.path("share/zolva/mole/bin/mole"); }
    [[nodiscard]] ChildRun command(std::vector<std::string> arguments) const;
    [[nodiscard]] Outcome run(std::vector<std::string> arguments) const;
    /// What the script wrote into a file of the tree; empty where there is none.
    [[nodiscard]] std::string written(const std::string& name) const;

private:
    TempTree m_tree;
};

} // namespace zolva::test
