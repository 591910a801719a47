#pragma once

#include "files/Age.h"

#include <QDate>
#include <QLocale>
#include <QString>

/// Dates of a middling length: day, short name of the month and year, in the locale's order, as in
/// "Nov 21, 2026" and "21 Nov 2026". Pure.
namespace zolva {

/// The pattern of `QLocale::toString`, made from the locale's long one; the toolkit has no other.
[[nodiscard]] QString mediumDateFormat(const QLocale& locale);

[[nodiscard]] QString mediumDate(const QDate& date, const QLocale& locale = QLocale());
/// The day it was here.
[[nodiscard]] QString mediumDate(TimePoint moment, const QLocale& locale = QLocale());

} // namespace zolva
