#include "shared/settingsstore.h"

#include <QStringList>

namespace Tarnwell {

QString SettingsStore::normalizedPath(const QString &subKey)
{
    QString path = subKey;
    path.replace(QLatin1Char('/'), QLatin1Char('\\'));
    return path.split(QLatin1Char('\\'), Qt::SkipEmptyParts).join(QLatin1Char('\\'));
}

SettingsStore::Handle SettingsStore::openKey(Handle parent, const QString &subKey)
{
    OpenKey base;
    if (!resolve(parent, &base))
        return 0;
    const QString rel = normalizedPath(subKey);
    OpenKey key{base.root, base.path.isEmpty() ? rel
                                               : rel.isEmpty() ? base.path
                                                               : base.path + QLatin1Char('\\') + rel};
    if (!key.path.isEmpty() && !keyExists(key.root, key.path))
        return 0;
    // Handles never reach the predefined roots; skip any still in use after a wrap.
    do {
        if (m_next == 0 || m_next >= ClassesRoot)
            m_next = 1;
    } while (m_open.contains(m_next++));
    const Handle handle = m_next - 1;
    m_open.insert(handle, key);
    return handle;
}

void SettingsStore::closeKey(Handle key)
{
    m_open.remove(key);
}

bool SettingsStore::resolve(Handle key, OpenKey *out) const
{
    if (isRoot(key)) {
        *out = OpenKey{key, QString()};
        return true;
    }
    const auto it = m_open.constFind(key);
    if (it == m_open.constEnd())
        return false;
    *out = it.value();
    return true;
}

std::optional<SettingsStore::Value> SettingsStore::queryInfo(Handle key,
                                                             const QString &valueName) const
{
    OpenKey k;
    if (!resolve(key, &k))
        return std::nullopt;
    return value(k.root, k.path, valueName);
}

std::optional<QByteArray> SettingsStore::readData(Handle key, const QString &valueName) const
{
    OpenKey k;
    if (!resolve(key, &k))
        return std::nullopt;
    return data(k.root, k.path, valueName);
}

std::optional<QByteArray> SettingsStore::data(Handle root, const QString &path,
                                              const QString &valueName) const
{
    if (auto v = value(root, path, valueName))
        return v->data;
    return std::nullopt;
}

} // namespace Tarnwell
