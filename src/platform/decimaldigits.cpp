#include "platform/decimaldigits.h"

#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace Tarnwell {

namespace {

// Reads the digits and exponent of to_chars' scientific form ("-1.2345e+06").
DecimalDigits fromScientific(const char *first, const char *last)
{
    DecimalDigits d;
    const char *p = first;
    if (p < last && *p == '-') {
        d.negative = true;
        ++p;
    }
    for (; p < last && *p != 'e'; ++p) {
        if (*p >= '0' && *p <= '9' && d.count < DecimalDigits::Capacity)
            d.digits[d.count++] = *p;
    }
    int exp = 0;
    std::from_chars(p < last ? p + 1 + (p[1] == '+') : last, last, exp);
    d.point = exp + 1;
    d.trimTrailingZeros();
    return d;
}

} // namespace

void DecimalDigits::setFromUnsigned(std::uint64_t magnitude)
{
    char buffer[24];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, magnitude);
    (void)ec;
    count = 0;
    for (const char *p = buffer; p < end; ++p)
        digits[count++] = *p;
    point = count;
    trimTrailingZeros();
}

DecimalDigits DecimalDigits::fromInt64(std::int64_t value)
{
    DecimalDigits d;
    d.negative = value < 0;
    d.setFromUnsigned(value < 0 ? std::uint64_t(0) - std::uint64_t(value) : std::uint64_t(value));
    return d;
}

DecimalDigits DecimalDigits::fromDouble(double value, int significant)
{
    if (!std::isfinite(value)) {
        DecimalDigits d;
        d.finite = false;
        d.nan = std::isnan(value);
        d.negative = !d.nan && value < 0;
        return d;
    }
    if (value == 0.0)
        return DecimalDigits();
    significant = significant < 1 ? 1 : (significant > 17 ? 17 : significant);
    char buffer[40];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value,
                                   std::chars_format::scientific, significant - 1);
    (void)ec;
    return fromScientific(buffer, end);
}

DecimalDigits DecimalDigits::fromFloat(float value)
{
    if (!std::isfinite(value))
        return fromDouble(double(value));
    if (value == 0.0f)
        return DecimalDigits();
    char buffer[32];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value,
                                   std::chars_format::scientific, 6);
    (void)ec;
    return fromScientific(buffer, end);
}

DecimalDigits DecimalDigits::fromCurrency(const Currency &value)
{
    DecimalDigits d = fromInt64(value.raw());
    if (d.count)
        d.point -= 4;
    return d;
}

int DecimalDigits::writeDigits(unsigned __int128 value, char *out)
{
    // Two 64-bit halves of at most 19 digits each: 128-bit division is slow, 64-bit is not.
    constexpr std::uint64_t Pow19 = 10000000000000000000ull;
    char *p = out;
    if (value >= Pow19) {
        const unsigned __int128 high = value / Pow19;
        const auto low = std::uint64_t(value % Pow19);
        p = std::to_chars(p, out + 40, high >= Pow19 ? std::uint64_t(high / Pow19) : std::uint64_t(high)).ptr;
        if (high >= Pow19) {
            char buffer[20];
            const auto mid = std::uint64_t(high % Pow19);
            const int n = int(std::to_chars(buffer, buffer + 20, mid).ptr - buffer);
            for (int i = n; i < 19; ++i)
                *p++ = '0';
            p = std::copy(buffer, buffer + n, p);
        }
        char buffer[20];
        const int n = int(std::to_chars(buffer, buffer + 20, low).ptr - buffer);
        for (int i = n; i < 19; ++i)
            *p++ = '0';
        p = std::copy(buffer, buffer + n, p);
    } else {
        p = std::to_chars(p, out + 40, std::uint64_t(value)).ptr;
    }
    return int(p - out);
}

DecimalDigits DecimalDigits::fromDecimal(const Decimal &value)
{
    DecimalDigits d;
    const unsigned __int128 m = (unsigned __int128)value.hi() << 64
        | (unsigned __int128)value.mid() << 32 | value.lo();
    if (m == 0)
        return d;
    d.count = writeDigits(m, d.digits);
    d.point = d.count - value.scale();
    d.negative = value.isNegative();
    d.trimTrailingZeros();
    return d;
}

void DecimalDigits::trimTrailingZeros()
{
    while (count > 0 && digits[count - 1] == '0')
        --count;
    if (count == 0)
        point = 0;
}

void DecimalDigits::roundAt(int keep)
{
    if (!finite || keep >= count)
        return;
    if (keep < 0) {
        count = 0;
        point = 0;
        return;
    }
    const bool up = digits[keep] >= '5';
    count = keep;
    if (up) {
        int i = count - 1;
        while (i >= 0 && digits[i] == '9')
            --i;
        if (i < 0) {
            digits[0] = '1';
            count = 1;
            ++point;
        } else {
            ++digits[i];
            count = i + 1;
        }
    }
    trimTrailingZeros();
}

void DecimalDigits::roundToFraction(int fractionDigits)
{
    if (count == 0)
        return;
    const long keep = long(point) + fractionDigits;
    roundAt(keep < -1 ? -1 : (keep > Capacity ? Capacity : int(keep)));
}

void DecimalDigits::roundToSignificant(int significant)
{
    roundAt(significant < 0 ? 0 : significant);
}

QString DecimalDigits::toPlainString(QStringView decimalChar) const
{
    if (!finite)
        return nan ? QStringLiteral("NaN") : (negative ? QStringLiteral("-Infinity") : QStringLiteral("Infinity"));
    if (count == 0)
        return QStringLiteral("0");
    QString out;
    out.reserve(count + (point > 0 ? point : -point) + 4);
    if (negative)
        out += u'-';
    if (point <= 0) {
        out += u'0';
    } else {
        for (int i = 0; i < point; ++i)
            out += QLatin1Char(digitAt(i));
    }
    if (count > point) {
        out += decimalChar;
        for (int i = point; i < 0; ++i)
            out += u'0';
        for (int i = point > 0 ? point : 0; i < count; ++i)
            out += QLatin1Char(digits[i]);
    }
    return out;
}

QString DecimalDigits::toGeneralString(QStringView decimalChar, int significant) const
{
    const int magnitude = point - 1;
    if (!finite || count == 0 || (magnitude >= -4 && magnitude < significant))
        return toPlainString(decimalChar);
    QString out;
    out.reserve(count + 8);
    if (negative)
        out += u'-';
    out += QLatin1Char(digits[0]);
    if (count > 1) {
        out += decimalChar;
        for (int i = 1; i < count; ++i)
            out += QLatin1Char(digits[i]);
    }
    out += magnitude < 0 ? QLatin1String("E-") : QLatin1String("E+");
    const int e = magnitude < 0 ? -magnitude : magnitude;
    if (e < 10)
        out += u'0';
    out += QString::number(e);
    return out;
}

} // namespace Tarnwell
