#include "scanners/StorageAnalysis.h"

#include "files/FolderListing.h"
#include "files/FolderTally.h"
#include "files/HomeFolder.h"
#include "files/PathText.h"
#include "platform/FileDates.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>
#include <unordered_set>

namespace zolva {

namespace {

constexpr std::size_t mostLargeFiles = 20;
constexpr std::chrono::hours oldDownloadAge{90 * 24};

enum class Below
{
    Home,
    Root
};

struct Target
{
    std::string_view label;
    Below below;
    std::string_view path;
    bool oldDownloads = false;
};

constexpr std::array<Target, 11> targets = {{
    {"Home", Below::Home, ""},
    {"User Library", Below::Home, "Library"},
    {"Applications", Below::Root, "Applications"},
    {"Xcode DerivedData", Below::Home, "Library/Developer/Xcode/DerivedData"},
    {"Xcode Simulators", Below::Home, "Library/Developer/CoreSimulator/Devices"},
    {"System Library", Below::Root, "Library"},
    {"Old Downloads (90d+)", Below::Home, "Downloads", true},
    {"Gradle Cache", Below::Home, ".gradle"},
    {"JetBrains Cache", Below::Home, "Library/Caches/JetBrains"},
    {"System Logs", Below::Home, "Library/Logs"}, // the user's own: what people look for by it
    {"Homebrew Cache", Below::Home, "Library/Caches/Homebrew"},
}};

/// What is to be measured, each in a slot of its own; one walk reads all folders among it, because
/// they overlap.
class WalkBatch
{
public:
    /// A place that a table or the user names: opened even where it is a link.
    void addNamed(const std::string& path) { addRoot(path); }

    /// A child found by listing: a link is measured as it stands, whatever it points to, and is
    /// nothing where it points to nothing.
    void addChild(const std::string& path, const FolderEntry& entry)
    {
        if (entry.kind == EntryKind::Folder) {
            addRoot(path);
            return;
        }
        Walk& slot = m_walks.emplace_back();
        if (const std::optional<std::int64_t> bytes = sizeOfWhatStands(path)) {
            slot.bytes = *bytes;
            slot.files = 1;
            slot.largest.push_back({entry.name, path, *bytes});
        }
    }

    [[nodiscard]] std::size_t size() const { return m_walks.size(); }

    /// All slots, in the order they were added.
    [[nodiscard]] std::vector<Walk> run(const WalkProgressTold& told)
    {
        WalkOptions options;
        options.progress = told;
        std::vector<Walk> walked = walkTrees(m_roots, options);
        for (std::size_t i = 0; i < m_roots.size(); ++i) {
            m_walks[m_slotOfRoot[i]] = std::move(walked[i]);
        }
        return std::move(m_walks);
    }

private:
    void addRoot(const std::string& path)
    {
        m_slotOfRoot.push_back(m_walks.size());
        m_roots.push_back(path);
        m_walks.emplace_back();
    }

