#include "screens/model/AccessMessages.h"

#include "screens/model/ShownText.h"

namespace zolva {

namespace {

using Blocked = std::vector<diskAccess::Location>;

QString named(const Blocked& blocked)
{
    return blocked.empty() ? QStringLiteral("some locations") : joinedLabels(blocked);
}

} // namespace

QString joinedLabels(const Blocked& blocked)
{
    QString text;
    for (std::size_t place = 0; place < blocked.size(); ++place) {
        if (place > 0) {
            text += place + 1 == blocked.size() ? QStringLiteral(" and ") : QStringLiteral(", ");
        }
        text += shownText(blocked[place].label);
    }
    return text;
}

QString accessIntroText(const Blocked& blocked)
{
    return QStringLiteral("macOS is withholding ") + named(blocked) +
           QStringLiteral(". Zolva will still work, but anything in ") +
           (blocked.size() == 1 ? QStringLiteral("it") : QStringLiteral("them")) +
           QStringLiteral(" is missing from every total it shows you.");
}

QString accessIntroSpoken(const Blocked& blocked)
{
    return QStringLiteral("Zolva cannot see everything yet. macOS is withholding ") +
           named(blocked) + '.';
}

QString accessNoticeTitle(const Blocked& blocked)
{
    return joinedLabels(blocked) + QStringLiteral(" not searched");
}

QString accessNoticeSpoken(const Blocked& blocked)
{
    return joinedLabels(blocked) +
           QStringLiteral(" could not be searched. macOS is blocking access, so anything there is "
                          "missing from these totals.");
}

} // namespace zolva
