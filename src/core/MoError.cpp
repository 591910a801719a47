#include "core/MoError.h"

#include "files/PathText.h"

namespace zolva {

namespace {

template <typename... Case>
struct Cases : Case...
{
    using Case::operator()...;
};
template <typename... Case>
Cases(Case...) -> Cases<Case...>;

std::string shownText(const MoError& error)
{
    return std::visit(
        Cases{
            [](const MoError::BinaryNotFound&) { return std::string("mo isn’t installed"); },
            [](const MoError::NonZeroExit& exit) {
                const std::string_view told = trimmedText(exit.stderrText);
                return told.empty() ? std::string("mo exited with an error") : std::string(told);
            },
            [](const MoError::DecodingFailure& failure) {
                return "Couldn’t read mo output (" + failure.text + ")";
            },
            [](const MoError::Cancelled&) { return std::string("Cancelled"); },
        },
        error.what);
}

} // namespace

std::string MoError::description() const
{
    return std::visit(Cases{
                          [](const BinaryNotFound& missing) {
                              return "Mole binary not found at " + missing.path +
                                     ". Install with: brew install mole";
                          },
                          [](const NonZeroExit& exit) {
                              std::string text =
                                  "mo exited with code " + std::to_string(exit.status);
                              // Asked of the text as it came: white space alone leaves two bare
                              // line feeds.
                              if (!exit.stderrText.empty()) {
                                  text += "\n\n";
                                  text += trimmedText(exit.stderrText);
                              }
                              return text;
                          },
                          [](const DecodingFailure& failure) {
                              return "Failed to parse mo output: " + failure.text;
                          },
                          [](const Cancelled&) { return std::string("Operation cancelled."); },
                      },
                      what);
}

std::optional<std::string> MoError::recoverySuggestion() const
{
    using Suggestion = std::optional<std::string>;
    return std::visit(
        Cases{
            [](const BinaryNotFound&) { return Suggestion("Run: brew install mole"); },
            [](const NonZeroExit&) {
                return Suggestion("Check that mo is working by running it in a terminal.");
            },
            [](const DecodingFailure&) {
                return Suggestion("This may be a version mismatch. Run: mo update");
            },
            [](const Cancelled&) { return Suggestion(); },
        },
        what);
}

std::string userText(const MoFailure& failure)
{
    return std::visit(Cases{
                          [](const MoError& error) { return shownText(error); },
                          [](const SystemError& error) { return error.description; },
                      },
                      failure);
}

std::string description(const MoFailure& failure)
{
    return std::visit(
        [](const auto& error) -> std::string {
            if constexpr (requires { error.description(); }) {
                return error.description();
            } else {
                return error.description;
            }
        },
        failure);
}

} // namespace zolva
