#include "scanners/RandomTree.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <utility>

namespace zolva::test {

namespace fs = std::filesystem;

RandomTree::RandomTree(std::string side, unsigned seed, std::vector<std::string> names,
                       TreeStock& stock)
    : m_side(std::move(side)), m_random(seed), m_names(std::move(names)), m_stock(stock)
{
    makeFolder(m_side);
}

RandomTree::~RandomTree()
{
    for (const std::string& folder : m_closed) {
        ::chmod(folder.c_str(), 0700);
    }
    for (auto path = m_made.rbegin(); path != m_made.rend(); ++path) {
        const std::string spare = m_stock.attic + "/" + std::to_string(m_stock.folders.size());
        if (::unlink(path->c_str()) != 0 && ::rename(path->c_str(), spare.c_str()) == 0) {
            m_stock.folders.push_back(spare);
        }
    }
}

unsigned RandomTree::pick(unsigned bound)
{
    return static_cast<unsigned>(m_random() % bound);
}

bool RandomTree::chance(unsigned percent)
{
    return pick(100) < percent;
}

void RandomTree::growPlace(const std::string& path, unsigned depth)
{
    const unsigned lot = pick(100);
    if (lot < 30) {
        return;
    }
    makeParents(path);
    if (lot < 35) {
        growFile(path);
    } else if (lot < 45) {
        const std::string elsewhere = m_side + "/elsewhere" + std::to_string(m_made.size());
        growFolder(elsewhere, depth);
        if (::symlink(elsewhere.c_str(), path.c_str()) == 0) {
            made(path);
        }
    } else if (lot < 50) {
        growLink(path);
    } else {
        growFolder(path, depth);
    }
}

bool RandomTree::makeFolder(const std::string& path)
{
    if (fs::exists(fs::symlink_status(path))) {
        return fs::is_directory(fs::symlink_status(path));
    }
    if (m_stock.folders.empty()) {
        if (::mkdir(path.c_str(), 0755) != 0) {
            return false;
        }
    } else if (::rename(m_stock.folders.back().c_str(), path.c_str()) == 0) {
        m_stock.folders.pop_back();
    } else {
        return false;
    }
    made(path);
    return true;
}

void RandomTree::makeParents(const std::string& path)
{
    const std::string parent = fs::path(path).parent_path();
    if (!fs::exists(parent)) {
        makeParents(parent);
        makeFolder(parent);
    }
}

void RandomTree::growFolder(const std::string& path, unsigned depth)
{
    if (!makeFolder(path)) {
        return;
    }
    for (unsigned left = pick(6); left > 0; --left) {
        growThing(path + "/" + m_names[pick(static_cast<unsigned>(m_names.size()))], depth);
    }
    if (chance(5)) {
        m_closed.push_back(path);
    }
}

void RandomTree::growFile(const std::string& path)
{
    const std::string& file = m_stock.things[pick(static_cast<unsigned>(m_stock.things.size()))];
    if (::link(file.c_str(), path.c_str()) == 0) {
        made(path);
    }
}

void RandomTree::growThing(const std::string& path, unsigned depth)
{
    if (fs::exists(fs::symlink_status(path))) {
        return;
    }
    const unsigned lot = pick(100);
    if (depth > 1 && lot < 35) {
        growFolder(path, depth - 1);
    } else if (lot < 84) {
        growFile(path);
    } else if (lot < 98) {
        growLink(path);
    } else {
        makeFolder(path);
    }
}

void RandomTree::growLink(const std::string& path)
{
    const std::string earlier = m_made[pick(static_cast<unsigned>(m_made.size()))];
    const bool hard = chance(40) && fs::is_regular_file(fs::symlink_status(earlier));
    const std::string target = chance(20) ? "nowhere" : earlier;
    const int failed =
        hard ? ::link(earlier.c_str(), path.c_str()) : ::symlink(target.c_str(), path.c_str());
    if (failed == 0) {
        made(path);
    }
}

void RandomTree::finish(long long now)
{
    for (const std::string& path : m_made) {
        const auto seconds = static_cast<long long>(pick(33 * 86400));
        const timespec stamp{static_cast<time_t>(now + 3LL * 86400 - seconds),
                             static_cast<long>(pick(1'000'000'000))};
        const timespec times[2] = {stamp, stamp};
        ::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW);
    }
    // Children were chosen before their parents, so each can still be reached when it is closed.
    for (const std::string& folder : m_closed) {
        ::chmod(folder.c_str(), 0);
    }
    m_closed = {m_closed.rbegin(), m_closed.rend()};
}

} // namespace zolva::test
