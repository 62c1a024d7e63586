#pragma once
#include <QString>
#include <QStringView>

#include <cstdint>

namespace Tarnwell {

class Currency;
class Decimal;

// A number as the decimal digits it is shown with: value = 0.d1d2d3... x 10^point, with a sign.
// Currency and Decimal give their exact digits; Single and Double the 7- and 15-significant-digit
// forms the host shows. Formatting works on these digits only, never on binary fractions.
class DecimalDigits
{
public:
    static constexpr int Capacity = 48;

    static DecimalDigits fromInt64(std::int64_t value);
    static DecimalDigits fromDouble(double value, int significant = 15);
    static DecimalDigits fromFloat(float value);
    static DecimalDigits fromCurrency(const Currency &value);
    static DecimalDigits fromDecimal(const Decimal &value);

    // Writes the decimal digits of `value` (at least "0") to `out`, which has room for 40;
    // returns how many.
    static int writeDigits(unsigned __int128 value, char *out);

    // Keeps `fractionDigits` digits after the decimal point, rounding half away from zero. May
    // produce zero (count 0), with the sign kept: -0.001 to two places is a negative zero.
    void roundToFraction(int fractionDigits);
    // Keeps at most `significant` digits, rounding half away from zero.
    void roundToSignificant(int significant);
    void trimTrailingZeros();

    bool isZero() const { return count == 0; }
    // Plain positional text, no grouping, no exponent: "-1234.5", "0.0001", "0".
    QString toPlainString(QStringView decimalChar) const;
    // The host's display of a Single or Double: plain for leading-digit powers -4..significant-1,
    // otherwise scientific with a signed two-digit exponent ("1E+15", "1.5E-07").
    QString toGeneralString(QStringView decimalChar, int significant) const;
    // Digit `i` (0-based) stands for 10^(point - 1 - i); positions past the stored ones are zeros.
    char digitAt(int i) const { return i >= 0 && i < count ? digits[i] : '0'; }

    bool negative = false;
    bool finite = true; // false for infinities and NaN, which only doubles can carry
    bool nan = false;
    char digits[Capacity] = {};
    int count = 0;
    int point = 0;

private:
    void roundAt(int keep);
    void setFromUnsigned(std::uint64_t magnitude);
};

} // namespace Tarnwell
