#include "shared/usersettings.h"

#include "shared/settingsreader.h"

#include <cstdlib>

namespace Tarnwell::UserSettings {

namespace {

struct Cache
{
    const SettingsStore *store = nullptr;
    quint64 generation = 0;
    bool valid = false;
    int scrollWidth = 0;
    QString digits;
    QString currencyDigits;
};

QString read(const QString &subKey, const QString &name)
{
    return SettingsReader::getRegValue(SettingsReader::HKeyCurrentUser, subKey, name).toString();
}

const Cache &current()
{
    static Cache cache;
    const SettingsStore &store = SettingsReader::store();
    const quint64 generation = store.generation();
    if (cache.valid && cache.store == &store && cache.generation == generation)
        return cache;
    const QString international = QStringLiteral("Control Panel\\International");
    bool ok = false;
    const qlonglong width =
        read(QStringLiteral("Control Panel\\Desktop\\WindowMetrics"), QStringLiteral("ScrollWidth"))
            .toLongLong(&ok);
    cache.scrollWidth = ok ? int(qMin<qlonglong>(std::llabs(width), 1000000)) : 0;
    cache.digits = read(international, QStringLiteral("iDigits"));
    cache.currencyDigits = read(international, QStringLiteral("iCurrDigits"));
    cache.store = &store;
    cache.generation = generation;
    cache.valid = true;
    return cache;
}

} // namespace

int scrollWidthTwips()
{
    return current().scrollWidth;
}

QString numberDigits()
{
    return current().digits;
}

QString currencyDigits()
{
    return current().currencyDigits;
}

} // namespace Tarnwell::UserSettings
