// NumberBox's property bag: its keys in their order, with the common ones from the frame's table.
#include <tarnwell/error.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/variant.h>

#include "numberengine/numbereditor.h"
#include "numberengine/numbertype.h"
#include "shared/bagkeys.h"
#include "shared/bagvalues.h"
#include "shared/commonproperties.h"

#include <cstdint>

namespace Tarnwell {

namespace {

QVariant bagNumber(const QVariant &v)
{
    if (!Variant::isNumeric(v))
        throw Error(Error::InvalidPropertyValue);
    return v;
}

// The most decimals a formatter pattern is given from a bag (the Decimal type's scale).
constexpr int MaxStoredDecimalPlaces = 28;

} // namespace

// ---------------------------------------------------------------------------------------------
// Persistence

void NumberBox::InitProperties()
{
    CommonProperties::initialise(*this);
    m_editor->display().setThousandSeparator(true);
    m_editor->rules().setDataType(twCurrency);
    m_value = QVariant::fromValue<qint16>(0);
    m_editor->display().setDecimalPlaces(MaxDecimalPlaces());
    m_negativeColor = DefaultNegativeColor;
    m_useNegativeColor = true;
    m_negativeDisabledColor = DefaultNegativeDisabledColor;
    m_editor->display().setCurrencySymbol(QStringLiteral("$"));
    m_editor->display().setShowCurrencySymbol(twNoCurrency);
    assignUpDown(false);
    assignInterceptArrowKeys(false);
    showValue();
    relayout();
    applyTextColor();
}

void NumberBox::ReadProperties(PropertyBag &bag)
{
    using K = CommonKey;
    const QLocale locale = m_editor->display().locale();
    int dataType = twCurrency;
    // A number of the loaded type within the type's limits; a type outside the constants holds
    // nothing, so anything numeric loads into it as Empty.
    const auto number = [&dataType, &locale](const QVariant &v) {
        const QVariant n = bagNumber(v);
        if (NumberType::typeUpperLimit(dataType).isValid()
            && !NumberType::isInRange(n, false, dataType, QVariant(), QVariant(), locale))
            throw Error(Error::InvalidPropertyValue);
        return NumberType::convertToType(n, dataType, locale);
    };
    // An absent bound is the type's limit exactly as the DataType set leaves it (the Single and
    // Double figures stay the doubles they are published as); a stored one is taken in the type.
    const auto bound = [&bag, &dataType, &number](const QString &key, bool upper) {
        return [&bag, &dataType, &number, key, upper](const QVariant &v) {
            if (!bag.contains(key))
                return upper ? NumberType::typeUpperLimit(dataType) : NumberType::typeLowerLimit(dataType);
            return number(v);
        };
    };
    const auto boolean = [](const QVariant &v) { return QVariant(BagValue::toBool(v)); };
    const auto color = [](const QVariant &v) { return QVariant::fromValue(BagValue::toColor(v)); };

    BagPlan plan(*this);
    plan.key(BagKey::DataType, qint32(twCurrency),
             [&dataType](const QVariant &v) {
                 dataType = int(BagValue::toInt(v, INT32_MIN, INT32_MAX));
                 return dataType;
             },
             [this](const QVariant &v) { m_editor->rules().loadDataType(v.toInt()); })
        .key(BagKey::Minimum, QVariant(), bound(BagKey::Minimum, false),
             [this](const QVariant &v) { m_editor->rules().loadMinimum(v); })
        .key(BagKey::Maximum, QVariant(), bound(BagKey::Maximum, true),
             [this](const QVariant &v) { m_editor->rules().loadMaximum(v); })
        .key(BagKey::Value, QVariant::fromValue<qint16>(0), number,
             [this](const QVariant &v) { m_value = v; })
        .common({K::BackColor, K::Enabled, K::Font})
        .key(BagKey::ThousandSeparator, true, boolean,
             [this](const QVariant &v) { m_editor->display().setThousandSeparator(v.toBool()); })
        .common({K::Locked, K::MouseIcon})
        .key(BagKey::DecimalPlaces, qint16(0),
             [](const QVariant &v) { return int(BagValue::toInt(v, 0, MaxStoredDecimalPlaces)); },
             [this](const QVariant &v) { m_editor->display().setDecimalPlaces(qint16(v.toInt())); })
        .key(BagKey::UpDown, false, boolean, [this](const QVariant &v) { assignUpDown(v.toBool()); })
        .key(BagKey::Increment, QVariant::fromValue<qint16>(1), number,
             [this](const QVariant &v) { m_editor->rules().loadIncrement(v); })
        .key(BagKey::InterceptArrowKeys, false, boolean,
             [this](const QVariant &v) { assignInterceptArrowKeys(v.toBool()); })
        .common({K::BorderStyle, K::ForeColor, K::DisabledColor})
        .key(BagKey::NegativeColor, qint32(DefaultNegativeColor), color,
             [this](const QVariant &v) { m_negativeColor = qvariant_cast<OleColor>(v); })
        .key(BagKey::UseNegativeColor, true, boolean,
             [this](const QVariant &v) { m_useNegativeColor = v.toBool(); })
        .key(BagKey::NegativeDisabledColor, qint32(DefaultNegativeDisabledColor), color,
             [this](const QVariant &v) { m_negativeDisabledColor = qvariant_cast<OleColor>(v); })
        .common({K::Alignment, K::OLEDragMode, K::OLEDropMode, K::MouseIcon, K::MousePointer,
                 K::SelectTextOnFocus})
        .key(BagKey::CurrencySymbol, QStringLiteral("$"),
             [](const QVariant &v) { return BagValue::toString(v); },
             [this](const QVariant &v) { m_editor->display().setCurrencySymbol(v.toString()); })
        .key(BagKey::ShowCurrencySymbol, qint32(twNoCurrency),
             [](const QVariant &v) { return int(BagValue::toInt(v, twNoCurrency, twRight)); },
             [this](const QVariant &v) { m_editor->display().setShowCurrencySymbol(v.toInt()); })
        .step([this] { showValue(); })
        .common({K::ToolTip, K::Checked, K::CheckBox, K::NullIfEmpty})
        .step([this] { updateValueControls(); })
        .common({K::EnterAsTab})
        .step([this] {
            relayout();
            applyTextColor();
        });
    plan.read(bag);
}

void NumberBox::WriteProperties(PropertyBag &bag) const
{
    using K = CommonKey;
    const NumberRules &rules = m_editor->rules();
    bag.WriteProperty(BagKey::DataType, qint32(rules.dataType()), qint32(twCurrency));
    bag.WriteProperty(BagKey::Minimum, rules.minimum(), rules.lowerLimit());
    bag.WriteProperty(BagKey::Maximum, rules.maximum(), rules.upperLimit());
    bag.WriteProperty(BagKey::Value, m_value, QVariant::fromValue<qint16>(0));
    CommonProperties::write(*this, bag, {K::BackColor, K::Enabled, K::Font});
    bag.WriteProperty(BagKey::ThousandSeparator, ThousandSeparator(), true);
    CommonProperties::write(*this, bag, {K::Locked, K::MouseIcon});
    bag.WriteProperty(BagKey::DecimalPlaces, DecimalPlaces(), qint16(0));
    bag.WriteProperty(BagKey::UpDown, UpDown(), false);
    bag.WriteProperty(BagKey::Increment, rules.increment(), QVariant::fromValue<qint16>(1));
    bag.WriteProperty(BagKey::InterceptArrowKeys, InterceptArrowKeys(), false);
    CommonProperties::write(*this, bag, {K::BorderStyle, K::ForeColor, K::DisabledColor});
    bag.WriteProperty(BagKey::NegativeColor, qint32(m_negativeColor.value()), qint32(DefaultNegativeColor));
    bag.WriteProperty(BagKey::UseNegativeColor, m_useNegativeColor, true);
    bag.WriteProperty(BagKey::NegativeDisabledColor, qint32(m_negativeDisabledColor.value()),
                      qint32(DefaultNegativeDisabledColor));
    CommonProperties::write(*this, bag, {K::Alignment, K::OLEDragMode, K::OLEDropMode, K::MouseIcon,
                                         K::MousePointer, K::SelectTextOnFocus});
    bag.WriteProperty(BagKey::CurrencySymbol, CurrencySymbol(), QStringLiteral("$"));
    bag.WriteProperty(BagKey::ShowCurrencySymbol, qint32(ShowCurrencySymbol()), qint32(twNoCurrency));
    CommonProperties::write(*this, bag, {K::ToolTip, K::Checked, K::CheckBox, K::NullIfEmpty,
                                         K::EnterAsTab});
}

} // namespace Tarnwell
