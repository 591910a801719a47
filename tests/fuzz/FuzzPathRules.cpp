#include "fuzz/FuzzInput.h"

#include "files/DisplayPath.h"
#include "files/PathGuards.h"
#include "files/PathText.h"

#include <cstdlib>
#include <string>

/// Any bytes as a path: what must hold for the guard and for the texts on paths, whatever it is.

namespace {

using namespace zolva;
using fuzz::must;

constexpr const char* home = "/Users/me";

/// Whether the text has a component of dots, a doubled or trailing slash, or no leading one.
bool isUntidy(const std::string& path)
{
    return !path.starts_with('/') || (path + "/").find("/../") != std::string::npos ||
           (path + "/").find("/./") != std::string::npos ||
           (path + "/").find("//") != (path == "/" ? 0 : std::string::npos);
}

void checkGuard(std::string_view path)
{
    const auto refusal = pathRefusal(path);
    must(refusal != "path traversal", "standardizing leaves no traversal");
    const std::string expanded = expandTilde(path);
    if (!expanded.starts_with('/')) {
        must(refusal.has_value(), "what is not absolute is refused");
        return;
    }
    const std::string plain = standardizedPath(expanded);
    must(pathRefusal(plain) == refusal, "a verdict is that of the standardized path");
    must(pathRefusal(expanded + "/") == refusal, "a trailing slash changes no verdict");
    must(pathRefusal(expanded + "/x/..") == refusal, "a detour changes no verdict");
    must(!refusal || refusal->starts_with(plain + " is "), "a refusal names the path");
    if (!refusal) {
        must(!protectedPaths().contains(plain), "no protected container is allowed");
        must(isSameOrBelow(plain, home) || isSameOrBelow(plain, "/Applications") ||
                 isSameOrBelow(plain, "/Users/Shared/Applications"),
             "what is allowed lies below a managed root");
        must(!pathRefusal(plain + "/x"), "what is below an allowed path is allowed");
        must(plain.find('\0') == std::string::npos, "no path with a NUL is allowed");
    }
}

void checkText(std::string_view path)
{
    const std::string plain = standardizedPath(path);
    must(!isUntidy(plain), "standardizing tidies");
    must(standardizedPath(plain) == plain, "standardizing twice changes nothing more");
    must(plain == "/" || joinedPath(parentPath(plain), lastComponent(plain)) == plain,
         "parent and name make the path");
    must(isSameOrBelow(plain, parentPath(plain)), "a path lies below its parent");
    must(expandTilde(tildePath(plain)) == plain, "an abbreviated path expands to itself");
    const std::string_view trimmed = trimmedText(path);
    must(trimmedText(trimmed) == trimmed, "trimming twice changes nothing more");
}

void checkShown(std::string_view path)
{
    const std::string shown = displayText(path);
    must(displayText(shown) == shown, "what is shown is UTF-8");
    must(rawPath(path).has_value() == (shown != path), "bad bytes are what the raw path is for");
    must(!rawPath(rawPath(path).value_or("")), "a raw path is UTF-8");
    const std::string line = displayLine(path);
    must(displayLine(line) == line, "a shown line has nothing left to replace");
    for (const char byte : line) {
        must(static_cast<unsigned char>(byte) >= 0x20 && byte != 0x7F, "a line has no controls");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    ::setenv("HOME", home, 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view path = fuzz::textOf(data, size);
    checkGuard(path);
    checkText(path);
    checkShown(path);
    return 0;
}
