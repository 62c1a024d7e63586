#include "designsurface.h"

#include "demoform.h"

#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

namespace Tarnwell::Demo {

namespace {

constexpr int handleSize = 6;

} // namespace

DesignSurface::DesignSurface(DemoForm *form, QAction *properties)
    : QWidget(form)
    , m_form(form)
    , m_properties(properties)
{
    setObjectName(QStringLiteral("designSurface"));
    setFocusPolicy(Qt::NoFocus);
    setGeometry(form->rect());
    form->installEventFilter(this);
    hide();
}

QList<QWidget *> DesignSurface::selection() const
{
    QList<QWidget *> fields;
    for (const QPointer<QWidget> &field : m_selected) {
        if (field)
            fields.append(field);
    }
    return fields;
}

QWidget *DesignSurface::fieldAt(const QPoint &pos) const
{
    const QPoint onForm = mapTo(m_form, pos);
    for (QWidget *field : m_form->fields()) {
        if (field->isVisible() && field->geometry().contains(onForm))
            return field;
    }
    // A caption stands for its field, as a label does for the focus.
    for (const QLabel *caption : m_form->findChildren<QLabel *>(Qt::FindDirectChildrenOnly)) {
        if (caption->isVisible() && caption->geometry().contains(onForm) && m_form->fields().contains(caption->buddy()))
            return caption->buddy();
    }
    return nullptr;
}

void DesignSurface::selectOnly(QWidget *field)
{
    setSelection(field ? QList<QWidget *>{field} : QList<QWidget *>{});
}

void DesignSurface::toggle(QWidget *field)
{
    if (!field)
        return;
    QList<QWidget *> fields = selection();
    if (!fields.removeOne(field))
        fields.append(field);
    setSelection(fields);
}

void DesignSurface::setSelection(const QList<QWidget *> &fields)
{
    if (fields == selection())
        return;
    for (QWidget *old : selection())
        old->removeEventFilter(this);
    m_selected.clear();
    for (QWidget *field : fields) {
        m_selected.append(field);
        // A property change may move or resize the field; its frame follows.
        field->installEventFilter(this);
    }
    update();
    emit selectionChanged();
}

bool DesignSurface::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (watched == m_form && type == QEvent::Resize)
        setGeometry(m_form->rect());
    else if (type == QEvent::Move || type == QEvent::Resize || type == QEvent::Hide || type == QEvent::Show)
        update();
    return QWidget::eventFilter(watched, event);
}

void DesignSurface::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    QWidget *field = fieldAt(event->position().toPoint());
    if (event->modifiers() & Qt::ControlModifier)
        toggle(field);
    else
        selectOnly(field);
    event->accept();
}

void DesignSurface::contextMenuEvent(QContextMenuEvent *event)
{
    // A right click on a field outside the selection selects it alone, as form designers do.
    QWidget *field = fieldAt(event->pos());
    if (field && !selection().contains(field))
        selectOnly(field);
    if (selection().isEmpty())
        return;
    QMenu menu(this);
    menu.addAction(m_properties);
    menu.exec(event->globalPos());
}

QRect DesignSurface::frameOf(const QWidget *field) const
{
    return QRect(mapFrom(m_form, field->geometry().topLeft()), field->size()).adjusted(-3, -3, 2, 2);
}

void DesignSurface::paintEvent(QPaintEvent *)
{
    // The palette's highlight with a text-coloured outline on the handles reads on light and dark
    // forms alike.
    QPainter painter(this);
    const QColor frameColor = palette().color(QPalette::Highlight);
    const QColor outline = palette().color(QPalette::WindowText);
    for (const QWidget *field : selection()) {
        if (!field->isVisible())
            continue;
        const QRect frame = frameOf(field);
        painter.setPen(QPen(frameColor, 2, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(frame);
        painter.setPen(outline);
        painter.setBrush(frameColor);
        const int h = handleSize / 2;
        for (const QPoint corner : {frame.topLeft(), frame.topRight(), frame.bottomLeft(), frame.bottomRight(),
                                    QPoint(frame.center().x(), frame.top()), QPoint(frame.center().x(), frame.bottom())})
            painter.drawRect(QRect(corner - QPoint(h, h), QSize(handleSize, handleSize)));
    }
}

} // namespace Tarnwell::Demo
