#include "updates/UpdateChecker.h"

#include "platform/Utf8Text.h"

#include <sodium.h>

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace zolva::updateChecker {

namespace {

using Bytes = std::vector<unsigned char>;

tl::unexpected<Failure> failed(Failure::Case which, std::string url = {})
{
    return tl::unexpected(Failure{which, std::move(url)});
}

/// Nothing with any other character in it, without its padding, or with more than one reading.
std::optional<Bytes> decodedBase64(std::string_view text)
{
    Bytes bytes(text.size());
    std::size_t length = 0;
    const char* end = nullptr;
    if (sodium_base642bin(bytes.data(), bytes.size(), text.data(), text.size(), nullptr, &length,
                          &end, sodium_base64_VARIANT_ORIGINAL) != 0 ||
        end != text.data() + text.size()) {
        return std::nullopt;
    }
    bytes.resize(length);
    return bytes;
}

bool signatureHolds(std::string_view data, const Bytes& signature, const Bytes& key)
{
    return sodium_init() >= 0 && signature.size() == crypto_sign_BYTES &&
           crypto_sign_verify_detached(signature.data(),
                                       reinterpret_cast<const unsigned char*>(data.data()),
                                       data.size(), key.data()) == 0;
}

} // namespace

std::string_view failureText(const Failure& failure)
{
    switch (failure.which) {
    case Failure::Case::UntrustedURL:
        return "The update points somewhere Zolva will not follow.";
    case Failure::Case::MalformedManifest:
        return "The update information was unreadable.";
    case Failure::Case::BadSignature:
        break;
    }
    return "The update information could not be verified.";
}

tl::expected<UpdateManifest, Failure>
verifiedManifest(std::string_view data, std::string_view signature, std::string_view publicKey)
{
    const std::optional<Bytes> signatureBytes = decodedBase64(trimmedText(signature));
    if (!signatureBytes) {
        return failed(Failure::Case::BadSignature);
    }
    const std::optional<Bytes> key = decodedBase64(trimmedText(publicKey));
    if (!key || key->size() != crypto_sign_PUBLICKEYBYTES) {
        return failed(Failure::Case::BadSignature);
    }
    if (!signatureHolds(data, *signatureBytes, *key)) {
        return failed(Failure::Case::BadSignature);
    }
    std::optional<UpdateManifest> manifest = decodedManifest(data);
    if (!manifest) {
        return failed(Failure::Case::MalformedManifest);
    }
    // Also what was signed by mistake.
    if (!isSafeDownloadURL(manifest->url)) {
        return failed(Failure::Case::UntrustedURL, std::move(manifest->url));
    }
    return *std::move(manifest);
}

} // namespace zolva::updateChecker
