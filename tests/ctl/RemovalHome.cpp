#include "ctl/RemovalHome.h"

#include "files/SizeText.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace zolva::test {

Outcome RemovalHome::run(std::vector<std::string> arguments) const
{
    return zolvactl(tree.root(), std::move(arguments));
}

std::string RemovalHome::inTrash(const std::string& name) const
{
    return tree.path(".local/share/Trash/files/" + name);
}

bool RemovalHome::has(const std::string& path) const
{
    return std::filesystem::symlink_status(tree.path(path)).type() !=
           std::filesystem::file_type::not_found;
}

std::vector<std::string> RemovalHome::trash() const
{
    std::vector<std::string> names;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(inTrash(""), none)) {
        names.push_back(entry.path().filename().native());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> RemovalHome::all() const
{
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(tree.root())) {
        paths.push_back(entry.path().native());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::string movedJson(const std::string& path, std::int64_t bytes, const std::string& landed)
{
    return "{'path':'" + path + "','outcome':'moved','bytes':" + std::to_string(bytes) +
           ",'text':null,'landed':'" + landed + "'}";
}

std::string movedDocument(const std::string& outcomes, std::int64_t bytes)
{
    return json("{'outcomes':[" + outcomes +
                "],'purged':0,'problems':[],'freed':" + std::to_string(bytes) +
                ",'stopped':false,'toasts':[{'kind':'success','text':'Moved " + sizeText(bytes) +
                " to the Trash','action':'Open Trash'}]}\n");
}

} // namespace zolva::test
