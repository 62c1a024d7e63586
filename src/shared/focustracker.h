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
// DateBox) hands its focus to the outer one (its focus proxy) and has its own entering and
// leaving with it: inner ones leave first, outer ones enter first.
//
// It also keeps the focus arrangement of nested controls in one place: the outermost control
// (the root) holds the keyboard focus for all of them, and Qt's tab chain holds the root, then
// the widgets that hand their focus to it, then the root's other focusable children, as one
// block that Tab passes once.
class FocusTracker : public QObject
{
    Q_OBJECT
public:
    // Connects to the application once (nothing without a QApplication).
    static void watch();
    // A control being destroyed, and the controls inside it, are no longer inside anything: the
    // last focus changes their destruction causes must not reach them.
    static void forget(ControlFrame *frame);

    // The control that holds the keyboard focus for `frame`: itself, or the outer control it
    // hands its focus to.
    static ControlFrame *focusRoot(ControlFrame *frame);
    // Whether the focus on `widget` is inside `frame`: on it, on one of its children, or on the
    // control it hands its focus to.
    static bool holds(const ControlFrame *frame, const QWidget *widget);
    // Moves `child` of `root` to the end of the root's block in the tab chain, so that Tab
    // reaches it after the text and Shift+Tab before it.
    static void placeAfterText(ControlFrame *root, QWidget *child);

private:
    FocusTracker() = default;
    void focusChanged(QWidget *now);

    QList<QPointer<ControlFrame>> m_inside; // outermost first
};

} // namespace Tarnwell
