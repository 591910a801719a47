#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace zolva::test {

/// How a child ended.
struct Ending
{
    std::optional<int> exitCode; ///< none if a signal ended it
    std::optional<int> signal;
};

/// What the child finds.
struct Surroundings
{
    std::map<std::string, std::string> changes{}; ///< of this process's environment
    std::vector<int> blocked{};   ///< signals that a careless parent blocks, ignores
    bool smallPipe = false;       ///< its output goes into a pipe that holds one page
    bool nonBlockingPipe = false; ///< and that does not wait for the reader
};

/// The tool as a child process with pipes for its output. Ends it at destruction.
class ToolProcess
{
public:
    explicit ToolProcess(const std::vector<std::string>& arguments,
                         const Surroundings& surroundings = {});
    ~ToolProcess();
    ToolProcess(const ToolProcess&) = delete;
    ToolProcess& operator=(const ToolProcess&) = delete;

    [[nodiscard]] pid_t pid() const { return m_pid; }

    /// The next line of standard output without its line feed; nothing at its end, or if none comes
    /// for as long as a test can wait.
    [[nodiscard]] std::optional<std::string> readLine();
    /// All that is left of an output, to its end.
    [[nodiscard]] std::string readOutput();
    [[nodiscard]] std::string readErrors();

    /// Waits until the child has filled its pipe; false if it does not.
    [[nodiscard]] bool waitUntilFull() const;
    void closeOutput();
    void send(int signal) const;

    /// Nothing if it has not ended for as long as a test can wait.
    [[nodiscard]] std::optional<Ending> wait();

private:
    pid_t m_pid = -1;
    int m_output = -1;
    int m_errors = -1;
    std::string m_buffer;
    bool m_ended = false;
};

} // namespace zolva::test
