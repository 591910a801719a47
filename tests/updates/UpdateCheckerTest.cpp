#include "updates/UpdateChecker.h"
#include "updates/FeedKey.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace zolva::test {

namespace {

using updateChecker::Failure;
using updateChecker::verifiedManifest;
using enum Failure::Case;

const Failure badSignature{BadSignature, {}};
const Failure malformed{MalformedManifest, {}};

/// What comes of a manifest that is signed as it should be.
tl::expected<UpdateManifest, Failure> signedAndVerified(const std::string& manifest)
{
    const FeedKey key;
    return verifiedManifest(manifest, key.sign(manifest), key.publicKey());
}

Failure failureOf(const tl::expected<UpdateManifest, Failure>& verified)
{
    return verified ? Failure{UntrustedURL, "none: it was taken"} : verified.error();
}

std::string textOf(const Failure& failure)
{
    return std::string(updateChecker::failureText(failure));
}

/// The bytes with one bit changed, for each of their bits.
template <typename Check>
void forEachFlip(const std::string& bytes, const Check& check)
{
    for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
        std::string flipped = bytes;
        flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << (bit % 8)));
        check(flipped, bit);
    }
}

} // namespace

TEST(VerifiedManifest, TellsAllThatWasSigned)
{
    const auto verified = signedAndVerified(manifestOf(7));
    ASSERT_TRUE(verified);
    EXPECT_EQ(*verified, (UpdateManifest{7, "1.2", "https://example.org/get", "Faster."}));
}

TEST(VerifiedManifest, AnyBitOfTheSignatureChangedIsABadSignature)
{
    const FeedKey key;
    const std::string manifest = manifestOf(7);
    forEachFlip(fromBase64(key.sign(manifest)), [&](const std::string& flipped, std::size_t bit) {
        EXPECT_EQ(failureOf(verifiedManifest(manifest, base64(flipped), key.publicKey())),
                  badSignature)
            << bit;
    });
}

TEST(VerifiedManifest, AnyBitOfTheSignaturesTextChangedIsABadSignature)
{
    const FeedKey key;
    const std::string manifest = manifestOf(7);
    forEachFlip(key.sign(manifest), [&](const std::string& flipped, std::size_t bit) {
        EXPECT_EQ(failureOf(verifiedManifest(manifest, flipped, key.publicKey())), badSignature)
            << bit;
    });
}

TEST(VerifiedManifest, AnyBitOfTheKeyChangedIsABadSignature)
{
    const FeedKey key;
    const std::string manifest = manifestOf(7);
    forEachFlip(fromBase64(key.publicKey()), [&](const std::string& flipped, std::size_t bit) {
        EXPECT_EQ(failureOf(verifiedManifest(manifest, key.sign(manifest), base64(flipped))),
                  badSignature)
            << bit;
    });
}

TEST(VerifiedManifest, AnyBitOfTheManifestChangedIsABadSignature)
{
    const FeedKey key;
    const std::string manifest = manifestOf(7);
    const std::string signature = key.sign(manifest);
    forEachFlip(manifest, [&](const std::string& flipped, std::size_t bit) {
        EXPECT_EQ(failureOf(verifiedManifest(flipped, signature, key.publicKey())), badSignature)
            << bit;
    });
}

TEST(VerifiedManifest, AByteMoreOrLessIsABadSignatureEvenIfItIsWhiteSpace)
{
    const FeedKey key;
    const std::string manifest = manifestOf(7);
    for (std::size_t at = 0; at <= manifest.size(); ++at) {
        std::string longer = manifest;
        longer.insert(at, 1, ' ');
        EXPECT_EQ(failureOf(verifiedManifest(longer, key.sign(manifest), key.publicKey())),
                  badSignature)
            << at;
    }
    const std::string shorter = manifest.substr(0, manifest.size() - 1);
    EXPECT_EQ(failureOf(verifiedManifest(shorter, key.sign(manifest), key.publicKey())),
              badSignature);
    EXPECT_EQ(textOf(badSignature), "The update information could not be verified.");
}

TEST(VerifiedManifest, TheKeyOfSomebodyElseIsABadSignature)
{
    const std::string manifest = manifestOf(7);
    EXPECT_EQ(
        failureOf(verifiedManifest(manifest, FeedKey(1).sign(manifest), FeedKey(2).publicKey())),
        badSignature);
}

