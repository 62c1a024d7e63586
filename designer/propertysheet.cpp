#include "propertysheet.h"

#include <tarnwell/controlframe.h>
#include <tarnwell/date.h>
#include <tarnwell/error.h>
#include <tarnwell/olecolor.h>
#include <tarnwell/timebox.h>

#include <QtDesigner/QExtensionManager>

#include <QMessageBox>
#include <QMetaProperty>
#include <QTimer>

namespace Tarnwell {

namespace {
RefusalCatcher *catcher = nullptr; // the innermost one alive
} // namespace

RefusalCatcher::RefusalCatcher() : m_outer(catcher)
{
    catcher = this;
}

RefusalCatcher::~RefusalCatcher()
{
    catcher = m_outer;
}

void reportRefusal(QObject *control, const QString &what, const Error &error)
{
    if (catcher) {
        if (!catcher->m_error)
            catcher->m_error = error;
        return;
    }
    // Shown once the write has returned: Designer is still inside its property command.
    QPointer<QWidget> parent = qobject_cast<QWidget *>(control);
    const QString text = QStringLiteral("%1: %2").arg(what, error.message());
    QTimer::singleShot(0, [parent, text] {
        QMessageBox::warning(parent ? parent->window() : nullptr, QStringLiteral("Tarnwell"), text);
    });
}

PropertySheet::PropertySheet(QDesignerPropertySheetExtension *designerSheet, QObject *control,
                             QObject *parent)
    : QObject(parent), m_sheet(designerSheet), m_control(control)
{
}

QMetaProperty PropertySheet::controlProperty(int index) const
{
    const QMetaObject *meta = m_control->metaObject();
    const int at = meta->indexOfProperty(m_sheet->propertyName(index).toLatin1().constData());
    // Designer's own entries (fake and dynamic properties) and Qt's classes are Designer's.
    if (at < ControlFrame::staticMetaObject.propertyOffset())
        return {};
    return meta->property(at);
}

PropertySheet::Shown PropertySheet::shownAs(int index) const
{
    const QMetaProperty property = controlProperty(index);
    if (!property.isValid())
        return Shown::AsIs;
    if (!property.isStored())
        return Shown::Hidden;
    const QMetaType type = property.metaType();
    if (type == QMetaType::fromType<OleColor>())
        return Shown::Color;
    if (type == QMetaType::fromType<Date>())
        return qobject_cast<TimeBox *>(m_control) ? Shown::Time : Shown::Date;
    if (type == QMetaType::fromType<QVariant>())
        return Shown::Number; // only NumberBox stores a variant
    if (type == QMetaType::fromType<short>())
        return Shown::Int;
    return Shown::AsIs;
}

QColor PropertySheet::resolved(OleColor color) const
{
    return color.toQColor(static_cast<QWidget *>(m_control)->palette());
}

bool PropertySheet::isVisible(int index) const
{
    return shownAs(index) != Shown::Hidden && m_sheet->isVisible(index);
}

QVariant PropertySheet::property(int index) const
{
    const QVariant value = m_sheet->property(index);
    switch (shownAs(index)) {
    case Shown::Color: return resolved(value.value<OleColor>());
    case Shown::Date: return value.value<Date>().toQDate();
    case Shown::Time: return value.value<Date>().toQTime();
    case Shown::Number: return value.isValid() ? QVariant(value.toDouble()) : value;
    case Shown::Int: return value.toInt();
    case Shown::AsIs:
    case Shown::Hidden: break;
    }
    return value;
}

void PropertySheet::setProperty(int index, const QVariant &value)
{
    m_refused = -1;
    // A value in the control's own type (a property page's write) goes through as it is.
    const Shown shown = value.metaType() == controlProperty(index).metaType() ? Shown::AsIs : shownAs(index);
    try {
        switch (shown) {
        case Shown::Color: {
            const auto before = m_sheet->property(index).value<OleColor>();
            const QColor color = value.value<QColor>();
            const auto restored = m_colorBefore.constFind(index);
            const bool undoing = restored != m_colorBefore.constEnd() && resolved(*restored) == color;
            m_sheet->setProperty(index, QVariant::fromValue(undoing ? *restored : OleColor::fromQColor(color)));
            m_colorBefore.insert(index, before);
            break;
        }
        case Shown::Date:
            m_sheet->setProperty(index, QVariant::fromValue(Date::fromQDate(value.toDate())));
            break;
        case Shown::Time:
            m_sheet->setProperty(index, QVariant::fromValue(Date::fromQTime(value.toTime())));
            break;
        default: m_sheet->setProperty(index, value); break;
        }
    } catch (const Error &error) {
        m_refused = index;
        reportRefusal(m_control, m_sheet->propertyName(index), error);
    }
}

void PropertySheet::setChanged(int index, bool changed)
{
    // Designer marks a property changed after writing it, refused or not.
    if (changed && index == m_refused)
        return;
    m_sheet->setChanged(index, changed);
}

bool PropertySheet::reset(int index)
{
    try {
        return m_sheet->reset(index);
    } catch (const Error &error) {
        reportRefusal(m_control, m_sheet->propertyName(index), error);
        return false;
    }
}

PropertySheetFactory::PropertySheetFactory(QExtensionManager *manager) : QExtensionFactory(manager)
{
}

void PropertySheetFactory::registerIn(QExtensionManager *manager)
{
    // Registered after Designer's own factories, so asked before them.
    manager->registerExtensions(new PropertySheetFactory(manager),
                                Q_TYPEID(QDesignerPropertySheetExtension));
}

QObject *PropertySheetFactory::createExtension(QObject *object, const QString &iid, QObject *parent) const
{
    if (m_fetching || iid != QLatin1String(Q_TYPEID(QDesignerPropertySheetExtension))
        || !qobject_cast<ControlFrame *>(object))
        return nullptr;
    m_fetching = true;
    auto *designerSheet = qt_extension<QDesignerPropertySheetExtension *>(extensionManager(), object);
    m_fetching = false;
    if (!designerSheet)
        return nullptr;
    return new PropertySheet(designerSheet, object, parent);
}

} // namespace Tarnwell
