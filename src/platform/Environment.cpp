#include "platform/Environment.h"

#include <cstdlib>
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

/// Never freed: threads may read it until the process has gone.
const Kept* kept = nullptr;

} // namespace

void keepEnvironment()
{
    auto* const all = new Kept;
    for (char** each = environ; each != nullptr && *each != nullptr; ++each) {
        all->texts.emplace_back(*each);
    }
    for (std::string& text : all->texts) {
        all->pointers.push_back(text.data());
    }
    all->pointers.push_back(nullptr);
    kept = all;
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
