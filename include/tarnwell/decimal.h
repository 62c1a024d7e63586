#pragma once
#include <tarnwell/global.h>

#include <QLocale>
#include <QMetaType>
#include <QString>

#include <array>
#include <compare>
#include <cstdint>

namespace Tarnwell {

/// @brief The host's 96-bit decimal: an unsigned 96-bit mantissa, a sign and a scale 0..28
/// (value = mantissa / 10^scale).
///
/// A NumberBox of type Tarnwell::twDecimal holds its Value, Minimum, Maximum and Increment as
/// Decimal. Every operation is exact or rounds as documented; a result whose integer
/// part needs more than 96 bits throws Error(6).
class TARNWELL_EXPORT Decimal
{
public:
    static constexpr int MaxScale = 28; ///< the most decimals a Decimal holds

    /// Zero.
    Decimal() = default;
    /// lo, mid, hi are the mantissa's 32-bit words, least significant first.
    static Decimal fromParts(std::uint32_t lo, std::uint32_t mid, std::uint32_t hi, int scale,
                             bool negative);
    /// The integer `value`, exactly.
    static Decimal fromInt64(std::int64_t value);
    /// From the double's 15-significant-digit decimal form, as the host converts; Error(6).
    static Decimal fromDouble(double value);
    /// Exact parse: blanks around, a sign, the locale's grouping and decimal characters; digits
    /// beyond scale 28 are rounded half to even. Error(13) not a number, Error(6) too large.
    static Decimal parse(const QString &text, const QLocale &locale = QLocale());

    static Decimal max(); ///<  79228162514264337593543950335
    static Decimal min(); ///< -79228162514264337593543950335

    std::uint32_t lo() const { return m_lo; }   ///< the mantissa's low 32 bits
    std::uint32_t mid() const { return m_mid; } ///< the mantissa's middle 32 bits
    std::uint32_t hi() const { return m_hi; }   ///< the mantissa's high 32 bits
    int scale() const { return m_scale; }       ///< decimals, 0..#MaxScale
    bool isNegative() const { return m_negative; } ///< the sign
    bool isZero() const { return (m_lo | m_mid | m_hi) == 0; } ///< the mantissa is zero

    /// How rounded() treats a half.
    enum class Rounding {
        HalfEven,        ///< to the even neighbour (banker's rounding)
        HalfAwayFromZero ///< away from zero
    };
    /// The value rounded to at most `scale` decimals (a smaller scale than the present one only).
    Decimal rounded(int scale, Rounding mode = Rounding::HalfEven) const;
    /// The value with trailing fractional zeros removed ("1.500" becomes "1.5").
    Decimal normalized() const;

    /// Exact text, shortest form without trailing fractional zeros: "-1234.5"; locale's decimal char.
    QString toString(const QLocale &locale = QLocale::c()) const;
    /// The mantissa's decimal digits and the scale, for formatting without going through double.
    QString mantissaDigits() const;
    /// The nearest double.
    double toDouble() const;
    /// Error(6) when the value, rounded half to even to an integer, leaves the int64 range.
    std::int64_t toInt64() const;

    friend TARNWELL_EXPORT Decimal operator+(const Decimal &a, const Decimal &b);
    friend TARNWELL_EXPORT Decimal operator-(const Decimal &a, const Decimal &b);
    friend TARNWELL_EXPORT Decimal operator-(const Decimal &a);
    friend TARNWELL_EXPORT Decimal operator*(const Decimal &a, std::int64_t factor);
    /// Numeric comparison: 1.50 == 1.5, -0 == 0.
    friend TARNWELL_EXPORT bool operator==(const Decimal &a, const Decimal &b);
    friend TARNWELL_EXPORT std::strong_ordering operator<=>(const Decimal &a, const Decimal &b);

private:
    std::uint32_t m_lo = 0, m_mid = 0, m_hi = 0;
    std::uint8_t m_scale = 0;
    bool m_negative = false;
};

} // namespace Tarnwell

Q_DECLARE_METATYPE(Tarnwell::Decimal)
