#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

/// What can go wrong between the program and the outside tool. Texts are UTF-8.
namespace zolva {

/// The errors of the bridge itself.
struct MoError
{
    struct BinaryNotFound
    {
        std::string path; ///< where it was looked for
    };
    struct NonZeroExit
    {
        std::int32_t status = 0; ///< of a child ended by a signal, the signal's number
        std::string stderrText;
    };
    struct DecodingFailure
    {
        std::string text;
    };
    struct Cancelled
    {};

    std::variant<BinaryNotFound, NonZeroExit, DecodingFailure, Cancelled> what;

    /// For the log and the terminal.
    [[nodiscard]] std::string description() const;
    [[nodiscard]] std::optional<std::string> recoverySuggestion() const;
};

/// Any other error, in the system's own words: a failed launch, a failed read.
struct SystemError
{
    std::string description;
};

using MoFailure = std::variant<MoError, SystemError>;

/// What the user is shown.
[[nodiscard]] std::string userText(const MoFailure& failure);

/// What the log and the terminal are told.
[[nodiscard]] std::string description(const MoFailure& failure);

} // namespace zolva
