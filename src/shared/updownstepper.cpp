#include "shared/updownstepper.h"

#include <tarnwell/controlframe.h>

#include "shared/controlframe_p.h"
#include "shared/frameeditor.h"
#include "shared/slotguard.h"
#include "shared/updownbutton.h"

#include <QEvent>
#include <QPointer>

namespace Tarnwell {

UpDownStepper::UpDownStepper(ControlFrame &frame, Step step)
    : m_frame(frame), m_d(*ControlFramePrivate::get(&frame)), m_step(std::move(step))
{
    // The control's tool tip is the button's too, however it was set.
    m_frame.installEventFilter(this);
}

UpDownStepper::~UpDownStepper()
{
    m_frame.removeEventFilter(this);
    if (m_button)
        disconnect(m_button, nullptr, this, nullptr);
}

bool UpDownStepper::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_frame && event->type() == QEvent::ToolTipChange)
        updateToolTip();
    return false;
}

UpDownButton *UpDownStepper::ensureButton()
{
    if (m_button)
        return m_button;
    m_button = new UpDownButton(&m_frame);
    m_button->setObjectName(QStringLiteral("UpDown1"));
    m_button->hide();
    connect(m_button, &UpDownButton::Change, this, guardedSlot([this] { pressed(); }));
    m_button->setArrowsQuery(m_arrows);
    updateEnabled();
    updateToolTip();
    return m_button;
}

void UpDownStepper::setShown(bool on)
{
    m_shown = on;
    if (on) {
        ensureButton()->show();
        updateArrows();
    }
    else if (m_button)
        m_button->hide();
}

void UpDownStepper::place(int left, int top, int width, int height)
{
    if (m_shown)
        m_d.placeTwips(m_button, left, top, width, height);
}

void UpDownStepper::updateEnabled()
{
    if (m_button)
        m_button->setEnabled(m_d.valueControlsEnabled());
    updateArrows();
}

void UpDownStepper::updateArrows()
{
    // The button asks for the arrows' state when it paints; a new value only repaints it.
    if (m_button && m_shown)
        m_button->update();
}

void UpDownStepper::updateToolTip()
{
    if (m_button)
        m_button->setToolTip(m_frame.ToolTip());
}

void UpDownStepper::pressed()
{
    stepBy(m_button->Value() != 0);
}

void UpDownStepper::stepBy(bool up)
{
    if (m_stepping || m_frame.Locked() || m_frame.isUpdating())
        return;
    // A host's handler may destroy the control (and this) during the step.
    QPointer<ControlFrame> self(&m_frame);
    m_stepping = true;
    if (!m_frame.controlHasFocus()) {
        FrameEditor &editor = *m_d.editor;
        editor.focusTarget()->setFocus(Qt::OtherFocusReason);
        if (!self)
            return;
        editor.setSelLength(0);
    }
    try {
        m_step(up);
    } catch (...) {
        // A step that fails changes nothing; the button stays usable.
    }
    if (!self)
        return;
    // Back to 0 for the next press; the notification that raises is this step's own.
    if (m_button)
        m_button->setValue(0);
    if (self)
        m_stepping = false;
}

} // namespace Tarnwell
