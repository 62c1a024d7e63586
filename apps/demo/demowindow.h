#pragma once
// The demo's main window: the customer order form beside the event log, with run/design mode
// and the form's save and load.
#include <QMainWindow>

class QAction;
class QLabel;

namespace Tarnwell::Demo {

class DemoForm;
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

    // Each returns false with `error` set; nothing is changed by a failed load.
    bool saveTo(const QString &path, QString *error);
    bool loadFrom(const QString &path, QString *error);
    // Renders the window as it stands, open popups included, into a PNG.
    bool renderTo(const QString &path, QString *error);
    // Opens the calendar of the date field named `fieldName`, as Alt+Down does.
    bool dropDown(const QString &fieldName, QString *error);

    void setDesignMode(bool design);

private:
    void createActions();
    void saveInteractively();
    void loadInteractively();

    DemoForm *m_form;
    EventLog *m_log;
    OrderLines *m_lines;
    QAction *m_runAction;
    QAction *m_designAction;
    QLabel *m_modeLabel;
};

} // namespace Tarnwell::Demo
