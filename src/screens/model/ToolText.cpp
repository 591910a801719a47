#include "screens/model/ToolText.h"

namespace zolva {

QString toolSource(MoLocation::Kind kind)
{
    switch (kind) {
    case MoLocation::Kind::Shipped:
        return QStringLiteral("Bundled");
    case MoLocation::Kind::Installed:
        return QStringLiteral("Homebrew");
    case MoLocation::Kind::Absent:
        break;
    }
    return QStringLiteral("Not found");
}

} // namespace zolva
