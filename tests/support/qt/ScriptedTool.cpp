#include "support/qt/ScriptedTool.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string_view>

namespace zolva::test {

namespace {

std::string contentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

ScriptedTool::ScriptedTool(const std::string& script)
    : m_path(m_tree.text("tool", "#!/bin/sh\nhere='" + m_tree.root() + "'\n" + script + "\n"))
{
    m_tree.setMode("tool", 0755);
}

void ScriptedTool::put(const std::string& name, const std::string& content)
{
    m_tree.text(name, content);
}

std::string ScriptedTool::written(const std::string& name) const
{
    return contentOf(m_tree.path(name));
}

std::vector<int> ScriptedTool::numbers(const std::string& name) const
{
    std::string content = written(name);
    content.erase(content.rfind('\n') + 1); // the whole of it where there is no line yet
    std::istringstream lines(content);
    return {std::istream_iterator<int>(lines), {}};
}

void ScriptedTool::remove() const
{
    ::unlink(m_path.c_str());
}

bool isGone(int pid)
{
    if (::kill(pid, 0) != 0 && errno == ESRCH) {
        return true;
    }
    // "PID (NAME) STATE ..."; whoever adopts an orphan may take its time to collect it.
    const std::string stat = contentOf("/proc/" + std::to_string(pid) + "/stat");
    const std::size_t name = stat.rfind(')');
    return name != std::string::npos && name + 2 < stat.size() &&
           std::string_view("ZX").find(stat[name + 2]) != std::string_view::npos;
}

std::int64_t bySize(std::int64_t usual, std::int64_t large)
{
    const char* wish = std::getenv("ZOLVA_LONG");
    return wish && std::string_view(wish) == "1" ? large : usual;
}

} // namespace zolva::test
