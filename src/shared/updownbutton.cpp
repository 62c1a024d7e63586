#include "shared/updownbutton.h"

#include "shared/framestyle.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSpinBox>

namespace Tarnwell {

UpDownButton::UpDownButton(QWidget *parent) : QWidget(parent)
{
    // The buttons step the owner's value; the keyboard focus stays where the user is typing.
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    m_repeat.setSingleShot(false);
    connect(&m_repeat, &QTimer::timeout, this, &UpDownButton::repeat);
}

void UpDownButton::setValue(int value)
{
    m_value = value;
    emit Change();
}

bool UpDownButton::isPartEnabled(Part part) const
{
    if (part == NoPart)
        return false;
    if (!m_arrows)
        return true;
    try {
        const auto [up, down] = m_arrows();
        return part == UpPart ? up : down;
    } catch (...) {
        return true; // a value that cannot be asked leaves the arrow usable
    }
}

UpDownButton::Part UpDownButton::partAt(const QPoint &pos) const
{
    if (!rect().contains(pos))
        return NoPart;
    return pos.y() < downTop() ? UpPart : DownPart;
}

QRect UpDownButton::partRect(Part part) const
{
    const int split = downTop();
    switch (part) {
    case UpPart: return QRect(0, 0, width(), split);
    case DownPart: return QRect(0, split, width(), height() - split);
    default: return QRect();
    }
}

QSize UpDownButton::sizeHint() const
{
    return QSize(FrameStyle::spinButtonWidth(this), FrameStyle::spinBoxHeight(this));
}

QSize UpDownButton::minimumSizeHint() const
{
    return QSize(8, 8);
}

// The buttons are those of a spin box the size of the control they stand in, so that the style
// draws them where and as it draws a QAbstractSpinBox's (the control draws the frame under them).
// Alone, the button is asked of a box stretched so that its buttons fill this widget.
void UpDownButton::initSpinOption(QStyleOptionSpinBox *option) const
{
    FrameStyle::initSpinBoxOption(option, this, QRect());
    option->stepEnabled = {};
    const Part active = m_pressed != NoPart ? (m_under ? m_pressed : NoPart) : m_hovered;
    option->activeSubControls = active == UpPart     ? QStyle::SC_SpinBoxUp
                                : active == DownPart ? QStyle::SC_SpinBoxDown
                                                     : QStyle::SC_None;
    if (m_pressed != NoPart && m_under)
        option->state |= QStyle::State_Sunken;
    if (const QWidget *control = isWindow() ? nullptr : parentWidget()) {
        option->rect = QRect(mapFrom(control, QPoint(0, 0)), control->size());
        const QWidget *focus = QApplication::focusWidget();
        if (focus && (focus == control || control->isAncestorOf(focus)))
            option->state |= QStyle::State_HasFocus;
        return;
    }
    // Room for the text field, so that the box's width plays no part in the buttons' size.
    QRect box(0, 0, width() + 4 * qMax(height(), 16), height());
    for (int pass = 0; pass < 2; ++pass) {
        option->rect = box;
        const QRect buttons = style()->subControlRect(QStyle::CC_SpinBox, option, QStyle::SC_SpinBoxUp, this)
                                  .united(style()->subControlRect(QStyle::CC_SpinBox, option, QStyle::SC_SpinBoxDown, this));
        if (buttons.isEmpty())
            return;
        const int above = buttons.top() - box.top();
        const int below = box.bottom() - buttons.bottom();
        const int right = box.right() - buttons.right();
        box = QRect(0, -above, box.width(), height() + above + below);
        box.moveRight(width() - 1 + right);
    }
    option->rect = box;
}

int UpDownButton::downTop() const
{
    QStyleOptionSpinBox option;
    initSpinOption(&option);
    const int top = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxDown, this).top();
    return height() < 2 ? height() / 2 : qBound(1, top, height() - 1);
}

void UpDownButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setClipRect(rect());
    QStyleOptionSpinBox option;
    initSpinOption(&option);
    // Asked here, where the arrows are drawn, not on every change of the value.
    if (isEnabled() && isPartEnabled(UpPart))
        option.stepEnabled |= QAbstractSpinBox::StepUpEnabled;
    if (isEnabled() && isPartEnabled(DownPart))
        option.stepEnabled |= QAbstractSpinBox::StepDownEnabled;
    style()->drawComplexControl(QStyle::CC_SpinBox, &option, &painter, this);
}

bool UpDownButton::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::HoverLeave: {
        const Part hovered = event->type() == QEvent::HoverLeave
                                 ? NoPart
                                 : partAt(static_cast<QHoverEvent *>(event)->position().toPoint());
        if (hovered != m_hovered) {
            m_hovered = hovered;
            update();
        }
        break;
    }
    default:
        break;
    }
    return QWidget::event(event);
}

void UpDownButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || m_pressed != NoPart) {
        event->ignore();
        return;
    }
    const Part part = partAt(event->position().toPoint());
    if (part == NoPart || !isPartEnabled(part))
        return;
    m_pressed = part;
    m_under = true;
    update();
    m_repeat.start(RepeatDelay);
    fire();
}

void UpDownButton::mouseMoveEvent(QMouseEvent *event)
{
    if (m_pressed == NoPart)
        return;
    const bool under = partAt(event->position().toPoint()) == m_pressed;
    if (under != m_under) {
        m_under = under;
        update();
    }
}

void UpDownButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        release();
}

void UpDownButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        release();
    QWidget::changeEvent(event);
}

void UpDownButton::hideEvent(QHideEvent *event)
{
    release();
    QWidget::hideEvent(event);
}

void UpDownButton::fire()
{
    setValue(m_pressed == UpPart ? 1 : 0);
}

void UpDownButton::repeat()
{
    if (m_pressed == NoPart || !isEnabled() || !isPartEnabled(m_pressed)) {
        release(); // held down up to a bound, the arrow stops there
        return;
    }
    if (m_repeat.interval() != RepeatInterval)
        m_repeat.setInterval(RepeatInterval);
    if (m_under)
        fire();
}

void UpDownButton::release()
{
    m_repeat.stop();
    if (m_pressed != NoPart) {
        m_pressed = NoPart;
        m_under = false;
        update();
    }
}

} // namespace Tarnwell
