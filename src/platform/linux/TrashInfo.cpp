#include "platform/linux/TrashInfo.h"

#include <array>
#include <cstdint>

namespace zolva {

namespace {

constexpr std::string_view group = "[Trash Info]";
constexpr std::string_view hexDigits = "0123456789ABCDEF";

bool isUnreserved(char byte)
{
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
           (byte >= '0' && byte <= '9') ||
           std::string_view("-._~/").find(byte) != std::string_view::npos;
}

/// The digit's value, or -1.
int hexValue(char digit)
{
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    if (digit >= 'a' && digit <= 'f') {
        return digit - 'a' + 10;
    }
    return digit >= 'A' && digit <= 'F' ? digit - 'A' + 10 : -1;
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r");
    if (begin == std::string_view::npos) {
        return {};
    }
    return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

std::string_view nextLine(std::string_view& text)
{
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

} // namespace

std::string percentEncoded(std::string_view bytes)
{
    std::string text;
    for (const char byte : bytes) {
        if (isUnreserved(byte)) {
            text += byte;
        } else {
            const auto value = static_cast<std::uint8_t>(byte);
            text += {'%', hexDigits[value >> 4U], hexDigits[value & 15U]};
        }
    }
    return text;
}

std::string percentDecoded(std::string_view text)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? hexValue(text[i + 1]) : -1;
        const int low = high >= 0 ? hexValue(text[i + 2]) : -1;
        if (low >= 0) {
            bytes += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

std::string trashInfoText(std::string_view path, std::time_t when)
{
    std::tm local{};
    ::localtime_r(&when, &local);
    std::array<char, 32> date{};
    std::strftime(date.data(), date.size(), "%Y-%m-%dT%H:%M:%S", &local);
    return std::string(group) + "\nPath=" + percentEncoded(path) + "\nDeletionDate=" + date.data() +
           "\n";
}

std::optional<TrashInfo> parsedTrashInfo(std::string_view text)
{
    std::optional<std::string> path;
    std::string date;
    bool inGroup = false;
    while (!text.empty()) {
        const std::string_view line = trimmed(nextLine(text));
        const std::size_t equals = line.find('=');
        if (line.starts_with('[')) {
            inGroup = line == group;
        } else if (inGroup && equals != std::string_view::npos) {
            const std::string_view key = trimmed(line.substr(0, equals));
            const std::string_view value = trimmed(line.substr(equals + 1));
            if (key == "Path" && !path) {
                path = percentDecoded(value);
            } else if (key == "DeletionDate" && date.empty()) {
                date = value;
            }
        }
    }
    if (!path || path->empty() || path->find('\0') != std::string::npos) {
        return std::nullopt;
    }
    return TrashInfo{*path, date};
}

bool isBelievableOrigin(std::string_view path)
{
    const std::string bounded = std::string(path) + "/";
    return path.starts_with('/') && bounded.find("/../") == std::string::npos;
}

} // namespace zolva
