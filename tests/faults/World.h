#pragma once

#include "support/TrashHome.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace zolva::test {

/// Every entry below a path, the path itself as "": its kind, mode and content or target.
using Picture = std::map<std::string, std::string>;
[[nodiscard]] Picture pictureOf(const std::string& path);

/// ZOLVA_LONG=1 asks for the long campaigns.
[[nodiscard]] bool isLong();

/// A home, in memory where that is to be had, with one item to remove and bystanders that must stay
/// as they are: what a link in the item leads to, the other name of a hard link, a namesake.
class World
{
public:
    explicit World(std::uint32_t seed);
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    [[nodiscard]] const std::string& item() const { return m_item; }
    [[nodiscard]] const Picture& itemPicture() const { return m_picture; }
    [[nodiscard]] const TrashHome& home() const { return *m_home; }
    [[nodiscard]] std::string name() const;

    /// Moves the item to the Trash, for what is tried afterwards; where it landed.
    [[nodiscard]] std::string trashItem() const;
    /// In how many places the whole item stands: its own and, by any name, the
    /// Trash of the home or the volume.
    [[nodiscard]] int places() const;
    [[nodiscard]] bool isAtItsPlace() const;
    /// The name under which the whole item lies in the Trash with a record that names its place;
    /// empty if there is none.
    [[nodiscard]] std::string recordedName() const;
    [[nodiscard]] bool bystandersAreUntouched() const;

private:
    [[nodiscard]] Picture bystanders() const;

    std::string m_root;
    std::string m_volumeTrash;
    bool m_foreign; ///< the Trash of the volume was there before
    std::unique_ptr<TrashHome> m_home;
    std::string m_item;
    Picture m_picture;
    Picture m_bystanders;
};

} // namespace zolva::test
