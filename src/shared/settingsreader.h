#pragma once
#include "shared/settingsstore.h"

#include <QString>
#include <QVariant>

namespace Tarnwell {

// Reads per-user settings as text with the registry helper's rules: REG_SZ values as their text
// up to the first NUL (whole when there is none), REG_BINARY values as the signed 16-bit number
// in their first two bytes, zero-filled when shorter ("-271" for F1 FE), and every other type and
// every failure as "".
// Nothing here throws.
class SettingsReader
{
public:
    static constexpr SettingsStore::Handle HKeyCurrentUser = SettingsStore::CurrentUser;

    // Opens `subKey` under `root`, reads `valueName`, closes the key: a QVariant holding a QString.
    static QVariant getRegValue(SettingsStore::Handle root, const QString &subKey,
                                const QString &valueName);
    static QString readRegValue(SettingsStore::Handle openKey, const QString &valueName);

    // The store every read goes to: the per-user file unless a host or a test set another.
    static SettingsStore &store();
    // Not owned; null goes back to the per-user file.
    static void setStore(SettingsStore *store);
};

} // namespace Tarnwell
