#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zolva::test {

/// How a program ended, and what it said.
struct Outcome
{
    int code = -1; ///< exit code; the negative signal if it was ended by one
    std::string out;
    std::string err;
};

/// One run of a program as a child, zolvactl unless told otherwise, in an environment of its own:
/// nothing of the caller's is handed on, and there is nothing to read. One that removes must be at
/// home in a temporary folder, the folder of its Trash included.
class ChildRun
{
public:
    explicit ChildRun(std::vector<std::string> arguments);

    ChildRun& program(const std::string& file);
    /// HOME, and every XDG folder below it.
    ChildRun& home(const std::string& folder);
    /// No value: not in its environment.
    ChildRun& variable(const std::string& name, std::optional<std::string> value);
    ChildRun& in(const std::string& folder);
    /// What it prints is not caught but goes to this file.
    ChildRun& outputTo(const std::string& file);
    /// Its output is a pipe that nobody reads any more.
    ChildRun& outputToClosedPipe();
    /// The stream is a terminal that translates nothing.
    ChildRun& outputOnTerminal();
    ChildRun& errorsOnTerminal();

    /// It can ask: its input and its errors are a terminal, where this was typed.
    ChildRun& answerOnTerminal(const std::string& typed);
    /// The same, but it is typed as soon as it has printed the text, after `act`.
    ChildRun& answerAfter(const std::string& text, const std::string& typed,
                          std::function<void()> act);
    /// As soon as it has printed the text, on either stream, it gets the signal; once.
    ChildRun& signalAfter(const std::string& text, int signal);

    /// Blocks until it ends. Throws std::system_error if it cannot be started, std::logic_error if
    /// it could touch what is not the test's.
    [[nodiscard]] Outcome run() const;

private:
    void mustBeHarmless() const;
    /// Sends the signal when its time has come, and answers whether it is still to come.
    [[nodiscard]] bool signalDue(int child, const Outcome& outcome) const;
    /// The same of the answer.
    [[nodiscard]] bool answerDue(int terminal, const Outcome& outcome) const;

    std::string m_program;
    std::vector<std::string> m_arguments;
    std::map<std::string, std::string> m_environment;
    std::string m_folder;
    std::string m_outputFile;
    std::optional<std::string> m_typed;
    std::string m_awaited;
    int m_signal = 0;
    std::string m_question;
    std::string m_answer;
    std::function<void()> m_beforeAnswer;
    bool m_closedPipe = false;
    bool m_outputTerminal = false;
    bool m_errorTerminal = false;
};

/// zolvactl at home in the folder.
[[nodiscard]] Outcome zolvactl(const std::string& home, std::vector<std::string> arguments);

/// The text with ' instead of ", for writing JSON in tests.
[[nodiscard]] std::string json(std::string text);

} // namespace zolva::test
