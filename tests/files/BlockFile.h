#pragma once

#include "support/TempTree.h"

#include <cstdint>
#include <string>

namespace zolva::test {

/// A file that occupies so many blocks of 4 KiB, certain at once and without waiting for the disk.
/// Returns its path.
std::string blockFile(TempTree& tree, const std::string& relative, std::int64_t blocks = 1);

/// Holds the process to so many descriptors.
class ScopedDescriptorLimit
{
public:
    explicit ScopedDescriptorLimit(unsigned limit);
    ~ScopedDescriptorLimit();
    ScopedDescriptorLimit(const ScopedDescriptorLimit&) = delete;
    ScopedDescriptorLimit& operator=(const ScopedDescriptorLimit&) = delete;

private:
    unsigned long m_old = 0;
};

} // namespace zolva::test
