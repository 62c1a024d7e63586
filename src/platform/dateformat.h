#pragma once
#include <tarnwell/date.h>
#include <tarnwell/global.h>

#include <QLocale>
#include <QString>

namespace Tarnwell {

// The host's date pattern language over Tarnwell::Date. Tokens are case-insensitive: "d" "dd"
// day, "ddd" "dddd" weekday name, "ddddd" short date, "dddddd" long date, "w" weekday number
// (Sunday 1), "ww" week of the year, "m" "mm" month, "mmm" "mmmm" month name, "q" quarter, "y" day
// of the year, "yy" "yyyy" year, "h" "hh" hour, "n" "nn" minute, "s" "ss" second, "c" general date,
// "ttttt" long time, "AM/PM" "am/pm" "A/P" "a/p" (written as given; hours then run 1..12) and
// "AMPM" (the locale's texts). "m" and "mm" mean minutes right after an hour or right before a
// second ("hh:mm", "HHMMSS"). "\x" is a literal x, "..." literal text; any other character is
// itself. The whole pattern may also name one of the host's forms: "General Date", "Long Date",
// "Medium Date", "Short Date", "Long Time", "Medium Time", "Short Time"; an empty pattern is
// "General Date".
class DateFormat
{
public:
    static QString format(const Tarnwell::Date &date, const QString &pattern,
                          const QLocale &locale = QLocale());

    // The locale's short date with a four-digit year ("3/7/2024", "07.03.2024").
    static QString shortDate(const Tarnwell::Date &date, const QLocale &locale = QLocale());
    static QString longDate(const Tarnwell::Date &date, const QLocale &locale = QLocale());
    // The locale's time with seconds ("2:05:09 PM", "14:05:09").
    static QString longTime(const Tarnwell::Date &date, const QLocale &locale = QLocale());
    // The date alone at midnight, the time alone on day 0, otherwise both.
    static QString generalDate(const Tarnwell::Date &date, const QLocale &locale = QLocale());
};

} // namespace Tarnwell
