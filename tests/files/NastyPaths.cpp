#include "files/NastyPaths.h"

#include <pwd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace zolva::test {

namespace {

using namespace std::string_literals;

/// The one account whose "~name" the generator uses; unknown to a system without it.
const std::string& homeOfRoot()
{
    static const std::string home = [] {
        const passwd* entry = ::getpwnam("root");
        return entry != nullptr ? std::string(entry->pw_dir) : std::string();
    }();
    return home;
}

std::vector<std::string> beginningsAt(const std::string& home)
{
    return {"",
            "/",
            "//",
            "~/",
            "~//",
            "~/Library/",
            " ~/",
            " /",
            "\n",
            "~/\0/"s,
            "/Applications",
            "/Applications/",
            "/applications/",
            "/Users/Shared/Applications",
            "/Users/Shared/",
            "/Users/",
            "/private/",
            "/Library/",
            "/var/",
            "/tmp/",
            "./",
            "../",
            home,
            home + "/",
            home + "/Library/",
            home + "/Library/",
            "/." + home + "/",
            "/x/.." + home,
            home + "2/",
            home.substr(0, home.size() - 1)};
}

std::vector<std::string> allPieces()
{
    return {"/",
            "/",
            "/",
            "//",
            ".",
            "..",
            "...",
            "/./",
            "/../",
            "/..",
            "~",
            " ",
            "\n",
            "\t",
            "\u00A0",
            "\u2003",
            "\u200B",
            "\xFF",
            "\xC3",
            "\0"s,
            "x",
            "a b",
            "2",
            "Documents",
            "documents",
            "Desktop",
            "Library",
            "/Library/",
            "Caches",
            "CACHES",
            "Mail",
            "Safari",
            ".Trash",
            ".trash",
            "Applications",
            "Foo.app",
            "Shared",
            "Users",
            "etc",
            "System",
            "Keychains",
            "Preferences",
            "Public",
            "Group Containers",
            "Application",
            " Support",
            "Music",
            "Application Support",
            "Containers",
            "Logs",
            "Saved Application State",
            "WebKit",
            "HTTPStorages",
            "Cookies",
            "Developer",
            "LaunchAgents",
            "Application Scripts",
            "Messages",
            "Downloads",
            "Movies",
            "Pictures"};
}

std::vector<std::string> namesBetween(const std::string& text)
{
    std::vector<std::string> names(1);
    for (const char byte : text) {
        if (byte == '/') {
            names.emplace_back();
        } else {
            names.back() += byte;
        }
    }
    return names;
}

std::string joined(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names) {
        text += "/" + name;
    }
    return text.empty() ? "/" : text;
}

constexpr std::uint32_t noCharacter = 0xFFFFFFFF;

struct Character
{
    std::uint32_t code = noCharacter;
    std::size_t length = 1;
};

/// Enough of UTF-8 for telling blanks: what is no well-formed character is one lone byte.
Character characterAt(const std::string& text, std::size_t index)
{
    const auto byte = [&](std::size_t offset) -> std::uint32_t {
        return index + offset < text.size() ? static_cast<unsigned char>(text[index + offset]) : 0;
    };
    const auto tail = [&](std::size_t offset) { return byte(offset) >> 6 == 2; };
    if (byte(0) < 0x80) {
        return {byte(0), 1};
    }
    if (byte(0) >> 5 == 6 && tail(1)) {
        const std::uint32_t code = (byte(0) & 0x1F) << 6 | (byte(1) & 0x3F);
        return code < 0x80 ? Character{} : Character{code, 2};
    }
    if (byte(0) >> 4 == 14 && tail(1) && tail(2)) {
        const std::uint32_t code =
            (byte(0) & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
        return code < 0x800 ? Character{} : Character{code, 3};
    }
    return {};
}

bool isBlank(std::uint32_t code)
{
    return (code >= 9 && code <= 13) || code == 0x20 || code == 0x85 || code == 0xA0 ||
           code == 0x1680 || (code >= 0x2000 && code <= 0x200A) || code == 0x2028 ||
           code == 0x2029 || code == 0x202F || code == 0x205F || code == 0x3000;
}

} // namespace

std::size_t generatedPaths()
{
    const char* wanted = std::getenv("ZOLVA_GENERATED_PATHS");
    return wanted != nullptr ? std::strtoull(wanted, nullptr, 10) : 1'000'000;
}

const std::vector<std::string>& nastyHomes()
{
    static const std::vector<std::string> homes = {
        "/Users/me", "/home/\xC3\xA4 \xFF", "/", "/Applications/me", "/Users/Shared", "/root"};
    return homes;
}

NastyPaths::NastyPaths(unsigned seed, const std::string& home)
    : m_random(seed), m_beginnings(beginningsAt(home)), m_pieces(allPieces())
{}

std::size_t NastyPaths::below(std::size_t bound)
{
    return static_cast<std::size_t>(m_random() % bound);
}

const std::string& NastyPaths::piece()
{
    return m_pieces[below(m_pieces.size())];
}

std::string NastyPaths::beginning()
{
    // With these the system is asked for an account, which takes its time.
    if (below(128) == 0) {
        constexpr std::array<const char*, 4> named = {"~root", "~root/", "~", "~~/"};
        return named[below(named.size())];
    }
    return m_beginnings[below(m_beginnings.size())];
}

std::string NastyPaths::path()
{
    std::string text = beginning();
    for (std::size_t left = below(6); left > 0; --left) {
        text += piece();
        if (below(3) == 0) {
            text += '/';
        }
    }
    return text;
}

std::string NastyPaths::entryFor(const std::string& path)
{
    switch (below(8)) {
    case 0:
        return this->path();
    case 1:
        return below(2) == 0 ? "/" : piece();
    case 2:
        return path + piece();
    case 3:
        return path;
    default:
        break;
    }
    // A part of the path, or all of it, in one of the spellings that an entry may have.
    std::string entry = path.substr(0, below(path.size() + 1));
    if (below(2) == 0) {
        entry = entry.substr(0, entry.rfind('/'));
    }
    if (below(4) == 0) {
        entry = piece() + entry;
    }
    if (below(4) == 0) {
        entry += below(2) == 0 ? "/" : " ";
    }
    return entry;
}

std::string naiveExpanded(const std::string& text, const std::string& home)
{
    if (text.empty() || text[0] != '~') {
        return text;
    }
    std::vector<std::string> names = namesBetween(text);
    if (names[0] != "~" && (names[0] != "~root" || homeOfRoot().empty())) {
        return text;
    }
    names[0] = names[0] == "~" ? home : homeOfRoot();
    std::vector<std::string> all = namesBetween(names[0]);
    all.insert(all.end(), names.begin() + 1, names.end());
    std::erase(all, "");
    return joined(all);
}

std::string naiveTrimmed(const std::string& text)
{
    std::size_t from = std::string::npos;
    std::size_t to = 0;
    for (std::size_t index = 0; index < text.size();) {
        const Character character = characterAt(text, index);
        if (!isBlank(character.code)) {
            from = std::min(from, index);
            to = index + character.length;
        }
        index += character.length;
    }
    return from == std::string::npos ? "" : text.substr(from, to - from);
}

std::string naiveStandardized(const std::string& text)
{
    std::vector<std::string> stack;
    for (const std::string& name : namesBetween(text)) {
        if (name == ".." && !stack.empty()) {
            stack.pop_back();
        } else if (name != ".." && name != "." && !name.empty()) {
            stack.push_back(name);
        }
    }
    return joined(stack);
}

} // namespace zolva::test
