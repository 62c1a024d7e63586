#pragma once
#include <tarnwell/global.h>

#include <QLocale>
#include <QString>
#include <QVariant>

namespace Tarnwell {

// The host's number formatting with patterns such as "#,##0.00", "##0", "0.000", "$#,##0.00",
// "0.00%", "0.00E+00" and "0.00;(0.00);\Z\e\r\o".
//
// - "0" shows a digit or a zero, "#" a digit or nothing; "." is the decimal point and ","
//   between integer placeholders turns on grouping (commas just left of the decimal point
//   divide by 1000 each); "%" multiplies by 100; "E+", "E-", "e+", "e-" start an exponent.
// - Quoted text, backslash-escaped characters and every other character are shown as written.
// - Up to three sections separated by ";": positive (and the default), negative (shown without
//   its minus sign), zero (exact zero only). A missing or empty section falls back to the first.
// - The output uses the locale's grouping and decimal characters.
// - Currency and Decimal are formatted from their exact digits, Single and Double from their 7-
//   and 15-significant-digit forms (so 2.675 to two places is "2.68"); rounding at the last
//   shown digit is half away from zero. A negative value that rounds to zero keeps its sign, as
//   the host shows it: -0.001 with "0.00" is "-0.00".
// - Empty formats as 0, Null as the empty text; a text that reads as a number is formatted as
//   that number (a Double), any other text is returned as it is. An empty pattern gives the
//   host's general form (as Variant::toString).
class NumberFormat
{
public:
    static QString format(const QVariant &value, const QString &pattern,
                          const QLocale &locale = QLocale());
};

} // namespace Tarnwell
