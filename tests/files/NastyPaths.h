#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

/// Generated path texts that look for the seams of the path rules, and slow, plain readings of the
/// notions that the rules share, written without them.
namespace zolva::test {

/// How many texts an oracle test tries: a million, or what ZOLVA_GENERATED_PATHS says.
[[nodiscard]] std::size_t generatedPaths();

/// The home folders in turn under which they are judged.
[[nodiscard]] const std::vector<std::string>& nastyHomes();

/// Builds texts from dots, slashes, tildes, blanks, bytes that are not text, and names that matter
/// in every spelling. The same seed gives the same texts.
class NastyPaths
{
public:
    NastyPaths(unsigned seed, const std::string& home);

    /// A path.
    [[nodiscard]] std::string path();
    /// An entry of the exclusion list that has much to do with the path.
    [[nodiscard]] std::string entryFor(const std::string& path);
    /// A number below `bound`.
    [[nodiscard]] std::size_t below(std::size_t bound);

private:
    [[nodiscard]] std::string beginning();
    [[nodiscard]] const std::string& piece();

    std::mt19937_64 m_random;
    std::vector<std::string> m_beginnings;
    std::vector<std::string> m_pieces;
};

/// The tilde expanded by cutting the text into its parts; knows "root" and no other account.
[[nodiscard]] std::string naiveExpanded(const std::string& text, const std::string& home);

/// Without blanks at its ends, by decoding every character.
[[nodiscard]] std::string naiveTrimmed(const std::string& text);

/// By a stack of names.
[[nodiscard]] std::string naiveStandardized(const std::string& text);

} // namespace zolva::test
