#include "shared/focustracker.h"

#include <tarnwell/controlframe.h>

#include "shared/slotguard.h"

#include <QApplication>

namespace Tarnwell {

namespace {
QPointer<FocusTracker> tracker;
} // namespace

void FocusTracker::forget(ControlFrame *frame)
{
    if (tracker)
        tracker->m_inside.removeIf([frame](const QPointer<ControlFrame> &f) {
            return !f || f.data() == frame || frame->isAncestorOf(f.data());
        });
}

void FocusTracker::watch()
{
    if (tracker)
        return;
    auto *app = qobject_cast<QApplication *>(QCoreApplication::instance());
    if (!app)
        return;
    tracker = new FocusTracker;
    tracker->setParent(app);
    connect(app, &QApplication::focusChanged, tracker,
            guardedSlot([t = tracker.data()](QWidget *, QWidget *now) { t->focusChanged(now); }));
}

void FocusTracker::focusChanged(QWidget *now)
{
    QList<QPointer<ControlFrame>> inside;
    if (now) {
        for (QWidget *w = now; w; w = w->parentWidget()) {
            if (auto *frame = qobject_cast<ControlFrame *>(w))
                inside.prepend(frame);
        }
    } else {
        // A window losing activation leaves no focus widget, but the window still names the
        // control's widget as its focus: the control has not left. Focus that was disabled or
        // cleared away leaves the window naming none.
        for (const QPointer<ControlFrame> &frame : std::as_const(m_inside)) {
            QWidget *kept = frame ? frame->window()->focusWidget() : nullptr;
            if (kept && (kept == frame || frame->isAncestorOf(kept)))
                inside.append(frame);
        }
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
