#include "scanners/AppInventory.h"

#include "platform/Utf8Text.h"
#include "platform/WholeFile.h"
#include "scanners/PlistLimits.h"

namespace zolva {

std::optional<std::string> bundleVersion(const std::string& bundle)
{
    if (bundle.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    const WholeFile info = readWholeFile(bundle + "/Contents/Info.plist", largestPlist);
    if (info.error) {
        return std::nullopt;
    }
    for (const char* key : {"CFBundleShortVersionString", "CFBundleVersion"}) {
        if (const auto text = plistText(info.bytes, key)) {
            if (const std::string_view version = trimmedText(*text); !version.empty()) {
                return std::string(version);
            }
        }
    }
    return std::nullopt;
}

} // namespace zolva