    std::vector<Walk> m_walks;
    std::vector<std::string> m_roots;
    std::vector<std::size_t> m_slotOfRoot;
};

void addOldDownloads(WalkBatch& batch, const std::string& folder, TimePoint now)
{
    const auto children = listFolder(folder, HiddenEntries::Keep);
    if (!children) {
        return;
    }
    const TimePoint cutoff = now - oldDownloadAge;
    for (const FolderEntry& child : *children) {
        const std::string path = joinedPath(folder, child.name);
        if (contentModificationDate(path).value_or(now) < cutoff) {
            batch.addChild(path, child);
        }
    }
}

void sortBySize(std::vector<BigFileHit>& hits)
{
    std::stable_sort(hits.begin(), hits.end(),
                     [](const BigFileHit& a, const BigFileHit& b) { return a.size > b.size; });
}

void keepFirst(std::vector<BigFileHit>& hits)
{
    if (hits.size() > mostLargeFiles) {
        hits.resize(mostLargeFiles);
    }
}

void addTo(Walk& sum, Walk&& part)
{
    sum.bytes += part.bytes;
    sum.files += part.files;
    sum.unreadable += part.unreadable;
    std::move(part.largest.begin(), part.largest.end(), std::back_inserter(sum.largest));
}

/// The sum of the walks of old downloads.
template <typename Walks>
Walk summed(Walks first, Walks last)
{
    Walk sum;
    for (auto part = first; part != last; ++part) {
        addTo(sum, std::move(*part));
    }
    sortBySize(sum.largest);
    keepFirst(sum.largest);
    return sum;
}

void sortEntries(std::vector<AnalyzeEntry>& entries)
{
    std::stable_sort(entries.begin(), entries.end(),
                     [](const AnalyzeEntry& a, const AnalyzeEntry& b) { return a.size > b.size; });
}

std::vector<LargeFile> largeFilesOf(std::vector<BigFileHit>&& hits)
{
    std::vector<LargeFile> files;
    files.reserve(hits.size());
    for (BigFileHit& hit : hits) {
        files.push_back({std::move(hit.name), std::move(hit.path), hit.size});
    }
    return files;
}

/// Rows overlap and find the same file; it stands where it is met first.
void dropRepeatedPaths(std::vector<BigFileHit>& hits)
{
    std::unordered_set<std::string> seen;
    std::erase_if(hits, [&seen](const BigFileHit& hit) { return !seen.insert(hit.path).second; });
}

} // namespace

std::vector<AnalyzeLocation> analysisTargets()
{
    const std::string home = homeFolder();
    std::vector<AnalyzeLocation> locations;
    locations.reserve(targets.size());
    for (const Target& target : targets) {
        const std::string_view base = target.below == Below::Home ? std::string_view(home) : "/";
        locations.push_back({std::string(target.label),
                             target.path.empty() ? home : joinedPath(base, target.path),
                             target.oldDownloads});
    }
    return locations;
}

std::pair<AnalyzeResult, std::int64_t> overview(TimePoint now, const WalkProgressTold& told)
{
    std::vector<AnalyzeLocation> rows = analysisTargets();
    std::erase_if(rows, [](const AnalyzeLocation& row) { return !existsAt(row.path); });

    WalkBatch batch;
    std::vector<std::size_t> ends; // of the slots of each row
    for (const AnalyzeLocation& row : rows) {
        if (row.oldDownloads) {
            addOldDownloads(batch, row.path, now);
        } else {
            batch.addNamed(row.path);
        }
        ends.push_back(batch.size());
    }
    std::vector<Walk> walks = batch.run(told);

    AnalyzeResult result;
    result.overview = true;
    std::vector<BigFileHit> hits;
    auto slot = walks.begin();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        AnalyzeLocation& row = rows[i];
        const auto end = walks.begin() + static_cast<std::ptrdiff_t>(ends[i]);
        Walk walked = row.oldDownloads ? summed(slot, end) : std::move(*slot);
        slot = end;
        result.totalFiles += walked.files;
        std::move(walked.largest.begin(), walked.largest.end(), std::back_inserter(hits));
        result.entries.push_back(
            {std::move(row.label), std::move(row.path), walked.bytes, true, std::nullopt});
    }
    sortEntries(result.entries);
    sortBySize(hits);
    dropRepeatedPaths(hits);
    keepFirst(hits);
    result.largeFiles = largeFilesOf(std::move(hits));

    const VolumeSpace space = volumeCapacity();
    result.totalSize = std::max<std::int64_t>(1, space.total - space.available);
    return {std::move(result), space.available};
}

AnalyzeResult drillDown(const std::string& path, const WalkProgressTold& told)
{
    AnalyzeResult result;
    result.path = path;
    const auto children = listFolder(path, HiddenEntries::Keep);
    if (!children) {
        return result;
    }
    WalkBatch batch;
    for (const FolderEntry& child : *children) {
        std::string full = joinedPath(path, child.name);
        batch.addChild(full, child);
        // What cannot be entered is no folder to go down into, whatever the listing calls it.
        const bool mayBeDir = child.kind == EntryKind::Folder || child.kind == EntryKind::Link;
        const bool isDir = mayBeDir && isFolderAt(full);
        result.entries.push_back({child.name, std::move(full), 0, isDir, std::nullopt});
    }
    std::vector<Walk> walks = batch.run(told);
    Walk sum;
    for (std::size_t i = 0; i < walks.size(); ++i) {
        result.entries[i].size = walks[i].bytes;
        addTo(sum, std::move(walks[i]));
    }
    result.totalSize = sum.bytes;
    result.totalFiles = sum.files;
    sortEntries(result.entries);
    sortBySize(sum.largest);
    keepFirst(sum.largest);
    result.largeFiles = largeFilesOf(std::move(sum.largest));
    return result;
}

Walk walkOldDownloads(const std::string& path, TimePoint now)
{
    WalkBatch batch;
    addOldDownloads(batch, path, now);
    std::vector<Walk> walks = batch.run({});
    return summed(walks.begin(), walks.end());
}

VolumeSpace volumeCapacity()
{
    return volumeSpace(homeFolder());
}

} // namespace zolva
