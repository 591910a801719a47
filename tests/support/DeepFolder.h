#pragma once

#include "support/TempTree.h"

#include <string>

namespace zolva::test {

/// A folder whose path is longer than any one call takes. It is filled while it still stands near
/// the root of the tree, and goes back there at the end, so that the tree can be removed.
class DeepFolder
{
public:
    /// It is to end up somewhere below `above`.
    DeepFolder(TempTree& tree, const std::string& above);
    ~DeepFolder();
    DeepFolder(const DeepFolder&) = delete;
    DeepFolder& operator=(const DeepFolder&) = delete;

    /// Relative to the tree, while it is filled.
    [[nodiscard]] const std::string& shallow() const { return m_inner; }
    /// Takes it down; the full path, of more than 4,096 bytes.
    std::string sink();

private:
    const TempTree& m_tree;
    std::string m_outer;
    std::string m_inner;
    std::string m_sunk;
};

} // namespace zolva::test
