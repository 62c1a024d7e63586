#pragma once
// The demo's main window: the customer order form beside the event log, with run/design mode
// and the form's save and load.
#include <QMainWindow>
#include <QPointer>

class QAction;
class QLabel;

namespace Tarnwell {
class PropertyDialog;
}

namespace Tarnwell::Demo {

class DemoForm;
class DesignSurface;
class EventLog;
class OrderLines;

class DemoWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit DemoWindow(QWidget *parent = nullptr);

    DemoForm *form() const { return m_form; }
    EventLog *log() const { return m_log; }
    OrderLines *orderLines() const { return m_lines; }
    DesignSurface *designSurface() const { return m_surface; }
    QAction *propertiesAction() const { return m_propertiesAction; }
    // The property dialog open now, or null.
    PropertyDialog *propertyDialog() const;

    // Each returns false with `error` set; nothing is changed by a failed load.
    bool saveTo(const QString &path, QString *error);
    bool loadFrom(const QString &path, QString *error);
    // Renders the window as it stands, open popups included, into a PNG.
    bool renderTo(const QString &path, QString *error);
    // Opens the calendar of the date field named `fieldName`, as Alt+Down does.
    bool dropDown(const QString &fieldName, QString *error);
    // Selects the field named `fieldName` in design mode and opens its property dialog on the page
    // captioned `page` (the first page when empty).
    bool showProperties(const QString &fieldName, const QString &page, QString *error);
    // Opens the property dialog for the design-time selection (nothing without one).
    void openProperties();

    void setDesignMode(bool design);

private:
    void createActions();
    void saveInteractively();
    void loadInteractively();
    void updatePropertiesAction();

    DemoForm *m_form;
    EventLog *m_log;
    OrderLines *m_lines;
    QAction *m_runAction;
    QAction *m_designAction;
    QAction *m_propertiesAction;
    DesignSurface *m_surface;
    QPointer<PropertyDialog> m_dialog;
    QLabel *m_modeLabel;
};

} // namespace Tarnwell::Demo
