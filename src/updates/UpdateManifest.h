#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zolva {

/// What a feed offers. Texts are UTF-8.
struct UpdateManifest
{
    std::int64_t build = 0; ///< the only field that is compared
    std::string version;    ///< for showing
    std::string url;        ///< where to get it
    std::optional<std::string> notes;

    friend bool operator==(const UpdateManifest&, const UpdateManifest&) = default;
};

/// The manifest that the JSON object tells, keys that it does not know left out; nothing where it
/// is none. Says nothing of where it comes from. Pure.
[[nodiscard]] std::optional<UpdateManifest> decodedManifest(std::string_view json);

/// Whether the text is an address over "https" with a host: no other is ever opened. Pure.
[[nodiscard]] bool isSafeDownloadURL(std::string_view text);

} // namespace zolva
