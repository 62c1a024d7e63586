#pragma once
#include <QPointer>

class QEvent;
class QLineEdit;
class QMouseEvent;

namespace Tarnwell {

class ControlFrame;
class DataObject;

// Raises the mouse, click and drag-and-drop events of a line control's text box to the host
// under the control's own names, coordinates in twips, and starts drags for OLEDrag. A manual
// drop mode turns drops into OLEDragOver / OLEDragDrop events that leave the text alone; the
// automatic one is the text box's own.
class EventRelay
{
public:
    EventRelay(ControlFrame &frame, QLineEdit &text) : m_frame(frame), m_text(text) {}

    // Each returns true when the event is consumed.
    bool mouse(QMouseEvent *event);
    bool drag(QEvent *event);
    void startDrag();

private:
    ControlFrame &m_frame;
    QLineEdit &m_text;
    bool m_suppressClick = false;
    QPointer<DataObject> m_dragData;
};

} // namespace Tarnwell
