#include "SigningKey.h"

#include "platform/Utf8Text.h"
#include "updates/StrictBase64.h"

#include <sodium.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace zolva::signing {

namespace {

using Seed = std::array<unsigned char, crypto_sign_SEEDBYTES>;

/// Wipes its secret half at its end.
struct KeyPair
{
    std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> open{};
    std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret{};

    explicit KeyPair(const Seed& seed)
    {
        crypto_sign_seed_keypair(open.data(), secret.data(), seed.data());
    }
    ~KeyPair() { sodium_memzero(secret.data(), secret.size()); }
    KeyPair(const KeyPair&) = delete;
    KeyPair& operator=(const KeyPair&) = delete;
};

template <std::size_t Size>
std::string base64(const std::array<unsigned char, Size>& bytes)
{
    std::string text(sodium_base64_ENCODED_LEN(Size, sodium_base64_VARIANT_ORIGINAL), '\0');
    sodium_bin2base64(text.data(), text.size(), bytes.data(), bytes.size(),
                      sodium_base64_VARIANT_ORIGINAL);
    text.pop_back(); // it ended with a NUL
    return text;
}

std::optional<Seed> seedFrom(std::string_view secretKey)
{
    const auto bytes = strictBase64(trimmedText(secretKey));
    Seed seed{};
    if (!bytes || bytes->size() != seed.size()) {
        return std::nullopt;
    }
    std::copy(bytes->begin(), bytes->end(), seed.begin());
    return seed;
}

} // namespace

bool ready()
{
    return sodium_init() >= 0;
}

std::string newSecretKey()
{
    Seed seed{};
    randombytes_buf(seed.data(), seed.size());
    return base64(seed);
}

std::optional<std::string> publicKeyOf(std::string_view secretKey)
{
    const std::optional<Seed> seed = seedFrom(secretKey);
    return seed ? std::optional(base64(KeyPair(*seed).open)) : std::nullopt;
}

std::optional<std::string> signatureOf(std::string_view data, std::string_view secretKey)
{
    const std::optional<Seed> seed = seedFrom(secretKey);
    if (!seed) {
        return std::nullopt;
    }
    const KeyPair pair(*seed);
    std::array<unsigned char, crypto_sign_BYTES> signature{};
    crypto_sign_detached(signature.data(), nullptr,
                         reinterpret_cast<const unsigned char*>(data.data()), data.size(),
                         pair.secret.data());
    return base64(signature);
}

} // namespace zolva::signing
