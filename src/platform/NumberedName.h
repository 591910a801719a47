#pragma once

#include <string>
#include <string_view>

/// Names for what has a namesake already. Pure; names are bytes.
namespace zolva {

struct NameParts
{
    std::string stem;
    std::string extension; ///< with its dot; empty for a name that only begins with a dot
};

[[nodiscard]] NameParts nameParts(std::string_view name);

/// "Name 2.ext" of "Name.ext" and 2; "Name 2" where there is no extension.
[[nodiscard]] std::string numberedName(std::string_view name, int number);

} // namespace zolva
