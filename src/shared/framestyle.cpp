#include "shared/framestyle.h"

#include <QApplication>
#include <QFontMetrics>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QStyleOptionSpinBox>
#include <QWidget>

namespace Tarnwell::FrameStyle {

namespace {

QStyle *styleOf(const QWidget *widget)
{
    return widget ? widget->style() : QApplication::style();
}

QFont fontOf(const QWidget *widget)
{
    return widget ? widget->font() : QApplication::font();
}

// The text line QLineEdit sizes itself around: a line of the font (never under 14 pixels for
// the hint) with its margins, 17 x-widths across for the hint, the widest glyph for the minimum.
QSize textLine(const QFont &font, bool minimum)
{
    const QFontMetrics fm(font);
    if (minimum)
        return QSize(fm.maxWidth() + 2 * TextHorizontalMargin,
                     fm.height() + qMax(2 * TextVerticalMargin, fm.leading()));
    return QSize(fm.horizontalAdvance(QLatin1Char('x')) * 17 + 2 * TextHorizontalMargin,
                 qMax(fm.height(), 14) + 2 * TextVerticalMargin);
}

} // namespace

void initLineEditOption(QStyleOptionFrame *option, const QWidget *widget, int lineWidth)
{
    if (widget)
        option->initFrom(widget);
    option->lineWidth = lineWidth;
    option->midLineWidth = 0;
    option->state |= QStyle::State_Sunken;
    option->features = QStyleOptionFrame::None;
}

int lineEditFrameWidth(const QWidget *widget)
{
    QStyleOptionFrame option;
    initLineEditOption(&option, widget, 0);
    return styleOf(widget)->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, widget);
}

QSize lineEditSize(const QWidget *widget, int lineWidth, bool minimum)
{
    QStyleOptionFrame option;
    initLineEditOption(&option, widget, lineWidth);
    return styleOf(widget)->sizeFromContents(QStyle::CT_LineEdit, &option,
                                             textLine(fontOf(widget), minimum), widget);
}

void initSpinBoxOption(QStyleOptionSpinBox *option, const QWidget *widget, const QRect &rect)
{
    if (widget)
        option->initFrom(widget);
    option->rect = rect;
    option->frame = true;
    option->buttonSymbols = QAbstractSpinBox::UpDownArrows;
    option->subControls = QStyle::SC_SpinBoxFrame | QStyle::SC_SpinBoxEditField
                          | QStyle::SC_SpinBoxUp | QStyle::SC_SpinBoxDown;
    option->stepEnabled = QAbstractSpinBox::StepUpEnabled | QAbstractSpinBox::StepDownEnabled;
}

int spinBoxHeight(const QWidget *widget, bool minimum)
{
    // A spin box wraps a frameless line edit; its own frame and buttons come from the style.
    QStyleOptionSpinBox option;
    initSpinBoxOption(&option, widget, QRect());
    const QSize text(0, lineEditSize(widget, 0, minimum).height());
    return styleOf(widget)->sizeFromContents(QStyle::CT_SpinBox, &option, text, widget).height();
}

int spinButtonWidth(const QWidget *widget)
{
    // Some styles size the buttons by the box's height and width: ask for a box of the usual
    // height, wide enough for the width to play no part.
    QStyleOptionSpinBox option;
    initSpinBoxOption(&option, widget, QRect(0, 0, 400, spinBoxHeight(widget)));
    return styleOf(widget)
        ->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, widget)
        .width();
}

} // namespace Tarnwell::FrameStyle
