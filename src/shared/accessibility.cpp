#include "shared/accessibility.h"

#include "shared/accessibilitycontrol.h"
#include "shared/accessibilityparts.h"

#include <QAccessible>
#include <QLineEdit>
#include <QWidget>

namespace Tarnwell::Accessibility {

namespace {

constexpr const char *frameClass = "Tarnwell::ControlFrame";

bool isControl(const QWidget *widget)
{
    return widget && widget->inherits(frameClass);
}

// A widget directly inside a control, of the control's own making (never a host's widget: a host
// cannot place widgets inside a control).
bool isInnerPart(const QWidget *widget)
{
    return !widget->isWindow() && isControl(widget->parentWidget());
}

} // namespace

void install()
{
    // Qt asks the factories installed last first, so this one is asked before Qt's own, which
    // would give the frame a Border and the text box an unnamed editable text.
    static const bool installed = [] {
        QAccessible::installFactory(&createInterface);
        return true;
    }();
    (void)installed;
}

QAccessibleInterface *createInterface(const QString &className, QObject *object)
{
    // Qt asks for every class of every object, from the most derived up: answer the few names
    // that matter here, so that any other widget costs one comparison per class.
    if (!object || !object->isWidgetType())
        return nullptr;
    auto *widget = static_cast<QWidget *>(object);
    if (className == QLatin1String(frameClass))
        return new ControlAccessible(widget, controlOf(widget));
    if (className == QLatin1String("QLineEdit") && isInnerPart(widget))
        return new ControlAccessible(widget, controlOf(widget));
    if (className == QLatin1String("QCheckBox") && isInnerPart(widget)
        && widget->objectName() == QLatin1String("Check1"))
        return new CheckPartAccessible(widget, controlOf(widget));
    if (className == QLatin1String("Tarnwell::DatePicker") && isInnerPart(widget))
        return new PickerPartAccessible(widget, controlOf(widget));
    return nullptr;
}

QWidget *controlOf(QWidget *widget)
{
    QWidget *control = nullptr;
    for (QWidget *w = widget; w; w = w->parentWidget()) {
        if (isControl(w))
            control = w;
        if (w->isWindow())
            break;
    }
    return control;
}

QLineEdit *textBoxOf(const QWidget *control)
{
    // Text1 of the control itself comes first; a DateBox's is its inner box's.
    return control ? control->findChild<QLineEdit *>(QStringLiteral("Text1")) : nullptr;
}

QString nameOf(const QWidget *control)
{
    QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(const_cast<QWidget *>(control));
    return iface ? iface->text(QAccessible::Name) : QString();
}

} // namespace Tarnwell::Accessibility
