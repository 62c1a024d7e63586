// DateBox: its properties, the value and the display of the inner mask box.
#include <tarnwell/datebox.h>

#include <tarnwell/error.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/variant.h>

#include "datefields/datefields.h"
#include "innermask/innermaskeditor.h"
#include "platform/dateformat.h"
#include "shared/bagkeys.h"
#include "shared/datepicker.h"
#include "shared/focustracker.h"
#include "shared/modelvalues.h"
#include "shared/polishrequests.h"
#include "shared/slotguard.h"
#include "shared/uservalue.h"

#include <QPointer>

namespace Tarnwell {

DateBox::DateBox(QWidget *parent)
    : ValueBox(parent, InnerMaskEditor::factory(QStringLiteral("mdtDate")), ArrowKeysFollow::Silently),
      m_fields(std::make_unique<DateFields>()),
      m_separator(QStringLiteral("/"))
{
    Variant::registerTypes();
    m_picker = new DatePicker(this, Date()); // InitProperties gives it today
    m_picker->setObjectName(QStringLiteral("fdt"));
    // Reached by its button and the keys of the date text, never by Tab.
    m_picker->setFocusPolicy(Qt::ClickFocus);
    m_picker->setAnchor(this);
    connect(m_picker, &DatePicker::DropDown, this, guardedSlot([this] { pickerDropDown(); }));
    connect(m_picker, &DatePicker::Change, this, guardedSlot([this] { pickerChange(); }));
    InitProperties();
    clearDirty();
    dropPolishRequests(this);
    m_userValue = std::make_unique<UserValue>(
        *this, [this] { return QVariant(date()); },
        [this](const QVariant &now) { emit dateChanged(now.toDate()); });
}

DateBox::~DateBox()
{
    FocusTracker::forget(this); // the calendar may hold the focus it gives up below
    // The calendar goes first, while this control is whole; nothing of it reaches here any more.
    disconnect(m_picker, nullptr, this, nullptr);
    if (QWidget *popup = m_picker->popup())
        popup->removeEventFilter(this);
    delete m_picker;
    m_picker = nullptr;
}

bool DateBox::isSeparator(const QString &s)
{
    return s.size() == 1 && QStringView(u" /-.").contains(s.at(0));
}

MaskBox &DateBox::box() const
{
    return InnerMaskEditor::boxOf(editor());
}

void DateBox::rebuildFields()
{
    if (m_fields->format() != m_format || m_fields->separator() != m_separator.at(0))
        *m_fields = DateFields(m_format, m_separator.at(0));
}

Date DateBox::clampedToday() const
{
    return DateFields::clampedToday(Date::today(), Minimum(), Maximum());
}

void DateBox::setPickerValue(Date date)
{
    try {
        m_picker->setValue(date);
    } catch (const Error &) {
        // A date the calendar does not hold leaves it where it was.
    }
}

// ---------------------------------------------------------------------------------------------
// Value

QVariant DateBox::Value() const
{
    if (m_valid && (!CheckBox() || Checked()))
        return QVariant::fromValue(m_value);
    return noValue();
}

void DateBox::setValue(const QVariant &value)
{
    // Converted before anything moves, so that a value that is no date changes nothing; the
    // design-time refusal comes first.
    std::optional<Date> date;
    const bool blank = isBlank(value);
    if (UserMode() && !blank)
        date = Variant::toDate(value);
    QPointer<DateBox> self(this);
    const std::optional<QVariant> accepted = beginValueSet(value);
    if (!accepted || !self)
        return;
    if (!date) {
        m_value = Date();
        m_valid = false;
    } else if (*date >= Minimum() && *date <= Maximum()) {
        m_value = *date;
        m_valid = true;
    } else {
        m_valid = false; // the previous date stays, unshown
    }
    refreshDisplay();
    emit Change();
}

QDate DateBox::date() const
{
    return ModelValues::toQDate(Value());
}

void DateBox::setDate(const QDate &date)
{
    m_userValue->write(date, [&] {
        if (!date.isValid()) {
            setValue(Variant::null());
            return;
        }
        const std::optional<Date> value = ModelValues::fromQDate(date);
        if (!value)
            throw Error(Error::Overflow);
        // Value would take it and leave no valid date; here it is refused instead.
        if (*value < Minimum() || *value > Maximum())
            throw Error(Error::InvalidPropertyValue);
        setValue(QVariant::fromValue(*value));
    });
}

// ---------------------------------------------------------------------------------------------
// Format, separator, display pattern

void DateBox::setFormat(int format)
{
    m_format = format;
    rebuildFields();
    markDirty(BagKey::Format);
    // An unknown format keeps the pattern it has; "DisplayFormat" is not reported changed.
    if (const std::optional<QString> pattern = m_fields->displayPattern())
        m_displayFormat = *pattern;
    relayout(); // the button may change
    refreshDisplay();
}

void DateBox::setSeparator(const QString &separator)
{
    if (!isSeparator(separator))
        throw Error(Error::InvalidPropertyValue);
    m_separator = separator;
    rebuildFields();
    // The edit mask takes it now; the display pattern only when Format is set again.
    refreshDisplay();
    markDirty(BagKey::Separator);
}

void DateBox::setDisplayFormat(const QString &pattern)
{
    m_displayFormat = pattern;
    markDirty(BagKey::DisplayFormat);
    refreshDisplay();
}

// ---------------------------------------------------------------------------------------------
// Range, buttons, calendar

Date DateBox::Minimum() const
{
    return m_picker->MinDate();
}

void DateBox::setMinimum(Date minimum)
{
    try {
        m_picker->setMinDate(minimum);
    } catch (const Error &) {
    }
    markDirty(BagKey::Minimum);
}

Date DateBox::Maximum() const
{
    return m_picker->MaxDate();
}

void DateBox::setMaximum(Date maximum)
{
    try {
        m_picker->setMaxDate(maximum);
    } catch (const Error &) {
    }
    markDirty(BagKey::Maximum);
}

void DateBox::setCalendarColor(int part, OleColor color, const QString &name)
{
    m_picker->setCalendarColor(DatePicker::ColorPart(part), color);
    markDirty(name);
}

OleColor DateBox::CalendarBackColor() const { return m_picker->CalendarBackColor(); }
OleColor DateBox::CalendarForeColor() const { return m_picker->CalendarForeColor(); }
OleColor DateBox::CalendarTitleBackColor() const { return m_picker->CalendarTitleBackColor(); }
OleColor DateBox::CalendarTitleForeColor() const { return m_picker->CalendarTitleForeColor(); }
OleColor DateBox::CalendarTrailingForeColor() const
{
    return m_picker->CalendarTrailingForeColor();
}
void DateBox::setCalendarBackColor(OleColor c)
{
    setCalendarColor(DatePicker::MonthBack, c, BagKey::CalendarBackColor);
}
void DateBox::setCalendarForeColor(OleColor c)
{
    setCalendarColor(DatePicker::MonthFore, c, BagKey::CalendarForeColor);
}
void DateBox::setCalendarTitleBackColor(OleColor c)
{
    setCalendarColor(DatePicker::TitleBack, c, BagKey::CalendarTitleBackColor);
}
void DateBox::setCalendarTitleForeColor(OleColor c)
{
    setCalendarColor(DatePicker::TitleFore, c, BagKey::CalendarTitleForeColor);
}
void DateBox::setCalendarTrailingForeColor(OleColor c)
{
    setCalendarColor(DatePicker::TrailingFore, c, BagKey::CalendarTrailingForeColor);
}

QFont DateBox::CalendarFont() const
{
    return m_calendarFont ? *m_calendarFont : ambientFont();
}

void DateBox::setCalendarFont(const QFont &font)
{
    m_calendarFont = font;
    m_picker->setFont(font);
    markDirty(BagKey::CalendarFont);
}

// ---------------------------------------------------------------------------------------------
// Display

void DateBox::refreshDisplay()
{
    if (!m_picker)
        return; // being destroyed
    UpdatingGuard updating(*this);
    MaskBox &inner = box();
    if (const std::optional<QString> mask = m_fields->editMask())
        inner.setMask(*mask);
    // At design time the inner box shows its mask and takes no value.
    if (m_valid && UserMode()) {
        if (controlHasFocus()) {
            inner.setValue(m_fields->dateToEditDigits(m_value));
        } else {
            inner.setMask(QString());
            inner.setValue(DateFormat::format(m_value, m_displayFormat));
        }
    } else if (!m_valid && UserMode() && !controlHasFocus()) {
        inner.setValue(Variant::null()); // clears a shown check box, hence the rule below
        updateValueControls();
    }
    // Today as the range allows: a today outside it would leave the calendar on a stale date.
    setPickerValue(m_valid ? m_value : clampedToday());
}

// Typing: every accepted change of the text is read back, valid or not, and raises Change.
void DateBox::onTextChanged(const QString &text)
{
    if (isUpdating() || Locked() || !controlHasFocus())
        return;
    {
        UpdatingGuard updating(*this);
        const DateFields::Reading reading = m_fields->parseEditText(text, Minimum(), Maximum());
        m_valid = reading.isAcceptable();
        m_value = m_valid ? reading.date : clampedToday();
        setPickerValue(m_value);
        updateValueControls();
    }
    markDirty(BagKey::Value);
    emit Change();
}

void DateBox::onEnterFocus()
{
    refreshDisplay(); // edit digits in the numeric mask
    ControlFrame::onEnterFocus();
}

void DateBox::onExitFocus()
{
    refreshDisplay(); // the display pattern, or nothing
}

} // namespace Tarnwell
