// TimeBox persistence and layout: its bag keys in their order, the common ones from the frame's
// table, and the up-down button at the right of the inner box.
#include <tarnwell/error.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/timebox.h>

#include "shared/bagkeys.h"
#include "shared/bagvalues.h"
#include "shared/commonproperties.h"
#include "shared/usersettings.h"
#include "timefields/timefields.h"

#include <cstdint>

namespace Tarnwell {

namespace {

const QString DefaultSeparator = QStringLiteral(":");

QVariant dateValue(Date date)
{
    return QVariant::fromValue(date);
}

} // namespace

void TimeBox::InitProperties()
{
    CommonProperties::initialise(*this);
    m_separator = DefaultSeparator.front();
    assignUpDown(false);
    m_format = twHourMinuteSecondAMPM;
    rebuildFields();
    assignInterceptArrowKeys(false);
    m_minimum = Date();
    m_maximum = Date(DayEndSerial);
    // A new control holds no time.
    m_time = Date();
    m_isValid = false;
    buildTimeMask();
    showTimeValue();
    relayout();
}

void TimeBox::WriteProperties(PropertyBag &bag) const
{
    using K = CommonKey;
    CommonProperties::write(*this, bag, {K::BackColor, K::Enabled, K::Font});
    bag.WriteProperty(BagKey::Format, qint32(m_format), qint32(twHourMinuteSecondAMPM));
    CommonProperties::write(*this, bag, {K::BorderStyle});
    bag.WriteProperty(BagKey::Separator, Separator(), DefaultSeparator);
    bag.WriteProperty(BagKey::UpDown, UpDown(), false);
    bag.WriteProperty(BagKey::InterceptArrowKeys, InterceptArrowKeys(), false);
    CommonProperties::write(*this, bag, {K::OLEDragMode, K::OLEDropMode, K::MouseIcon, K::MousePointer,
                                         K::Locked, K::SelectTextOnFocus, K::Alignment});
    bag.WriteProperty(BagKey::Minimum, dateValue(m_minimum), dateValue(Date()));
    bag.WriteProperty(BagKey::Maximum, dateValue(m_maximum), dateValue(Date(DayEndSerial)));
    CommonProperties::write(*this, bag, {K::NullIfEmpty, K::ToolTip, K::CheckBox, K::Checked,
                                         K::ForeColor, K::DisabledColor, K::EnterAsTab});
}

void TimeBox::ReadProperties(PropertyBag &bag)
{
    using K = CommonKey;
    const auto boolean = [](const QVariant &v) { return QVariant(BagValue::toBool(v)); };
    const auto date = [](const QVariant &v) { return dateValue(BagValue::toDate(v)); };

    BagPlan plan(*this);
    plan.key(BagKey::Separator, DefaultSeparator,
             [](const QVariant &v) {
                 const QString separator = BagValue::toString(v);
                 if (!TimeFields::isSeparatorText(separator))
                     throw Error(Error::InvalidPropertyValue);
                 return separator;
             },
             [this](const QVariant &v) { m_separator = v.toString().front(); })
        .common({K::BackColor, K::Enabled, K::Font})
        .key(BagKey::Format, qint32(twHourMinuteSecondAMPM),
             [](const QVariant &v) { return int(BagValue::toInt(v, INT32_MIN, INT32_MAX)); },
             [this](const QVariant &v) { m_format = v.toInt(); })
        .common({K::BorderStyle})
        .key(BagKey::UpDown, false, boolean, [this](const QVariant &v) { assignUpDown(v.toBool()); })
        .key(BagKey::InterceptArrowKeys, false, boolean,
             [this](const QVariant &v) { assignInterceptArrowKeys(v.toBool()); })
        .common({K::OLEDragMode, K::OLEDropMode, K::MouseIcon, K::MousePointer, K::Locked,
                 K::SelectTextOnFocus, K::Alignment})
        // The frame draws the border; the inner box never has one.
        .step([this] { innerBox()->setBorderStyle(twNone); })
        .key(BagKey::Minimum, dateValue(Date()), date,
             [this](const QVariant &v) { m_minimum = v.value<Date>(); })
        .key(BagKey::Maximum, dateValue(Date(DayEndSerial)), date,
             [this](const QVariant &v) { m_maximum = v.value<Date>(); })
        .step([this] {
            // Where a step starts; not a value, so nothing shows it.
            m_time = TimeFields::clampedNow(Date::now(), m_minimum, m_maximum);
            m_isValid = false;
            innerBox()->setPromptInclude(true);
            rebuildFields();
            applyBorder();
            buildTimeMask();
            showTimeValue();
        })
        .common({K::NullIfEmpty, K::ToolTip, K::CheckBox, K::Checked, K::ForeColor, K::DisabledColor})
        .step([this] { updateValueControls(); })
        .common({K::EnterAsTab})
        .step([this] { relayout(); });
    plan.read(bag);
}

// ---------------------------------------------------------------------------------------------
// Layout


} // namespace Tarnwell
