#include "scanners/PlistLimits.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace zolva {

namespace {

/// No more containers than this in one XML list, however they stand. The depth itself is not
/// counted: what is a comment or a text, only the decoder knows. So many levels, should they all
/// be inside one another, are freed within 512 KiB of stack.
constexpr std::size_t mostContainers = 10'000;

/// Bytes moved while entities are decoded: each moves the rest of its text.
constexpr std::size_t mostEntityMoves = std::size_t{1} << 31;

/// Levels of a binary list; it is also what ends a list that contains itself.
constexpr int deepestLevel = 64;

/// What a binary list may come to once every reference has become a value of its own.
constexpr std::uint64_t mostWrittenOut = std::uint64_t{2} * largestPlist;
constexpr std::uint64_t costOfValue = 128;

constexpr std::string_view binaryMagic = "bplist00";
constexpr std::size_t trailerSize = 32;

std::size_t occurrences(std::string_view bytes, std::string_view word)
{
    std::size_t count = 0;
    for (std::size_t at = bytes.find(word); at != std::string_view::npos;
         at = bytes.find(word, at + word.size())) {
        ++count;
    }
    return count;
}

/// The form: a header, the values, a table of where each begins, and a trailer that tells the
/// widths of the table's entries and of the references inside containers.
class BinaryList
{
public:
    explicit BinaryList(std::string_view bytes) : m_bytes(bytes) {}

    [[nodiscard]] bool isAffordable()
    {
        if (m_bytes.size() < binaryMagic.size() + trailerSize) {
            return false;
        }
        const std::size_t trailer = m_bytes.size() - trailerSize;
        m_offsetWidth = static_cast<unsigned char>(m_bytes[trailer + 6]);
        m_referenceWidth = static_cast<unsigned char>(m_bytes[trailer + 7]);
        const auto values = number(trailer + 8, 8);
        const auto top = number(trailer + 16, 8);
        const auto table = number(trailer + 24, 8);
        if (!values || !top || !table || *table > trailer || m_offsetWidth == 0 ||
            *values > (trailer - *table) / m_offsetWidth) {
            return false;
        }
        m_values = *values;
        m_table = static_cast<std::size_t>(*table);
        return spend(*top, 0);
    }

private:
    /// Big-endian; nothing where it does not lie within the bytes.
    [[nodiscard]] std::optional<std::uint64_t> number(std::uint64_t at, std::size_t width) const
    {
        if (width < 1 || width > 8 || at > m_bytes.size() || width > m_bytes.size() - at) {
            return std::nullopt;
        }
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < width; ++i) {
            value =
                value << 8 | static_cast<unsigned char>(m_bytes[static_cast<std::size_t>(at) + i]);
        }
        return value;
    }

    /// Takes the cost of one value and of all below it, each as often as it is referred to, from
    /// what may be spent.
    [[nodiscard]] bool spend(std::uint64_t value, int level)
    {
        if (level > deepestLevel || value >= m_values) {
            return false;
        }
        const auto offset = number(m_table + value * m_offsetWidth, m_offsetWidth);
        if (!offset || *offset >= m_table) {
            return false;
        }
        const auto marker = static_cast<unsigned char>(m_bytes[static_cast<std::size_t>(*offset)]);
        const int kind = marker >> 4;
        if (kind < 0x4 || kind == 0x8) {
            return pay(costOfValue);
        }
        std::uint64_t at = *offset + 1;
        std::uint64_t length = marker & 0xF;
        if (length == 0xF) {
            const auto widthMarker = number(at, 1);
            if (!widthMarker || *widthMarker >> 4 != 0x1 || (*widthMarker & 0xF) > 3) {
                return false;
            }
            const std::size_t width = std::size_t{1} << (*widthMarker & 0xF);
            const auto told = number(at + 1, width);
            if (!told) {
                return false;
            }
            length = *told;
            at += 1 + width;
        }
        if (length > m_bytes.size()) {
            return false;
        }
        if (kind < 0xA) {
            return pay(costOfValue + 3 * length);
        }
        const std::uint64_t references = kind == 0xD ? 2 * length : length;
        return pay(costOfValue) && spendAll(at, references, level + 1);
    }

    [[nodiscard]] bool spendAll(std::uint64_t at, std::uint64_t references, int level)
    {
        for (std::uint64_t i = 0; i < references; ++i) {
            const auto value = number(at + i * m_referenceWidth, m_referenceWidth);
            if (!value || !spend(*value, level)) {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] bool pay(std::uint64_t cost)
    {
        const bool enough = cost <= m_left;
        m_left -= std::min(cost, m_left);
        return enough;
    }

    std::string_view m_bytes;
    std::size_t m_offsetWidth = 0;
    std::size_t m_referenceWidth = 0;
    std::uint64_t m_values = 0;
    std::size_t m_table = 0;
    std::uint64_t m_left = mostWrittenOut;
};

} // namespace

bool isBinaryPlist(std::string_view bytes)
{
    return bytes.starts_with(binaryMagic);
}

bool isAffordableXmlPlist(std::string_view bytes)
{
    return bytes.size() <= largestPlist &&
           occurrences(bytes, "<dict") + occurrences(bytes, "<array") <= mostContainers &&
           occurrences(bytes, "&") <= mostEntityMoves / std::max<std::size_t>(bytes.size(), 1);
}

bool isAffordableBinaryPlist(std::string_view bytes)
{
    return bytes.size() <= largestPlist && BinaryList(bytes).isAffordable();
}

} // namespace zolva
