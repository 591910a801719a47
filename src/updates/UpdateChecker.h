#pragma once

#include "updates/UpdateManifest.h"

#include <tl/expected.hpp>

#include <string>
#include <string_view>

/// What stands between the bytes of the network and an offer. No byte is parsed before its
/// signature holds. Any thread.
namespace zolva::updateChecker {

/// Why a manifest is not believed.
struct Failure
{
    enum class Case
    {
        UntrustedURL,
        MalformedManifest,
        BadSignature
    };

    Case which;
    std::string url; ///< the one that is not trusted

    friend bool operator==(const Failure&, const Failure&) = default;
};

/// What the user is told.
[[nodiscard]] std::string_view failureText(const Failure& failure);

/// The manifest, if `signature` (base64 of an Ed25519 signature over the very bytes) was made with
/// the secret half of `publicKey` (base64 of 32 bytes); white space around both is allowed. A key
/// that is none is told as a bad signature.
[[nodiscard]] tl::expected<UpdateManifest, Failure>
verifiedManifest(std::string_view data, std::string_view signature, std::string_view publicKey);

} // namespace zolva::updateChecker
