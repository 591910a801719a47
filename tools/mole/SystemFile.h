#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reading the small files in which the kernel tells about the machine. One thread.
namespace zolva::mole {

/// The first `limit` bytes of the file; nothing if it cannot be read.
[[nodiscard]] std::optional<std::string> fileText(const std::string& path,
                                                  std::size_t limit = std::size_t{256} * 1024);

/// The file's text without white space around it and without NULs at its end; empty if it cannot
/// be read.
[[nodiscard]] std::string fileLine(const std::string& path);

/// The whole number that the file holds and nothing else; nothing if there is none.
[[nodiscard]] std::optional<std::int64_t> fileNumber(const std::string& path);

/// The whole number that the text is, from end to end; nothing if it is none or does not fit.
[[nodiscard]] std::optional<std::int64_t> wholeNumber(std::string_view text);

/// The same for numbers that are never negative.
[[nodiscard]] std::optional<std::uint64_t> unsignedNumber(std::string_view text);

/// The next word of `text`, which is cut off from it; empty at the end. Words end at blanks, tabs
/// and line ends.
[[nodiscard]] std::string_view nextWord(std::string_view& text);

/// The next line of `text` without its line end, which is cut off from it.
[[nodiscard]] std::string_view nextLine(std::string_view& text);

/// The names in the folder, sorted, without hidden ones; empty if it cannot be listed.
[[nodiscard]] std::vector<std::string> namesIn(const std::string& folder);

} // namespace zolva::mole
