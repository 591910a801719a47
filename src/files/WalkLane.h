#pragma once

#include "files/LargestFiles.h"
#include "files/WalkFolder.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

/// How several threads share one walk and still find the largest files of a walk in order.
///
/// Walk order is the order of the listings, folders entered where they are met. A lane is a
/// gap-free stretch of it that one thread walks in that order; giving work away cuts a lane in two,
/// the new one right behind the old. So all lanes, one behind the other, are the walk.
///
/// A file changes what the rule holds only if fewer than 20 files before it are as large or larger
/// (what is held are the 20 largest sizes so far). A lane knows some of the files before: those it
/// has walked itself and those its giver had. It drops a file as soon as 20 of these are as large,
/// and writes down the others. Played to the rule in the order of the lanes, the notes leave
/// exactly what all files in walk order would have left: what was dropped would have changed
/// nothing.
namespace zolva {

/// What is still to be done in a folder, in the order of its listing.
struct WalkListing
{
    static constexpr std::int64_t folder = -1;
    static constexpr std::int64_t folderThatMayBeRoot = -2;

    struct Item
    {
        std::int64_t size = 0; ///< of a file worth a note, or one of the marks above
        std::size_t name = 0;  ///< where it begins in `names`
    };

    std::string names; ///< each with its end mark
    std::vector<Item> items;

    void add(const char* entry, std::int64_t sizeOrMark);
};

struct WalkFrame
{
    WalkFolderRef folder; ///< none for the list of roots, whose items number them by `name`
    std::shared_ptr<const WalkListing> listing;
    std::size_t next = 0;
    std::size_t end = 0;
};

class WalkLane
{
public:
    /// Innermost folder last; no frame is exhausted. For the lane's thread alone.
    std::vector<WalkFrame> frames;

    /// The sizes known to stand before what comes next in this root; valid as long as the lane.
    [[nodiscard]] LargestSizes& sizesBefore(WalkRoot& root) { return m_notes[&root].sizes; }

    /// The next file in walk order, for the folder's root and those around it.
    void offer(const WalkFolderRef& folder, const char* name, std::int64_t size);

    /// The later half of what is to be done, or nothing if there is too little.
    [[nodiscard]] std::unique_ptr<WalkLane> giveHalf();

private:
    friend class WalkOrder;

    struct Notes
    {
        LargestSizes sizes;
        std::vector<WalkHit> hits;
        std::size_t limit = 64; ///< when it is time to be rid of some
    };

    void thinOut(Notes& notes);
    void playBack();

    std::unordered_map<WalkRoot*, Notes> m_notes;
    std::atomic<bool> m_foremost = false; ///< nothing before it is missing: set by WalkOrder
    bool m_finished = false;              ///< belongs to WalkOrder, like the place
    std::list<std::unique_ptr<WalkLane>>::iterator m_place;
};

/// All lanes of a walk, in order. Any thread.
class WalkOrder
{
public:
    WalkLane& begin(std::unique_ptr<WalkLane> lane);
    WalkLane& insertBehind(const WalkLane& lane, std::unique_ptr<WalkLane> fresh);
    /// The lane has come to its end and must not be touched any more.
    void finish(WalkLane& lane);

private:
    std::mutex m_mutex;
    std::list<std::unique_ptr<WalkLane>> m_lanes;
};

} // namespace zolva
