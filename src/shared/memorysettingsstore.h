#pragma once
#include "shared/settingsstore.h"

#include <QMap>
#include <QSet>

namespace Tarnwell {

// A settings store held in memory, for tests and for hosts that supply their own settings.
// Setting a value creates its key and every key above it.
class MemorySettingsStore : public SettingsStore
{
public:
    void setValue(Handle root, const QString &subKey, const QString &valueName, int type,
                  const QByteArray &data);
    // A REG_SZ value: the text's UTF-8 bytes and a terminating NUL.
    void setString(Handle root, const QString &subKey, const QString &valueName,
                   const QString &text);
    void addKey(Handle root, const QString &subKey);
    void removeValue(Handle root, const QString &subKey, const QString &valueName);
    // Makes the second read of a value fail, as a value changing between two reads would.
    void setFailingRead(Handle root, const QString &subKey, const QString &valueName);
    void clear();

protected:
    bool keyExists(Handle root, const QString &path) const override;
    std::optional<Value> value(Handle root, const QString &path,
                               const QString &valueName) const override;
    std::optional<QByteArray> data(Handle root, const QString &path,
                                   const QString &valueName) const override;

private:
    static QString keyId(Handle root, const QString &path);
    static QString valueId(Handle root, const QString &path, const QString &valueName);

    QSet<QString> m_keys;           // case-folded "root\path" of every key
    QMap<QString, Value> m_values;  // case-folded "root\path\0name"
    QSet<QString> m_failingReads;
};

} // namespace Tarnwell
