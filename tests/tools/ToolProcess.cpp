#include "tools/ToolProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace zolva::test {

namespace {

constexpr std::chrono::milliseconds patience{10'000};

using Pipe = std::array<int, 2>;

Pipe makePipe()
{
    Pipe ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("pipe2");
    }
    return ends;
}

/// Appends what can be read; false at the end, on an error, and when nothing comes.
bool readMore(int fd, std::string& text)
{
    pollfd waited{fd, POLLIN, 0};
    if (::poll(&waited, 1, static_cast<int>(patience.count())) != 1) {
        return false;
    }
    std::array<char, 65536> block{};
    const ssize_t got = ::read(fd, block.data(), block.size());
    if (got <= 0) {
        return false;
    }
    text.append(block.data(), static_cast<std::size_t>(got));
    return true;
}

} // namespace

ToolProcess::ToolProcess(const std::vector<std::string>& arguments,
                         const Surroundings& surroundings)
{
    const Pipe output = makePipe();
    const Pipe errors = makePipe();
    if (surroundings.smallPipe) {
        ::fcntl(output[1], F_SETPIPE_SZ, 4096);
    }
    if (surroundings.nonBlockingPipe) {
        ::fcntl(output[1], F_SETFL, O_NONBLOCK);
    }
    std::vector<std::string> texts = {MOLE_TOOL};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    argv.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        argv.push_back(text.data());
    }
    argv.push_back(nullptr);
    m_pid = ::fork();
    if (m_pid == 0) {
        ::dup2(output[1], STDOUT_FILENO);
        ::dup2(errors[1], STDERR_FILENO);
        for (const auto& [name, value] : surroundings.changes) {
            ::setenv(name.c_str(), value.c_str(), 1);
        }
        sigset_t set;
        sigemptyset(&set);
        for (const int signal : surroundings.blocked) {
            std::signal(signal, SIG_IGN);
            sigaddset(&set, signal);
        }
        sigprocmask(SIG_BLOCK, &set, nullptr);
        ::execv(MOLE_TOOL, argv.data());
        ::_exit(127);
    }
    ::close(output[1]);
    ::close(errors[1]);
    m_output = output[0];
    m_errors = errors[0];
}

ToolProcess::~ToolProcess()
{
    closeOutput();
    ::close(m_errors);
    if (!m_ended && m_pid > 0) {
        ::kill(m_pid, SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
    }
}

std::optional<std::string> ToolProcess::readLine()
{
    std::size_t end = m_buffer.find('\n');
    while (end == std::string::npos) {
        if (!readMore(m_output, m_buffer)) {
            return std::nullopt;
        }
        end = m_buffer.find('\n');
    }
    std::string line = m_buffer.substr(0, end);
    m_buffer.erase(0, end + 1);
    return line;
}

std::string ToolProcess::readOutput()
{
    while (readMore(m_output, m_buffer)) {
    }
    return std::exchange(m_buffer, {});
}

std::string ToolProcess::readErrors()
{
    std::string text;
    while (readMore(m_errors, text)) {
    }
    return text;
}

bool ToolProcess::waitUntilFull() const
{
    const int capacity = ::fcntl(m_output, F_GETPIPE_SZ);
    const auto end = std::chrono::steady_clock::now() + patience;
    int held = 0;
    while (held < capacity && std::chrono::steady_clock::now() < end) {
        ::ioctl(m_output, FIONREAD, &held);
        ::sched_yield();
    }
    return held == capacity;
}

void ToolProcess::closeOutput()
{
    if (m_output >= 0) {
        ::close(m_output);
        m_output = -1;
    }
}

void ToolProcess::send(int signal) const
{
    ::kill(m_pid, signal);
}

std::optional<Ending> ToolProcess::wait()
{
    const int handle = static_cast<int>(::syscall(SYS_pidfd_open, m_pid, 0));
    pollfd waited{handle, POLLIN, 0};
    const int ready = ::poll(&waited, 1, static_cast<int>(patience.count()));
    ::close(handle);
    int status = 0;
    if (ready != 1 || ::waitpid(m_pid, &status, 0) != m_pid) {
        return std::nullopt;
    }
    m_ended = true;
    Ending ending;
    if (WIFEXITED(status)) {
        ending.exitCode = WEXITSTATUS(status);
    } else if (WIFSIGNALED(status)) {
        ending.signal = WTERMSIG(status);
    }
    return ending;
}

} // namespace zolva::test
