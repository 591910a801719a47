#include "screens/model/ShownText.h"

#include "files/DisplayPath.h"
#include "files/SizeText.h"

namespace zolva {

QString shownText(std::string_view bytes)
{
    return QString::fromStdString(displayText(bytes));
}

QString shownLine(std::string_view bytes)
{
    return QString::fromStdString(displayLine(bytes));
}

QString shownSize(std::int64_t bytes)
{
    return QString::fromStdString(sizeText(bytes));
}

QString countedCategories(std::int64_t count)
{
    return QString::number(count) +
           (count == 1 ? QStringLiteral(" category") : QStringLiteral(" categories"));
}

} // namespace zolva
