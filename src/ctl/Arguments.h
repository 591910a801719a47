#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zolva::ctl {

/// The arguments of the program on their way through the command line library, which gives a
/// meaning to brackets, braces, "%%" and to a leading minus even in values. Values therefore pass
/// through it as tokens ("@" and their place), so that paths arrive as the bytes that were typed.
class Arguments
{
public:
    Arguments(int argc, const char* const* argv);

    /// What the library is to see: options, the command, and tokens; in reverse, as it wants them.
    [[nodiscard]] std::vector<std::string> reversedTokens() const;

    /// As typed, not looked up; empty if there is none.
    [[nodiscard]] const std::string& command() const { return m_command; }

    /// The value behind a token; nothing for anything else.
    [[nodiscard]] std::optional<std::string> value(std::string_view token) const;

    /// The message with every token replaced by its value, fit to be shown.
    [[nodiscard]] std::string readable(std::string_view message) const;

private:
    std::string remember(std::string_view value);

    std::string m_command;
    std::vector<std::string> m_values;
    std::vector<std::string> m_tokens;
};

} // namespace zolva::ctl
