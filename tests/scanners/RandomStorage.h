#pragma once

#include "support/TempTree.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace zolva::test {

/// Grows small trees that are the same for the same seed. Sizes are few and whole blocks, so that
/// equal ones are common, and are allocated at once, so that they are certain without a sync.
class RandomStorage
{
public:
    RandomStorage(TempTree& tree, unsigned seed) : m_tree(tree), m_random(seed) {}

    /// From 0 to `most`.
    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(m_random); }
    bool oneIn(int many) { return upTo(many - 1) == 0; }

    template <typename Choice>
    const Choice& anyOf(const std::vector<Choice>& choices)
    {
        return choices[static_cast<std::size_t>(upTo(static_cast<int>(choices.size()) - 1))];
    }

    /// A file of so many blocks of 4,096 bytes, in a folder that is there.
    void file(const std::string& relative, int blocks);

    /// Puts `entries` things of any kind into the folders, which must be there, and into those it
    /// makes on the way.
    void fill(std::vector<std::string> folders, int entries);

private:
    TempTree& m_tree;
    std::mt19937 m_random;
    int m_made = 0;
};

} // namespace zolva::test
