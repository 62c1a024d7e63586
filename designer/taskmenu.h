#pragma once
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionFactory>

#include <QObject>
#include <QPointer>

class QAction;
class QExtensionManager;

namespace Tarnwell {

// "Properties..." on a control's context menu (and its double-click): the property pages of the
// control and of the other Tarnwell controls selected with it. The pages write through the form
// window's cursor, so that each change is on Designer's undo stack and in the saved form.
class PropertiesTaskMenu : public QObject, public QDesignerTaskMenuExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    PropertiesTaskMenu(QWidget *control, QObject *parent);

    QAction *preferredEditAction() const override { return m_action; }
    QList<QAction *> taskActions() const override { return {m_action}; }

private:
    void openPages();

    QPointer<QWidget> m_control;
    QAction *m_action;
};

class PropertiesTaskMenuFactory : public QExtensionFactory
{
    Q_OBJECT

public:
    using QExtensionFactory::QExtensionFactory;
    static void registerIn(QExtensionManager *manager);

protected:
    QObject *createExtension(QObject *object, const QString &iid, QObject *parent) const override;
};

} // namespace Tarnwell
