#include "files/TreeWalker.h"

#include <cstdio>

/// Walks one tree and says what it found, to be watched from outside.
int main(int count, char** arguments)
{
    if (count != 2) {
        return 2;
    }
    const zolva::Walk walk = zolva::walk(arguments[1]);
    std::printf("%lld files, %lld unreadable\n", static_cast<long long>(walk.files),
                static_cast<long long>(walk.unreadable));
    return 0;
}
