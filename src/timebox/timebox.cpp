// TimeBox: its properties, the value, and what the inner box shows and reads.
#include <tarnwell/timebox.h>

#include <tarnwell/error.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/variant.h>

#include "innermask/innermaskeditor.h"
#include "shared/bagkeys.h"
#include "shared/commonproperties.h"
#include "shared/modelvalues.h"
#include "shared/polishrequests.h"
#include "shared/uservalue.h"
#include "timefields/timefields.h"

#include <QPointer>

namespace Tarnwell {

namespace {

// A time box starts left-aligned, without selecting on entry, in black text, unticked.
const CommonDefaults timeBoxDefaults{twLeftJustify, false, OleColor(0), OleColor(0), false};

// The tag text of the inner box: the format hint, kept for whoever looks (nothing here reads it).
const char TagProperty[] = "Tag";

} // namespace

TimeBox::TimeBox(QWidget *parent)
    : ValueBox(parent, InnerMaskEditor::factory(QStringLiteral("mdtTime")), ArrowKeysFollow::No),
      m_fields(std::make_unique<TimeFields>())
{
    Variant::registerTypes();
    setCommonDefaults(timeBoxDefaults);
    InitProperties();
    clearDirty();
    dropPolishRequests(this);
    m_userValue = std::make_unique<UserValue>(
        *this, [this] { return QVariant(time()); },
        [this](const QVariant &now) { emit timeChanged(now.toTime()); });
}

TimeBox::~TimeBox() = default;

MaskBox *TimeBox::innerBox() const
{
    return &InnerMaskEditor::boxOf(editor());
}

// ---------------------------------------------------------------------------------------------
// Properties

void TimeBox::setFormat(int format)
{
    m_format = format;
    rebuildFields();
    markDirty(BagKey::Format);
    buildTimeMask();
    showTimeValue();
}

void TimeBox::setSeparator(const QString &separator)
{
    if (!TimeFields::isSeparatorText(separator))
        throw Error(Error::InvalidPropertyValue);
    m_separator = separator.front();
    rebuildFields();
    buildTimeMask();
    showTimeValue();
    markDirty(BagKey::Separator);
}

void TimeBox::setMinimum(Date minimum)
{
    m_minimum = minimum;
    markDirty(BagKey::Minimum);
}

void TimeBox::setMaximum(Date maximum)
{
    m_maximum = maximum;
    markDirty(BagKey::Maximum);
}

// ---------------------------------------------------------------------------------------------
// Value

QVariant TimeBox::Value() const
{
    if (m_isValid && (!CheckBox() || Checked()))
        return QVariant::fromValue(m_time);
    return noValue();
}

void TimeBox::setValue(const QVariant &value)
{
    if (!UserMode())
        throw Error(Error::SetNotPermitted);
    // Converted before anything changes, so that a value that is no date changes nothing.
    const bool clears = isBlank(value);
    const Date time = clears ? Date() : Variant::toDate(value);
    QPointer<TimeBox> self(this);
    const std::optional<QVariant> accepted = beginValueSet(value);
    if (!accepted || !self)
        return;
    if (clears) {
        m_time = Date();
        m_isValid = false;
        UpdatingGuard updating(*this);
        buildTimeMask();
        innerBox()->setValue(Variant::null()); // clears the box, unticking a shown check box
        updateValueControls();
    } else if (TimeFields::inRange(time, m_minimum, m_maximum)) {
        m_time = time;
        m_isValid = true;
        showTimeValue();
    } else {
        m_isValid = false; // the old text stays until the box is shown again
    }
    if (self)
        emit Change();
}

QTime TimeBox::time() const
{
    return ModelValues::toQTime(Value());
}

void TimeBox::setTime(const QTime &time)
{
    m_userValue->write(time, [&] {
        const std::optional<Date> value = ModelValues::fromQTime(time);
        if (!value) {
            setValue(Variant::null());
            return;
        }
        // Value would take it and leave no time; here it is refused instead.
        if (!TimeFields::inRange(*value, m_minimum, m_maximum))
            throw Error(Error::InvalidPropertyValue);
        setValue(QVariant::fromValue(*value));
    });
}

// ---------------------------------------------------------------------------------------------
// What the inner box shows

void TimeBox::rebuildFields()
{
    *m_fields = TimeFields(m_format, m_separator);
}

void TimeBox::buildTimeMask()
{
    UpdatingGuard updating(*this);
    MaskBox *box = innerBox();
    // A format outside the constants has no mask of its own: the current one is sent again.
    if (const std::optional<QString> mask = m_fields->mask()) {
        m_currentMask = *mask;
        const QString hint = *m_fields->formatHint();
        box->setProperty(TagProperty, hint);
        setAccessibleDescription(hint);
    }
    box->setMask(m_currentMask);
}

bool TimeBox::textHidden() const
{
    return CheckBox() && !Checked();
}

void TimeBox::showTimeValue()
{
    UpdatingGuard updating(*this);
    MaskBox *box = innerBox();
    if (!UserMode()) {
        // At design time the box shows its mask, never a time.
        updateValueControls();
        return;
    }
    if (m_isValid) {
        const TimeFields::Shown shown = m_fields->shownTime(m_time);
        if (shown.mask) {
            m_currentMask = *shown.mask;
            box->setMask(m_currentMask);
        }
        // Writing a value into the inner box ticks its check box, as every refresh of a value
        // does (DateBox alike): a held time shows, and the box is ticked for it.
        box->setValue(shown.digits);
    } else {
        clearShownTime();
    }
    updateValueControls();
}

void TimeBox::clearShownTime()
{
    // Null empties the inner box and unticks its check box; an unticked box needs no more, and a
    // ticked one is emptied with a blank (which fits every position) so that it stays ticked.
    MaskBox *box = innerBox();
    if (box->CheckBox() && box->Checked())
        box->setValue(QString(QLatin1Char(' ')));
    else
        box->setValue(Variant::null());
}

// The inner box's text changed (typing, the A/P switch, its check box): read it again. The text
// itself is never rewritten here, so an out-of-range time stays visible while there is no value.
void TimeBox::onTextChanged(const QString &text)
{
    if (isUpdating())
        return;
    QPointer<TimeBox> self(this);
    // The inner box's Value, the characters of its input positions, tells a blank time apart.
    const QVariant raw = innerBox()->Value();
    const TimeFields::Reading reading =
        m_fields->read(text, raw.typeId() == QMetaType::QString ? raw.toString() : QString(),
                       m_minimum, m_maximum);
    m_isValid = reading.valid();
    m_time = m_isValid ? reading.time : Date();
    if (!controlHasFocus() && UserMode() && !textHidden()) {
        // A program wrote the inner box while nobody edits the control: the inner box would tidy
        // that text to its mask later, unheard, and leave it saying another time than Value. The
        // control shows what it read now, as leaving the control would.
        UpdatingGuard updating(*this);
        showTimeValue();
    }
    updateValueControls();
    markDirty(BagKey::Value);
    if (self)
        emit Change();
}

void TimeBox::onEnterFocus()
{
    showTimeValue();
    ControlFrame::onEnterFocus();
}

void TimeBox::onExitFocus()
{
    ControlFrame::onExitFocus();
    showTimeValue();
}

} // namespace Tarnwell
