#include "ctl/ChildRun.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <set>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace zolva::test {

namespace {

/// The two ends of what a stream of the child goes through.
struct Channel
{
    int reader = -1;
    int writer = -1;
};

void must(bool done, const char* what)
{
    if (!done) {
        throw std::system_error(errno, std::generic_category(), what);
    }
}

Channel pipeChannel()
{
    std::array<int, 2> ends{};
    must(::pipe2(ends.data(), O_CLOEXEC) == 0, "pipe");
    return {ends[0], ends[1]};
}

Channel terminalChannel()
{
    Channel channel;
    termios raw{};
    ::cfmakeraw(&raw);
    must(::openpty(&channel.reader, &channel.writer, nullptr, &raw, nullptr) == 0, "openpty");
    ::fcntl(channel.reader, F_SETFD, FD_CLOEXEC);
    ::fcntl(channel.writer, F_SETFD, FD_CLOEXEC);
    return channel;
}

Channel channelFor(bool terminal)
{
    return terminal ? terminalChannel() : pipeChannel();
}

void closeEnd(int& descriptor)
{
    if (descriptor >= 0) {
        ::close(descriptor);
    }
    descriptor = -1;
}

void type(int terminal, const std::string& text)
{
    must(::write(terminal, text.data(), text.size()) == static_cast<ssize_t>(text.size()), "write");
}

/// Reads once; closes the end when there is no more.
void readInto(std::string& text, int& descriptor)
{
    std::array<char, 4096> part{};
    const ssize_t got = ::read(descriptor, part.data(), part.size());
    if (got > 0) {
        text.append(part.data(), static_cast<std::size_t>(got));
    } else if (got == 0 || errno != EINTR) { // a terminal that nobody holds answers EIO
        closeEnd(descriptor);
    }
}

void collect(Outcome& outcome, Channel& output, Channel& errors, const std::function<void()>& grown)
{
    while (output.reader >= 0 || errors.reader >= 0) {
        std::array<pollfd, 2> ends = {{{output.reader, POLLIN, 0}, {errors.reader, POLLIN, 0}}};
        ::poll(ends.data(), ends.size(), -1);
        if (ends[0].revents != 0) {
            readInto(outcome.out, output.reader);
        }
        if (ends[1].revents != 0) {
            readInto(outcome.err, errors.reader);
        }
        grown();
    }
}

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

ChildRun::ChildRun(std::vector<std::string> arguments)
    : m_program(ZOLVACTL), m_arguments(std::move(arguments)),
      m_environment({{"PATH", "/usr/bin:/bin"}, {"LANG", "C.UTF-8"}, {"TERM", "xterm"}})
{}

ChildRun& ChildRun::program(const std::string& file)
{
    m_program = file;
    return *this;
}

ChildRun& ChildRun::home(const std::string& folder)
{
    m_environment["HOME"] = folder;
    m_environment["XDG_DATA_HOME"] = folder + "/.local/share";
    m_environment["XDG_CONFIG_HOME"] = folder + "/.config";
    m_environment["XDG_STATE_HOME"] = folder + "/.local/state";
    m_environment["XDG_CACHE_HOME"] = folder + "/.cache";
    m_environment["XDG_RUNTIME_DIR"] = folder + "/.run";
    return *this;
}

ChildRun& ChildRun::variable(const std::string& name, std::optional<std::string> value)
{
    if (value) {
        m_environment[name] = *std::move(value);
    } else {
        m_environment.erase(name);
    }
    return *this;
}

ChildRun& ChildRun::in(const std::string& folder)
{
    m_folder = folder;
    return *this;
}

ChildRun& ChildRun::outputTo(const std::string& file)
{
    m_outputFile = file;
    return *this;
}

ChildRun& ChildRun::outputToClosedPipe()
{
    m_closedPipe = true;
    return *this;
}

ChildRun& ChildRun::outputOnTerminal()
{
    m_outputTerminal = true;
    return *this;
}

ChildRun& ChildRun::errorsOnTerminal()
{
    m_errorTerminal = true;
    return *this;
}

ChildRun& ChildRun::answerOnTerminal(const std::string& typed)
{
    m_typed = typed;
    m_errorTerminal = true;
    return *this;
}

void ChildRun::mustBeHarmless() const
{
    static const std::set<std::string> removals = {"--run", "trash", "empty-trash", "uninstall",
                                                   "put-back"};
    const bool removes =
        std::any_of(m_arguments.begin(), m_arguments.end(),
                    [](const std::string& argument) { return removals.contains(argument); });
    const std::string temporary = std::filesystem::temp_directory_path().native();
    for (const char* const name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME",
                                   "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        const auto found = m_environment.find(name);
        const bool within = found != m_environment.end() && found->second.starts_with(temporary);
        if (removes && !within && !m_environment.at("HOME").starts_with("/nonexistent")) {
            throw std::logic_error(std::string("a removal outside the test's folder: ") + name);
        }
    }
}

ChildRun& ChildRun::signalAfter(const std::string& text, int signal)
{
    m_awaited = text;
    m_signal = signal;
    return *this;
}

ChildRun& ChildRun::answerAfter(const std::string& text, const std::string& typed,
                                std::function<void()> act)
{
    m_question = text;
    m_answer = typed;
    m_beforeAnswer = std::move(act);
    return answerOnTerminal({});
}

bool ChildRun::answerDue(int terminal, const Outcome& outcome) const
{
    if (outcome.err.find(m_question) == std::string::npos) {
        return true;
    }
    m_beforeAnswer();
    type(terminal, m_answer);
    return false;
}

bool ChildRun::signalDue(int child, const Outcome& outcome) const
{
    if (outcome.out.find(m_awaited) == std::string::npos &&
        outcome.err.find(m_awaited) == std::string::npos) {
        return true;
    }
    must(::kill(child, m_signal) == 0, "kill");
    return false;
}

Outcome ChildRun::run() const
{
    mustBeHarmless();
    std::vector<std::string> words = {m_program};
    words.insert(words.end(), m_arguments.begin(), m_arguments.end());
    std::vector<std::string> settings;
    for (const auto& [name, value] : m_environment) {
        settings.push_back(name + "=" + value);
    }
    const std::vector<char*> argv = pointersTo(words);
    const std::vector<char*> environment = pointersTo(settings);
    Channel output = channelFor(m_outputTerminal);
    Channel errors = channelFor(m_errorTerminal);
    Channel input = channelFor(m_typed.has_value());
    if (m_typed) {
        std::swap(input.reader, input.writer); // a terminal is typed on at its other end
        type(input.writer, *m_typed);
    } else {
        closeEnd(input.writer);
    }
    if (m_closedPipe) {
        closeEnd(output.reader);
    }

    const pid_t child = ::fork();
    must(child >= 0, "fork");
    if (child == 0) {
        const int file = m_outputFile.empty() ? output.writer
                                              : ::open(m_outputFile.c_str(), O_WRONLY | O_CLOEXEC);
        const bool ready = ::dup2(input.reader, STDIN_FILENO) >= 0 &&
                           ::dup2(file, STDOUT_FILENO) >= 0 &&
                           ::dup2(errors.writer, STDERR_FILENO) >= 0 &&
                           (m_folder.empty() || ::chdir(m_folder.c_str()) == 0);
        if (ready) {
            ::execve(argv[0], argv.data(), environment.data());
        }
        ::_exit(127);
    }
    closeEnd(output.writer);
    closeEnd(errors.writer);
    closeEnd(input.reader);
    Outcome outcome;
    bool awaiting = m_signal != 0;
    bool asking = !m_question.empty();
    collect(outcome, output, errors, [&] {
        awaiting = awaiting && signalDue(child, outcome);
        asking = asking && answerDue(input.writer, outcome);
    });
    int status = 0;
    must(::waitpid(child, &status, 0) == child, "waitpid");
    closeEnd(input.writer);
    outcome.code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return outcome;
}

Outcome zolvactl(const std::string& home, std::vector<std::string> arguments)
{
    return ChildRun(std::move(arguments)).home(home).run();
}

std::string json(std::string text)
{
    std::replace(text.begin(), text.end(), '\'', '"');
    return text;
}

} // namespace zolva::test
