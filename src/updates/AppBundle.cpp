#include "updates/AppBundle.h"

#include "platform/Utf8Text.h"
#include "platform/WholeFile.h"
#include "scanners/AppInventory.h"

#include <QString>

#include <charconv>
#include <cstddef>
#include <string_view>
#include <system_error>

namespace zolva {

namespace {

constexpr std::size_t largestConfig = 65'536;
constexpr auto templateValue = "REPLACE_ME";
constexpr auto dash = "—";

/// The first that is there counts, in whatever state it is.
std::string configBytes(const std::vector<std::string>& folders)
{
    for (const std::string& folder : folders) {
        WholeFile file = readWholeFile(folder + "/UpdateConfig.plist", largestConfig);
        if (file.error != std::errc::no_such_file_or_directory) {
            return file.bytes;
        }
    }
    return {};
}

} // namespace

std::int64_t currentBuild(const AppBundle& bundle)
{
    std::string_view text = bundle.version ? std::string_view(*bundle.version) : "";
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    std::int64_t build = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), build);
    return error == std::errc() && end == text.data() + text.size() ? build : 0;
}

std::string shortVersionText(const AppBundle& bundle)
{
    return bundle.shortVersion.value_or(dash);
}

std::string versionText(const AppBundle& bundle)
{
    return shortVersionText(bundle) + " (" + bundle.version.value_or(dash) + ")";
}

UpdateConfig readConfig(const AppBundle& bundle)
{
    const std::string bytes = configBytes(bundle.resourceFolders);
    return {plistText(bytes, "ManifestURL").value_or(std::string()),
            plistText(bytes, "PublicKey").value_or(std::string())};
}

bool isUsableSetting(const std::string& text)
{
    return !trimmedText(text).empty() &&
           !QString::fromStdString(text).toUpper().contains(QLatin1String(templateValue));
}

} // namespace zolva
