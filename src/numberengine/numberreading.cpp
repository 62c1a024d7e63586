#include "numberengine/numberreading.h"

#include <tarnwell/constants.h>
#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>

namespace Tarnwell {

namespace {

constexpr double SingleLimit = 3.402823E+38;
constexpr double DoubleLimit = 1.79769313486231E+308;
constexpr std::int64_t CurrencyLimit = 922337203685477;
// The most significant digits the platform's text conversion to a float keeps before rounding
// the rest into one sticky digit; up to there its result is from_chars' correctly rounded one.
constexpr int FloatDigits = 40;
// A double holds 15 significant decimal digits exactly enough to show them again.
constexpr int DoubleDigits = 15;

std::int64_t wholeNumber(std::string_view digits)
{
    std::int64_t n = 0;
    for (const char c : digits)
        n = n * 10 + (c - '0');
    return n;
}

bool nonZero(char c)
{
    return c != '0';
}

// A float from the significant digits and the power of ten they stand for, as the platform
// reads one from text; nullopt past the type's range.
template<typename Float>
std::optional<Float> floatOf(const NumberReading &r)
{
    const auto first = std::find_if(r.digits.cbegin(), r.digits.cend(), nonZero);
    const auto count = size_t(r.digits.cend() - first);
    if (count == 0)
        return r.negative ? -Float(0) : Float(0);
    char buffer[FloatDigits + 16];
    std::memcpy(buffer, first, count);
    char *end = buffer + count;
    *end++ = 'e';
    end = std::to_chars(end, buffer + sizeof buffer, -r.decimals).ptr;
    Float value = 0;
    if (std::from_chars(buffer, end, value).ec != std::errc())
        return std::nullopt;
    return r.negative ? -value : value;
}

} // namespace

int NumberReading::digitOf(QChar c)
{
    if (c.unicode() < 128)
        return c >= u'0' && c <= u'9' ? c.unicode() - u'0' : -1;
    // Decimal digits of any script count, but not superscripts and the like.
    return c.category() == QChar::Number_DecimalDigit ? c.digitValue() : -1;
}

bool NumberReading::read(QStringView bare, QChar decimal, QChar minus)
{
    qsizetype i = 0;
    const qsizetype n = bare.size();
    if (i < n && (bare[i] == u'-' || bare[i] == minus)) {
        negative = true;
        ++i;
    }
    for (; i < n; ++i) {
        const int digit = digitOf(bare[i]);
        if (digit < 0)
            break;
        if (digit == 0 && whole == 0)
            continue;
        digits.append(char('0' + digit));
        ++whole;
    }
    if (i < n && bare[i] == decimal) {
        hasDecimal = true;
        for (++i; i < n; ++i) {
            const int digit = digitOf(bare[i]);
            if (digit < 0)
                break;
            digits.append(char('0' + digit));
            ++decimals;
        }
    }
    return i == n;
}

std::string_view NumberReading::significantDecimals() const
{
    int n = decimals;
    while (n > 0 && digits[whole + n - 1] == '0')
        --n;
    return std::string_view(digits.data() + whole, size_t(n));
}

QString NumberReading::canonical() const
{
    QString s;
    s.reserve(digits.size() + 3);
    if (negative)
        s += u'-';
    if (whole == 0)
        s += u'0';
    s += QLatin1String(digits.data(), whole);
    if (decimals > 0) {
        s += u'.';
        s += QLatin1String(digits.data() + whole, decimals);
    }
    return s;
}

DecimalDigits NumberReading::decimalDigits() const
{
    DecimalDigits d;
    const auto first = std::find_if(digits.cbegin(), digits.cend(), nonZero);
    if (first == digits.cend())
        return d;
    const auto last = std::find_if(digits.crbegin(), digits.crend(), nonZero).base();
    d.negative = negative;
    d.count = std::min(int(last - first), DecimalDigits::Capacity);
    std::copy(first, first + d.count, d.digits);
    d.point = whole - int(first - digits.cbegin());
    return d;
}

bool NumberReading::sameNumber(const NumberReading &other, bool ignoreSign) const
{
    return (ignoreSign || negative == other.negative) && wholeDigits() == other.wholeDigits()
        && significantDecimals() == other.significantDecimals();
}

QVariant NumberReading::quickValue(int dataType, bool *shownExactly) const
{
    *shownExactly = false;
    switch (dataType) {
    case twByte:
    case twInteger:
    case twLong: {
        if (!significantDecimals().empty() || whole > 18)
            return QVariant();
        const std::int64_t magnitude = wholeNumber(wholeDigits());
        const std::int64_t n = negative ? -magnitude : magnitude;
        const std::int64_t low = dataType == twByte ? 0
            : dataType == twInteger ? std::numeric_limits<qint16>::min()
                                    : std::numeric_limits<qint32>::min();
        const std::int64_t high = dataType == twByte ? 255
            : dataType == twInteger ? std::numeric_limits<qint16>::max()
                                    : std::numeric_limits<qint32>::max();
        if (n < low || n > high)
            return QVariant();
        *shownExactly = true;
        return dataType == twLong ? QVariant::fromValue<qint32>(qint32(n))
                                  : QVariant::fromValue<qint16>(qint16(n));
    }
    case twCurrency: {
        const std::string_view fraction = significantDecimals();
        if (fraction.size() > 4 || whole > 15)
            return QVariant();
        const std::int64_t units = wholeNumber(wholeDigits());
        if (units > CurrencyLimit)
            return QVariant();
        // Unsigned: the limit's whole part with four decimals may pass the signed range.
        std::uint64_t raw = std::uint64_t(units);
        for (size_t i = 0; i < 4; ++i)
            raw = raw * 10 + unsigned(i < fraction.size() ? fraction[i] - '0' : 0);
        if (raw > std::uint64_t(CurrencyLimit * Currency::Scale))
            return QVariant();
        *shownExactly = true;
        const auto magnitude = std::int64_t(raw);
        return QVariant::fromValue(Currency::fromRaw(negative ? -magnitude : magnitude));
    }
    case twDecimal: {
        // 28 digits stay below 2^96, so the digits are the mantissa as they stand.
        if (digits.size() > 28)
            return QVariant();
        unsigned __int128 m = 0;
        for (const char c : digits)
            m = m * 10 + unsigned(c - '0');
        *shownExactly = true;
        return QVariant::fromValue(Decimal::fromParts(std::uint32_t(m), std::uint32_t(m >> 32),
                                                      std::uint32_t(m >> 64), decimals,
                                                      negative && m != 0));
    }
    case twDouble: {
        if (digits.size() > FloatDigits)
            return QVariant();
        const std::optional<double> d = floatOf<double>(*this);
        if (!d || std::fabs(*d) > DoubleLimit)
            return QVariant();
        *shownExactly = decimalDigits().count <= DoubleDigits;
        return QVariant(*d);
    }
    case twSingle: {
        // A Single shows 7 digits, one more than a float keeps: it is never taken as typed.
        if (digits.size() > FloatDigits)
            return QVariant();
        const std::optional<float> f = floatOf<float>(*this);
        if (!f || std::fabs(double(*f)) > SingleLimit)
            return QVariant();
        return QVariant::fromValue<float>(*f);
    }
    default:
        return QVariant();
    }
}

} // namespace Tarnwell
