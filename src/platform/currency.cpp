#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>
#include <tarnwell/error.h>

#include "platform/decimaldigits.h"
#include "platform/numerictext.h"

#include <charconv>
#include <cmath>

namespace Tarnwell {

Currency Currency::fromInt64(std::int64_t units)
{
    std::int64_t raw = 0;
    if (__builtin_mul_overflow(units, Scale, &raw))
        throw Error(Error::Overflow);
    return fromRaw(raw);
}

Currency Currency::fromDouble(double value)
{
    // rint rounds half to even in the default rounding mode, as the host's conversion does.
    const double scaled = std::rint(value * double(Scale));
    if (!(scaled >= -9223372036854775808.0 && scaled < 9223372036854775808.0))
        throw Error(Error::Overflow); // also NaN
    return fromRaw(std::int64_t(scaled));
}

Currency Currency::fromDecimal(const Decimal &value)
{
    Decimal four = value.rounded(4, Decimal::Rounding::HalfEven);
    if (four.hi() != 0)
        throw Error(Error::Overflow);
    unsigned __int128 m = (unsigned __int128)four.mid() << 32 | four.lo();
    for (int s = four.scale(); s < 4; ++s)
        m *= 10;
    const unsigned __int128 limit = (unsigned __int128)1 << 63;
    if (four.isNegative() ? m > limit : m >= limit)
        throw Error(Error::Overflow);
    const auto magnitude = std::uint64_t(m);
    return fromRaw(four.isNegative() ? std::int64_t(std::uint64_t(0) - magnitude)
                                     : std::int64_t(magnitude));
}

Currency Currency::parse(const QString &text, const QLocale &locale)
{
    return fromDecimal(Decimal::parse(text, locale));
}

QString Currency::toString(const QLocale &locale) const
{
    return DecimalDigits::fromCurrency(*this).toPlainString(NumericText::localeChars(locale).decimal);
}

double Currency::toDouble() const
{
    // Below 2^53 the raw value is exact, so one division rounds correctly; above it the digits
    // go through a correctly rounded text conversion instead.
    if (m_raw > -(std::int64_t(1) << 53) && m_raw < (std::int64_t(1) << 53))
        return double(m_raw) / double(Scale);
    char buffer[32];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer - 3, m_raw);
    (void)ec;
    *end++ = 'e';
    *end++ = '-';
    *end++ = '4';
    double value = 0.0;
    std::from_chars(buffer, end, value);
    return value;
}

Decimal Currency::toDecimal() const
{
    const std::uint64_t magnitude = m_raw < 0 ? std::uint64_t(0) - std::uint64_t(m_raw)
                                              : std::uint64_t(m_raw);
    return Decimal::fromParts(std::uint32_t(magnitude), std::uint32_t(magnitude >> 32), 0, 4,
                              m_raw < 0);
}

Currency operator+(Currency a, Currency b)
{
    std::int64_t r = 0;
    if (__builtin_add_overflow(a.m_raw, b.m_raw, &r))
        throw Error(Error::Overflow);
    return Currency::fromRaw(r);
}

Currency operator-(Currency a, Currency b)
{
    std::int64_t r = 0;
    if (__builtin_sub_overflow(a.m_raw, b.m_raw, &r))
        throw Error(Error::Overflow);
    return Currency::fromRaw(r);
}

Currency operator-(Currency a)
{
    if (a.m_raw == INT64_MIN)
        throw Error(Error::Overflow);
    return Currency::fromRaw(-a.m_raw);
}

Currency operator*(Currency a, std::int64_t factor)
{
    std::int64_t r = 0;
    if (__builtin_mul_overflow(a.m_raw, factor, &r))
        throw Error(Error::Overflow);
    return Currency::fromRaw(r);
}

} // namespace Tarnwell
