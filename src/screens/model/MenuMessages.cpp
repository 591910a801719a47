#include "screens/model/MenuMessages.h"

#include "screens/model/ShownText.h"

#include <array>
#include <cstdio>

namespace zolva {

QString percentFull(std::int64_t free, std::int64_t total)
{
    const double used =
        total < 1 ? 0 : static_cast<double>(total - free) / static_cast<double>(total);
    std::array<char, 32> text{};
    static_cast<void>(std::snprintf(text.data(), text.size(), "%.0f%% full", used * 100));
    return QString::fromLatin1(text.data());
}

QString freeOfTotal(std::int64_t total)
{
    return QStringLiteral("free of ") + shownSize(total);
}

QString spokenDiskText(const QString& name, std::int64_t free, std::int64_t total)
{
    return name + QStringLiteral(", ") + shownSize(free) + QStringLiteral(" ") + freeOfTotal(total);
}

QString reclaimCount(std::int64_t count, const QString& noun)
{
    return QString::number(count) + QLatin1Char(' ') + noun +
           (count == 1 ? QString() : QStringLiteral("s"));
}

QString keptNote(std::int64_t bytes)
{
    return bytes < 1 ? QString() : shownSize(bytes) + QStringLiteral(" protected, not included");
}

QString trayLabel(std::int64_t total)
{
    return total < 1 ? QString() : shownSize(total);
}

QString trayToolTip(std::int64_t total)
{
    return total < 1 ? QString() : shownSize(total) + QStringLiteral(" reclaimable");
}

} // namespace zolva
