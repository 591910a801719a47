#include "fuzz/FuzzInput.h"

#include "files/ExclusionRules.h"
#include "files/PathText.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

/// The first line of the input as what the user types, the others as paths:
/// what must hold for an entry of the exclusion list, whatever it is.

namespace {

using namespace zolva;
using fuzz::must;

void checkEntry(std::string_view text)
{
    const auto message = validateExclusion(text, {});
    if (message) {
        must(validateExclusion(text, {"/a", "~/b"}) == message,
             "a longer list does not make a bad entry good");
        return;
    }
    const std::string path = standardizedPath(expandTilde(trimmedText(text)));
    must(path != "/" && path != "/Users/me", "no valid entry excludes everything");
    const std::string stored = storedExclusion(text);
    // A blank at the end of a name is lost when the entry is read back, as it is for the user.
    if (trimmedText(stored) != stored) {
        return;
    }
    must(storedExclusion(stored) == stored, "storing twice changes nothing more");
    must(isExcluded(path, {stored}), "a stored entry covers its path");
    must(isExcluded(path + "/x", {stored}), "a stored entry covers what is below");
    must(!isExcluded(path + "x", {stored}), "a stored entry does not cover a namesake");
    must(!isExcluded("/Users/me", {stored}) || isSameOrBelow("/Users/me", path),
         "home is covered only from above");
    must(validateExclusion(text, {stored}) == "Already covered by an existing exclusion.",
         "an entry is not taken twice");
}

void checkCover(const std::string& entry, const std::string& path)
{
    must(!exclusionCovers(entry, ""), "nothing covers the empty path");
    must(!exclusionCovers("/", path) && !exclusionCovers(" / ", path), "no entry of / covers");
    must(!exclusionCovers("", path), "no empty entry covers");
    const std::string expanded = expandTilde(path);
    const bool covered = isExcluded(path, {entry});
    must(covered == (!expanded.empty() && exclusionCovers(entry, expanded)), "one entry, one test");
    const ExclusionRules rules({entry});
    must(covered == rules.covers(path), "a prepared list answers the same");
    must(covered == rules.covers(expanded), "an expanded path is covered as it was entered");
    if (covered) {
        must(isExcluded(expanded + "/x", {entry}), "an excluded parent covers its child");
        must(isExcluded(path, {"/no-such", entry}) && isExcluded(path, {entry, "/no-such"}),
             "a longer list excludes no less");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    ::setenv("HOME", "/Users/me", 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input = fuzz::textOf(data, size);
    const std::size_t cut = std::min(input.find('\n'), input.size());
    const std::string entry(input.substr(0, cut));
    checkEntry(entry);
    for (std::size_t at = cut + 1; at < input.size();) {
        const std::size_t end = std::min(input.find('\n', at), input.size());
        checkCover(entry, std::string(input.substr(at, end - at)));
        at = end + 1;
    }
    return 0;
}