TEST(VerifiedManifest, ASignatureWithATrailingNewlineVerifies)
{
    const FeedKey key;
    const std::string manifest = manifestOf(7);
    EXPECT_TRUE(verifiedManifest(manifest, key.sign(manifest) + "\n", key.publicKey()));
    EXPECT_TRUE(verifiedManifest(manifest, " \r\n\t" + key.sign(manifest) + "\r\n\n",
                                 "\n " + key.publicKey() + " \n"));
}

TEST(VerifiedManifest, NoStrayCharacterIsToleratedInsideTheSignatureOrTheKey)
{
    const FeedKey key;
    const std::string manifest = manifestOf(7);
    for (const char* stray : {" ", "\n", "-", "_", "=", "%", "\xC2\xA0", "\xFF"}) {
        std::string signature = key.sign(manifest);
        signature.insert(10, stray);
        EXPECT_EQ(failureOf(verifiedManifest(manifest, signature, key.publicKey())), badSignature)
            << stray;
        std::string open = key.publicKey();
        open.insert(10, stray);
        EXPECT_EQ(failureOf(verifiedManifest(manifest, key.sign(manifest), open)), badSignature)
            << stray;
    }
    std::string nul = key.sign(manifest);
    nul += std::string("\0x", 2);
    EXPECT_EQ(failureOf(verifiedManifest(manifest, nul, key.publicKey())), badSignature);
}

TEST(VerifiedManifest, BothMustHaveTheirPaddingAndOneReadingAlone)
{
    const FeedKey key;
    const std::string manifest = manifestOf(7);
    const std::string signature = key.sign(manifest);
    ASSERT_TRUE(signature.ends_with("=="));
    EXPECT_EQ(failureOf(verifiedManifest(manifest, signature.substr(0, signature.size() - 1),
                                         key.publicKey())),
              badSignature);
    EXPECT_EQ(failureOf(verifiedManifest(manifest, signature.substr(0, signature.size() - 2),
                                         key.publicKey())),
              badSignature);
    EXPECT_EQ(failureOf(verifiedManifest(manifest, signature + "=", key.publicKey())),
              badSignature);
}

TEST(VerifiedManifest, ASignatureOrKeyOfAnotherLengthIsABadSignature)
{
    const FeedKey key;
    const std::string manifest = manifestOf(7);
    const std::string signature = fromBase64(key.sign(manifest));
    const std::string open = fromBase64(key.publicKey());
    for (const std::string& wrong :
         {std::string(), signature.substr(1), signature + "x", signature + signature}) {
        EXPECT_EQ(failureOf(verifiedManifest(manifest, base64(wrong), key.publicKey())),
                  badSignature)
            << wrong.size();
    }
    for (const std::string& wrong : {std::string(), open.substr(1), open + "x", open + open}) {
        EXPECT_EQ(failureOf(verifiedManifest(manifest, base64(signature), base64(wrong))),
                  badSignature)
            << wrong.size();
    }
}

TEST(VerifiedManifest, AKeyThatIsNoPointOfTheCurveVerifiesNothing)
{
    const std::string manifest = manifestOf(7);
    // With such a key a signature of zeros would hold for anything.
    for (const std::string& open :
         {std::string(32, '\0'), "\x01" + std::string(31, '\0'), std::string(32, '\xFF')}) {
        EXPECT_EQ(
            failureOf(verifiedManifest(manifest, base64(std::string(64, '\0')), base64(open))),
            badSignature);
        EXPECT_EQ(failureOf(verifiedManifest(manifest, base64("\x01" + std::string(63, '\0')),
                                             base64(open))),
                  badSignature);
    }
}

