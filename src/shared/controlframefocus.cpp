// ControlFrame: the text changing, the focus entering and leaving, and the keyboard, composition
// and focus events the control holds for its text widget.
#include <tarnwell/controlframe.h>

#include "shared/bagkeys.h"
#include "shared/frameeditor.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>

namespace Tarnwell {

void ControlFrame::onTextChanged()
{
    markDirty(BagKey::Value);
    if (!m_updating)
        emit Change();
}

void ControlFrame::onForeignText(const QString &, const QString &)
{
    onTextChanged();
}

bool ControlFrame::filterDrop(QEvent *)
{
    return false;
}

void ControlFrame::enterFocus()
{
    m_hasFocus = true;
    update(); // the border shows the focus
    onEnterFocus();
}

void ControlFrame::exitFocus()
{
    m_hasFocus = false;
    update();
    onExitFocus();
}

// A key that reaches the control while one of its own children has the real focus (Check1, the
// calendar button) was left ignored by that child; it is not the text's.
void ControlFrame::forwardToText(QEvent *event)
{
    if (!m_editor)
        return; // being destroyed
    const QWidget *focus = QApplication::focusWidget();
    const bool fromChild = focus && focus != this && isAncestorOf(focus);
    try {
        if (fromChild && event->type() != QEvent::FocusIn && event->type() != QEvent::FocusOut)
            event->ignore();
        else
            m_editor->forward(event);
    } catch (...) {
        // Nothing may unwind into the event loop; a key that failed half-way is dropped.
        event->accept();
    }
}

bool ControlFrame::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        forwardToText(event);
        return true;
    }
    return QFrame::event(event);
}

void ControlFrame::keyPressEvent(QKeyEvent *event)
{
    forwardToText(event);
}

void ControlFrame::keyReleaseEvent(QKeyEvent *event)
{
    forwardToText(event);
}

void ControlFrame::inputMethodEvent(QInputMethodEvent *event)
{
    forwardToText(event);
}

QVariant ControlFrame::inputMethodQuery(Qt::InputMethodQuery query) const
{
    try {
        return m_editor ? m_editor->inputMethodQuery(query) : QVariant();
    } catch (...) {
        return QVariant();
    }
}

void ControlFrame::focusInEvent(QFocusEvent *event)
{
    QFrame::focusInEvent(event);
    forwardToText(event);
}

void ControlFrame::focusOutEvent(QFocusEvent *event)
{
    QFrame::focusOutEvent(event);
    forwardToText(event);
}

void ControlFrame::onEnterFocus()
{
    if (m_selectTextOnFocus)
        m_editor->selectAll();
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
