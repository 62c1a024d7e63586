#include "shared/accessibilityparts.h"

#include "shared/accessibility.h"
#include "shared/datepicker.h"
#include "shared/updownbutton.h"

#include <QAbstractButton>
#include <QKeySequence>

namespace Tarnwell {

namespace {

QAccessibleInterface *interfaceOf(QWidget *control)
{
    return QAccessible::queryAccessibleInterface(control);
}

} // namespace

// ---------------------------------------------------------------------------------------------
// Check1

CheckPartAccessible::CheckPartAccessible(QWidget *check, QWidget *control)
    : QAccessibleWidget(check, QAccessible::CheckBox), m_control(control)
{
}

bool CheckPartAccessible::isValid() const
{
    return QAccessibleWidget::isValid() && m_control;
}

// The control's child, also where the check box sits in an inner box.
QAccessibleInterface *CheckPartAccessible::parent() const
{
    return interfaceOf(m_control);
}

QString CheckPartAccessible::text(QAccessible::Text t) const
{
    // The box has no caption of its own: it ticks the control's value on or off.
    if (t == QAccessible::Name && widget()->accessibleName().isEmpty())
        return Accessibility::nameOf(m_control);
    return QAccessibleWidget::text(t);
}

QAccessible::State CheckPartAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    if (auto *button = qobject_cast<QAbstractButton *>(widget())) {
        state.checked = button->isChecked();
        state.pressed = button->isDown();
    }
    return state;
}

QStringList CheckPartAccessible::actionNames() const
{
    if (!widget()->isEnabled())
        return {};
    return QStringList{toggleAction()} + QAccessibleWidget::actionNames();
}

void CheckPartAccessible::doAction(const QString &actionName)
{
    if (!widget()->isEnabled())
        return;
    if (actionName == toggleAction() || actionName == pressAction()) {
        // As a click: the control's own handling of the check box runs.
        if (auto *button = qobject_cast<QAbstractButton *>(widget()))
            button->click();
    } else {
        QAccessibleWidget::doAction(actionName);
    }
}

QStringList CheckPartAccessible::keyBindingsForAction(const QString &actionName) const
{
    if (actionName == toggleAction())
        return {QKeySequence(Qt::Key_Space).toString(QKeySequence::NativeText)};
    return {};
}

// ---------------------------------------------------------------------------------------------
// fdt

PickerPartAccessible::PickerPartAccessible(QWidget *picker, QWidget *control)
    : QAccessibleWidget(picker, QAccessible::ButtonDropDown), m_control(control)
{
}

bool PickerPartAccessible::isValid() const
{
    return QAccessibleWidget::isValid() && m_control;
}

QAccessibleInterface *PickerPartAccessible::parent() const
{
    return interfaceOf(m_control);
}

bool PickerPartAccessible::isOpen() const
{
    auto *picker = qobject_cast<DatePicker *>(widget());
    return picker && picker->isPopupVisible();
}

QString PickerPartAccessible::text(QAccessible::Text t) const
{
    // Named for what a press does, as the drop-down button of a combo box is.
    if (t == QAccessible::Name && widget()->accessibleName().isEmpty())
        return isOpen() ? QStringLiteral("Close") : QStringLiteral("Open");
    return QAccessibleWidget::text(t);
}

QAccessible::State PickerPartAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.hasPopup = true;
    state.expandable = true;
    state.expanded = isOpen();
    state.collapsed = !isOpen();
    state.pressed = isOpen();
    return state;
}

QStringList PickerPartAccessible::actionNames() const
{
    if (!widget()->isEnabled())
        return {};
    return {pressAction(), showMenuAction()};
}

void PickerPartAccessible::doAction(const QString &actionName)
{
    auto *picker = qobject_cast<DatePicker *>(widget());
    if (!picker || !picker->isEnabled())
        return;
    try {
        if (actionName == pressAction() && picker->isPopupVisible())
            picker->hidePopup();
        else if (actionName == pressAction() || actionName == showMenuAction())
            picker->showPopup();
    } catch (...) {
        // The control's handling of the drop-down stays inside it.
    }
}

QStringList PickerPartAccessible::keyBindingsForAction(const QString &actionName) const
{
    if (actionName == showMenuAction())
        return {QKeySequence(Qt::Key_F4).toString(QKeySequence::NativeText),
                QKeySequence(Qt::ALT | Qt::Key_Down).toString(QKeySequence::NativeText)};
    return {};
}

// ---------------------------------------------------------------------------------------------
// UpDown1's halves

StepPartAccessible::StepPartAccessible(QWidget *upDown, QWidget *control, bool up)
    : m_upDown(upDown), m_control(control), m_up(up)
{
}

bool StepPartAccessible::isValid() const
{
    return m_upDown && m_control;
}

QWindow *StepPartAccessible::window() const
{
    return m_upDown ? m_upDown->window()->windowHandle() : nullptr;
}

QAccessibleInterface *StepPartAccessible::parent() const
{
    return m_control ? interfaceOf(m_control) : nullptr;
}

QString StepPartAccessible::text(QAccessible::Text t) const
{
    if (t == QAccessible::Name)
        return m_up ? QStringLiteral("More") : QStringLiteral("Less");
    if (t == QAccessible::Description && m_upDown)
        return m_upDown->toolTip();
    return {};
}

QRect StepPartAccessible::rect() const
{
    auto *button = qobject_cast<UpDownButton *>(m_upDown.data());
    if (!button || !button->isVisible())
        return {};
    const QRect local = button->partRect(m_up ? UpDownButton::UpPart : UpDownButton::DownPart);
    return QRect(button->mapToGlobal(local.topLeft()), local.size());
}

QAccessible::State StepPartAccessible::state() const
{
    QAccessible::State state;
    auto *button = qobject_cast<UpDownButton *>(m_upDown.data());
    if (!button)
        return state;
    state.invisible = !button->isVisible();
    state.disabled = !button->isEnabled();
    state.pressed = button->pressedPart() == (m_up ? UpDownButton::UpPart : UpDownButton::DownPart);
    return state;
}

void *StepPartAccessible::interface_cast(QAccessible::InterfaceType t)
{
    if (t == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface *>(this);
    return nullptr;
}

QStringList StepPartAccessible::actionNames() const
{
    if (!m_upDown || !m_upDown->isEnabled())
        return {};
    return {pressAction()};
}

void StepPartAccessible::doAction(const QString &actionName)
{
    if (actionName == pressAction() && m_upDown)
        press(m_upDown, m_up);
}

QStringList StepPartAccessible::keyBindingsForAction(const QString &) const
{
    return {};
}

void StepPartAccessible::press(QWidget *upDown, bool up)
{
    if (!upDown->isEnabled() || !upDown->isVisibleTo(upDown->parentWidget()))
        return;
    // The button's documented Value: setting it raises the change a press raises, 1 the upper
    // half and 0 the lower.
    try {
        upDown->setProperty("Value", up ? 1 : 0);
    } catch (...) {
        // A step that fails changes nothing.
    }
}

} // namespace Tarnwell
