#include "numberengine/numberrules.h"

#include "numberengine/numbertype.h"

#include <tarnwell/error.h>
#include <tarnwell/variant.h>

namespace Tarnwell {

namespace {

const QVariant &one()
{
    static const QVariant value = QVariant::fromValue<qint16>(1);
    return value;
}

} // namespace

NumberRules::NumberRules(int dataType, const QLocale &locale)
    : m_locale(locale)
{
    setDataType(dataType);
}

void NumberRules::setDataType(int dataType)
{
    m_dataType = dataType;
    m_minimum = NumberType::typeLowerLimit(dataType);
    m_maximum = NumberType::typeUpperLimit(dataType);
    m_increment = one();
}

QVariant NumberRules::lowerLimit() const
{
    return NumberType::typeLowerLimit(m_dataType);
}

QVariant NumberRules::upperLimit() const
{
    return NumberType::typeUpperLimit(m_dataType);
}

QVariant NumberRules::convert(const QVariant &value) const
{
    return NumberType::convertToType(value, m_dataType, m_locale);
}

bool NumberRules::isWithinLimits(const QVariant &value) const
{
    return NumberType::isInRange(value, false, m_dataType, QVariant(), QVariant(), m_locale);
}

bool NumberRules::isWithinRange(const QVariant &value) const
{
    return NumberType::isInRange(value, true, m_dataType, m_minimum, m_maximum, m_locale);
}

void NumberRules::checkNumber(const QVariant &value) const
{
    if (!Variant::isNumeric(value, m_locale))
        throw Error(Error::TypeMismatch);
    if (!isWithinLimits(value))
        throw Error(Error::Overflow);
}

bool NumberRules::setMinimum(const QVariant &minimum)
{
    checkNumber(minimum);
    const QVariant converted = convert(minimum);
    const std::optional<int> o = NumberType::compare(converted, convert(m_maximum), m_dataType);
    if (!o || *o > 0)
        return false;
    m_minimum = converted;
    return true;
}

bool NumberRules::setMaximum(const QVariant &maximum)
{
    checkNumber(maximum);
    const QVariant converted = convert(maximum);
    const std::optional<int> o = NumberType::compare(converted, convert(m_minimum), m_dataType);
    if (!o || *o < 0)
        return false;
    m_maximum = converted;
    return true;
}

void NumberRules::setIncrement(const QVariant &increment)
{
    checkNumber(increment);
    m_increment = convert(increment);
}

std::optional<QVariant> NumberRules::raisedToMinimum(const QVariant &value) const
{
    const std::optional<int> o = NumberType::compare(convert(value), m_minimum, m_dataType);
    if (o && *o < 0)
        return m_minimum;
    return std::nullopt;
}

std::optional<QVariant> NumberRules::loweredToMaximum(const QVariant &value) const
{
    const std::optional<int> o = NumberType::compare(convert(value), m_maximum, m_dataType);
    if (o && *o > 0)
        return m_maximum;
    return std::nullopt;
}

std::optional<QVariant> NumberRules::repairOnLeaving(const QVariant &value) const
{
    return NumberType::rangeRepair(value, m_dataType, m_minimum, m_maximum);
}

QVariant NumberRules::stepped(const QVariant &value, bool up) const
{
    const QVariant next = up ? NumberType::add(value, m_increment, m_dataType)
                             : NumberType::subtract(value, m_increment, m_dataType);
    if (!next.isValid() || !NumberType::isInRange(next, false, m_dataType))
        return QVariant();
    return next;
}

} // namespace Tarnwell
