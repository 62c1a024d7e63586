#include "taskmenu.h"

#include "propertysheet.h"

#include <tarnwell/controlframe.h>
#include <tarnwell/error.h>
#include <tarnwell/propertydialog.h>

#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QExtensionManager>

#include <QAction>
#include <QTimer>

#include <memory>

namespace Tarnwell {

PropertiesTaskMenu::PropertiesTaskMenu(QWidget *control, QObject *parent)
    : QObject(parent), m_control(control), m_action(new QAction(tr("Properties..."), this))
{
    connect(m_action, &QAction::triggered, this, &PropertiesTaskMenu::openPages);
}

void PropertiesTaskMenu::openPages()
{
    QDesignerFormWindowInterface *form = QDesignerFormWindowInterface::findFormWindow(m_control);
    if (!form)
        return;
    // The pages work on the first control of the selection: the one whose menu was opened.
    QList<QObject *> selection{m_control.data()};
    QDesignerFormWindowCursorInterface *cursor = form->cursor();
    for (int i = 0; i < cursor->selectedWidgetCount(); ++i) {
        QWidget *widget = cursor->selectedWidget(i);
        if (widget != m_control && qobject_cast<ControlFrame *>(widget))
            selection.append(widget);
    }
    PropertyDialog dialog(selection, form);
    // One apply is one undo step: the first write of an apply opens the step, and it closes once
    // the apply has returned to the event loop.
    auto stepOpen = std::make_shared<bool>(false);
    const QString step = tr("Properties of %1").arg(m_control->objectName());
    dialog.setPropertyWriter([form, stepOpen, step](QObject *control, const char *name, const QVariant &value) {
        if (!*stepOpen) {
            *stepOpen = true;
            form->beginCommand(step);
            QTimer::singleShot(0, form, [form, stepOpen] {
                form->endCommand();
                *stepOpen = false;
            });
        }
        auto *widget = qobject_cast<QWidget *>(control);
        auto *sheet = qt_extension<QDesignerPropertySheetExtension *>(form->core()->extensionManager(), control);
        if (!widget || !sheet || sheet->indexOf(QLatin1String(name)) < 0)
            throw Error(Error::TypeMismatch); // as a property the control does not have
        // Through the cursor: one undoable command, and the property marked for saving. A refusal
        // is the page's to show, and stops its apply.
        RefusalCatcher refusals;
        form->cursor()->setWidgetProperty(widget, QLatin1String(name), value);
        if (refusals.error())
            throw *refusals.error();
    });
    dialog.exec();
}

void PropertiesTaskMenuFactory::registerIn(QExtensionManager *manager)
{
    manager->registerExtensions(new PropertiesTaskMenuFactory(manager), Q_TYPEID(QDesignerTaskMenuExtension));
}

QObject *PropertiesTaskMenuFactory::createExtension(QObject *object, const QString &iid, QObject *parent) const
{
    auto *control = qobject_cast<ControlFrame *>(object);
    if (!control || iid != QLatin1String(Q_TYPEID(QDesignerTaskMenuExtension)))
        return nullptr;
    return new PropertiesTaskMenu(control, parent);
}

} // namespace Tarnwell
