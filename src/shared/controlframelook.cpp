// ControlFrame's size, look, colours and layout. A control stands in a form as Qt's own editors
// do: as tall as a QLineEdit of the same style and font (a spin box when it shows buttons), its
// text where a QLineEdit's would be, its border the style's line-edit panel.
#include <tarnwell/controlframe.h>

#include "shared/commonproperties.h"
#include "shared/controlframe_p.h"
#include "shared/framestyle.h"
#include "shared/lineeditor.h"
#include "shared/twips.h"

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOptionFrame>

namespace Tarnwell {

// ---------------------------------------------------------------------------------------------
// Size

QSize ControlFrame::sizeHint() const
{
    Q_D(const ControlFrame);
    return d->hintFor(false);
}

QSize ControlFrame::minimumSizeHint() const
{
    Q_D(const ControlFrame);
    return d->hintFor(true);
}

QSize ControlFramePrivate::hintFor(bool minimum) const
{
    Q_Q(const ControlFrame);
    q->ensurePolished();
    // The 3-D border is a line edit's frame, so the style sizes it as it sizes a QLineEdit's; the
    // flat box adds its own pixel around the text line.
    const int border = q->frameWidth();
    QSize size = borderStyle == twFixed3D
                     ? FrameStyle::lineEditSize(q, border, minimum)
                     : FrameStyle::lineEditSize(q, 0, minimum) + QSize(2 * border, 2 * border);
    if (checkBox)
        size.rwidth() += Twips::toPixels(Twips::TextLeftWithCheckBox - Twips::TextInset);
    // The control's own buttons widen it as a spin box's arrows widen the spin box, and make it
    // as tall as one.
    if (const int buttons = Twips::toPixels(q->reservedWidth()); buttons > 0) {
        size.rwidth() += buttons;
        size.setHeight(qMax(size.height(), FrameStyle::spinBoxHeight(q, minimum)));
    }
    return size;
}

// ---------------------------------------------------------------------------------------------
// Colours and border

QColor ControlFrame::resolveColor(OleColor color) const
{
    return color.toQColor(palette());
}

OleColor ControlFrame::textColor() const
{
    Q_D(const ControlFrame);
    return Enabled() ? d->foreColor : d->disabledColor;
}

void ControlFrame::applyTextColor()
{
    if (QLineEdit *text1 = Text1())
        paintTextBox(text1);
}

void ControlFrame::setCommonDefaults(const CommonDefaults &defaults)
{
    Q_D(ControlFrame);
    d->commonDefaults = &defaults;
    d->editor->commonDefaultsChanged(defaults);
}

const CommonDefaults &ControlFrame::commonDefaults() const
{
    Q_D(const ControlFrame);
    return *d->commonDefaults;
}

void ControlFrame::paintTextBox(QWidget *box) const
{
    Q_D(const ControlFrame);
    const OleColor text = textColor();
    // A control whose default text colour is plain black (DateBox, TimeBox) was made for a host
    // whose window text was black: while it holds that default, it shows the palette's text, as
    // the system colours do, so that a dark palette stays readable.
    const OleColor defaultText = Enabled() ? d->commonDefaults->foreColor : d->commonDefaults->disabledColor;
    const bool hostText = !text.isSystem() && text == defaultText;
    const QColor textColour = hostText ? palette().color(QPalette::Active, QPalette::Text) : resolveColor(text);
    const QColor backColour = resolveColor(d->backColor);
    // The default colours in an enabled control are the natural palette's own, and so are colours
    // it happens to hold already (a new palette comes back here, through changeEvent()).
    const QPalette &own = palette();
    const auto holds = [&](QPalette::ColorGroup group) {
        return own.color(group, QPalette::Text) == textColour && own.color(group, QPalette::Base) == backColour;
    };
    const bool natural = isEnabled() && d->backColor == OleColor::WindowBackground
                         && (text == OleColor::WindowText || hostText);
    LineEditor::paint(box, textColour, backColour,
                      natural || (isEnabled() && holds(QPalette::Active) && holds(QPalette::Inactive)));
}

void ControlFrame::applyBorder()
{
    Q_D(ControlFrame);
    // Single: a flat one-pixel box. 3-D: the style's line-edit panel (paintEvent), as wide as
    // the style makes a line edit's frame.
    int style = QFrame::StyledPanel | QFrame::Sunken;
    int width = 1;
    if (d->borderStyle == twNone) {
        style = QFrame::NoFrame | QFrame::Plain;
        width = 0;
    } else if (d->borderStyle == twFixedSingle) {
        style = QFrame::Box | QFrame::Plain;
    }
    // Each set lays the frame out again, also with the value it has.
    if (frameStyle() != style)
        setFrameStyle(style);
    if (lineWidth() != width)
        setLineWidth(width);
    d->editor->apply(FrameEditor::Applied::Colors);
    update(); // the strip around the inner widgets takes the back colour (paintEvent)
    updateGeometry();
    // The frame's width changed the inner area.
    relayout();
}

bool ControlFramePrivate::focusIsInside() const
{
    Q_Q(const ControlFrame);
    const QWidget *focus = QApplication::focusWidget();
    return focus && (focus == q || q->isAncestorOf(focus));
}

void ControlFrame::paintEvent(QPaintEvent *)
{
    Q_D(const ControlFrame);
    QPainter painter(this);
    const QColor back = resolveColor(d->backColor);
    if (d->borderStyle != twFixed3D) {
        painter.fillRect(contentsRect(), back);
        drawFrame(&painter);
        return;
    }
    // The panel a QLineEdit in this place would draw, in the state of the control as a whole:
    // the focus anywhere in it, the pointer over it, Locked as read-only.
    QStyleOptionFrame panel;
    FrameStyle::initLineEditOption(&panel, this, frameWidth());
    panel.rect = rect();
    if (d->focusIsInside())
        panel.state |= QStyle::State_HasFocus;
    if (Locked())
        panel.state |= QStyle::State_ReadOnly;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        panel.palette.setColor(group, QPalette::Base, back);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &panel, &painter, this);
}

