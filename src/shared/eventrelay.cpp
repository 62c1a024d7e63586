#include "shared/eventrelay.h"

#include <tarnwell/controlframe.h>
#include <tarnwell/dataobject.h>

#include "platform/keyboard.h"
#include "shared/twips.h"

#include <QDrag>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>

namespace Tarnwell {

namespace {

short buttonBit(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton: return 1;
    case Qt::RightButton: return 2;
    case Qt::MiddleButton: return 4;
    default: return 0;
    }
}

short buttonMask(Qt::MouseButtons buttons)
{
    short mask = 0;
    for (Qt::MouseButton b : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (buttons & b)
            mask |= buttonBit(b);
    }
    return mask;
}

int effectOf(Qt::DropActions actions)
{
    int effect = ControlFrame::EffectNone;
    if (actions & Qt::CopyAction)
        effect |= ControlFrame::EffectCopy;
    if (actions & (Qt::MoveAction | Qt::TargetMoveAction))
        effect |= ControlFrame::EffectMove;
    return effect;
}

Qt::DropActions actionsOf(int effect)
{
    Qt::DropActions actions;
    if (effect & ControlFrame::EffectCopy)
        actions |= Qt::CopyAction;
    if (effect & ControlFrame::EffectMove)
        actions |= Qt::MoveAction;
    return actions;
}

// The one action a drop takes from the effect a host chose: move wins when the source allows it.
Qt::DropAction actionFor(int effect, Qt::DropActions possible)
{
    if ((effect & ControlFrame::EffectMove) && (possible & Qt::MoveAction))
        return Qt::MoveAction;
    if ((effect & ControlFrame::EffectCopy) && (possible & Qt::CopyAction))
        return Qt::CopyAction;
    return Qt::IgnoreAction;
}

float twipsOf(qreal pixels)
{
    return float(Twips::fromPixels(pixels));
}

} // namespace

bool EventRelay::mouse(QMouseEvent *event)
{
    QPointer<ControlFrame> self(&m_frame);
    const QPointF pos = event->position();
    short shift = short(Keyboard::shiftMask(event->modifiers()));
    float x = twipsOf(pos.x());
    float y = twipsOf(pos.y());
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        short button = buttonBit(event->button());
        emit m_frame.MouseDown(button, shift, x, y);
        break;
    }
    case QEvent::MouseMove: {
        short button = buttonMask(event->buttons());
        emit m_frame.MouseMove(button, shift, x, y);
        break;
    }
    case QEvent::MouseButtonRelease: {
        short button = buttonBit(event->button());
        emit m_frame.MouseUp(button, shift, x, y);
        if (!self)
            return true;
        const bool click = event->button() == Qt::LeftButton && !m_suppressClick
                           && m_text.rect().contains(pos.toPoint());
        m_suppressClick = false;
        if (click)
            emit m_frame.Click();
        break;
    }
    case QEvent::MouseButtonDblClick:
        // The release that ends a double click is a MouseUp but not a second Click.
        m_suppressClick = true;
        emit m_frame.DblClick();
        break;
    default:
        break;
    }
    return !self;
}

bool EventRelay::drag(QEvent *event)
{
    if (m_frame.OLEDropMode() != ControlFrame::OLEDropManual)
        return false; // automatic drops are the line edit's own; no drops reach it otherwise
    QPointer<ControlFrame> self(&m_frame);

    if (event->type() == QEvent::DragLeave) {
        if (m_dragData) {
            int effect = ControlFrame::EffectNone;
            short button = 0, shift = 0, state = ControlFrame::DragLeave;
            float x = 0, y = 0;
            emit m_frame.OLEDragOver(m_dragData, effect, button, shift, x, y, state);
            if (self && m_dragData)
                m_dragData->deleteLater();
        }
        return true;
    }

    auto *drop = static_cast<QDropEvent *>(event);
    if (event->type() == QEvent::DragEnter && m_dragData)
        m_dragData->deleteLater();
    if (event->type() == QEvent::DragEnter || !m_dragData)
        m_dragData = new DataObject(drop->mimeData(), &m_frame);
    QPointer<DataObject> data = m_dragData;
    int effect = effectOf(drop->possibleActions());
    short button = buttonMask(drop->buttons());
    short shift = short(Keyboard::shiftMask(drop->modifiers()));
    float x = twipsOf(drop->position().x());
    float y = twipsOf(drop->position().y());

    if (event->type() == QEvent::Drop) {
        emit m_frame.OLEDragDrop(data, effect, button, shift, x, y);
        if (!self)
            return true;
        const Qt::DropAction action = actionFor(effect, drop->possibleActions());
        drop->setDropAction(action);
        if (action == Qt::IgnoreAction)
            drop->ignore();
        else
            drop->accept();
        if (data)
            data->deleteLater();
        return true;
    }

    short state = event->type() == QEvent::DragEnter ? short(ControlFrame::DragEnter)
                                                      : short(ControlFrame::DragOver);
    emit m_frame.OLEDragOver(data, effect, button, shift, x, y, state);
    if (!self)
        return true;
    const Qt::DropAction action = actionFor(effect, drop->possibleActions());
    auto *move = static_cast<QDragMoveEvent *>(event);
    move->setDropAction(action);
    // The enter is always taken, so that the moves that follow reach the host, which may
    // accept the drop at another position.
    if (action != Qt::IgnoreAction || event->type() == QEvent::DragEnter)
        move->accept();
    else
        move->ignore();
    return true;
}

void EventRelay::startDrag()
{
    QPointer<ControlFrame> self(&m_frame);
    auto *data = new DataObject(nullptr, &m_frame);
    data->setDataRequestHandler([self](DataObject *d, short &format) {
        if (self)
            emit self->OLESetData(d, format);
    });
    int allowed = ControlFrame::EffectCopy | ControlFrame::EffectMove;
    emit m_frame.OLEStartDrag(data, allowed);
    if (!self)
        return;
    if (data->mimeData()->formats().isEmpty() && m_text.hasSelectedText())
        data->SetData(m_text.selectedText(), DataObject::CFText);
    if (allowed == ControlFrame::EffectNone || data->mimeData()->formats().isEmpty()) {
        data->deleteLater();
        return;
    }
    auto *drag = new QDrag(&m_text);
    drag->setMimeData(data->takeMimeData());
    QObject::connect(drag, &QDrag::actionChanged, &m_frame, [self](Qt::DropAction action) {
        if (!self)
            return;
        int effect = effectOf(action);
        bool defaultCursors = true;
        emit self->OLEGiveFeedback(effect, defaultCursors);
    });
    const Qt::DropAction result = drag->exec(actionsOf(allowed));
    if (!self)
        return;
    int effect = effectOf(result);
    emit m_frame.OLECompleteDrag(effect);
    data->deleteLater();
}

} // namespace Tarnwell
