#include "support/DeepFolder.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace zolva::test {

namespace {

constexpr const char* top = "to-be-sunk";

/// Two of these in one path are longer than 4,096 bytes, and one is far from it.
std::string chainBelow(const std::string& start)
{
    std::string chain = start;
    for (int level = 0; level < 11; ++level) {
        chain += "/" + std::string(200, 'd');
    }
    return chain;
}

} // namespace

DeepFolder::DeepFolder(TempTree& tree, const std::string& above)
    : m_tree(tree), m_outer(chainBelow(above)), m_inner(chainBelow(top))
{
    tree.folder(m_outer);
    tree.folder(m_inner);
}

DeepFolder::~DeepFolder()
{
    if (!m_sunk.empty()) {
        std::rename(m_sunk.c_str(), m_tree.path(top).c_str());
    }
}

std::string DeepFolder::sink()
{
    const std::string down = m_tree.path(m_outer) + "/" + top;
    if (std::rename(m_tree.path(top).c_str(), down.c_str()) != 0) {
        throw std::system_error(errno, std::generic_category(), "the folder does not go down");
    }
    m_sunk = down;
    return m_tree.path(m_outer) + "/" + m_inner;
}

} // namespace zolva::test
