#include "numberengine/numbertype.h"

#include <tarnwell/constants.h>
#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>
#include <tarnwell/variant.h>

#include <cmath>
#include <exception>
#include <limits>

namespace Tarnwell {

namespace {

constexpr double SingleLimit = 3.402823E+38;
constexpr double DoubleLimit = 1.79769313486231E+308;
constexpr std::int64_t CurrencyLimit = 922337203685477;

int compareDoubles(double l, double r)
{
    return l < r ? -1 : (r < l ? 1 : 0);
}

bool isKnownType(int dataType)
{
    return dataType >= twByte && dataType <= twDecimal;
}

bool isIntegerType(int dataType)
{
    return dataType == twByte || dataType == twInteger || dataType == twLong;
}

// An integer result back into the type's storage, or Empty when it does not fit.
QVariant fromInt64(std::int64_t n, int dataType)
{
    switch (dataType) {
    case twByte:
        return n >= 0 && n <= 255 ? QVariant::fromValue<qint16>(qint16(n)) : QVariant();
    case twInteger:
        return n >= std::numeric_limits<qint16>::min() && n <= std::numeric_limits<qint16>::max()
            ? QVariant::fromValue<qint16>(qint16(n)) : QVariant();
    case twLong:
        return n >= std::numeric_limits<qint32>::min() && n <= std::numeric_limits<qint32>::max()
            ? QVariant::fromValue<qint32>(qint32(n)) : QVariant();
    default:
        return QVariant();
    }
}

QVariant fromDouble(double d, int dataType)
{
    if (!std::isfinite(d))
        return QVariant();
    if (dataType == twDouble)
        return QVariant(d);
    if (std::fabs(d) > double(std::numeric_limits<float>::max()))
        return QVariant();
    return QVariant::fromValue<float>(float(d));
}

enum class Op { Add, Subtract };

QVariant arithmetic(const QVariant &a, const QVariant &b, int dataType, Op op)
{
    const QVariant x = NumberType::convertToType(a, dataType);
    const QVariant y = NumberType::convertToType(b, dataType);
    if (!x.isValid() || !y.isValid())
        return QVariant();
    try {
        if (isIntegerType(dataType)) {
            const std::int64_t l = x.toLongLong(), r = y.toLongLong();
            return fromInt64(op == Op::Add ? l + r : l - r, dataType);
        }
        switch (dataType) {
        case twSingle:
        case twDouble: {
            const double l = Variant::toDouble(x), r = Variant::toDouble(y);
            return fromDouble(op == Op::Add ? l + r : l - r, dataType);
        }
        case twCurrency: {
            const Currency l = x.value<Currency>(), r = y.value<Currency>();
            return QVariant::fromValue(op == Op::Add ? l + r : l - r);
        }
        case twDecimal: {
            const Decimal l = x.value<Decimal>(), r = y.value<Decimal>();
            return QVariant::fromValue(op == Op::Add ? l + r : l - r);
        }
        default:
            break;
        }
    } catch (const std::exception &) {
    }
    return QVariant();
}

} // namespace

QVariant NumberType::typeLowerLimit(int dataType)
{
    switch (dataType) {
    case twByte: return QVariant::fromValue<qint16>(0);
    case twInteger: return QVariant::fromValue<qint16>(std::numeric_limits<qint16>::min());
    case twLong: return QVariant::fromValue<qint32>(std::numeric_limits<qint32>::min());
    case twSingle: return QVariant(-SingleLimit);
    case twDouble: return QVariant(-DoubleLimit);
    case twCurrency: return QVariant::fromValue(Currency::fromRaw(-CurrencyLimit * Currency::Scale));
    case twDecimal: return QVariant::fromValue(Decimal::min());
    default: return QVariant();
    }
}

QVariant NumberType::typeUpperLimit(int dataType)
{
    switch (dataType) {
    case twByte: return QVariant::fromValue<qint16>(255);
    case twInteger: return QVariant::fromValue<qint16>(std::numeric_limits<qint16>::max());
    case twLong: return QVariant::fromValue<qint32>(std::numeric_limits<qint32>::max());
    case twSingle: return QVariant(SingleLimit);
    case twDouble: return QVariant(DoubleLimit);
    case twCurrency: return QVariant::fromValue(Currency::fromRaw(CurrencyLimit * Currency::Scale));
    case twDecimal: return QVariant::fromValue(Decimal::max());
    default: return QVariant();
    }
}

QVariant NumberType::convertToType(const QVariant &value, int dataType, const QLocale &locale)
{
    try {
        switch (dataType) {
        case twByte: {
            const qint16 n = Variant::toInteger(value, locale);
            return n >= 0 && n < 256 ? QVariant::fromValue<qint16>(n) : QVariant();
        }
        case twInteger: return QVariant::fromValue<qint16>(Variant::toInteger(value, locale));
        case twLong: return QVariant::fromValue<qint32>(Variant::toLong(value, locale));
        case twSingle: return QVariant::fromValue<float>(Variant::toSingle(value, locale));
        case twDouble: return QVariant(Variant::toDouble(value, locale));
        case twCurrency: return QVariant::fromValue(Variant::toCurrency(value, locale));
        case twDecimal: return QVariant::fromValue(Variant::toDecimal(value, locale));
        default: break;
        }
    } catch (const std::exception &) {
    }
    return QVariant();
}

bool NumberType::isInRange(const QVariant &value, bool useMinMax, int dataType,
                           const QVariant &minimum, const QVariant &maximum, const QLocale &locale)
{
    const QVariant v = convertToType(value, dataType, locale);
    if (!v.isValid())
        return false;
    const QVariant lower = useMinMax ? convertToType(minimum, dataType, locale)
                                     : typeLowerLimit(dataType);
    const QVariant upper = useMinMax ? convertToType(maximum, dataType, locale)
                                     : typeUpperLimit(dataType);
    if (!lower.isValid() || !upper.isValid())
        return false;
    const std::optional<int> low = compare(v, lower, dataType);
    const std::optional<int> high = compare(v, upper, dataType);
    return low && high && *low >= 0 && *high <= 0;
}

qint16 NumberType::regionalDecimalPlaces(int dataType, const QString &iDigits,
                                         const QString &iCurrDigits)
{
    const QString *setting = nullptr;
    switch (dataType) {
    case twByte:
    case twInteger:
    case twLong:
        return 0;
    case twSingle:
    case twDouble:
        setting = &iDigits;
        break;
    case twCurrency:
    case twDecimal:
        setting = &iCurrDigits;
        break;
    default:
        return 0;
    }
    bool ok = false;
    const int places = setting->trimmed().toInt(&ok);
    if (!ok || places < 0)
        return 2;
    return qint16(std::min(places, 9));
}

std::optional<int> NumberType::compare(const QVariant &a, const QVariant &b, int dataType)
{
    if (!isKnownType(dataType))
        return std::nullopt;
    try {
        if (dataType == twCurrency) {
            const Currency l = Variant::toCurrency(a), r = Variant::toCurrency(b);
            return l < r ? -1 : (r < l ? 1 : 0);
        }
        if (dataType == twDecimal) {
            const Decimal l = Variant::toDecimal(a), r = Variant::toDecimal(b);
            return l < r ? -1 : (r < l ? 1 : 0);
        }
        // Each side as it is held: a Single promotes exactly to double, so a value stored as
        // the float nearest 3.402823E+38 lies above that limit held as a double.
        const double l = Variant::toDouble(a), r = Variant::toDouble(b);
        if (std::isnan(l) || std::isnan(r))
            return std::nullopt;
        return compareDoubles(l, r);
    } catch (const std::exception &) {
    }
    return std::nullopt;
}

QVariant NumberType::add(const QVariant &a, const QVariant &b, int dataType)
{
    return arithmetic(a, b, dataType, Op::Add);
}

QVariant NumberType::subtract(const QVariant &a, const QVariant &b, int dataType)
{
    return arithmetic(a, b, dataType, Op::Subtract);
}

QVariant NumberType::negate(const QVariant &a, int dataType)
{
    return arithmetic(QVariant::fromValue<qint16>(0), a, dataType, Op::Subtract);
}

bool NumberType::isNegative(const QVariant &value)
{
    try {
        switch (Variant::kind(value)) {
        case Variant::Empty: return false;
        case Variant::CurrencyKind: return value.value<Currency>().raw() < 0;
        case Variant::DecimalKind: {
            const Decimal d = value.value<Decimal>();
            return d.isNegative() && !d.isZero();
        }
        default: return Variant::toDouble(value) < 0;
        }
    } catch (const std::exception &) {
    }
    return false;
}

bool NumberType::isZero(const QVariant &value)
{
    try {
        switch (Variant::kind(value)) {
        case Variant::Empty: return true;
        case Variant::CurrencyKind: return value.value<Currency>().raw() == 0;
        case Variant::DecimalKind: return value.value<Decimal>().isZero();
        default: return Variant::toDouble(value) == 0;
        }
    } catch (const std::exception &) {
    }
    return false;
}

std::optional<QVariant> NumberType::rangeRepair(const QVariant &value, int dataType,
                                                const QVariant &minimum, const QVariant &maximum)
{
    if (isInRange(value, true, dataType, minimum, maximum))
        return std::nullopt;
    const QVariant zero = QVariant::fromValue<qint16>(0);
    const std::optional<int> order = compare(zero, convertToType(minimum, dataType), dataType);
    if (order && *order < 0)
        return minimum;
    return zero;
}

} // namespace Tarnwell
