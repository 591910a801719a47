#include "files/Records.h"

namespace zolva {

std::int64_t totalBytes(const Category& category)
{
    std::int64_t total = 0;
    for (const CatPath& path : category.paths) {
        total += path.b;
    }
    return total;
}

std::string projectKey(const Project& project)
{
    return project.p + "/" + project.artifact;
}

} // namespace zolva
