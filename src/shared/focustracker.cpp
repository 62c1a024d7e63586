#include "shared/focustracker.h"

#include <tarnwell/controlframe.h>

#include "shared/controlframe_p.h"
#include "shared/slotguard.h"

#include <QApplication>

namespace Tarnwell {

namespace {

QPointer<FocusTracker> tracker;

// The controls that hand their focus to `frame` (an inner MaskBox to its DateBox), deepest last.
void appendProxied(ControlFrame *frame, QList<QPointer<ControlFrame>> &list)
{
    const auto children = frame->findChildren<ControlFrame *>(Qt::FindDirectChildrenOnly);
    for (ControlFrame *child : children) {
        if (child->focusProxy() == frame) {
            list.append(child);
            appendProxied(child, list);
        }
    }
}

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

ControlFrame *FocusTracker::focusRoot(ControlFrame *frame)
{
    while (auto *outer = qobject_cast<ControlFrame *>(frame->focusProxy())) {
        if (!outer->isAncestorOf(frame))
            break;
        frame = outer;
    }
    return frame;
}

bool FocusTracker::holds(const ControlFrame *frame, const QWidget *widget)
{
    if (!widget)
        return false;
    if (widget == frame || frame->isAncestorOf(widget))
        return true;
    auto *outer = qobject_cast<const ControlFrame *>(frame->focusProxy());
    return outer && outer->isAncestorOf(frame) && holds(outer, widget);
}

void FocusTracker::placeAfterText(ControlFrame *root, QWidget *child)
{
    // The root's block: the widgets that follow it in the chain and are its own. Tab skips those
    // that hand their focus to the root, but Shift+Tab stops on them (Qt treats them as the way
    // into the root from behind), so they must come before anything else of the block.
    QWidget *last = root;
    for (QWidget *w = root->nextInFocusChain(); w != root && root->isAncestorOf(w);
         w = w->nextInFocusChain()) {
        if (w != child && w->focusPolicy() != Qt::NoFocus)
            last = w;
    }
    if (last->nextInFocusChain() != child)
        QWidget::setTabOrder(last, child);
}

void FocusTracker::focusChanged(QWidget *now)
{
    QList<QPointer<ControlFrame>> inside;
    if (now) {
        for (QWidget *w = now; w; w = w->parentWidget()) {
            if (auto *frame = qobject_cast<ControlFrame *>(w))
                inside.prepend(frame);
        }
        // The controls handing their focus to the innermost one are inside it too.
        if (!inside.isEmpty())
            appendProxied(inside.last(), inside);
    } else {
        // A window losing activation leaves no focus widget, but the window still names the
        // control's widget as its focus: the control has not left. Focus that was disabled or
        // cleared away leaves the window naming none.
        for (const QPointer<ControlFrame> &frame : std::as_const(m_inside)) {
            if (frame && holds(frame, frame->window()->focusWidget()))
                inside.append(frame);
        }
    }
    const QList<QPointer<ControlFrame>> before = m_inside;
    m_inside = inside;
    for (auto it = before.crbegin(); it != before.crend(); ++it) {
        ControlFrame *frame = *it;
        if (frame && frame->controlHasFocus() && !inside.contains(*it))
            ControlFramePrivate::get(frame)->exitFocus();
    }
    for (const QPointer<ControlFrame> &frame : inside) {
        if (frame && !frame->controlHasFocus() && m_inside.contains(frame))
            ControlFramePrivate::get(frame)->enterFocus();
    }
}

} // namespace Tarnwell
