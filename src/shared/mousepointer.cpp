#include "shared/mousepointer.h"

#include <QCursor>
#include <QWidget>

namespace Tarnwell::MousePointer {

bool isValid(int pointer)
{
    return (pointer >= Default && pointer <= SizeAll) || pointer == Custom;
}

Qt::CursorShape shapeFor(int pointer)
{
    static constexpr Qt::CursorShape shapes[] = {
        Qt::ArrowCursor,        // 0 default (not used: the widget's own cursor stays)
        Qt::ArrowCursor,        // 1 arrow
        Qt::CrossCursor,        // 2 cross
        Qt::IBeamCursor,        // 3 I-beam
        Qt::PointingHandCursor, // 4 icon: no Qt twin, the nearest small pointer
        Qt::SizeAllCursor,      // 5 size
        Qt::SizeBDiagCursor,    // 6 size NE-SW
        Qt::SizeVerCursor,      // 7 size N-S
        Qt::SizeFDiagCursor,    // 8 size NW-SE
        Qt::SizeHorCursor,      // 9 size W-E
        Qt::UpArrowCursor,      // 10 up arrow
        Qt::WaitCursor,         // 11 hourglass
        Qt::ForbiddenCursor,    // 12 no drop
        Qt::BusyCursor,         // 13 arrow and hourglass
        Qt::WhatsThisCursor,    // 14 arrow and question mark
        Qt::SizeAllCursor,      // 15 size all
    };
    return pointer >= Default && pointer <= SizeAll ? shapes[pointer] : Qt::ArrowCursor;
}

void apply(QWidget *widget, int pointer, const QPixmap &icon)
{
    if (!widget)
        return;
    if (pointer == Default || (pointer == Custom && icon.isNull()))
        widget->unsetCursor();
    else if (pointer == Custom)
        widget->setCursor(QCursor(icon));
    else
        widget->setCursor(shapeFor(pointer));
}

} // namespace Tarnwell::MousePointer
