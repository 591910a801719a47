#include "Commands.h"

#include "SigningKey.h"

#include "files/DisplayPath.h"
#include "platform/FileDescriptor.h"
#include "platform/WholeFile.h"
#include "updates/UpdateChecker.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace zolva::signing {

namespace {

constexpr std::size_t largestFile = std::size_t{1} << 20; // more than this no program reads

int complain(const std::string& what)
{
    std::fprintf(stderr, "sign-manifest: %s\n", what.c_str());
    return 1;
}

int complain(const std::string& path, const std::string& what)
{
    return complain(displayLine(path) + ": " + what);
}

void print(const std::string& line)
{
    std::printf("%s\n", line.c_str());
}

std::optional<std::string> contentOf(const std::string& path)
{
    WholeFile file = readWholeFile(path, largestFile);
    if (file.error) {
        complain(path, file.error.message());
        return std::nullopt;
    }
    return std::move(file.bytes);
}

/// Where there is a file already it stays: a key that was overwritten is lost.
std::error_code writeSecret(const std::string& path, const std::string& bytes)
{
    const FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!file.isOpen()) {
        return {errno, std::generic_category()};
    }
    if (::write(file.get(), bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) ||
        ::fsync(file.get()) != 0) {
        ::unlink(path.c_str()); // a piece of a key, made just now, which would stand in the way
        return std::make_error_code(std::errc::io_error);
    }
    return {};
}

/// What is wrong with it, if anything.
const char* faultOf(const std::string& manifest)
{
    const std::optional<UpdateManifest> decoded = decodedManifest(manifest);
    if (!decoded) {
        return "is no manifest: a JSON object with \"build\" (whole number), \"version\", \"url\" "
               "and, where wanted, \"notes\" (texts)";
    }
    return isSafeDownloadURL(decoded->url) ? nullptr : "its \"url\" is no https address";
}

} // namespace

int makeKey(const std::string& keyFile)
{
    const std::string key = newSecretKey();
    if (const std::error_code error = writeSecret(keyFile, key + "\n")) {
        return complain(keyFile, error.message());
    }
    return printPublicKey(keyFile);
}

int printPublicKey(const std::string& keyFile)
{
    const std::optional<std::string> secret = contentOf(keyFile);
    if (!secret) {
        return 1;
    }
    const std::optional<std::string> open = publicKeyOf(*secret);
    if (!open) {
        return complain(keyFile, "holds no secret key");
    }
    print(*open);
    return 0;
}

int sign(const std::string& keyFile, const std::string& manifestFile)
{
    const std::optional<std::string> secret = contentOf(keyFile);
    const std::optional<std::string> manifest = contentOf(manifestFile);
    if (!secret || !manifest) {
        return 1;
    }
    if (const char* const fault = faultOf(*manifest)) {
        return complain(manifestFile, fault);
    }
    const std::optional<std::string> signature = signatureOf(*manifest, *secret);
    if (!signature) {
        return complain(keyFile, "holds no secret key");
    }
    const std::string signatureFile = manifestFile + ".sig";
    if (const std::error_code error = replaceWholeFile(signatureFile, *signature + "\n", 0644)) {
        return complain(signatureFile, error.message());
    }
    print(displayLine(signatureFile));
    return 0;
}

int verify(const std::string& publicKey, const std::string& manifestFile)
{
    const std::optional<std::string> manifest = contentOf(manifestFile);
    const std::optional<std::string> signature = contentOf(manifestFile + ".sig");
    if (!manifest || !signature) {
        return 1;
    }
    const auto verified = updateChecker::verifiedManifest(*manifest, *signature, publicKey);
    if (!verified) {
        return complain(manifestFile, std::string(updateChecker::failureText(verified.error())));
    }
    print("build " + std::to_string(verified->build) + ", version " +
          displayLine(verified->version) + ", at " + displayLine(verified->url));
    return 0;
}

} // namespace zolva::signing
