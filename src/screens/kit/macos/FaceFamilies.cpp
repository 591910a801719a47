#include "screens/kit/FaceFamilies.h"

namespace zolva {

const FaceFamilies& faceFamilies()
{
    static const FaceFamilies families{QStringLiteral(".AppleSystemUIFont"),
                                       QStringLiteral("Menlo")};
    return families;
}

} // namespace zolva
