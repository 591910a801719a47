#include "screens/model/Crumbs.h"

#include "files/PathText.h"

#include <utility>

namespace zolva {

std::vector<Crumb> crumbsTo(const std::string& path, const std::string& home)
{
    std::vector<Crumb> crumbs = {{"Computer", {}}};
    std::size_t begin = 0;
    // A home at the root is above everything and stands for nothing.
    if (home != "/" && isSameOrBelow(path, home)) {
        crumbs.push_back({"~", home});
        begin = home.size();
    }
    while (begin < path.size()) {
        const std::size_t slash = path.find('/', begin);
        const std::size_t end = slash == std::string::npos ? path.size() : slash;
        if (end > begin) {
            crumbs.push_back({path.substr(begin, end - begin), path.substr(0, end)});
        }
        begin = end + 1;
    }
    return crumbs;
}

} // namespace zolva
