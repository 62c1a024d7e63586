#include "shared/memorysettingsstore.h"

#include <QStringList>

namespace Tarnwell {

// Registry names compare without regard to case.
QString MemorySettingsStore::keyId(Handle root, const QString &path)
{
    return (QString::number(root, 16) + QLatin1Char('\\') + normalizedPath(path)).toCaseFolded();
}

QString MemorySettingsStore::valueId(Handle root, const QString &path, const QString &valueName)
{
    return keyId(root, path) + QChar(0) + valueName.toCaseFolded();
}

void MemorySettingsStore::addKey(Handle root, const QString &subKey)
{
    touch();
    QString path;
    for (const QString &part : normalizedPath(subKey).split(QLatin1Char('\\'), Qt::SkipEmptyParts)) {
        path = path.isEmpty() ? part : path + QLatin1Char('\\') + part;
        m_keys.insert(keyId(root, path));
    }
}

void MemorySettingsStore::setValue(Handle root, const QString &subKey, const QString &valueName,
                                   int type, const QByteArray &data)
{
    touch();
    addKey(root, subKey);
    m_values.insert(valueId(root, subKey, valueName), Value{type, data});
}

void MemorySettingsStore::setString(Handle root, const QString &subKey, const QString &valueName,
                                    const QString &text)
{
    QByteArray bytes = text.toUtf8();
    bytes.append('\0');
    setValue(root, subKey, valueName, RegSz, bytes);
}

void MemorySettingsStore::removeValue(Handle root, const QString &subKey,
                                      const QString &valueName)
{
    touch();
    m_values.remove(valueId(root, subKey, valueName));
}

void MemorySettingsStore::setFailingRead(Handle root, const QString &subKey,
                                         const QString &valueName)
{
    touch();
    m_failingReads.insert(valueId(root, subKey, valueName));
}

void MemorySettingsStore::clear()
{
    touch();
    m_keys.clear();
    m_values.clear();
    m_failingReads.clear();
}

bool MemorySettingsStore::keyExists(Handle root, const QString &path) const
{
    return m_keys.contains(keyId(root, path));
}

std::optional<SettingsStore::Value> MemorySettingsStore::value(Handle root, const QString &path,
                                                               const QString &valueName) const
{
    const auto it = m_values.constFind(valueId(root, path, valueName));
    if (it == m_values.constEnd())
        return std::nullopt;
    return it.value();
}

std::optional<QByteArray> MemorySettingsStore::data(Handle root, const QString &path,
                                                    const QString &valueName) const
{
    if (m_failingReads.contains(valueId(root, path, valueName)))
        return std::nullopt;
    return SettingsStore::data(root, path, valueName);
}

} // namespace Tarnwell
