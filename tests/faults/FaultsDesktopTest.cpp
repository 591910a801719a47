#include "faults/World.h"

#include "platform/SystemTrash.h"
#include "removal/disk/HomeTrash.h"
#include "removal/disk/PutBack.h"
#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <set>

extern char** environ;

namespace {

using namespace zolva;
using namespace zolva::test;

int wantedNames()
{
    return isLong() ? 400 : 60;
}

/// The status of the desktop's own tool, given lines of `input`, in the folder.
int run(std::vector<std::string> command, const std::string& folder, const std::string& input)
{
    const std::string answers = folder + ".answers";
    std::ofstream(answers) << input;
    posix_spawn_file_actions_t actions{};
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, 0, answers.c_str(), O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    std::vector<char*> arguments;
    for (std::string& argument : command) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    pid_t child = 0;
    int status = -1;
    if (::posix_spawnp(&child, arguments.front(), &actions, nullptr, arguments.data(), environ) ==
        0) {
        ::waitpid(child, &status, 0);
    }
    ::posix_spawn_file_actions_destroy(&actions);
    ::unlink(answers.c_str());
    return status;
}

/// Random bytes, the UTF-8 of random letters, and what is known to be odd. `longest` is in bytes.
std::set<std::string> randomNames(int count, std::size_t longest, bool anyBytes)
{
    std::set<std::string> names = {"plain.txt",
                                   "100%",
                                   "%41",
                                   " a b ",
                                   "new\nline",
                                   "[x]=y",
                                   "-n",
                                   "a\\b",
                                   "\xC3\xA4\xE2\x82\xAC",
                                   std::string(longest, 'n')};
    std::mt19937 random(11);
    while (names.size() < static_cast<std::size_t>(count)) {
        std::string name;
        const std::size_t length = 1 + random() % (random() % 4 == 0 ? longest : 20);
        while (name.size() < length) {
            const auto byte = static_cast<char>(1 + random() % (anyBytes ? 255 : 126));
            name += byte == '/' ? 'x' : byte;
        }
        if (name != "." && name != "..") {
            names.insert(name);
        }
    }
    return names;
}

bool isAscii(const std::string& name)
{
    return std::all_of(name.begin(), name.end(), [](char byte) { return byte > 0; });
}

void write(const std::string& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary);
    file << text;
    ASSERT_TRUE(file.flush()) << path;
}

TEST(FaultsDesktop, TheDesktopRestoresWhatWeMoved)
{
    TrashHome home;
    const ScopedVariable locale("LC_ALL", "C.UTF-8");
    const std::string folder = home.tree.folder("home/place");
    // This tool takes no names that are not UTF-8.
    const auto names = randomNames(wantedNames(), 245, false);
    for (const std::string& name : names) {
        write(folder + "/" + name, name);
        ASSERT_TRUE(moveToTrash(home.home(), folder + "/" + name).has_value());
    }
    ASSERT_TRUE(namesIn(folder).empty());
    for (std::size_t i = 0; i < names.size(); ++i) {
        ASSERT_EQ(run({"trash-restore"}, folder, "0\n"), 0)
            << "trash-restore of the package trash-cli";
    }
    int restored = 0;
    for (const std::string& name : names) {
        restored += content(folder + "/" + name) == name ? 1 : 0;
    }
    EXPECT_EQ(restored, static_cast<int>(names.size()));
    EXPECT_EQ(listTrash(), std::vector<std::string>());
}

TEST(FaultsDesktop, WhatTheDesktopMovedComesBack)
{
    TrashHome home;
    const ScopedVariable locale("LC_ALL", "C.UTF-8");
    const std::string folder = home.tree.folder("home/place");
    const auto names = randomNames(wantedNames(), 200, true);
    std::vector<std::string> gio = {"gio", "trash", "--"};
    std::vector<std::string> cli = {"trash-put", "--"};
    for (const std::string& name : names) {
        write(folder + "/" + name, name);
        (gio.size() > cli.size() && isAscii(name) ? cli : gio).push_back(folder + "/" + name);
    }
    ASSERT_EQ(run(gio, home.home(), ""), 0) << "gio of the package libglib2.0-bin";
    ASSERT_EQ(run(cli, home.home(), ""), 0) << "trash-put of the package trash-cli";
    ASSERT_TRUE(namesIn(folder).empty());
    const auto listed = listTrash();
    ASSERT_TRUE(listed.has_value());
    ASSERT_EQ(listed->size(), names.size());
    for (const std::string& name : *listed) {
        const auto back = putBackByName(name);
        EXPECT_TRUE(back.has_value()) << back.error();
    }
    int restored = 0;
    for (const std::string& name : names) {
        restored += content(folder + "/" + name) == name ? 1 : 0;
    }
    EXPECT_EQ(restored, static_cast<int>(names.size()));
}

} // namespace
