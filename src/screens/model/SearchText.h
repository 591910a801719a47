#pragma once

#include <QLocale>
#include <QString>

/// Searching in names without regard to case, as the locale sees it. Pure.
namespace zolva {

/// The text as it is compared: one contains another if their forms do.
[[nodiscard]] QString searchForm(const QString& text, const QLocale& locale = QLocale());

} // namespace zolva
