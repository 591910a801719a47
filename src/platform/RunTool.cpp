#include "platform/AdminMove.h"

#include "platform/Environment.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace zolva {

namespace {

class SpawnSettings
{
public:
    SpawnSettings()
    {
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawnattr_init(&attributes);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
            ::posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
        }
        sigset_t none;
        sigset_t ordinary;
        ::sigemptyset(&none);
        ::sigemptyset(&ordinary);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGCHLD}) {
            ::sigaddset(&ordinary, signal);
        }
        ::posix_spawnattr_setsigmask(&attributes, &none);
        ::posix_spawnattr_setsigdefault(&attributes, &ordinary);
        ::posix_spawnattr_setpgroup(&attributes, 0);
        ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK |
                                                    POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSettings()
    {
        ::posix_spawnattr_destroy(&attributes);
        ::posix_spawn_file_actions_destroy(&actions);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

} // namespace

int runTool(const std::vector<std::string>& command)
{
    if (command.empty() || !command.front().starts_with('/')) {
        return -1;
    }
    std::vector<std::string> copies = command;
    std::vector<char*> arguments;
    for (std::string& argument : copies) {
        if (argument.find('\0') != std::string::npos) {
            return -1;
        }
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    const SpawnSettings settings;
    pid_t child = 0;
    if (::posix_spawn(&child, arguments.front(), &settings.actions, &settings.attributes,
                      arguments.data(), wholeEnvironment()) != 0) {
        return -1;
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) {
            return -1;
        }
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace zolva
