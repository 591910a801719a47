#include "platform/NumberedName.h"

namespace zolva {

NameParts nameParts(std::string_view name)
{
    const std::size_t dot = name.rfind('.');
    const bool leading = name.find_first_not_of('.') > dot;
    if (dot == std::string_view::npos || leading || dot + 1 == name.size()) {
        return {std::string(name), {}};
    }
    return {std::string(name.substr(0, dot)), std::string(name.substr(dot))};
}

std::string numberedName(std::string_view name, int number)
{
    const NameParts parts = nameParts(name);
    return parts.stem + " " + std::to_string(number) + parts.extension;
}

} // namespace zolva
