#include "shared/focustracker.h"

#include <tarnwell/controlframe.h>

#include <QApplication>

namespace Tarnwell {

void FocusTracker::watch()
{
    static QPointer<FocusTracker> tracker;
    if (tracker)
        return;
    auto *app = qobject_cast<QApplication *>(QCoreApplication::instance());
    if (!app)
        return;
    tracker = new FocusTracker;
    tracker->setParent(app);
    connect(app, &QApplication::focusChanged, tracker, [t = tracker.data()](QWidget *, QWidget *now) {
        try {
            t->focusChanged(now);
        } catch (...) {
            // A host's handler must not unwind into the event loop.
        }
    });
}

void FocusTracker::focusChanged(QWidget *now)
{
    // A window losing activation leaves no focus widget; the control still holds the focus
    // within its window and does not leave.
    if (!now)
        return;
    QList<QPointer<ControlFrame>> inside;
    for (QWidget *w = now; w; w = w->parentWidget()) {
        if (auto *frame = qobject_cast<ControlFrame *>(w))
            inside.prepend(frame);
    }
    const QList<QPointer<ControlFrame>> before = m_inside;
    m_inside = inside;
    for (auto it = before.crbegin(); it != before.crend(); ++it) {
        ControlFrame *frame = *it;
        if (frame && frame->m_hasFocus && !inside.contains(*it))
            frame->exitFocus();
    }
    for (const QPointer<ControlFrame> &frame : inside) {
        if (frame && !frame->m_hasFocus && m_inside.contains(frame))
            frame->enterFocus();
    }
}

} // namespace Tarnwell
