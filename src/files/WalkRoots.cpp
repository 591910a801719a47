#include "files/WalkRoots.h"

#include "files/FolderTally.h"

#include <map>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace zolva {

namespace {

std::string_view withoutTrailingSlashes(std::string_view path)
{
    while (!path.empty() && path.back() == '/') {
        path.remove_suffix(1);
    }
    return path;
}

bool liesInAny(std::string_view path, const std::unordered_set<std::string_view>& folders)
{
    for (std::size_t slash = path.find('/'); slash != std::string_view::npos;
         slash = path.find('/', slash + 1)) {
        const std::string_view before = withoutTrailingSlashes(path.substr(0, slash));
        if (before.size() + 1 < path.size() && folders.contains(before)) {
            return true;
        }
    }
    return false;
}

Walk fileWalk(const std::string& text, std::int64_t size, bool keepLargest)
{
    Walk walk;
    walk.bytes = size;
    walk.files = 1;
    if (keepLargest) {
        const std::size_t slash = text.rfind('/');
        walk.largest.push_back(
            {slash == std::string::npos ? text : text.substr(slash + 1), text, size});
    }
    return walk;
}

} // namespace

WalkRoots::WalkRoots(const std::vector<std::string>& texts)
{
    std::map<std::pair<std::uint64_t, std::uint64_t>, WalkRoot*> known;
    m_asked.reserve(texts.size());
    for (const std::string& text : texts) {
        Asked& asked = m_asked.emplace_back();
        asked.text = text;
        NodeStatus status;
        if (!statusOf(text, LastLink::Follow, status)) {
            continue;
        }
        if (status.kind != NodeKind::Folder) {
            asked.file = allocatedSize(text);
            continue;
        }
        WalkRoot*& root = known[{status.id.device, status.id.inode}];
        if (root == nullptr) {
            root = m_roots.emplace_back(std::make_unique<WalkRoot>()).get();
            root->text = text;
            root->id = status.id;
        }
        asked.root = root;
    }
}

std::vector<WalkRoot*> WalkRoots::start()
{
    std::unordered_set<std::string_view> texts;
    for (const auto& root : m_roots) {
        if (!root->reached) {
            texts.insert(withoutTrailingSlashes(root->text));
        }
    }
    std::vector<WalkRoot*> starts;
    m_awaited.clear();
    for (const auto& root : m_roots) {
        if (root->reached) {
            continue;
        }
        // The shortest text lies in no other, so that every round reaches one at least.
        if (liesInAny(withoutTrailingSlashes(root->text), texts)) {
            m_awaited.emplace(root->id.inode, root.get());
        } else {
            starts.push_back(root.get());
        }
    }
    for (WalkRoot* root : starts) {
        root->reached = true;
    }
    return starts;
}

WalkRoot* WalkRoots::meet(const FolderId& id, WalkRoot* outer)
{
    const std::lock_guard lock(m_mutex);
    const auto [first, last] = m_awaited.equal_range(id.inode);
    for (auto it = first; it != last; ++it) {
        WalkRoot* root = it->second;
        if (root->id == id && !root->reached) {
            root->reached = true;
            root->outer = outer;
            return root;
        }
    }
    return nullptr;
}

std::vector<Walk> WalkRoots::results(bool keepLargest) const
{
    std::unordered_map<const WalkRoot*, Walk> sums;
    for (const auto& root : m_roots) {
        for (const WalkRoot* around = root.get(); around != nullptr; around = around->outer) {
            Walk& sum = sums[around];
            sum.files += root->files.load(std::memory_order_relaxed);
            sum.bytes += root->bytes.load(std::memory_order_relaxed);
            sum.unreadable += root->unreadable.load(std::memory_order_relaxed);
        }
    }
    std::vector<Walk> walks(m_asked.size());
    for (std::size_t i = 0; i < m_asked.size(); ++i) {
        const Asked& asked = m_asked[i];
        if (asked.file) {
            walks[i] = fileWalk(asked.text, *asked.file, keepLargest);
        } else if (asked.root != nullptr) {
            walks[i] = sums.at(asked.root);
            for (const WalkHit& hit : asked.root->largest.hits()) {
                walks[i].largest.push_back(
                    {hit.name, walkPath(asked.text, asked.root->top, hit.folder.get(), hit.name),
                     hit.size});
            }
        }
    }
    return walks;
}

} // namespace zolva
