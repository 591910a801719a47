#include "scanners/AppInventory.h"
#include "scanners/PlistLimits.h"

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

/// The form is told here and not by the library, which guesses.
Plist decoded(std::string_view bytes)
{
    plist_t plist = nullptr;
    if (isBinaryPlist(bytes)) {
        if (isAffordableBinaryPlist(bytes)) {
            plist_from_bin(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &plist);
        }
        return Plist(plist);
    }
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(byteOrderMark)) {
        bytes.remove_prefix(byteOrderMark.size());
    }
    if (!bytes.empty() && isAffordableXmlPlist(bytes)) {
        plist_from_xml(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &plist);
    }
    return Plist(plist);
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
