#include "Commands.h"
#include "SigningKey.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <string>

int main(int argc, char** argv)
{
    using namespace zolva;
    CLI::App program("Makes the key of an update feed and signs its manifests.", "sign-manifest");
    program.require_subcommand(1);
    std::string keyFile;
    std::string manifest;
    std::string publicKey;

    CLI::App* const key = program.add_subcommand("key", "Make a secret key; print its public key");
    key->add_option("KEYFILE", keyFile, "Where the secret key goes; must not be there")->required();
    CLI::App* const open = program.add_subcommand("public", "Print the public key of a secret one");
    open->add_option("KEYFILE", keyFile, "The secret key")->required();
    CLI::App* const sign = program.add_subcommand("sign", "Write MANIFEST.sig");
    sign->add_option("KEYFILE", keyFile, "The secret key")->required();
    sign->add_option("MANIFEST", manifest, "What is signed")->required();
    CLI::App* const verify = program.add_subcommand("verify", "Look at both files as Zolva does");
    verify->add_option("PUBLICKEY", publicKey, "The public key itself")->required();
    verify->add_option("MANIFEST", manifest, "Its signature stands beside it")->required();

    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? 0 : 2;
    }
    if (!signing::ready()) {
        std::fputs("sign-manifest: the system gives no random numbers\n", stderr);
        return 1;
    }
    if (key->parsed()) {
        return signing::makeKey(keyFile);
    }
    if (open->parsed()) {
        return signing::printPublicKey(keyFile);
    }
    return sign->parsed() ? signing::sign(keyFile, manifest) : signing::verify(publicKey, manifest);
}
