// DateBox: a new control, the property bag in its key orders, and the layout.
#include <tarnwell/datebox.h>

#include <tarnwell/error.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/propertybag.h>

#include "datefields/datefields.h"
#include "shared/bagkeys.h"
#include "shared/bagvalues.h"
#include "shared/commonproperties.h"
#include "shared/datepicker.h"
#include "shared/updownstepper.h"
#include "shared/usersettings.h"

#include <cstdint>

namespace Tarnwell {

namespace {

// Left-aligned black text on the window colour, check box cleared.
const CommonDefaults dateBoxDefaults{twLeftJustify, true, OleColor(0), OleColor(0), false};

const QString DefaultSeparator = QStringLiteral("/");
const QString DefaultDisplayFormat = QStringLiteral("dd/mmm/yyyy");

// The calendar colours, each with its default, in the order they are stored.
struct CalendarColor {
    const QString &key;
    DatePicker::ColorPart part;
    std::uint32_t defaultColor;
};
const CalendarColor calendarColors[] = {
    {BagKey::CalendarBackColor, DatePicker::MonthBack, OleColor::WindowBackground},
    {BagKey::CalendarForeColor, DatePicker::MonthFore, OleColor::ButtonText},
    {BagKey::CalendarTitleBackColor, DatePicker::TitleBack, OleColor::ButtonFace},
    {BagKey::CalendarTitleForeColor, DatePicker::TitleFore, OleColor::ButtonText},
    {BagKey::CalendarTrailingForeColor, DatePicker::TrailingFore, OleColor::GrayText},
};

QVariant colorValue(OleColor color)
{
    return QVariant(qint32(color.value()));
}

QVariant dateValue(Date date)
{
    return QVariant::fromValue(date);
}

} // namespace

void DateBox::InitProperties()
{
    setCommonDefaults(dateBoxDefaults);
    CommonProperties::initialise(*this);
    m_separator = DefaultSeparator;
    m_format = twDayMonthYear;
    rebuildFields();
    m_displayFormat = DefaultDisplayFormat;
    assignUpDown(true);
    assignInterceptArrowKeys(false);
    m_picker->setMinDate(DateFields::MinimumDate);
    m_picker->setMaxDate(DateFields::MaximumDate);
    for (const CalendarColor &c : calendarColors)
        m_picker->setCalendarColor(c.part, c.defaultColor);
    m_calendarFont.reset();
    m_picker->setFont(QFont()); // the control's own, so the ambient one
    m_valid = false;
    m_value = Date(); // no date: the calendar shows today
    box().setPromptInclude(true);
    relayout();
    refreshDisplay();
    updateValueControls();
}

void DateBox::ReadProperties(PropertyBag &bag)
{
    using K = CommonKey;
    const auto boolean = [](const QVariant &v) { return QVariant(BagValue::toBool(v)); };
    const auto color = [](const QVariant &v) { return QVariant::fromValue(BagValue::toColor(v)); };
    const auto text = [](const QVariant &v) { return QVariant(BagValue::toString(v)); };
    const auto date = [](const QVariant &v) { return QVariant::fromValue(BagValue::toDate(v)); };
    // A bound the calendar refuses is dropped, as when it is set. The maximum comes first; one
    // below the minimum in force is taken once the bag's minimum is.
    const auto bound = [this](bool maximum, const QVariant &v) {
        try {
            const Date d = v.value<Date>();
            maximum ? m_picker->setMaxDate(d) : m_picker->setMinDate(d);
        } catch (const Error &) {
        }
    };
    QVariant maximum;

    BagPlan plan(*this);
    plan.key(BagKey::Separator, DefaultSeparator,
             [](const QVariant &v) {
                 const QString s = BagValue::toString(v);
                 if (!isSeparator(s))
                     throw Error(Error::InvalidPropertyValue);
                 return s;
             },
             [this](const QVariant &v) { m_separator = v.toString(); })
        .common({K::BackColor, K::Enabled, K::Font})
        .key(BagKey::Format, qint32(twDayMonthYear),
             [](const QVariant &v) { return int(BagValue::toInt(v, INT32_MIN, INT32_MAX)); },
             [this](const QVariant &v) {
                 m_format = v.toInt();
                 rebuildFields();
             })
        .key(BagKey::DisplayFormat, DefaultDisplayFormat, text,
             [this](const QVariant &v) { m_displayFormat = v.toString(); })
        .common({K::BorderStyle})
        .key(BagKey::UpDown, true, boolean, [this](const QVariant &v) { assignUpDown(v.toBool()); })
        .step([this] {
            applyBorder();
            refreshDisplay();
        })
        .key(BagKey::Maximum, dateValue(DateFields::MaximumDate), date,
             [&](const QVariant &v) {
                 maximum = v;
                 bound(true, v);
             })
        .key(BagKey::Minimum, dateValue(DateFields::MinimumDate), date,
             [&](const QVariant &v) {
                 bound(false, v);
                 if (m_picker->MaxDate() != maximum.value<Date>())
                     bound(true, maximum);
             })
        .key(BagKey::InterceptArrowKeys, false, boolean,
             [this](const QVariant &v) { assignInterceptArrowKeys(v.toBool()); })
        .common({K::OLEDragMode, K::OLEDropMode});
    for (const CalendarColor &c : calendarColors) {
        const auto assign = [this, part = c.part](const QVariant &v) {
            m_picker->setCalendarColor(part, qvariant_cast<OleColor>(v));
        };
        plan.key(c.key, colorValue(c.defaultColor), color, assign);
    }
    plan.common({K::MouseIcon, K::MousePointer, K::Alignment, K::Locked, K::SelectTextOnFocus})
        .step([this] {
            // A loaded box holds no date; the calendar shows today.
            m_valid = false;
            m_value = clampedToday();
            box().setPromptInclude(true);
            relayout();
            refreshDisplay();
        })
        .key(BagKey::CalendarFont, ambientFont(),
             [](const QVariant &v) { return QVariant(BagValue::toFont(v)); },
             [this](const QVariant &v) {
                 const QFont font = qvariant_cast<QFont>(v);
                 if (font == ambientFont()) {
                     m_calendarFont.reset();
                     m_picker->setFont(QFont());
                 } else {
                     m_calendarFont = font;
                     m_picker->setFont(font);
                 }
             })
        .common({K::NullIfEmpty, K::ToolTip, K::CheckBox, K::Checked})
        .step([this] { updateValueControls(); })
        .common({K::DisabledColor, K::ForeColor, K::EnterAsTab});
    plan.read(bag);
}

void DateBox::WriteProperties(PropertyBag &bag) const
{
    using K = CommonKey;
    CommonProperties::write(*this, bag, {K::BackColor, K::Enabled, K::Font});
    bag.WriteProperty(BagKey::Format, qint32(m_format), qint32(twDayMonthYear));
    CommonProperties::write(*this, bag, {K::BorderStyle});
    bag.WriteProperty(BagKey::DisplayFormat, m_displayFormat, DefaultDisplayFormat);
    bag.WriteProperty(BagKey::Separator, m_separator, DefaultSeparator);
    bag.WriteProperty(BagKey::UpDown, UpDown(), true);
    bag.WriteProperty(BagKey::InterceptArrowKeys, InterceptArrowKeys(), false);
    CommonProperties::write(*this, bag, {K::OLEDragMode, K::OLEDropMode});
    for (const CalendarColor &c : calendarColors)
        bag.WriteProperty(c.key, colorValue(m_picker->calendarColor(c.part)),
                          colorValue(c.defaultColor));
    CommonProperties::write(*this, bag, {K::MouseIcon, K::MousePointer, K::Alignment, K::Locked,
                                         K::SelectTextOnFocus});
    bag.WriteProperty(BagKey::Maximum, QVariant::fromValue(Maximum()), dateValue(DateFields::MaximumDate));
    bag.WriteProperty(BagKey::Minimum, QVariant::fromValue(Minimum()), dateValue(DateFields::MinimumDate));
    bag.WriteProperty(BagKey::CalendarFont, CalendarFont(), ambientFont());
    CommonProperties::write(*this, bag, {K::NullIfEmpty, K::ToolTip, K::CheckBox, K::Checked,
                                         K::DisabledColor, K::ForeColor, K::EnterAsTab});
}

// ---------------------------------------------------------------------------------------------
// Layout

// A month-and-year box gets the spin button, every other box the calendar button, never both;
// the button takes the last ScrollWidth of the inner width and its full height.
bool DateBox::showsUpDownButton() const
{
    return m_format == twMonthYear;
}

void DateBox::relayout()
{
    ValueBox::relayout(); // the date text less the button's width, and the spin button
    if (!m_picker)
        return; // still constructing
    m_picker->setVisible(UpDown() && !showsUpDownButton());
    if (m_picker->isVisibleTo(this))
        placeTwips(m_picker, buttonLeftTwips(), 0, reservedWidth(), innerHeightTwips());
}

void DateBox::updateValueControls()
{
    ValueBox::updateValueControls();
    if (m_picker)
        m_picker->setEnabled(valueControlsEnabled());
}

} // namespace Tarnwell
