#include "scanners/AppInventory.h"
#include "scanners/PlistLimits.h"
#include "scanners/Utf16Text.h"

#include <plist/plist.h>

#include <cstdint>
#include <memory>

namespace zolva {

namespace {

struct FreePlist
{
    void operator()(void* plist) const { plist_free(plist); }
};

using Plist = std::unique_ptr<void, FreePlist>;

Plist fromXml(std::string_view bytes)
{
    plist_t plist = nullptr;
    if (!bytes.empty() && isAffordableXmlPlist(bytes)) {
        plist_from_xml(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &plist);
    }
    return Plist(plist);
}

/// The form is told here and not by the library, which guesses, and takes all XML for UTF-8.
Plist decoded(std::string_view bytes)
{
    if (isBinaryPlist(bytes)) {
        plist_t plist = nullptr;
        if (isAffordableBinaryPlist(bytes)) {
            plist_from_bin(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &plist);
        }
        return Plist(plist);
    }
    if (bytes.size() <= largestPlist) {
        if (const std::optional<std::string> text = textOfMarkedUtf16(bytes)) {
            return fromXml(*text);
        }
    }
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(byteOrderMark)) {
        bytes.remove_prefix(byteOrderMark.size());
    }
    return fromXml(bytes);
}

} // namespace

std::optional<std::string> plistText(std::string_view bytes, const char* key)
{
    const Plist plist = decoded(bytes);
    if (!plist || plist_get_node_type(plist.get()) != PLIST_DICT) {
        return std::nullopt;
    }
    const plist_t value = plist_dict_get_item(plist.get(), key);
    if (value == nullptr || plist_get_node_type(value) != PLIST_STRING) {
        return std::nullopt;
    }
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(value, &length);
    if (text == nullptr) {
        return std::nullopt;
    }
    return std::string(text, static_cast<std::size_t>(length));
}

} // namespace zolva
