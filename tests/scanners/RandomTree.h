#pragma once

#include <random>
#include <string>
#include <vector>

namespace zolva::test {

/// Grows small trees of every kind of thing: files of whole blocks, what else the pool holds, hard
/// and symbolic links, empty and unreadable folders. The same seed gives the same tree. All paths
/// are full ones; what cannot stand where it should (a folder below a file) is left out.
class RandomTree
{
public:
    /// Whatever is no folder and no link is a hard link to something in `pool`, since new things
    /// are dear on some disks. What links lead to stands in `side`, which is made.
    RandomTree(std::string side, unsigned seed, std::vector<std::string> names,
               std::vector<std::string> pool);
    /// Opens what `finish` closed, so that the tree can be moved and removed.
    ~RandomTree();
    RandomTree(const RandomTree&) = delete;
    RandomTree& operator=(const RandomTree&) = delete;

    /// From 0 to below `bound`.
    unsigned pick(unsigned bound);
    bool chance(unsigned percent);

    /// A place that scanners are told to look at: missing, a file, a link, or mostly a folder.
    void growPlace(const std::string& path, unsigned depth);
    /// A folder with some things of random names, at most `depth` folders deep.
    void growFolder(const std::string& path, unsigned depth);
    /// Something out of the pool.
    void growFile(const std::string& path);

    /// Gives everything a date within 30 days before and 3 days after `now` (seconds of the epoch),
    /// then closes the folders that were chosen to be unreadable.
    void finish(long long now);

private:
    void growThing(const std::string& path, unsigned depth);
    void growLink(const std::string& path);
    void made(const std::string& path) { m_made.push_back(path); }

    std::string m_side;
    std::mt19937 m_random;
    std::vector<std::string> m_names;
    std::vector<std::string> m_pool;
    std::vector<std::string> m_made; ///< parents before children
    std::vector<std::string> m_closed;
};

} // namespace zolva::test
