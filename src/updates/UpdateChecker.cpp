#include "updates/UpdateChecker.h"

#include "platform/Utf8Text.h"
#include "updates/StrictBase64.h"

#include <sodium.h>

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
    const std::optional<Bytes> signatureBytes = strictBase64(trimmedText(signature));
    if (!signatureBytes) {
        return failed(Failure::Case::BadSignature);
    }
    const std::optional<Bytes> key = strictBase64(trimmedText(publicKey));
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
