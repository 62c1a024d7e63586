// DateBox: keys, stepping the field under the caret, and the drop-down calendar.
#include <tarnwell/datebox.h>

#include <tarnwell/maskbox.h>

#include "datefields/datefields.h"
#include "platform/keyboard.h"
#include "shared/bagkeys.h"
#include "shared/datepicker.h"
#include "shared/keysender.h"

#include <QEvent>
#include <QPointer>

namespace Tarnwell {

namespace {

constexpr short VkF4 = Keyboard::VkF1 + 3;

} // namespace

void DateBox::handleKeyDown(short &keyCode, short &shift)
{
    if (shift == 0 && arrowKeyStep(keyCode, shift)) {
        keyCode = 0;
    } else if ((keyCode == Keyboard::VkDown && shift == Keyboard::AltBit)
               || (keyCode == VkF4 && shift == 0)) {
        // F4 opens the calendar too, as on the desktop's own date pickers.
        keyCode = 0;
        shift = 0;
        ShowDropDown();
    }
}

// One field of the date moves by one, the field being the one under the caret; a date outside
// Minimum..Maximum is dropped with no event.
bool DateBox::stepValue(bool up)
{
    const int caret = box().SelStart();
    const std::optional<Date> stepped =
        m_fields->step(m_valid ? m_value : clampedToday(), caret, up, Minimum(), Maximum());
    if (!stepped)
        return false;
    m_value = *stepped;
    m_valid = true;
    setPickerValue(m_value);
    refreshDisplay();
    box().setSelStart(caret); // the caret stays on its field
    return true;
}

ValueBox::StepEnabled DateBox::stepEnabled() const
{
    const Date start = m_valid ? m_value : clampedToday();
    const int caret = box().SelStart();
    StepEnabled enabled;
    if (m_fields->step(start, caret, true, Minimum(), Maximum()))
        enabled |= StepUpEnabled;
    if (m_fields->step(start, caret, false, Minimum(), Maximum()))
        enabled |= StepDownEnabled;
    return enabled;
}

void DateBox::ShowDropDown()
{
    if (m_picker->isHidden())
        return;
    m_picker->setFocus(Qt::OtherFocusReason);
    if (!m_picker->hasFocus()) {
        // A window without the keyboard would send the replayed keys elsewhere.
        m_picker->showPopup();
        return;
    }
    // Down pressed and released on the focused calendar button opens it; the Alt still held
    // from Alt+Down is let go.
    KeySender::sendVirtualKey(Keyboard::VkDown, false, false, false);
    KeySender::sendVirtualKey(Keyboard::VkMenu, false, true, false);
}

// The calendar opened: the date it shows (the value, or today in range) becomes the value.
void DateBox::pickerDropDown()
{
    if (QWidget *popup = m_picker->popup())
        popup->installEventFilter(this); // once only: a second install just moves it
    if (Locked())
        return;
    const bool changed = !m_valid || m_picker->Value() != m_value;
    m_value = m_picker->Value();
    m_valid = true;
    refreshDisplay();
    QPointer<DateBox> self(this);
    if (changed) {
        markDirty(BagKey::Value);
        emit Change();
        if (!self)
            return;
    }
    emit DropDown();
}

// A day was picked.
void DateBox::pickerChange()
{
    if (Locked())
        return;
    m_value = m_picker->Value();
    refreshDisplay();
    markDirty(BagKey::Value);
    emit Change();
}

bool DateBox::eventFilter(QObject *watched, QEvent *event)
{
    // The calendar closed, by a pick or not: the keys go back to the date text once Qt has
    // handed the focus back to the button.
    if (m_picker && watched == m_picker->popup() && event->type() == QEvent::Hide) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (m_picker && m_picker->hasFocus())
                    box().setFocus(Qt::PopupFocusReason);
            },
            Qt::QueuedConnection);
    }
    return ControlFrame::eventFilter(watched, event);
}

} // namespace Tarnwell
