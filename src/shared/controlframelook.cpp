// ControlFrame's size, look, colours and layout. A control stands in a form as Qt's own editors
// do: as tall as a QLineEdit of the same style and font (a spin box when it shows buttons), its
// text where a QLineEdit's would be, its border the style's line-edit panel.
#include <tarnwell/controlframe.h>


#include "shared/commonproperties.h"
#include "shared/framestyle.h"
#include "innermask/innermaskeditor.h"
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
    return hintFor(false);
}

QSize ControlFrame::minimumSizeHint() const
{
    return hintFor(true);
}

QSize ControlFrame::hintFor(bool minimum) const
{
    ensurePolished();
    // The 3-D border is a line edit's frame, so the style sizes it as it sizes a QLineEdit's; the
    // flat box adds its own pixel around the text line.
    const int border = frameWidth();
    QSize size = m_borderStyle == twFixed3D
                     ? FrameStyle::lineEditSize(this, border, minimum)
                     : FrameStyle::lineEditSize(this, 0, minimum) + QSize(2 * border, 2 * border);
    if (m_checkBox)
        size.rwidth() += Twips::toPixels(Twips::TextLeftWithCheckBox - Twips::TextInset);
    // The control's own buttons widen it as a spin box's arrows widen the spin box, and make it
    // as tall as one.
    if (const int buttons = Twips::toPixels(reservedWidth()); buttons > 0) {
        size.rwidth() += buttons;
        size.setHeight(qMax(size.height(), FrameStyle::spinBoxHeight(this, minimum)));
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
    return Enabled() ? m_foreColor : m_disabledColor;
}

void ControlFrame::applyTextColor()
{
    if (QLineEdit *text1 = Text1())
        paintTextBox(text1);
}

void ControlFrame::setCommonDefaults(const CommonDefaults &defaults)
{
    m_commonDefaults = &defaults;
    m_editor->commonDefaultsChanged(defaults);
}

void ControlFrame::paintTextBox(QWidget *box) const
{
    const OleColor text = textColor();
    // A control whose default text colour is plain black (DateBox, TimeBox) was made for a host
    // whose window text was black: while it holds that default, it shows the palette's text, as
    // the system colours do, so that a dark palette stays readable.
    const OleColor defaultText = Enabled() ? m_commonDefaults->foreColor : m_commonDefaults->disabledColor;
    const bool hostText = !text.isSystem() && text == defaultText;
    const QColor textColour = hostText ? palette().color(QPalette::Active, QPalette::Text) : resolveColor(text);
    const QColor backColour = resolveColor(m_backColor);
    // The default colours in an enabled control are the natural palette's own, and so are colours
    // it happens to hold already (a new palette comes back here, through changeEvent()).
    const QPalette &own = palette();
    const auto holds = [&](QPalette::ColorGroup group) {
        return own.color(group, QPalette::Text) == textColour && own.color(group, QPalette::Base) == backColour;
    };
    const bool natural = isEnabled() && m_backColor == OleColor::WindowBackground
                         && (text == OleColor::WindowText || hostText);
    LineEditor::paint(box, textColour, backColour,
                      natural || (isEnabled() && holds(QPalette::Active) && holds(QPalette::Inactive)));
}

void ControlFrame::applyBorder()
{
    // Single: a flat one-pixel box. 3-D: the style's line-edit panel (paintEvent), as wide as
    // the style makes a line edit's frame.
    int style = QFrame::StyledPanel | QFrame::Sunken;
    int width = 1;
    if (m_borderStyle == twNone) {
        style = QFrame::NoFrame | QFrame::Plain;
        width = 0;
    } else if (m_borderStyle == twFixedSingle) {
        style = QFrame::Box | QFrame::Plain;
    }
    // Each set lays the frame out again, also with the value it has.
    if (frameStyle() != style)
        setFrameStyle(style);
    if (lineWidth() != width)
        setLineWidth(width);
    m_editor->apply(FrameEditor::Applied::Colors);
    update(); // the strip around the inner widgets takes the back colour (paintEvent)
    updateGeometry();
    // The frame's width changed the inner area.
    relayout();
}

bool ControlFrame::focusIsInside() const
{
    const QWidget *focus = QApplication::focusWidget();
    return focus && (focus == this || isAncestorOf(focus));
}

void ControlFrame::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor back = resolveColor(m_backColor);
    if (m_borderStyle != twFixed3D) {
        painter.fillRect(contentsRect(), back);
        drawFrame(&painter);
        return;
    }
    // The panel a QLineEdit in this place would draw, in the state of the control as a whole:
    // the focus anywhere in it, the pointer over it, Locked as read-only.
    QStyleOptionFrame panel;
    FrameStyle::initLineEditOption(&panel, this, frameWidth());
    panel.rect = rect();
    if (focusIsInside())
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
    m_editor->layout(reservedWidth());
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
    QFrame::changeEvent(event);
    try {
        switch (event->type()) {
        case QEvent::EnabledChange:
            // Also reached by QWidget::setEnabled through a base pointer.
            m_editor->apply(FrameEditor::Applied::Colors);
            updateValueControls();
            break;
        case QEvent::ToolTipChange:
            // Also reached by QWidget::setToolTip through a base pointer.
            m_editor->apply(FrameEditor::Applied::ToolTip);
            break;
        case QEvent::PaletteChange:
            // A new palette may resolve the system colours differently.
            m_editor->apply(FrameEditor::Applied::Colors);
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
