#include "platform/Environment.h"

#include <cstdlib>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

extern char** environ;

namespace zolva {

namespace {

struct Kept
{
    std::vector<std::string> texts; ///< "NAME=value"
    std::vector<char*> pointers;    ///< to them, and a null
};

/// Leave to take the focus, given to this program for its own window.
bool isForTheFirstWindow(std::string_view text)
{
    return text.starts_with("XDG_ACTIVATION_TOKEN=") || text.starts_with("DESKTOP_STARTUP_ID=");
}

/// Never freed: threads may read it until the process has gone.
const Kept* kept = nullptr;

} // namespace

void keepEnvironment()
{
    auto* const all = new Kept;
    for (char** each = environ; each != nullptr && *each != nullptr; ++each) {
        if (!isForTheFirstWindow(*each)) {
            all->texts.emplace_back(*each);
        }
    }
    for (std::string& text : all->texts) {
        all->pointers.push_back(text.data());
    }
    all->pointers.push_back(nullptr);
    kept = all;
    // Dates look for their zone there at their first use.
    ::tzset();
}

const char* environmentValue(const char* name)
{
    if (kept == nullptr) {
        return std::getenv(name);
    }
    const std::string_view wanted = name;
    for (const std::string& text : kept->texts) {
        if (text.size() > wanted.size() && text[wanted.size()] == '=' && text.starts_with(wanted)) {
            return text.c_str() + wanted.size() + 1;
        }
    }
    return nullptr;
}

char* const* wholeEnvironment()
{
    return kept == nullptr ? environ : kept->pointers.data();
}

} // namespace zolva
