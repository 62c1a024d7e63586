#include "shared/updownbutton.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

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

void UpDownButton::setPartEnabled(Part part, bool enabled)
{
    bool &flag = part == UpPart ? m_upEnabled : m_downEnabled;
    if (part == NoPart || flag == enabled)
        return;
    flag = enabled;
    if (!enabled && m_pressed == part)
        release();
    update();
}

bool UpDownButton::isPartEnabled(Part part) const
{
    return part == UpPart ? m_upEnabled : part == DownPart ? m_downEnabled : false;
}

UpDownButton::Part UpDownButton::partAt(const QPoint &pos) const
{
    if (!rect().contains(pos))
        return NoPart;
    return pos.y() < height() / 2 ? UpPart : DownPart;
}

QRect UpDownButton::partRect(Part part) const
{
    const int half = height() / 2;
    switch (part) {
    case UpPart: return QRect(0, 0, width(), half);
    case DownPart: return QRect(0, half, width(), height() - half);
    default: return QRect();
    }
}

QSize UpDownButton::sizeHint() const
{
    const int extent = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    return QSize(extent, 21);
}

QSize UpDownButton::minimumSizeHint() const
{
    return QSize(8, 8);
}

void UpDownButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    for (Part part : {UpPart, DownPart}) {
        QStyleOptionButton option;
        option.initFrom(this);
        option.rect = partRect(part);
        if (!isPartEnabled(part))
            option.state &= ~QStyle::State_Enabled;
        if (m_pressed == part && m_under)
            option.state |= QStyle::State_Sunken;
        else
            option.state |= QStyle::State_Raised;
        style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);

        QStyleOption arrow;
        arrow.initFrom(this);
        if (!isPartEnabled(part))
            arrow.state &= ~QStyle::State_Enabled;
        const int margin = qMax(1, qMin(option.rect.width(), option.rect.height()) / 5);
        arrow.rect = option.rect.adjusted(margin, margin, -margin, -margin);
        if (m_pressed == part && m_under)
            arrow.rect.translate(style()->pixelMetric(QStyle::PM_ButtonShiftHorizontal, &option, this),
                                 style()->pixelMetric(QStyle::PM_ButtonShiftVertical, &option, this));
        style()->drawPrimitive(part == UpPart ? QStyle::PE_IndicatorArrowUp
                                              : QStyle::PE_IndicatorArrowDown,
                               &arrow, &painter, this);
    }
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
    if (m_pressed == NoPart || !isEnabled()) {
        release();
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
