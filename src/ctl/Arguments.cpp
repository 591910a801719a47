#include "ctl/Arguments.h"

#include "files/DisplayPath.h"

#include <charconv>
#include <cstddef>

namespace zolva::ctl {

namespace {

constexpr std::string_view noValue = "none";

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool looksLikeOption(std::string_view argument)
{
    return argument.size() > 1 && argument.front() == '-';
}

/// Whether a number may stand here that is no option, for all its leading minus.
bool takesNumbers(std::string_view command, std::string_view lastOption)
{
    return command == "size" || command == "prefs" || lastOption == "--interval";
}

bool looksNegative(std::string_view argument)
{
    return argument.size() > 1 && argument.front() == '-' && isDigit(argument[1]);
}

/// The digits after an "@" at the start of the text.
std::string_view placeAt(std::string_view text)
{
    std::size_t end = 1;
    while (end < text.size() && isDigit(text[end])) {
        ++end;
    }
    return text.substr(1, end - 1);
}

} // namespace

Arguments::Arguments(int argc, const char* const* argv)
{
    bool onlyValues = false;
    std::string_view lastOption;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        const bool number = takesNumbers(m_command, lastOption) && looksNegative(argument);
        if (!onlyValues && argument == "--") {
            onlyValues = true;
            // Tokens look like no option; the mark is only good for ending a list before it.
            if (lastOption == "--list") {
                m_tokens.emplace_back(argument);
            }
        } else if (!onlyValues && looksLikeOption(argument) && !number) {
            const std::size_t equals = argument.find('=');
            lastOption = argument.substr(0, equals);
            m_tokens.emplace_back(lastOption);
            const bool alone = i + 1 == argc || looksLikeOption(argv[i + 1]);
            if (argument == "--list" && alone) {
                // An empty list, which the library cannot tell from a value that is missing.
                m_tokens.emplace_back(noValue);
            }
            if (equals != std::string_view::npos) {
                m_tokens.push_back(remember(argument.substr(equals + 1)));
            }
        } else if (!onlyValues && m_command.empty() && !argument.empty()) {
            m_command = argument;
            m_tokens.push_back(m_command);
        } else {
            m_tokens.push_back(remember(argument));
        }
    }
}

std::string Arguments::remember(std::string_view value)
{
    m_values.emplace_back(value);
    return "@" + std::to_string(m_values.size() - 1);
}

std::vector<std::string> Arguments::reversedTokens() const
{
    return {m_tokens.rbegin(), m_tokens.rend()};
}

std::optional<std::string> Arguments::value(std::string_view token) const
{
    if (token.empty() || token.front() != '@') {
        return std::nullopt;
    }
    const std::string_view digits = placeAt(token);
    std::size_t place = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), place);
    if (read.ec != std::errc() || place >= m_values.size()) {
        return std::nullopt;
    }
    return m_values[place];
}

std::string Arguments::readable(std::string_view message) const
{
    std::string text;
    while (!message.empty()) {
        const std::optional<std::string> found = value(message);
        const std::size_t used = found ? 1 + placeAt(message).size() : 1;
        text += found ? *found : std::string(message.substr(0, 1));
        message.remove_prefix(used);
    }
    // Line ends of the library's own would be lost with the control characters of a value.
    std::string shown;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        shown += (start == 0 ? "" : " ") + displayLine(text.substr(start, end - start));
        start = end + 1;
    }
    return shown;
}

} // namespace zolva::ctl
