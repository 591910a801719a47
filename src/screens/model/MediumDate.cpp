#include "screens/model/MediumDate.h"

#include <QDateTime>

#include <chrono>

namespace zolva {

namespace {

constexpr QChar quote = u'\'';

bool isField(QChar letter)
{
    return letter == u'd' || letter == u'M' || letter == u'y';
}

/// Where the first field begins, past what is quoted; the length where there is none.
qsizetype firstField(const QString& format)
{
    bool isQuoted = false;
    for (qsizetype at = 0; at < format.size(); ++at) {
        if (format[at] == quote) {
            isQuoted = !isQuoted;
        } else if (!isQuoted && isField(format[at])) {
            return at;
        }
    }
    return format.size();
}

/// Words may belong to the day or the year before them; commas and spaces do not.
QString withoutTrailingSeparators(QString format)
{
    while (!format.isEmpty() && (format.back().isSpace() || format.back() == u',' ||
                                 format.back() == u'،' || format.back() == u'、')) {
        format.chop(1);
    }
    return format;
}

/// The weekday with what ties it to the rest ("dddd 'den' d. MMMM yyyy").
QString withoutWeekday(const QString& format)
{
    const QString weekday = QStringLiteral("dddd");
    const qsizetype at = format.indexOf(weekday);
    if (at < 0) {
        return format;
    }
    const QString before = format.left(at);
    const QString after = format.mid(at + weekday.size());
    const qsizetype next = firstField(after);
    if (next == after.size()) {
        return withoutTrailingSeparators(before);
    }
    return before + after.mid(next);
}

} // namespace

QString mediumDateFormat(const QLocale& locale)
{
    QString format = withoutWeekday(locale.dateFormat(QLocale::LongFormat));
    return format.replace(QStringLiteral("MMMM"), QStringLiteral("MMM"));
}

QString mediumDate(const QDate& date, const QLocale& locale)
{
    return locale.toString(date, mediumDateFormat(locale));
}

QString mediumDate(TimePoint moment, const QLocale& locale)
{
    const auto sinceEpoch =
        std::chrono::floor<std::chrono::milliseconds>(moment.time_since_epoch());
    return mediumDate(QDateTime::fromMSecsSinceEpoch(sinceEpoch.count()).date(), locale);
}

} // namespace zolva
