#pragma once
#include <tarnwell/global.h>

#include <QLocale>
#include <QMetaType>
#include <QString>

#include <compare>
#include <cstdint>

namespace Tarnwell {

class Decimal;

/// @brief A fixed-point amount: a 64-bit integer counting ten-thousandths.
///
/// Arithmetic is exact and throws Error(6) when the result leaves the 64-bit range. A NumberBox
/// of type Tarnwell::twCurrency holds its Value, Minimum, Maximum and Increment as Currency.
class TARNWELL_EXPORT Currency
{
public:
    static constexpr std::int64_t Scale = 10000; ///< raw units in one currency unit

    /// Zero.
    constexpr Currency() = default;
    /// The amount `scaled` / #Scale.
    static constexpr Currency fromRaw(std::int64_t scaled) { Currency c; c.m_raw = scaled; return c; }
    /// The amount in ten-thousandths.
    constexpr std::int64_t raw() const { return m_raw; }

    static Currency fromInt64(std::int64_t units); ///< Error(6) outside the range
    static Currency fromDouble(double value); ///< banker's rounding to 4 places; Error(6)
    static Currency fromDecimal(const Decimal &value); ///< banker's rounding to 4 places; Error(6)
    /// Exact parse of a decimal text: blanks around it, a sign, the locale's grouping and decimal
    /// characters. Error(13) for a text that is not a number, Error(6) when it does not fit.
    static Currency parse(const QString &text, const QLocale &locale = QLocale());

    /// The largest amount, 922337203685477.5807.
    static constexpr Currency max() { return fromRaw(INT64_MAX); }
    /// The smallest amount, -922337203685477.5808.
    static constexpr Currency min() { return fromRaw(INT64_MIN); }

    /// Shortest exact text: "-12.5", "1234", "0.0001"; the locale's decimal character.
    QString toString(const QLocale &locale = QLocale::c()) const;
    /// The nearest double.
    double toDouble() const;
    /// The same amount as a Decimal, exactly.
    Decimal toDecimal() const;

    friend TARNWELL_EXPORT Currency operator+(Currency a, Currency b);
    friend TARNWELL_EXPORT Currency operator-(Currency a, Currency b);
    friend TARNWELL_EXPORT Currency operator-(Currency a);
    friend TARNWELL_EXPORT Currency operator*(Currency a, std::int64_t factor);
    friend constexpr bool operator==(Currency a, Currency b) = default;
    friend constexpr std::strong_ordering operator<=>(Currency a, Currency b) = default;

private:
    std::int64_t m_raw = 0;
};

} // namespace Tarnwell

Q_DECLARE_METATYPE(Tarnwell::Currency)
