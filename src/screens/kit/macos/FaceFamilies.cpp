#include "screens/kit/FaceFamilies.h"

namespace zolva {

const FaceFamilies& faceFamilies()
{
    // The system's own have no smaller sisters: half pixels are rounded up there.
    static const FaceFamily text{QStringLiteral(".AppleSystemUIFont"),
                                 QStringLiteral(".AppleSystemUIFont")};
    static const FaceFamily mono{QStringLiteral("Menlo"), QStringLiteral("Menlo")};
    static const FaceFamilies families{text, mono};
    return families;
}

} // namespace zolva
