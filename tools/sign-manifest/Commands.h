#pragma once

#include <string>

/// What can be asked of the program. Each tells its result on standard output, what is wrong on
/// standard error, and gives the exit status: 0 for done, 1 for not.
namespace zolva::signing {

/// Makes a new secret key in a file that must not be there yet, and prints the public one.
[[nodiscard]] int makeKey(const std::string& keyFile);
[[nodiscard]] int printPublicKey(const std::string& keyFile);
/// Signs what a program would take; the signature goes beside it, with the ending ".sig".
[[nodiscard]] int sign(const std::string& keyFile, const std::string& manifestFile);
/// Looks at both files as a program with that public key does.
[[nodiscard]] int verify(const std::string& publicKey, const std::string& manifestFile);

} // namespace zolva::signing
