#include <tarnwell/decimal.h>
#include <tarnwell/error.h>

#include "platform/decimaldigits.h"
#include "platform/numerictext.h"

#include <charconv>
#include <cmath>

namespace Tarnwell {

namespace {

using u128 = unsigned __int128;
using u64 = std::uint64_t;

constexpr u64 Pow10_19 = 10000000000000000000ull;

// A 256-bit unsigned scratch number: wide enough for a 96-bit mantissa scaled by 10^28 and
// doubled (sums), or multiplied by a 64-bit factor, so results are exact before rounding.
struct Wide {
    u64 w[4] = {0, 0, 0, 0};

    static Wide of(u128 v)
    {
        Wide r;
        r.w[0] = u64(v);
        r.w[1] = u64(v >> 64);
        return r;
    }
    bool isZero() const { return (w[0] | w[1] | w[2] | w[3]) == 0; }
    bool fits96() const { return w[3] == 0 && w[2] == 0 && (w[1] >> 32) == 0; }
    bool isOdd() const { return w[0] & 1; }
    u128 low128() const { return u128(w[1]) << 64 | w[0]; }

    void mul(u64 factor)
    {
        u128 carry = 0;
        for (u64 &limb : w) {
            const u128 p = u128(limb) * factor + carry;
            limb = u64(p);
            carry = p >> 64;
        }
    }
    void mulPow10(int n)
    {
        for (; n >= 19; n -= 19)
            mul(Pow10_19);
        u64 f = 1;
        while (n-- > 0)
            f *= 10;
        if (f != 1)
            mul(f);
    }
    void add(const Wide &o)
    {
        u128 carry = 0;
        for (int i = 0; i < 4; ++i) {
            const u128 s = u128(w[i]) + o.w[i] + carry;
            w[i] = u64(s);
            carry = s >> 64;
        }
    }
    // Requires *this >= o.
    void sub(const Wide &o)
    {
        u64 borrow = 0;
        for (int i = 0; i < 4; ++i) {
            const u128 d = u128(w[i]) - o.w[i] - borrow;
            w[i] = u64(d);
            borrow = (d >> 64) ? 1 : 0;
        }
    }
    unsigned divmod(unsigned divisor)
    {
        u128 rem = 0;
        for (int i = 3; i >= 0; --i) {
            const u128 cur = rem << 64 | w[i];
            w[i] = u64(cur / divisor);
            rem = cur % divisor;
        }
        return unsigned(rem);
    }
    friend int compare(const Wide &a, const Wide &b)
    {
        for (int i = 3; i >= 0; --i) {
            if (a.w[i] != b.w[i])
                return a.w[i] < b.w[i] ? -1 : 1;
        }
        return 0;
    }
};

// The number spelled by ASCII digits, taken 19 at a time so most of the work is 64-bit.
Wide wideOfDigits(const char *digits, int count)
{
    Wide m;
    for (int i = 0; i < count;) {
        const int n = count - i < 19 ? count - i : 19;
        u64 chunk = 0, scale = 1;
        for (int k = 0; k < n; ++k, ++i) {
            chunk = chunk * 10 + u64(digits[i] - '0');
            scale *= 10;
        }
        m.mul(scale);
        m.add(Wide::of(chunk));
    }
    return m;
}

u128 mantissaOf(const Decimal &d)
{
    return u128(d.hi()) << 64 | u128(d.mid()) << 32 | d.lo();
}

Wide wideOf(const Decimal &d)
{
    return Wide::of(mantissaOf(d));
}

bool roundsUp(unsigned roundDigit, bool sticky, bool odd, Decimal::Rounding mode)
{
    if (mode == Decimal::Rounding::HalfAwayFromZero)
        return roundDigit >= 5;
    return roundDigit > 5 || (roundDigit == 5 && (sticky || odd));
}

// The magnitude of |a| compared with |b|, scales aligned exactly.
int compareMagnitude(const Decimal &a, const Decimal &b)
{
    Wide x = wideOf(a), y = wideOf(b);
    if (a.scale() < b.scale())
        x.mulPow10(b.scale() - a.scale());
    else if (b.scale() < a.scale())
        y.mulPow10(a.scale() - b.scale());
    return compare(x, y);
}

} // namespace

// Brings an exact (mantissa, scale) into the representable range: drops decimal digits while
// the scale exceeds 28 or the mantissa needs more than 96 bits, rounding once at the end.
// `roundDigit` and `sticky` describe digits already dropped by the caller.
static Decimal build(Wide m, int scale, bool negative, unsigned roundDigit = 0, bool sticky = false,
                     Decimal::Rounding mode = Decimal::Rounding::HalfEven)
{
    for (;;) {
        while (scale > Decimal::MaxScale || (scale > 0 && !m.fits96())) {
            sticky = sticky || roundDigit != 0;
            roundDigit = m.divmod(10);
            --scale;
        }
        if (!m.fits96())
            throw Error(Error::Overflow);
        if (roundsUp(roundDigit, sticky, m.isOdd(), mode)) {
            m.add(Wide::of(1));
            roundDigit = 0;
            sticky = false;
            if (!m.fits96())
                continue; // 2^96 after the carry: one more digit must go
        }
        break;
    }
    const u128 v = m.low128();
    return Decimal::fromParts(std::uint32_t(v), std::uint32_t(v >> 32), std::uint32_t(v >> 64),
                              scale, negative && v != 0);
}

Decimal Decimal::fromParts(std::uint32_t lo, std::uint32_t mid, std::uint32_t hi, int scale,
                           bool negative)
{
    if (scale < 0 || scale > MaxScale)
        throw Error(Error::Overflow);
    Decimal d;
    d.m_lo = lo;
    d.m_mid = mid;
    d.m_hi = hi;
    d.m_scale = std::uint8_t(scale);
    d.m_negative = negative;
    return d;
}

Decimal Decimal::fromInt64(std::int64_t value)
{
    const u64 magnitude = value < 0 ? u64(0) - u64(value) : u64(value);
    return fromParts(std::uint32_t(magnitude), std::uint32_t(magnitude >> 32), 0, 0, value < 0);
}

Decimal Decimal::fromDouble(double value)
{
    if (!std::isfinite(value))
        throw Error(Error::Overflow);
    const DecimalDigits digits = DecimalDigits::fromDouble(value, 15);
    if (digits.isZero())
        return Decimal();
    if (digits.point > 29)
        throw Error(Error::Overflow);
    Wide m = wideOfDigits(digits.digits, digits.count);
    int scale = digits.count - digits.point;
    if (scale < 0) {
        m.mulPow10(-scale);
        scale = 0;
    }
    if (scale > MaxScale + DecimalDigits::Capacity)
        return fromParts(0, 0, 0, MaxScale, false);
    return build(m, scale, digits.negative);
}

Decimal Decimal::parse(const QString &text, const QLocale &locale)
{
    NumericText number;
    if (!number.scan(text, locale))
        throw Error(Error::TypeMismatch);
    if (number.count == 0)
        return fromParts(0, 0, 0, qBound(0, -number.exponent, MaxScale), false);
    Wide m = wideOfDigits(number.digits, number.count);
    if (number.exponent > 0) {
        if (number.count + number.exponent > 29)
            throw Error(Error::Overflow);
        m.mulPow10(number.exponent);
        if (!m.fits96())
            throw Error(Error::Overflow);
        const u128 v = m.low128();
        return fromParts(std::uint32_t(v), std::uint32_t(v >> 32), std::uint32_t(v >> 64), 0,
                         number.negative);
    }
    const int scale = -number.exponent;
    if (scale > MaxScale + number.count + 1) // far below the smallest step: rounds to zero
        return fromParts(0, 0, 0, MaxScale, false);
    return build(m, scale, number.negative, unsigned(number.firstDropped), number.stickyDropped);
}

Decimal Decimal::max()
{
    return fromParts(0xFFFFFFFFu, 0xFFFFFFFFu, 0xFFFFFFFFu, 0, false);
}

Decimal Decimal::min()
{
    return fromParts(0xFFFFFFFFu, 0xFFFFFFFFu, 0xFFFFFFFFu, 0, true);
}

Decimal Decimal::rounded(int scale, Rounding mode) const
{
    if (scale < 0)
        throw Error(Error::Overflow);
    if (scale >= m_scale)
        return *this;
    Wide m = wideOf(*this);
    unsigned roundDigit = 0;
    bool sticky = false;
    for (int s = m_scale; s > scale; --s) {
        sticky = sticky || roundDigit != 0;
        roundDigit = m.divmod(10);
    }
    return build(m, scale, m_negative, roundDigit, sticky, mode);
}

Decimal Decimal::normalized() const
{
    Wide m = wideOf(*this);
    int scale = m_scale;
    while (scale > 0) {
        Wide q = m;
        if (q.divmod(10) != 0)
            break;
        m = q;
        --scale;
    }
    return build(m, scale, m_negative);
}

QString Decimal::toString(const QLocale &locale) const
{
    return DecimalDigits::fromDecimal(*this).toPlainString(NumericText::localeChars(locale).decimal);
}

QString Decimal::mantissaDigits() const
{
    char buffer[40];
    const int n = DecimalDigits::writeDigits(mantissaOf(*this), buffer);
    return QString::fromLatin1(buffer, n);
}

double Decimal::toDouble() const
{
    // Digits and a decimal exponent, converted with correct rounding whatever the C locale.
    char buffer[48];
    int len = DecimalDigits::writeDigits(mantissaOf(*this), buffer);
    buffer[len++] = 'e';
    buffer[len++] = '-';
    auto [end, ec] = std::to_chars(buffer + len, buffer + sizeof buffer, int(m_scale));
    (void)ec;
    double value = 0.0;
    std::from_chars(buffer, end, value);
    return m_negative ? -value : value;
}

std::int64_t Decimal::toInt64() const
{
    const Decimal whole = rounded(0, Rounding::HalfEven);
    const u128 m = mantissaOf(whole);
    constexpr u128 limit = u128(1) << 63;
    if (whole.m_negative) {
        if (m > limit)
            throw Error(Error::Overflow);
        return std::int64_t(u64(0) - u64(m));
    }
    if (m >= limit)
        throw Error(Error::Overflow);
    return std::int64_t(m);
}

Decimal operator+(const Decimal &a, const Decimal &b)
{
    const int scale = qMax(a.scale(), b.scale());
    Wide x = wideOf(a), y = wideOf(b);
    x.mulPow10(scale - a.scale());
    y.mulPow10(scale - b.scale());
    if (a.isNegative() == b.isNegative()) {
        x.add(y);
        return build(x, scale, a.isNegative());
    }
    if (compare(x, y) >= 0) {
        x.sub(y);
        return build(x, scale, a.isNegative());
    }
    y.sub(x);
    return build(y, scale, b.isNegative());
}

Decimal operator-(const Decimal &a)
{
    return Decimal::fromParts(a.lo(), a.mid(), a.hi(), a.scale(), !a.isNegative() && !a.isZero());
}

Decimal operator-(const Decimal &a, const Decimal &b)
{
    return a + (-b);
}

Decimal operator*(const Decimal &a, std::int64_t factor)
{
    Wide m = wideOf(a);
    m.mul(factor < 0 ? u64(0) - u64(factor) : u64(factor));
    return build(m, a.scale(), a.isNegative() != (factor < 0));
}

bool operator==(const Decimal &a, const Decimal &b)
{
    return (a <=> b) == 0;
}

std::strong_ordering operator<=>(const Decimal &a, const Decimal &b)
{
    const bool aNeg = a.isNegative() && !a.isZero();
    const bool bNeg = b.isNegative() && !b.isZero();
    if (aNeg != bNeg)
        return aNeg ? std::strong_ordering::less : std::strong_ordering::greater;
    int c = compareMagnitude(a, b);
    if (aNeg)
        c = -c;
    return c < 0 ? std::strong_ordering::less
                 : (c > 0 ? std::strong_ordering::greater : std::strong_ordering::equal);
}

} // namespace Tarnwell
