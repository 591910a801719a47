#pragma once

#include <random>
#include <string>
#include <vector>

namespace zolva::test {

/// Grows small trees of every kind of thing: files of whole blocks, holes, hard and symbolic links,
/// fifos, sockets, empty and unreadable folders. The same seed gives the same tree. All paths are
/// full ones; what cannot stand where it should (a folder below a file) is left out.
class RandomTree
{
public:
    RandomTree(std::string top, unsigned seed, std::vector<std::string> names);
    /// Opens what `finish` closed, so that the tree can be removed.
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
    /// A file of up to four blocks.
    void growFile(const std::string& path);

    /// Gives everything a date within 30 days before and 3 days after `now` (seconds of the epoch),
    /// then closes the folders that were chosen to be unreadable.
    void finish(long long now);

private:
    void growThing(const std::string& path, unsigned depth);
    void growLink(const std::string& path);
    void made(const std::string& path) { m_made.push_back(path); }

    std::string m_top;
    std::mt19937 m_random;
    std::vector<std::string> m_names;
    std::vector<std::string> m_made; ///< parents before children
    std::vector<std::string> m_closed;
};

} // namespace zolva::test
