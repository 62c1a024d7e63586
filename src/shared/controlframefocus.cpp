// ControlFrame: the text changing, the focus entering and leaving, and the keyboard, composition
// and focus events the control holds for its text widget.
#include <tarnwell/controlframe.h>

#include "shared/bagkeys.h"
#include "shared/controlframe_p.h"
#include "shared/frameeditor.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>

namespace Tarnwell {

void ControlFrame::onTextChanged(const QString &)
{
    Q_D(ControlFrame);
    markDirty(BagKey::Value);
    if (!d->updating)
        emit Change();
}

void ControlFrame::onForeignText(const QString &text, const QString &)
{
    onTextChanged(text);
}

bool ControlFrame::filterDrop(QEvent *)
{
    return false;
}

void ControlFramePrivate::enterFocus()
{
    Q_Q(ControlFrame);
    hasFocus = true;
    q->update(); // the border shows the focus
    q->onEnterFocus();
}

void ControlFramePrivate::exitFocus()
{
    Q_Q(ControlFrame);
    hasFocus = false;
    q->update();
    q->onExitFocus();
}

// A key that reaches the control while one of its own children has the real focus (Check1, the
// calendar button) was left ignored by that child; it is not the text's.
void ControlFramePrivate::forwardToText(QEvent *event)
{
    Q_Q(ControlFrame);
    if (!editor)
        return; // being destroyed
    const QWidget *focus = QApplication::focusWidget();
    const bool fromChild = focus && focus != q && q->isAncestorOf(focus);
    try {
        if (fromChild && event->type() != QEvent::FocusIn && event->type() != QEvent::FocusOut)
            event->ignore();
        else
            editor->forward(event);
    } catch (...) {
        // Nothing may unwind into the event loop; a key that failed half-way is dropped.
        event->accept();
    }
}

bool ControlFrame::event(QEvent *event)
{
    Q_D(ControlFrame);
    if (event->type() == QEvent::ShortcutOverride) {
        d->forwardToText(event);
        return true;
    }
    return QFrame::event(event);
}

void ControlFrame::keyPressEvent(QKeyEvent *event)
{
    Q_D(ControlFrame);
    d->forwardToText(event);
}

void ControlFrame::keyReleaseEvent(QKeyEvent *event)
{
    Q_D(ControlFrame);
    d->forwardToText(event);
}

void ControlFrame::inputMethodEvent(QInputMethodEvent *event)
{
    Q_D(ControlFrame);
    d->forwardToText(event);
}

QVariant ControlFrame::inputMethodQuery(Qt::InputMethodQuery query) const
{
    Q_D(const ControlFrame);
    try {
        return d->editor ? d->editor->inputMethodQuery(query) : QVariant();
    } catch (...) {
        return QVariant();
    }
}

void ControlFrame::focusInEvent(QFocusEvent *event)
{
    Q_D(ControlFrame);
    QFrame::focusInEvent(event);
    d->forwardToText(event);
}

void ControlFrame::focusOutEvent(QFocusEvent *event)
{
    Q_D(ControlFrame);
    QFrame::focusOutEvent(event);
    d->forwardToText(event);
}

void ControlFrame::onEnterFocus()
{
    Q_D(ControlFrame);
    if (d->selectTextOnFocus)
        d->editor->selectAll();
}

void ControlFrame::onExitFocus() {}

void ControlFrame::handleKeyDown(short &, short &) {}
void ControlFrame::handleKeyPress(short &) {}
void ControlFrame::handleKeyUp(short &, short &) {}

bool ControlFrame::keepsShortcutKey(short, short, short) const
{
    return true;
}

} // namespace Tarnwell
