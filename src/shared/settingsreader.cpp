#include "shared/settingsreader.h"

#include "shared/filesettingsstore.h"

#include <QtEndian>

#include <cstring>

namespace Tarnwell {

namespace {
SettingsStore *current = nullptr;
} // namespace

SettingsStore &SettingsReader::store()
{
    if (current)
        return *current;
    static FileSettingsStore file;
    return file;
}

void SettingsReader::setStore(SettingsStore *store)
{
    current = store;
}

QVariant SettingsReader::getRegValue(SettingsStore::Handle root, const QString &subKey,
                                     const QString &valueName)
{
    SettingsStore &s = store();
    const SettingsStore::Handle key = s.openKey(root, subKey);
    const QString text = readRegValue(key, valueName);
    s.closeKey(key);
    return QVariant(text);
}

QString SettingsReader::readRegValue(SettingsStore::Handle openKey, const QString &valueName)
{
    const SettingsStore &s = store();
    const auto info = s.queryInfo(openKey, valueName);
    if (!info)
        return QString();
    switch (info->type) {
    case SettingsStore::RegSz: {
        const auto bytes = s.readData(openKey, valueName);
        if (!bytes)
            return QString();
        // Text without a terminating NUL is taken whole rather than refused.
        const qsizetype nul = bytes->indexOf('\0');
        return QString::fromUtf8(nul < 0 ? *bytes : bytes->left(nul));
    }
    case SettingsStore::RegBinary: {
        const auto bytes = s.readData(openKey, valueName);
        if (!bytes)
            return QString();
        // The read goes into a zeroed 16-bit integer: shorter data fills only its low bytes,
        // longer data gives its first two.
        char word[2] = {0, 0};
        std::memcpy(word, bytes->constData(), size_t(qMin<qsizetype>(bytes->size(), 2)));
        return QString::number(qFromLittleEndian<qint16>(word));
    }
    default:
        return QString();
    }
}

} // namespace Tarnwell
