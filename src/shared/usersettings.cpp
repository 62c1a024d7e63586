#include "shared/usersettings.h"

#include "shared/settingsreader.h"

#include <QApplication>
#include <QStyle>

#include <cstdlib>

namespace Tarnwell::UserSettings {

namespace {

struct Cache
{
    const SettingsStore *store = nullptr;
    QString style; // a store without ScrollWidth reports the style's button width
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
    const QStyle *appStyle = qobject_cast<QApplication *>(QCoreApplication::instance())
                                 ? QApplication::style()
                                 : nullptr;
    const QString style = appStyle ? appStyle->name() : QString();
    if (cache.valid && cache.store == &store && cache.generation == generation && cache.style == style)
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
    cache.style = style;
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
