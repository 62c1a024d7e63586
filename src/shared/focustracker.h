#pragma once
#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;

namespace Tarnwell {

class ControlFrame;

// Tells controls when the focus enters or leaves them as a whole, with one connection to the
// application for all of them: moves between a control's own inner widgets (its popups included,
// being its children) are not leaving it. A control inside another (the inner MaskBox of a
// DateBox) has its own entering and leaving: inner ones leave first, outer ones enter first.
class FocusTracker : public QObject
{
    Q_OBJECT
public:
    // Connects to the application once (nothing without a QApplication).
    static void watch();
    // A control being destroyed, and the controls inside it, are no longer inside anything: the
    // last focus changes their destruction causes must not reach them.
    static void forget(ControlFrame *frame);

private:
    FocusTracker() = default;
    void focusChanged(QWidget *now);

    QList<QPointer<ControlFrame>> m_inside; // outermost first
};

} // namespace Tarnwell
