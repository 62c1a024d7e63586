#pragma once
#include <QAccessibleWidget>
#include <QPointer>

namespace Tarnwell {

// The check box Check1 of a control: a check box named after the control, with its checked state
// and a toggle action that ticks or clears it as a click does.
class CheckPartAccessible : public QAccessibleWidget
{
public:
    CheckPartAccessible(QWidget *check, QWidget *control);

    bool isValid() const override;
    QAccessibleInterface *parent() const override;
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QString text(QAccessible::Text t) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;
    QStringList keyBindingsForAction(const QString &actionName) const override;

private:
    QPointer<QWidget> m_control;
};

// The calendar button fdt of DateBox: a drop-down button that opens the calendar ("Open") and,
// while it is open, closes it ("Close"), as the press of the mouse does.
class PickerPartAccessible : public QAccessibleWidget
{
public:
    PickerPartAccessible(QWidget *picker, QWidget *control);

    bool isValid() const override;
    QAccessibleInterface *parent() const override;
    QString text(QAccessible::Text t) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;
    QStringList keyBindingsForAction(const QString &actionName) const override;

private:
    bool isOpen() const;
    QPointer<QWidget> m_control;
};

// One half of the up-down button UpDown1: "More" (the upper half) or "Less", a push button whose
// press steps the control as a click on that half does. The halves are no widgets of their own,
// so the control's interface owns them.
class StepPartAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    StepPartAccessible(QWidget *upDown, QWidget *control, bool up);

    bool isUp() const { return m_up; }
    QWidget *upDown() const { return m_upDown; }

    bool isValid() const override;
    QObject *object() const override { return nullptr; }
    QWindow *window() const override;
    QList<QPair<QAccessibleInterface *, QAccessible::Relation>>
    relations(QAccessible::Relation) const override { return {}; }
    QAccessibleInterface *focusChild() const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QString text(QAccessible::Text t) const override;
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::Button; }
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType t) override;

    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;
    QStringList keyBindingsForAction(const QString &actionName) const override;

    // Presses the half as the mouse would; nothing while the button is disabled or hidden.
    static void press(QWidget *upDown, bool up);

private:
    QPointer<QWidget> m_upDown;
    QPointer<QWidget> m_control;
    bool m_up;
};

} // namespace Tarnwell
