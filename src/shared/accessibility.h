#pragma once
#include <QString>

class QAccessibleInterface;
class QLineEdit;
class QObject;
class QWidget;

namespace Tarnwell::Accessibility {

// Registers the factory that gives screen readers the controls as Qt gives its own widgets: a
// MaskBox as an editable text (as a QLineEdit), the other three as spin boxes (as a
// QAbstractSpinBox). Once per process; every later call costs one test of a flag.
void install();

// The factory itself, for Qt: it answers for the controls, their hidden inner widgets (which
// stand for the control, so that what a screen reader hears about them names the control) and
// the parts of a control that act (Check1, UpDown1's halves, the calendar button fdt).
QAccessibleInterface *createInterface(const QString &className, QObject *object);

// The outermost control `widget` belongs to (itself included, its window excluded); null for a
// widget that is no part of a control. An inner MaskBox belongs to the DateBox around it.
QWidget *controlOf(QWidget *widget);

// The text box a control's text is typed into (the inner box's for DateBox and TimeBox).
QLineEdit *textBoxOf(const QWidget *control);

// The name a control is known by: its accessible name, else its buddy label's text.
QString nameOf(const QWidget *control);

} // namespace Tarnwell::Accessibility
