#include "ctl/ToolTree.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

namespace zolva::test {

ToolTree::ToolTree()
{
    m_tree.folder("bin");
    std::filesystem::copy_file(ZOLVACTL, m_tree.path("bin/zolvactl"));
}

ToolTree::ToolTree(const std::string& script) : ToolTree()
{
    m_tree.text("share/zolva/mole/bin/mole",
                "#!/bin/sh\nhere='" + m_tree.root() + "'\n" + script + "\n");
    m_tree.setMode("share/zolva/mole/bin/mole", 0755);
}

ChildRun ToolTree::command(std::vector<std::string> arguments) const
{
    ChildRun run(std::move(arguments));
    run.program(m_tree.path("bin/zolvactl")).home(m_tree.root());
    return run;
}

Outcome ToolTree::run(std::vector<std::string> arguments) const
{
    return command(std::move(arguments)).run();
}

std::string ToolTree::written(const std::string& name) const
{
    std::ifstream file(m_tree.path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace zolva::test
