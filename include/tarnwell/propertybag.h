#pragma once
#include <tarnwell/global.h>

#include <QByteArray>
#include <QJsonArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace Tarnwell {

/// @brief The host's property bag, where a control saves and restores its settings as JSON.
///
/// A control writes each persisted property with its default (nothing is
/// stored when the value equals the default) and reads it back with the same default. Values keep
/// their variant kind through JSON (Integer stays qint16, Currency stays exact, fonts as
/// QFont::toString(), pictures as PNG).
class TARNWELL_EXPORT PropertyBag
{
public:
    /// The value stored under `key`, or `defaultValue` when none is.
    QVariant ReadProperty(const QString &key, const QVariant &defaultValue = QVariant()) const;
    /// Stores `value` under `key`; stores nothing (and removes what was stored) when `value`
    /// equals `defaultValue`.
    void WriteProperty(const QString &key, const QVariant &value,
                       const QVariant &defaultValue = QVariant());

    /// Whether a value is stored under `key`.
    bool contains(const QString &key) const;
    QStringList keys() const; ///< stored keys, in the order first written
    /// Removes every stored value.
    void clear();

    /// Every key asked for by ReadProperty and passed to WriteProperty, in call order, stored or
    /// not; lets a host (and the tests) see the exact persistence order.
    const QStringList &readLog() const { return m_readLog; }
    /// Every key passed to WriteProperty, in call order (see readLog()).
    const QStringList &writeLog() const { return m_writeLog; }

    /// The stored values as a JSON array of key, kind and value, in the order first written.
    QJsonArray toJson() const;
    /// The bag toJson() wrote.
    static PropertyBag fromJson(const QJsonArray &json);
    /// toJson() as indented UTF-8 text.
    QByteArray toJsonText() const;
    static PropertyBag fromJsonText(const QByteArray &text); ///< an empty bag for unreadable text

    /// Values equal as the bag sees them: numbers by value across kinds, fonts by description,
    /// pictures by pixels.
    static bool sameValue(const QVariant &a, const QVariant &b);

private:
    struct Entry {
        QString key;
        QVariant value;
    };
    QList<Entry> m_entries;
    mutable QStringList m_readLog;
    QStringList m_writeLog;
};

} // namespace Tarnwell
