#include "files/WalkFolder.h"

#include <vector>

namespace zolva {

WalkFolderRef::WalkFolderRef(const WalkFolderRef& other) : m_folder(other.m_folder)
{
    if (m_folder != nullptr) {
        m_folder->shares.fetch_add(1, std::memory_order_relaxed);
    }
}

WalkFolderRef::~WalkFolderRef()
{
    WalkFolder* folder = m_folder;
    while (folder != nullptr && folder->shares.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        WalkFolder* parent = folder->parent.release();
        delete folder;
        folder = parent;
    }
}

std::string walkPath(const std::string& text, const WalkFolder* top, const WalkFolder* folder,
                     const std::string& name)
{
    std::vector<const std::string*> names{&name};
    for (; folder != top && folder->parent; folder = folder->parent.get()) {
        names.push_back(&folder->name);
    }
    std::string path = text;
    for (auto below = names.rbegin(); below != names.rend(); ++below) {
        if (path.empty() || path.back() != '/') {
            path += '/';
        }
        path += **below;
    }
    return path;
}

} // namespace zolva
