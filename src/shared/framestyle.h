#pragma once
#include <QSize>

class QFont;
class QRect;
class QStyle;
class QStyleOptionFrame;
class QStyleOptionSpinBox;
class QWidget;

// What the style says about line edits and spin boxes, measured the way Qt's own QLineEdit and
// QAbstractSpinBox measure themselves, so that a control stands beside them at their size and
// with their look.
namespace Tarnwell::FrameStyle {

// Room QLineEdit keeps around its text line, in pixels.
constexpr int TextVerticalMargin = 1;
constexpr int TextHorizontalMargin = 2;

// A line edit's panel option for `widget`, as QLineEdit fills it: the widget's state, its rect,
// a sunken frame `lineWidth` wide.
void initLineEditOption(QStyleOptionFrame *option, const QWidget *widget, int lineWidth);
// The frame width the style gives a framed line edit.
int lineEditFrameWidth(const QWidget *widget);
// QLineEdit's sizeHint() (or minimumSizeHint()) for `widget`'s font and style, with a frame
// `lineWidth` wide (0: frameless, only the text line and its margins).
QSize lineEditSize(const QWidget *widget, int lineWidth, bool minimum = false);
// A spin box's option over `rect` for `widget`: a framed box with both arrows.
void initSpinBoxOption(QStyleOptionSpinBox *option, const QWidget *widget, const QRect &rect);
// QAbstractSpinBox's height for `widget`'s font and style: its frameless text line wrapped by
// the style's spin box.
int spinBoxHeight(const QWidget *widget, bool minimum = false);
// The width of the style's spin-box arrow buttons, in a spin box of the font's usual height
// (`widget` may be null: the application's style and font).
int spinButtonWidth(const QWidget *widget);

} // namespace Tarnwell::FrameStyle
