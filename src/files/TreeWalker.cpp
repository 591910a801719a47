#include "files/TreeWalker.h"

#include "files/WalkCrew.h"
#include "files/WalkDescriptors.h"
#include "files/WalkLane.h"
#include "files/WalkRoots.h"
#include "files/WalkWorker.h"

#include <memory>
#include <utility>

namespace zolva {

namespace {

std::unique_ptr<WalkLane> laneOver(std::size_t roots)
{
    auto listing = std::make_shared<WalkListing>();
    for (std::size_t i = 0; i < roots; ++i) {
        listing->items.push_back({WalkListing::folder, i});
    }
    auto lane = std::make_unique<WalkLane>();
    lane->frames.push_back({WalkFolderRef(), std::move(listing), 0, roots});
    return lane;
}

} // namespace

std::vector<Walk> walkTrees(const std::vector<std::string>& roots, const WalkOptions& options)
{
    WalkRoots all(roots);
    WalkDescriptors descriptors(WalkDescriptors::suitableCapacity());
    WalkMeter meter(options.progress, options.progressSpacing);
    for (auto starts = all.start(); !starts.empty(); starts = all.start()) {
        WalkShared shared{
            all,          descriptors,      meter, options.keepLargest, options.linksOnTop,
            options.stop, std::move(starts)};
        WalkCrew crew(options.threads, [&shared](WalkCrew& own) { WalkWorker(shared).work(own); });
        crew.run(laneOver(shared.starts.size()));
    }
    if (meter.wanted()) {
        meter.tellNow();
    }
    return all.results(options.keepLargest);
}

Walk walk(const std::string& root, const WalkOptions& options)
{
    return walkTrees({root}, options).front();
}

} // namespace zolva
