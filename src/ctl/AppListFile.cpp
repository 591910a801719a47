#include "ctl/AppListFile.h"

#include "files/DisplayPath.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <system_error>

namespace zolva::ctl {

namespace {

/// Far above any real list; below what would hurt the machine when a device is named by mistake.
constexpr std::size_t greatestList = 64U << 20U;

class Descriptor
{
public:
    explicit Descriptor(const std::string& file)
        : m_descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC))
    {}
    ~Descriptor()
    {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int get() const { return m_descriptor; }

private:
    int m_descriptor;
};

std::string systemMessage()
{
    return std::generic_category().message(errno);
}

/// Everything that the file holds, or why it cannot be had.
tl::expected<std::string, std::string> contentOf(const std::string& file)
{
    const Descriptor descriptor(file);
    if (descriptor.get() < 0) {
        return tl::unexpected(systemMessage());
    }
    std::string content;
    std::array<char, 65536> part{};
    while (content.size() <= greatestList) {
        const ssize_t got = ::read(descriptor.get(), part.data(), part.size());
        if (got == 0) {
            return content;
        }
        if (got < 0 && errno != EINTR) {
            return tl::unexpected(systemMessage());
        }
        content.append(part.data(), got < 0 ? 0 : static_cast<std::size_t>(got));
    }
    return tl::unexpected(std::string("too large for a list of applications"));
}

} // namespace

tl::expected<std::vector<UninstallApp>, std::string> appsFromFile(const std::string& file)
{
    const std::string named = displayLine(file) + ": ";
    const auto content = contentOf(file);
    if (!content) {
        return tl::unexpected(named + content.error());
    }
    auto list = decodeAppList(*content);
    if (!list) {
        return tl::unexpected(named + displayLine(list.error()));
    }
    return list;
}

} // namespace zolva::ctl
