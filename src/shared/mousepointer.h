#pragma once
#include <QPixmap>
#include <Qt>

class QWidget;

// The host's mouse-pointer constants: 0 default, 1..15 the standard shapes, 99 the custom
// MouseIcon picture.
namespace Tarnwell::MousePointer {

enum : int { Default = 0, SizeAll = 15, Custom = 99 };

bool isValid(int pointer);
// The cursor shape of a constant; ArrowCursor for 99 and anything unknown.
Qt::CursorShape shapeFor(int pointer);
// Puts the pointer on a widget: the default cursor for 0 (and for 99 without a picture).
void apply(QWidget *widget, int pointer, const QPixmap &icon);

} // namespace Tarnwell::MousePointer
