#include "files/TreeWalker.h"
#include "files/WalkDescriptors.h"
#include "files/WalkFolder.h"
#include "files/WalkLane.h"
#include "files/WalkSystem.h"

#include <unistd.h>

#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace zolva {

namespace {

using Names = std::set<std::string, std::less<>>;

/// One search: the walk in listing order on one thread, for names instead of sizes.
class NameSearch
{
public:
    NameSearch(const Names& hits, const Names& pruned, std::vector<std::string>& found)
        : m_hits(hits), m_pruned(pruned), m_found(found),
          m_descriptors(WalkDescriptors::suitableCapacity())
    {}

    void run(const std::string& root)
    {
        const WalkFolderRef top(new WalkFolder);
        top->name = root;
        const int descriptor = openFolder(root, top->spareTimes);
        if (descriptor < 0) {
            return;
        }
        list(top, descriptor);
        while (!m_frames.empty()) {
            doNext(root);
        }
    }

private:
    static constexpr std::int64_t hit = 0;

    void doNext(const std::string& root)
    {
        WalkFrame& frame = m_frames.back();
        const WalkListing::Item item = frame.listing->items[frame.next++];
        const WalkFolderRef parent = frame.folder;
        const std::shared_ptr<const WalkListing> listing = frame.listing;
        if (frame.next == frame.end) {
            m_frames.pop_back();
        }
        const char* name = listing->names.c_str() + item.name;
        if (item.size == hit) {
            m_found.push_back(walkPath(root, nullptr, parent.get(), name));
            return;
        }
        bool spareTimes = parent->spareTimes;
        const int descriptor = m_descriptors.openChild(*parent, name, spareTimes);
        if (descriptor < 0) {
            return;
        }
        const WalkFolderRef folder(new WalkFolder);
        folder->parent = parent;
        folder->name = name;
        folder->spareTimes = spareTimes;
        list(folder, descriptor);
    }

    void list(const WalkFolderRef& folder, int descriptor)
    {
        auto listing = std::make_shared<WalkListing>();
        const auto add = [&](const char* name, std::int64_t mark) {
            listing->items.push_back({mark, listing->names.size()});
            listing->names.append(name, std::strlen(name) + 1);
        };
        std::uint32_t folders = 0;
        FolderReader::Entry entry;
        m_reader.start(descriptor);
        while (m_reader.next(entry)) {
            const std::string_view name = entry.name;
            if (m_pruned.contains(name)) {
                continue;
            }
            if (m_hits.contains(name)) {
                add(entry.name, hit);
                continue;
            }
            NodeStatus status;
            status.kind = entry.kind;
            if (entry.kind == NodeKind::Unknown && !statusOf(descriptor, entry.name, status)) {
                continue;
            }
            if (status.kind == NodeKind::Folder) {
                ++folders;
                add(entry.name, WalkListing::folder);
            }
        }
        if (folders > 0) {
            m_descriptors.keep(*folder, descriptor, folders);
        } else {
            ::close(descriptor);
        }
        const std::size_t end = listing->items.size();
        if (end > 0) {
            m_frames.push_back({folder, std::move(listing), 0, end});
        }
    }

    const Names& m_hits;
    const Names& m_pruned;
    std::vector<std::string>& m_found;
    WalkDescriptors m_descriptors;
    FolderReader m_reader;
    std::vector<WalkFrame> m_frames;
};

} // namespace

void findByName(const std::string& root, const std::set<std::string, std::less<>>& hits,
                const std::set<std::string, std::less<>>& pruned, std::vector<std::string>& found)
{
    NameSearch(hits, pruned, found).run(root);
}

} // namespace zolva
