#include "support/TempTree.h"

#include <gtest/gtest.h>

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

/// Runs the probe over the tree under strace and returns what strace wrote.
std::string trace(const TempTree& tree, const std::vector<std::string>& options)
{
    const TempTree out;
    const std::string report = out.path("report");
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
        ::execvp("strace", arguments.data());
        ::_exit(127);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    std::ostringstream text;
    text << std::ifstream(report).rdbuf();
    return text.str();
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
        // What stands in the tree is opened by its own name or relative to its folder.
        const bool relative = line.find("openat(AT_FDCWD") == std::string::npos;
        if (line.find("openat(") == std::string::npos ||
            (!relative && line.find(tree.root()) == std::string::npos)) {
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

} // namespace
