// TimeBox keys and stepping: the A and P keys, the arrow keys and the up-down button.
#include <tarnwell/maskbox.h>
#include <tarnwell/timebox.h>

#include "platform/keyboard.h"
#include "shared/bagkeys.h"
#include "shared/frameeditor.h"
#include "timefields/timefields.h"

#include <QPointer>

namespace Tarnwell {

void TimeBox::handleKeyDown(short &keyCode, short &shift)
{
    if (!arrowKeyStep(keyCode, shift))
        return; // the masked box moves the caret
    keyCode = 0;
    shift = 0;
}

void TimeBox::handleKeyPress(short &keyAscii)
{
    // Digits and everything else go on to the masked box; so do A and P in the 24-hour formats,
    // where the mask refuses them as it refuses any letter.
    if (Locked() || !m_fields->hasAmPm() || !TimeFields::dayHalfOfKey(keyAscii))
        return;
    try {
        switchDayHalf(keyAscii);
    } catch (...) {
        // A switch that fails half-way is one not made.
    }
    keyAscii = 0; // A and P never reach the mask, switched or not
}

void TimeBox::switchDayHalf(short keyAscii)
{
    const int selStart = SelStart();
    const int selLength = SelLength();
    const TimeFields::DayHalfSwitch result = m_fields->switchDayHalf(
        innerBox()->Text(), *TimeFields::dayHalfOfKey(keyAscii), m_minimum, m_maximum);
    if (!result.made)
        return; // out of range, or no time to switch: nothing changes
    QPointer<TimeBox> self(this);
    m_currentMask = result.mask;
    // No UpdatingGuard here: the new marker is read back from the text, with Change.
    innerBox()->setMask(m_currentMask);
    if (!self)
        return;
    m_time = *result.candidate;
    editor().setSelStart(selStart);
    editor().setSelLength(selLength);
}

// One step of the field under the caret, from the stored time or, with none, from now
// brought into the range; a step that would leave the range is dropped.
bool TimeBox::stepValue(bool up)
{
    const int caret = SelStart();
    const std::optional<Date> next = m_fields->step(stepBase(), caret, up, m_minimum, m_maximum);
    if (!next)
        return false; // outside the range: no text, no value, no event
    m_time = *next;
    m_isValid = true;
    showTimeValue();
    editor().setSelStart(caret);
    return true;
}

ValueBox::StepEnabled TimeBox::stepEnabled() const
{
    const Date base = stepBase();
    const int caret = SelStart();
    StepEnabled enabled;
    if (m_fields->step(base, caret, true, m_minimum, m_maximum))
        enabled |= StepUpEnabled;
    if (m_fields->step(base, caret, false, m_minimum, m_maximum))
        enabled |= StepDownEnabled;
    return enabled;
}

Date TimeBox::stepBase() const
{
    return m_isValid ? m_time : TimeFields::clampedNow(Date::now(), m_minimum, m_maximum);
}

} // namespace Tarnwell
