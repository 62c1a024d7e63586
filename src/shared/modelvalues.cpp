#include "shared/modelvalues.h"

#include <tarnwell/decimal.h>
#include <tarnwell/error.h>
#include <tarnwell/variant.h>

#include <limits>

namespace Tarnwell::ModelValues {

namespace {

template<typename T>
QVariant fitted(qlonglong n)
{
    if (n < qlonglong(std::numeric_limits<T>::min()) || n > qlonglong(std::numeric_limits<T>::max()))
        return QVariant();
    return QVariant::fromValue(T(n));
}

template<typename T>
QVariant fittedUnsigned(quint64 n)
{
    if (n > quint64(std::numeric_limits<T>::max()))
        return QVariant();
    return QVariant::fromValue(T(n));
}

// The whole number `digits` (a sign and decimal digits) as a value of the integer `type`;
// empty when it does not fit.
QVariant integerOf(const QString &digits, QMetaType type)
{
    bool ok = false;
    if (isUnsigned(type)) {
        const quint64 n = digits.toULongLong(&ok);
        if (!ok)
            return QVariant();
        switch (type.id()) {
        case QMetaType::UChar: return fittedUnsigned<uchar>(n);
        case QMetaType::UShort: return fittedUnsigned<ushort>(n);
        case QMetaType::UInt: return fittedUnsigned<uint>(n);
        case QMetaType::ULong: return fittedUnsigned<ulong>(n);
        default: return fittedUnsigned<qulonglong>(n);
        }
    }
    const qlonglong n = digits.toLongLong(&ok);
    if (!ok)
        return QVariant();
    switch (type.id()) {
    case QMetaType::Char: return fitted<char>(n);
    case QMetaType::SChar: return fitted<signed char>(n);
    case QMetaType::Short: return fitted<short>(n);
    case QMetaType::Int: return fitted<int>(n);
    case QMetaType::Long: return fitted<long>(n);
    default: return QVariant::fromValue(n);
    }
}

} // namespace

bool isInteger(QMetaType type)
{
    switch (type.id()) {
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::Short:
    case QMetaType::Int:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return true;
    default:
        return isUnsigned(type);
    }
}

bool isUnsigned(QMetaType type)
{
    switch (type.id()) {
    case QMetaType::UChar:
    case QMetaType::UShort:
    case QMetaType::UInt:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

bool isReal(QMetaType type)
{
    return type.id() == QMetaType::Double || type.id() == QMetaType::Float;
}

bool isWideInteger(QMetaType type)
{
    switch (type.id()) {
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

QVariant toNumber(const QVariant &value, QMetaType type)
{
    try {
        if (type.id() == QMetaType::Float)
            return QVariant::fromValue(Variant::toSingle(value));
        if (!isInteger(type))
            return QVariant::fromValue(Variant::toDouble(value));
        // Through Decimal, which holds every 64-bit integer and every Currency exactly.
        const Decimal whole = Variant::toDecimal(value).rounded(0);
        const QVariant integer = integerOf(whole.toString(QLocale::c()), type);
        return integer.isValid() ? integer : QVariant::fromValue(whole.toDouble());
    } catch (const Error &) {
        return QVariant();
    }
}

QVariant unwrapped(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<QVariant>())
        return value.value<QVariant>();
    return value;
}

QDate toQDate(const QVariant &value)
{
    if (value.metaType() != QMetaType::fromType<Date>())
        return QDate();
    return value.value<Date>().toQDate();
}

QTime toQTime(const QVariant &value)
{
    if (value.metaType() != QMetaType::fromType<Date>())
        return QTime();
    return value.value<Date>().toQTime();
}

std::optional<Date> fromQDate(const QDate &date)
{
    try {
        return Date::fromQDate(date);
    } catch (const Error &) {
        return std::nullopt;
    }
}

std::optional<Date> fromQTime(const QTime &time)
{
    if (!time.isValid())
        return std::nullopt;
    return Date::fromHms(time.hour(), time.minute(), time.second());
}

} // namespace Tarnwell::ModelValues
