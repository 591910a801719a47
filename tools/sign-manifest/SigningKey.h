#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Ed25519 keys and signatures as text (base64). A secret key is the 32 bytes that the pair is made
/// from.
namespace zolva::signing {

/// Must be called before all others; false where the system has no randomness to give.
[[nodiscard]] bool ready();

[[nodiscard]] std::string newSecretKey();

/// The texts may have white space around them. Nothing where the secret key is none.
[[nodiscard]] std::optional<std::string> publicKeyOf(std::string_view secretKey);
[[nodiscard]] std::optional<std::string> signatureOf(std::string_view data,
                                                     std::string_view secretKey);

} // namespace zolva::signing
