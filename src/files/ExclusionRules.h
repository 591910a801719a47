#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The rule that the user makes: the list of what must never be touched. Text alone, any thread.
namespace zolva {

/// A list made ready to be asked for many paths: its entries are trimmed and expanded once, by the
/// home folder of that moment. Not to be kept: the list may change, and with it the answers.
class ExclusionRules
{
public:
    explicit ExclusionRules(const std::vector<std::string>& list);

    /// Whether any entry of the list covers the path.
    [[nodiscard]] bool covers(std::string_view path) const;

private:
    std::vector<std::string> m_covered;
};

/// The same of one path.
[[nodiscard]] bool isExcluded(std::string_view path, const std::vector<std::string>& list);

/// Whether one entry covers the path (already expanded): the same path, or one below it.
[[nodiscard]] bool exclusionCovers(std::string_view entry, std::string_view path);

/// What is wrong with a new entry, as a text for the user; nothing when it may be added.
[[nodiscard]] std::optional<std::string> validateExclusion(std::string_view text,
                                                           const std::vector<std::string>& list);

/// How a valid entry is stored: trimmed, expanded, standardized, the home folder as "~".
[[nodiscard]] std::string storedExclusion(std::string_view text);

/// The path with the home folder as "~"; other paths unchanged.
[[nodiscard]] std::string shortenPath(std::string_view path);

} // namespace zolva
