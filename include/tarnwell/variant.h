#pragma once
#include <tarnwell/currency.h>
#include <tarnwell/date.h>
#include <tarnwell/decimal.h>
#include <tarnwell/global.h>

#include <QLocale>
#include <QVariant>

namespace Tarnwell {

/// @brief The host language's variant rules on top of QVariant.
///
/// Conventions: Empty is an invalid
/// QVariant, Null a QVariant holding std::nullptr_t, Integer qint16, Long qint32, Single float,
/// Double double, Boolean bool, String QString, Currency, Decimal and Date their own types.
/// Conversions throw Error(13) for a value that is not a number (or date) and Error(6) when the
/// result does not fit; numeric texts may carry blanks around them and the locale's grouping and
/// decimal characters. Empty converts to 0 (or the empty string); Null is a type mismatch. Qt's
/// QDate, QDateTime and QTime are dates (a QTime a time of day on day 0); a null one holds none.
class TARNWELL_EXPORT Variant
{
public:
    /// What a QVariant holds, in the host language's terms (Byte: an unsigned char).
    enum Kind { Empty, Null, Integer, Long, Single, Double, CurrencyKind, DecimalKind, DateKind,
                String, Boolean, Byte, Other };

    /// Empty: an invalid QVariant.
    static QVariant empty() { return QVariant(); }
    /// Null: a QVariant holding std::nullptr_t.
    static QVariant null();
    /// Whether `v` is Empty.
    static bool isEmpty(const QVariant &v) { return !v.isValid(); }
    /// Whether `v` is Null.
    static bool isNull(const QVariant &v);
    /// What `v` holds.
    static Kind kind(const QVariant &v);

    /// IsNumeric: numbers, booleans, Empty, and texts that read as a number in `locale`.
    static bool isNumeric(const QVariant &v, const QLocale &locale = QLocale());
    /// IsDate: dates, and texts that read as a date.
    static bool isDate(const QVariant &v, const QLocale &locale = QLocale());

    /// CInt: to a 16-bit integer. Banker's rounding to the integer types: 2.5 -> 2, 3.5 -> 4,
    /// -2.5 -> -2.
    static qint16 toInteger(const QVariant &v, const QLocale &locale = QLocale());
    /// CLng: banker's rounding to a 32-bit integer.
    static qint32 toLong(const QVariant &v, const QLocale &locale = QLocale());
    /// CSng: to a float; Error(6) beyond its range.
    static float toSingle(const QVariant &v, const QLocale &locale = QLocale());
    /// CDbl: to a double.
    static double toDouble(const QVariant &v, const QLocale &locale = QLocale());
    /// CCur: to a Currency, banker's rounding to four decimals.
    static Tarnwell::Currency toCurrency(const QVariant &v, const QLocale &locale = QLocale());
    /// CDec: to a Decimal.
    static Tarnwell::Decimal toDecimal(const QVariant &v, const QLocale &locale = QLocale());
    /// CDate: dates, numbers as serials, and texts that read as a date.
    static Tarnwell::Date toDate(const QVariant &v, const QLocale &locale = QLocale());
    /// CBool: zero is false, any other number true; texts "True" and "False" as they say.
    static bool toBoolean(const QVariant &v, const QLocale &locale = QLocale());
    /// CStr: Single with 7 and Double with 15 significant digits, Currency and Decimal exactly,
    /// Booleans "True"/"False", dates in the locale's short form; Empty gives "". Null: Error(13).
    static QString toString(const QVariant &v, const QLocale &locale = QLocale());

    /// Numeric comparison of two numeric variants of any kinds, exact for Currency and Decimal
    /// (-1, 0, 1). Error(13) if either is not numeric.
    static int compare(const QVariant &a, const QVariant &b, const QLocale &locale = QLocale());

    /// Registers the metatypes and their converters to and from QString and double. Called by
    /// every control's constructor; safe to call any number of times.
    static void registerTypes();
};

} // namespace Tarnwell
