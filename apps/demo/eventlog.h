#pragma once
// The demo's event pane: every event a watched field raises, one line each, newest at the bottom.
#include <QList>
#include <QStringList>
#include <QWidget>

class QCheckBox;
class QPlainTextEdit;

namespace Tarnwell::Demo {

class SignalRelay;

class EventLog : public QWidget
{
    Q_OBJECT
public:
    explicit EventLog(QWidget *parent = nullptr);
    ~EventLog() override;

    // Logs every event of `source` as "<name>.<Event>(args)". Watching the same object twice, or
    // an object that is later destroyed, is harmless.
    void watch(QObject *source, const QString &name);

    // Host messages (loaded a file, switched mode) share the pane, marked apart from events.
    void note(const QString &text);
    void append(const QString &line);
    void clear();

    QStringList lines() const;

    // Events that fire continuously while the mouse moves are hidden unless asked for.
    void setShowMouseMoves(bool show);
    bool showMouseMoves() const { return m_showMouseMoves; }

private:
    QPlainTextEdit *m_text;
    QCheckBox *m_mouseMoves;
    QList<SignalRelay *> m_relays;
    bool m_showMouseMoves = false;
};

} // namespace Tarnwell::Demo
