#pragma once
// Relays every signal an object declares as one readable line, "<name>.<Signal>(args)", without
// knowing the object's class: the demo logs the controls' events, whatever they grow into.
#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QObject>
#include <QSet>
#include <QString>

#include <functional>

namespace Tarnwell::Demo {

class SignalRelay : public QObject
{
    // No Q_OBJECT: qt_metacall below serves one private slot per relayed signal, as QSignalSpy
    // does, so that any signature can be received without a slot declared for it.
public:
    using Sink = std::function<void(const QString &line)>;

    // Connects, directly, every signal declared by `source`'s classes below QWidget (below QObject
    // for a non-widget): the widget's own events, not the generic ones every widget has. A direct
    // connection is what by-reference arguments need, and the line shows them as the signal was
    // raised, before any later handler changes them.
    SignalRelay(QObject *source, const QString &name, Sink sink, QObject *parent = nullptr);

    QString name() const { return m_name; }
    QList<QByteArray> relayedSignals() const;

    // A muted signal is not formatted at all (MouseMove fires on every pixel).
    void setMuted(const QByteArray &signalName, bool muted);

    // One argument as it appears in the log: numbers plainly, strings quoted, objects by class
    // and name, anything else by its type name.
    static QString formatArgument(QMetaType type, const void *value);

    int qt_metacall(QMetaObject::Call call, int id, void **argv) override;

private:
    struct Relayed {
        QByteArray name;
        QList<QMetaType> types;
    };
    void relay(const Relayed &relayed, void **argv) const;

    QString m_name;
    Sink m_sink;
    QList<Relayed> m_relayed;
    QSet<QByteArray> m_muted;
};

} // namespace Tarnwell::Demo
