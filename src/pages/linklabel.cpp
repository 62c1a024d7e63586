#include "pages/linklabel.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace Tarnwell::Pages {

namespace {

// A QLabel reads as static text; this one is a link whose press action activates it.
class AccessibleLink : public QAccessibleWidget
{
public:
    explicit AccessibleLink(QWidget *widget) : QAccessibleWidget(widget, QAccessible::Link) {}

    QString text(QAccessible::Text t) const override
    {
        const auto *label = static_cast<const LinkLabel *>(widget());
        if (t == QAccessible::Name && label->accessibleName().isEmpty())
            return label->text();
        if (t == QAccessible::Value)
            return label->text();
        return QAccessibleWidget::text(t);
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString &action) override
    {
        if (action == pressAction())
            emit static_cast<LinkLabel *>(widget())->activated();
    }
};

QAccessibleInterface *linkAccessible(const QString &className, QObject *object)
{
    if (className == QLatin1String("Tarnwell::Pages::LinkLabel") && object && object->isWidgetType())
        return new AccessibleLink(static_cast<QWidget *>(object));
    return nullptr;
}

} // namespace

LinkLabel::LinkLabel(QWidget *parent, const char *name, OleColor normal, OleColor hover)
    : QLabel(parent)
    , m_normal(normal)
    , m_hover(hover)
{
    static const bool factoryInstalled = [] {
        QAccessible::installFactory(linkAccessible);
        return true;
    }();
    (void)factoryInstalled;
    setObjectName(QString::fromLatin1(name));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    // The page decides hover and normal from the moves it sees, so the label must see them too.
    setMouseTracking(true);
    QFont underlined = font();
    underlined.setUnderline(true);
    setFont(underlined);
    showColor();
}

void LinkLabel::setHovered(bool hovered)
{
    if (hovered == m_hovered)
        return;
    m_hovered = hovered;
    showColor();
}

void LinkLabel::showColor()
{
    QPalette p = palette();
    p.setColor(QPalette::WindowText, color().toQColor(p));
    setPalette(p);
}

void LinkLabel::mousePressEvent(QMouseEvent *event)
{
    m_pressed = event->button() == Qt::LeftButton;
    event->accept();
}

// A click is a press and a release on the label, as a button counts it.
void LinkLabel::mouseReleaseEvent(QMouseEvent *event)
{
    const bool click = m_pressed && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
    m_pressed = false;
    event->accept();
    if (click)
        emit activated();
}

void LinkLabel::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if ((event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
            event->accept();
            emit activated();
            return;
        }
        break;
    default:
        break;
    }
    QLabel::keyPressEvent(event);
}

void LinkLabel::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = contentsRect();
    option.backgroundColor = palette().color(backgroundRole());
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

} // namespace Tarnwell::Pages