void ControlFrame::enterEvent(QEnterEvent *event)
{
    QFrame::enterEvent(event);
    update(); // the panel shows the pointer over it
}

void ControlFrame::leaveEvent(QEvent *event)
{
    QFrame::leaveEvent(event);
    update();
}

// ---------------------------------------------------------------------------------------------
// Layout

int ControlFrame::innerWidthTwips() const
{
    return contentsRect().width() * Twips::PerPixel;
}

int ControlFrame::innerHeightTwips() const
{
    return contentsRect().height() * Twips::PerPixel;
}

void ControlFrame::placeTwips(QWidget *child, int left, int top, int width, int height)
{
    if (!child)
        return;
    const QRect inner = contentsRect();
    child->setGeometry(inner.left() + Twips::toPixels(left), inner.top() + Twips::toPixels(top),
                       qMax(0, Twips::toPixels(width)), qMax(0, Twips::toPixels(height)));
}

void ControlFrame::relayout()
{
    Q_D(ControlFrame);
    d->editor->layout(reservedWidth());
}

void ControlFrame::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    try {
        relayout();
    } catch (...) {
    }
}

void ControlFrame::changeEvent(QEvent *event)
{
    Q_D(ControlFrame);
    QFrame::changeEvent(event);
    try {
        switch (event->type()) {
        case QEvent::EnabledChange:
            // Also reached by QWidget::setEnabled through a base pointer.
            d->editor->apply(FrameEditor::Applied::Colors);
            updateValueControls();
            break;
        case QEvent::ToolTipChange:
            // Also reached by QWidget::setToolTip through a base pointer.
            d->editor->apply(FrameEditor::Applied::ToolTip);
            break;
        case QEvent::PaletteChange:
            // A new palette may resolve the system colours differently.
            d->editor->apply(FrameEditor::Applied::Colors);
            update();
            break;
        case QEvent::StyleChange:
            // Another style sizes the panel and the buttons otherwise.
            updateGeometry();
            relayout();
            break;
        case QEvent::ActivationChange:
            update(); // the focus shows only in the active window
            break;
        default:
            break;
        }
    } catch (...) {
    }
}

} // namespace Tarnwell
