#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

// How often the walker asks the system, counted from outside. That no noise of the machine touches.
namespace {

using zolva::test::TempTree;

constexpr int folders = 200;
constexpr int files = 2000;
constexpr int processStart = 400;

struct Traced
{
    std::string report; ///< what strace wrote
    std::string told;   ///< what the probe wrote
};

std::string contentOf(const std::string& path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

/// Runs the probe over the tree under strace.
Traced traced(const TempTree& tree, const std::vector<std::string>& options)
{
    TempTree out;
    const std::string report = out.path("report");
    const std::string told = out.text("told", "");
    std::vector<std::string> words{"strace", "-f", "-o", report};
    words.insert(words.end(), options.begin(), options.end());
    words.insert(words.end(), {WALK_PROBE, tree.root()});
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(::open(told.c_str(), O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
        ::execvp("strace", arguments.data());
        ::_exit(127);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    return {contentOf(report), contentOf(told)};
}

std::string trace(const TempTree& tree, const std::vector<std::string>& options)
{
    return traced(tree, options).report;
}

/// Ten files in each of the folders, which stand in rows of ten.
void plant(TempTree& tree)
{
    for (int i = 0; i < folders; ++i) {
        const std::string folder = tree.folder("r" + std::to_string(i / 10) +
                                               (i % 10 == 0 ? "" : "/d" + std::to_string(i)));
        for (int k = 0; k < files / folders; ++k) {
            std::FILE* file = std::fopen((folder + "/f" + std::to_string(k)).c_str(), "wxe");
            ASSERT_NE(file, nullptr);
            std::fclose(file);
        }
    }
}

TEST(SystemCalls, AreAtMostOneAFileAndFourAFolder)
{
    TempTree tree;
    plant(tree);
    const std::string table = trace(tree, {"-c"});
    // The last line: percent, seconds, microseconds a call, calls, errors, "total".
    std::istringstream lines(table);
    std::string line;
    long calls = 0;
    while (std::getline(lines, line)) {
        if (line.find("total") != std::string::npos) {
            std::istringstream words(line);
            std::string skipped;
            words >> skipped >> skipped >> skipped >> calls;
        }
    }
    EXPECT_GE(calls, files) << table;
    EXPECT_LE(calls, files + 4 * folders + processStart) << table;
}

TEST(SystemCalls, OnlyFoldersAreOpenedInTheTreeAndOnlyFilesAreMeasured)
{
    TempTree tree;
    tree.file("plain file");
    tree.fifo("some pipe");
    tree.link("some link", "sub");
    tree.file("sub/other file");
    const std::string calls =
        trace(tree, {"-e", "trace=openat,open,newfstatat,fstat,statx,getdents64"});
    std::istringstream lines(calls);
    std::string line;
    int opened = 0;
    while (std::getline(lines, line)) {
        // What stands in the tree is opened by its own name or relative to its folder; what the
        // runtime looks up for itself is opened by another path from the root.
        const bool inTree = line.find(tree.root()) != std::string::npos;
        const bool relative = line.find("openat(AT_FDCWD") == std::string::npos &&
                              line.find(", \"/") == std::string::npos;
        if (line.find("openat(") == std::string::npos || !(inTree || relative)) {
            continue;
        }
        EXPECT_NE(line.find("O_DIRECTORY"), std::string::npos) << line;
        ++opened;
    }
    EXPECT_EQ(opened, 2) << calls;
    EXPECT_NE(calls.find("\"plain file\""), std::string::npos) << calls;
    EXPECT_EQ(calls.find("some pipe"), std::string::npos) << calls;
    EXPECT_EQ(calls.find("some link"), std::string::npos) << calls;
}

TEST(SystemCalls, AreAskedAgainWhereASignalInterruptedThem)
{
    TempTree tree;
    for (int i = 0; i < 30; ++i) {
        tree.file("f" + std::to_string(i));
    }
    // Every other call of each kind that is about the tree.
    const Traced result =
        traced(tree, {"-P", tree.root(), "-e",
                      "inject=openat,newfstatat,getdents64:error=EINTR:when=1+2"});
    for (const char* call : {"openat(", "newfstatat(", "getdents64("}) {
        std::istringstream lines(result.report);
        std::string line;
        bool interrupted = false;
        while (std::getline(lines, line)) {
            interrupted = interrupted || (line.find(call) != std::string::npos &&
                                          line.find("INJECTED") != std::string::npos);
        }
        EXPECT_TRUE(interrupted) << call << " in " << result.report;
    }
    EXPECT_EQ(result.told, "30 files, 0 unreadable\n");
}

} // namespace
