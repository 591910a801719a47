#include "fuzz/FuzzInput.h"

#include "updates/UpdateChecker.h"

// The room of the updates cannot be built by this compiler with sanitizers, on account of its
// coroutines. What is fuzzed here needs none of that, and is compiled into this program.
#include "updates/StrictBase64.cpp"   // NOLINT(bugprone-suspicious-include)
#include "updates/UpdateChecker.cpp"  // NOLINT(bugprone-suspicious-include)
#include "updates/UpdateManifest.cpp" // NOLINT(bugprone-suspicious-include)

#include <array>
#include <string>

namespace {

using namespace zolva;
using fuzz::must;

struct Key
{
    std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> open{};
    std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret{};

    Key()
    {
        must(sodium_init() >= 0, "there is randomness");
        const std::array<unsigned char, crypto_sign_SEEDBYTES> seed{};
        crypto_sign_seed_keypair(open.data(), secret.data(), seed.data());
    }
};

std::string base64(const unsigned char* bytes, std::size_t size)
{
    std::string text(sodium_base64_encoded_len(size, sodium_base64_VARIANT_ORIGINAL), '\0');
    sodium_bin2base64(text.data(), text.size(), bytes, size, sodium_base64_VARIANT_ORIGINAL);
    text.pop_back();
    return text;
}

void checkManifest(std::string_view input, const std::string& signature, const std::string& open)
{
    const auto decoded = decodedManifest(input);
    const auto verified = updateChecker::verifiedManifest(input, signature, open);
    must(verified.has_value() == (decoded && isSafeDownloadURL(decoded->url)),
         "what is signed is taken if it is a manifest with a safe address");
    must(!verified || *verified == *decoded, "verifying changes nothing");
    must(!verified || verified->url.find_first_of(" \n\"<>\\") == std::string::npos,
         "a safe address holds no white space, quotes or brackets");
}

bool isBad(const tl::expected<UpdateManifest, updateChecker::Failure>& verified)
{
    return !verified && verified.error().which == updateChecker::Failure::Case::BadSignature;
}

void checkBase64(std::string_view input)
{
    if (const auto bytes = strictBase64(input)) {
        must(base64(bytes->data(), bytes->size()) == input, "base64 has one reading");
    }
}

} // namespace

/// Any bytes as a manifest that is signed, as a signature and as a key.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Key key;
    static const std::string open = base64(key.open.data(), key.open.size());
    const std::string_view input = fuzz::textOf(data, size);
    std::array<unsigned char, crypto_sign_BYTES> signature{};
    crypto_sign_detached(signature.data(), nullptr, data, size, key.secret.data());
    const std::string signatureText = base64(signature.data(), signature.size());
    checkManifest(input, signatureText, open);
    must(isBad(updateChecker::verifiedManifest("{}", input, open)), "no signature is guessed");
    must(isBad(updateChecker::verifiedManifest("{} ", signatureText, input)), "no key fits all");
    checkBase64(input);
    static_cast<void>(isSafeDownloadURL(input));
    return 0;
}
