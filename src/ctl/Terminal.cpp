#include "ctl/Terminal.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <clocale>
#include <cstdlib>
#include <cwchar>
#include <locale.h> // NOLINT(modernize-deprecated-headers): newlocale is not in <clocale>

namespace zolva::ctl {

namespace {

std::string_view variable(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? std::string_view() : std::string_view(value);
}

std::string_view startOf(Ink ink)
{
    switch (ink) {
    case Ink::Strong:
        return "\x1b[1m";
    case Ink::Faint:
        return "\x1b[2m";
    case Ink::Bar:
        return "\x1b[36m";
    case Ink::Good:
        return "\x1b[32m";
    case Ink::Bad:
        return "\x1b[33m";
    case Ink::Plain:
        break;
    }
    return {};
}

/// Makes this thread read text as UTF-8 as long as it lives, whatever the environment says.
class Utf8Reading
{
public:
    Utf8Reading()
        : m_locale(::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)),
          m_before(m_locale == nullptr ? nullptr : ::uselocale(m_locale))
    {}
    ~Utf8Reading()
    {
        if (m_locale != nullptr) {
            ::uselocale(m_before);
            ::freelocale(m_locale);
        }
    }
    Utf8Reading(const Utf8Reading&) = delete;
    Utf8Reading& operator=(const Utf8Reading&) = delete;

    [[nodiscard]] bool works() const { return m_locale != nullptr; }

private:
    locale_t m_locale;
    locale_t m_before;
};

std::size_t codePoints(std::string_view text)
{
    std::size_t count = 0;
    for (const char c : text) {
        count += (static_cast<unsigned char>(c) & 0xC0U) == 0x80U ? 0U : 1U;
    }
    return count;
}

} // namespace

bool canRedraw(int descriptor)
{
    const std::string_view kind = variable("TERM");
    return ::isatty(descriptor) == 1 && kind != "dumb";
}

Look lookOf(int descriptor)
{
    return {canRedraw(descriptor) && variable("NO_COLOR").empty()};
}

std::string painted(std::string_view text, Ink ink, const Look& look)
{
    const std::string_view start = startOf(ink);
    if (!look.colours || start.empty() || text.empty()) {
        return std::string(text);
    }
    std::string result(start);
    result += text;
    result += "\x1b[0m";
    return result;
}

std::size_t columnsOf(std::string_view text)
{
    const Utf8Reading reading;
    if (!reading.works()) {
        return codePoints(text);
    }
    std::size_t columns = 0;
    std::mbstate_t state{};
    while (!text.empty()) {
        wchar_t character = 0;
        const std::size_t used = std::mbrtowc(&character, text.data(), text.size(), &state);
        if (used == 0 || used > text.size()) {
            return columns + codePoints(text);
        }
        const int width = ::wcwidth(character);
        columns += width < 0 ? 1U : static_cast<std::size_t>(width);
        text.remove_prefix(used);
    }
    return columns;
}

int writeAll(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno != EINTR) {
            return errno;
        }
        text.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return 0;
}

int writeUnlessStopped(int descriptor, std::string_view text, int stop)
{
    while (!text.empty()) {
        std::array<pollfd, 2> both = {{{descriptor, POLLOUT, 0}, {stop, POLLIN, 0}}};
        if (::poll(both.data(), both.size(), -1) < 0) {
            if (errno != EINTR) {
                return errno;
            }
            continue;
        }
        if (both[0].revents == 0) {
            return 0;
        }
        // No more than a pipe that is ready takes at once.
        const std::string_view part = text.substr(0, std::min<std::size_t>(text.size(), PIPE_BUF));
        const ssize_t written = ::write(descriptor, part.data(), part.size());
        if (written < 0 && errno != EINTR && errno != EAGAIN) {
            return errno;
        }
        text.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return 0;
}

} // namespace zolva::ctl
