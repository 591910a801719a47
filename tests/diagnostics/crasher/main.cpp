// Dies in the way it is told: crasher FOLDER main|worker WAY, where WAY is the number of a signal
// to raise, "fault", "overflow", "throw", "throw-int" or "run" (a signal in the midst of a
// removal).

#include "diagnostics/AlternateStack.h"
#include "diagnostics/CrashCapture.h"
#include "diagnostics/RunJournal.h"

#include <sys/mman.h>
#include <sys/resource.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

int useUpTheStack(int depth)
{
    // The compiler cannot know that this never ends.
    volatile char frame[4096]{};
    frame[depth % 4096] = 1;
    return depth < 0 ? frame[0] : useUpTheStack(depth + 1) + frame[1];
}

int readWhatMayNotBeRead()
{
    void* page = ::mmap(nullptr, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return *static_cast<volatile int*>(page);
}

void dieInTheMidstOfARun(const std::string& folder)
{
    zolva::journalBegin(folder, "Clean", 3, std::chrono::system_clock::now());
    std::raise(SIGSEGV);
    zolva::journalClear(folder);
}

void die(const std::string& folder, const std::string& way)
{
    if (way == "throw") {
        throw std::runtime_error("told to");
    }
    if (way == "throw-int") {
        throw 7;
    }
    if (way == "overflow") {
        std::exit(100 + useUpTheStack(0) % 2);
    }
    if (way == "fault") {
        std::exit(100 + readWhatMayNotBeRead() % 2);
    }
    if (way == "run") {
        dieInTheMidstOfARun(folder);
        return;
    }
    std::raise(std::stoi(way));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        return 2;
    }
    const rlimit noCore{0, 0};
    const rlimit stack{rlim_t{1} << 20, RLIM_INFINITY};
    ::setrlimit(RLIMIT_CORE, &noCore);
    ::setrlimit(RLIMIT_STACK, &stack);

    const std::string folder = argv[1];
    const std::string way = argv[3];
    zolva::installCrashCapture(folder);
    if (std::string(argv[2]) == "main") {
        die(folder, way);
    } else {
        std::thread([&] {
            zolva::useAlternateSignalStack();
            die(folder, way);
        }).join();
    }
    return 0; // it did not die
}