TEST(VerifiedManifest, TheSignatureIsJudgedBeforeAnythingElse)
{
    const FeedKey key;
    for (const char* manifest : {"no JSON", R"({"build":1,"version":"1","url":"http://x.org"})"}) {
        EXPECT_EQ(failureOf(verifiedManifest(manifest, FeedKey(2).sign(manifest), key.publicKey())),
                  badSignature);
    }
}

TEST(VerifiedManifest, WhatIsSignedAndNoJsonIsUnreadable)
{
    for (const char* manifest : {"", " ", "{", "null", "[]", "7", "<html>", R"({"build":7,})",
                                 R"({"build":7,"version":"1","url":"https://x.org"} x)",
                                 "{\"build\":7,\"version\":\"\xFF\",\"url\":\"https://x.org\"}"}) {
        EXPECT_EQ(failureOf(signedAndVerified(manifest)), malformed) << manifest;
    }
    EXPECT_EQ(textOf(malformed), "The update information was unreadable.");
}

TEST(VerifiedManifest, WithoutBuildVersionOrUrlItIsUnreadable)
{
    for (const char* manifest :
         {R"({"version":"1","url":"https://x.org"})", R"({"build":7,"url":"https://x.org"})",
          R"({"build":7,"version":"1"})",
          R"({"build":null,"version":"1","url":"https://x.org"})"}) {
        EXPECT_EQ(failureOf(signedAndVerified(manifest)), malformed) << manifest;
    }
}

TEST(VerifiedManifest, AnotherTypeThanTheOneWantedIsUnreadable)
{
    for (const char* manifest :
         {R"({"build":"7","version":"1","url":"https://x.org"})",
          R"({"build":7.5,"version":"1","url":"https://x.org"})",
          R"({"build":true,"version":"1","url":"https://x.org"})",
          R"({"build":9223372036854775808,"version":"1","url":"https://x.org"})",
          R"({"build":7,"version":1,"url":"https://x.org"})",
          R"({"build":7,"version":"1","url":["https://x.org"]})",
          R"({"build":7,"version":"1","url":"https://x.org","notes":1})"}) {
        EXPECT_EQ(failureOf(signedAndVerified(manifest)), malformed) << manifest;
    }
}

TEST(VerifiedManifest, NotesMayBeMissingAndUnknownKeysAreIgnored)
{
    const auto verified = signedAndVerified(
        R"({"url":"https://x.org","extra":[{}],"version":"","build":-3,"more":null})");
    ASSERT_TRUE(verified);
    EXPECT_EQ(*verified, (UpdateManifest{-3, "", "https://x.org", std::nullopt}));
    const auto none =
        signedAndVerified(R"({"url":"https://x.org","version":"1","build":1,"notes":null})");
    ASSERT_TRUE(none);
    EXPECT_EQ(none->notes, std::nullopt);
}

TEST(VerifiedManifest, ASignedManifestWithAnUnsafeAddressIsRefusedWithThatAddress)
{
    const Failure refused =
        failureOf(signedAndVerified(R"({"build":7,"version":"1","url":"http://x.org/get"})"));
    EXPECT_EQ(refused, (Failure{UntrustedURL, "http://x.org/get"}));
    EXPECT_EQ(textOf(refused), "The update points somewhere Zolva will not follow.");
}

TEST(DownloadURL, IsSafeOverHttpsWithAHostWhateverTheHost)
{
    for (const char* url :
         {"https://example.org", "https://example.org/a/b.dmg?x=1#y", "HTTPS://EXAMPLE.ORG/",
          "hTTps://a", "https://127.0.0.1:8443/x", "https://[::1]/x", "https://user@example.org/",
          "https://b\xC3\xBC"
          "cher.example/x"}) {
        EXPECT_TRUE(isSafeDownloadURL(url)) << url;
    }
}

TEST(DownloadURL, IsUnsafeByAnyOtherSchemeOrWithoutAHost)
{
    for (const char* url :
         {"", "https", "https:", "https://", "https:///path", "https://:443/", "https:example.org",
          "//example.org/x", "example.org", "/etc/passwd", "http://example.org",
          "HTTP://example.org", "ftp://example.org", "file:///etc/passwd", "javascript:alert(1)",
          "httpss://example.org", "https+x://example.org", "data:text/html,x"}) {
        EXPECT_FALSE(isSafeDownloadURL(url)) << url;
    }
}

TEST(DownloadURL, IsUnsafeWhereTheTextIsNoAddress)
{
    for (const char* url :
         {" https://example.org", "https://exa mple.org", "https://example.org/a b",
          "https://example.org/\n", "https://example.org/%zz", "https://example.org:x/",
          "https://example.org:99999/", "https://[::1/", "https:\\\\example.org",
          "https://example.org/<x>", "https://\xFF.org/", "https://example.org/\xFF"}) {
        EXPECT_FALSE(isSafeDownloadURL(url)) << url;
    }
    EXPECT_FALSE(isSafeDownloadURL(std::string_view("https://example.org/\0x", 22)));
}

} // namespace zolva::test
