#pragma once

#include <malloc.h>

namespace zolva::test {

/// As long as it lives, what is freed is overwritten at once, so that nobody who still uses it gets
/// away with it, even where no sanitizer looks.
class SpoiledMemory
{
public:
    SpoiledMemory() { ::mallopt(M_PERTURB, 0x5a); }
    ~SpoiledMemory() { ::mallopt(M_PERTURB, 0); }
    SpoiledMemory(const SpoiledMemory&) = delete;
    SpoiledMemory& operator=(const SpoiledMemory&) = delete;
};

} // namespace zolva::test
