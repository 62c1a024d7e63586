#include <tarnwell/valuebox.h>

#include <tarnwell/variant.h>

#include "platform/keyboard.h"
#include "shared/bagkeys.h"
#include "shared/slotguard.h"
#include "shared/updownstepper.h"
#include "shared/usersettings.h"

#include <QPointer>
#include <QWheelEvent>

namespace Tarnwell {

namespace {

// One notch of a mouse wheel, in eighths of a degree.
constexpr int WheelNotch = 120;
// Ctrl with the wheel takes ten steps at a time, as Qt's spin boxes do.
constexpr int PageSteps = 10;

} // namespace

ValueBox::ValueBox(QWidget *parent, const EditorFactory &makeEditor, ArrowKeysFollow follow)
    : ControlFrame(parent, makeEditor),
      m_stepper(std::make_unique<UpDownStepper>(*this, [this](bool up) { runStep(up); })),
      m_follow(follow)
{
    m_stepper->setArrowsQuery([this] {
        const StepEnabled enabled = stepEnabled();
        return std::pair(enabled.testFlag(StepUpEnabled), enabled.testFlag(StepDownEnabled));
    });
    // Every change of the value, typed or set, may bring it to a bound or away from one.
    connect(this, &ControlFrame::Change, this, guardedSlot([this] { updateArrows(); }));
}

ValueBox::~ValueBox() = default;

bool ValueBox::isBlank(const QVariant &value)
{
    return Variant::isNull(value) || Variant::isEmpty(value)
           || (value.typeId() == QMetaType::QString && value.toString().isEmpty());
}

// ---------------------------------------------------------------------------------------------
// Properties

void ValueBox::setUpDown(bool on)
{
    m_upDown = on;
    relayout();
    markDirty(BagKey::UpDown);
    switch (m_follow) {
    case ArrowKeysFollow::No:
        break;
    case ArrowKeysFollow::Silently:
        m_interceptArrowKeys = on;
        break;
    case ArrowKeysFollow::Reported:
        setInterceptArrowKeys(on);
        break;
    }
}

void ValueBox::setInterceptArrowKeys(bool on)
{
    m_interceptArrowKeys = on;
    markDirty(BagKey::InterceptArrowKeys);
}

void ValueBox::setText(const QString &)
{
    refuseSet();
}

// ---------------------------------------------------------------------------------------------
// Stepping

ValueBox::StepEnabled ValueBox::stepEnabled() const
{
    return StepUpEnabled | StepDownEnabled;
}

void ValueBox::stepUp()
{
    m_stepper->stepBy(true);
}

void ValueBox::stepDown()
{
    m_stepper->stepBy(false);
}

// The stepper has checked Locked and isUpdating(), and put the focus into the text.
void ValueBox::runStep(bool up)
{
    bool moved = false;
    {
        UpdatingGuard updating(*this);
        moved = stepValue(up);
    }
    if (!moved)
        return;
    // Raised once the flag is down: the host's handler may do anything, destroying the box too.
    QPointer<ValueBox> self(this);
    markDirty(BagKey::Value);
    emit Change();
    if (self)
        updateArrows();
}

bool ValueBox::arrowKeyStep(short keyCode, short)
{
    if ((keyCode != Keyboard::VkUp && keyCode != Keyboard::VkDown) || !m_interceptArrowKeys)
        return false;
    m_stepper->stepBy(keyCode == Keyboard::VkUp);
    return true;
}

void ValueBox::updateArrows()
{
    m_stepper->updateArrows();
}

void ValueBox::wheelEvent(QWheelEvent *event)
{
    // Only a shown button makes the control a stepping one; otherwise the wheel scrolls whatever
    // holds the control.
    if (!m_upDown || !m_stepper->isShown() || !valueControlsEnabled() || Locked()) {
        event->ignore();
        return;
    }
    m_wheelRemainder += event->angleDelta().y();
    int steps = m_wheelRemainder / WheelNotch;
    m_wheelRemainder -= steps * WheelNotch;
    if (event->modifiers() & Qt::ControlModifier)
        steps *= PageSteps;
    QPointer<ValueBox> self(this);
    for (int i = 0; i < qAbs(steps) && self; ++i) {
        const bool up = steps > 0;
        if (!stepEnabled().testFlag(up ? StepUpEnabled : StepDownEnabled))
            break;
        m_stepper->stepBy(up);
    }
    event->accept();
}

// ---------------------------------------------------------------------------------------------
// Layout

int ValueBox::reservedWidth() const
{
    return m_upDown ? UserSettings::scrollWidthTwips() : 0;
}

int ValueBox::buttonLeftTwips() const
{
    return innerWidthTwips() - UserSettings::scrollWidthTwips();
}

void ValueBox::relayout()
{
    ControlFrame::relayout();
    if (!m_stepper)
        return; // still constructing
    m_stepper->setShown(m_upDown && showsUpDownButton());
    m_stepper->place(buttonLeftTwips(), 0, UserSettings::scrollWidthTwips(), innerHeightTwips());
    m_stepper->updateEnabled();
}

void ValueBox::updateValueControls()
{
    if (m_stepper)
        m_stepper->updateEnabled();
}

} // namespace Tarnwell
