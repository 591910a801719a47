#include "mole/SystemFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <memory>

namespace zolva::mole {

namespace {

constexpr std::string_view blanks = " \t\n\r";

template <typename Number>
std::optional<Number> numberOf(std::string_view text)
{
    Number value{};
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || rest != end) {
        return std::nullopt;
    }
    return value;
}

} // namespace

std::optional<std::string> fileText(const std::string& path, std::size_t limit)
{
    // A pipe that stands where a file is looked for must not keep the tool waiting.
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (fd < 0) {
        return std::nullopt;
    }
    std::string text;
    std::array<char, 4096> block{};
    ssize_t got = 0;
    while (text.size() < limit) {
        got = ::read(fd, block.data(), std::min(block.size(), limit - text.size()));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            break;
        }
        text.append(block.data(), static_cast<std::size_t>(got));
    }
    ::close(fd);
    if (got < 0) {
        return std::nullopt;
    }
    return text;
}

std::string fileLine(const std::string& path)
{
    std::string text = fileText(path, 4096).value_or(std::string());
    // Texts of the device tree end with a NUL.
    while (!text.empty() &&
           (text.back() == '\0' || blanks.find(text.back()) != std::string_view::npos)) {
        text.pop_back();
    }
    text.erase(0, std::min(text.find_first_not_of(blanks), text.size()));
    return text;
}

std::optional<std::int64_t> fileNumber(const std::string& path)
{
    return wholeNumber(fileLine(path));
}

std::optional<std::int64_t> wholeNumber(std::string_view text)
{
    return numberOf<std::int64_t>(text);
}

std::optional<std::uint64_t> unsignedNumber(std::string_view text)
{
    return numberOf<std::uint64_t>(text);
}

std::string_view nextWord(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(blanks));
    text.remove_prefix(word.size());
    return word;
}

std::string_view nextLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

std::vector<std::string> namesIn(const std::string& folder)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), ::closedir);
    if (!open) {
        return names;
    }
    while (const dirent* entry = ::readdir(open.get())) {
        if (entry->d_name[0] != '.') {
            names.emplace_back(entry->d_name);
        }
    }
    std::ranges::sort(names);
    return names;
}

} // namespace zolva::mole
