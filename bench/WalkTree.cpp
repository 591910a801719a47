#include "files/TreeWalker.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

/// Walks the folders as the program does and prints what it found.
int main(int count, char** arguments)
{
    zolva::WalkOptions options;
    bool largest = false;
    std::vector<std::string> roots;
    for (int i = 1; i < count; ++i) {
        const std::string word = arguments[i];
        if (word == "--threads" && i + 1 < count) {
            options.threads = static_cast<unsigned>(std::strtoul(arguments[++i], nullptr, 10));
        } else if (word == "--largest") {
            largest = true;
        } else {
            roots.push_back(word);
        }
    }
    if (roots.empty()) {
        std::fprintf(stderr, "usage: walk-tree [--threads N] [--largest] FOLDER...\n");
        return 2;
    }
    for (const zolva::Walk& walk : zolva::walkTrees(roots, options)) {
        std::printf("%lld files, %lld bytes\n", static_cast<long long>(walk.files),
                    static_cast<long long>(walk.bytes));
        for (const zolva::BigFileHit& hit : walk.largest) {
            if (largest) {
                std::printf("%lld %s\n", static_cast<long long>(hit.size), hit.path.c_str());
            }
        }
    }
    return 0;
}
