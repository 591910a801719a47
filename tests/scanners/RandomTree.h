#pragma once

#include <random>
#include <string>
#include <vector>

namespace zolva::test {

/// What random trees are made of. Making and removing things is dear on some disks, moving and
/// linking them is not, so one tree after the other is built out of the same stock.
struct TreeStock
{
    std::vector<std::string> things;  ///< files and such, to be linked to
    std::string attic;                ///< an existing folder for those that are not in use
    std::vector<std::string> folders; ///< empty ones in the attic
};

/// Grows small trees of every kind of thing: what the stock holds, symbolic links, empty and
/// unreadable folders. The same seed gives the same tree. All paths are full ones; what cannot
/// stand where it should (a folder below a file) is left out. The tree is taken down at the end.
class RandomTree
{
public:
    /// What links lead to stands in `side`, which is made.
    RandomTree(std::string side, unsigned seed, std::vector<std::string> names, TreeStock& stock);
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
    /// Something of the stock.
    void growFile(const std::string& path);

    /// Gives everything a date within 30 days before and 3 days after `now` (seconds of the epoch),
    /// then closes the folders that were chosen to be unreadable.
    void finish(long long now);

private:
    void growThing(const std::string& path, unsigned depth);
    void growLink(const std::string& path);
    bool makeFolder(const std::string& path);
    void makeParents(const std::string& path);
    void made(const std::string& path) { m_made.push_back(path); }

    std::string m_side;
    std::mt19937 m_random;
    std::vector<std::string> m_names;
    TreeStock& m_stock;
    std::vector<std::string> m_made; ///< parents before children
    std::vector<std::string> m_closed;
};

} // namespace zolva::test
