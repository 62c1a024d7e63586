#include "shared/filesettingsstore.h"

#include "shared/framestyle.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <QtEndian>

namespace Tarnwell {

namespace {

constexpr struct {
    int type;
    const char *prefix;
} typePrefixes[] = {
    {SettingsStore::RegSz, "REG_SZ:"},
    {SettingsStore::RegExpandSz, "REG_EXPAND_SZ:"},
    {SettingsStore::RegBinary, "REG_BINARY:"},
    {SettingsStore::RegDword, "REG_DWORD:"},
};

QByteArray textBytes(const QString &text)
{
    QByteArray bytes = text.toUtf8();
    bytes.append('\0');
    return bytes;
}

// Decodes a stored value; nothing for a typed value whose payload does not parse.
std::optional<SettingsStore::Value> decode(const QString &stored)
{
    for (const auto &p : typePrefixes) {
        const QLatin1String prefix(p.prefix);
        if (!stored.startsWith(prefix, Qt::CaseInsensitive))
            continue;
        const QString payload = stored.mid(prefix.size());
        switch (p.type) {
        case SettingsStore::RegBinary: {
            QString hex = payload;
            hex.remove(QLatin1Char(' '));
            const QByteArray bytes = QByteArray::fromHex(hex.toLatin1());
            if (bytes.size() * 2 != hex.size())
                return std::nullopt;
            return SettingsStore::Value{p.type, bytes};
        }
        case SettingsStore::RegDword: {
            bool ok = false;
            const quint32 n = payload.trimmed().toUInt(&ok, 0);
            if (!ok)
                return std::nullopt;
            QByteArray bytes(4, '\0');
            qToLittleEndian(n, bytes.data());
            return SettingsStore::Value{p.type, bytes};
        }
        default:
            return SettingsStore::Value{p.type, textBytes(payload)};
        }
    }
    return SettingsStore::Value{SettingsStore::RegSz, textBytes(stored)};
}

QString encode(int type, const QByteArray &data)
{
    for (const auto &p : typePrefixes) {
        if (p.type != type)
            continue;
        switch (type) {
        case SettingsStore::RegBinary:
            return QLatin1String(p.prefix) + QString::fromLatin1(data.toHex(' '));
        case SettingsStore::RegDword: {
            QByteArray bytes = data.left(4);
            bytes.resize(4, '\0');
            return QLatin1String(p.prefix)
                   + QString::number(qFromLittleEndian<quint32>(bytes.constData()));
        }
        default: {
            const qsizetype nul = data.indexOf('\0');
            return QLatin1String(p.prefix) + QString::fromUtf8(nul < 0 ? data : data.left(nul));
        }
        }
    }
    return QString();
}

const QString windowMetricsPath = QStringLiteral("Control Panel\\Desktop\\WindowMetrics");

} // namespace

FileSettingsStore::FileSettingsStore(const QString &fileName)
    : m_fileName(fileName.isEmpty() ? defaultFileName() : fileName)
{
}

FileSettingsStore::~FileSettingsStore()
{
    delete m_watcher;
}

quint64 FileSettingsStore::generation() const
{
    watch();
    return SettingsStore::generation();
}

// Watches the file, or while it does not exist the nearest folder above it that does, so that
// creating, editing or replacing it moves the generation. Without an application object nothing
// is watched.
void FileSettingsStore::watch() const
{
    if (m_watcher || !QCoreApplication::instance())
        return;
    m_watcher = new QFileSystemWatcher(QCoreApplication::instance());
    auto *self = const_cast<FileSettingsStore *>(this);
    const auto rearm = [self] {
        self->touch();
        QFileSystemWatcher *w = self->m_watcher;
        if (!w->files().isEmpty())
            w->removePaths(w->files());
        if (!w->directories().isEmpty())
            w->removePaths(w->directories());
        QFileInfo target(self->m_fileName);
        if (target.exists()) {
            w->addPath(target.absoluteFilePath());
            return;
        }
        for (QDir dir = target.absoluteDir();; ) {
            if (dir.exists()) {
                w->addPath(dir.absolutePath());
                return;
            }
            if (!dir.cdUp())
                return;
        }
    };
    QObject::connect(m_watcher, &QFileSystemWatcher::fileChanged, m_watcher, rearm);
    QObject::connect(m_watcher, &QFileSystemWatcher::directoryChanged, m_watcher, rearm);
    rearm();
}

QString FileSettingsStore::defaultFileName()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QStringLiteral("/tarnwell/settings.ini");
}

QString FileSettingsStore::rootName(Handle root)
{
    switch (root) {
    case ClassesRoot: return QStringLiteral("HKEY_CLASSES_ROOT");
    case CurrentUser: return QStringLiteral("HKEY_CURRENT_USER");
    case LocalMachine: return QStringLiteral("HKEY_LOCAL_MACHINE");
    case Users: return QStringLiteral("HKEY_USERS");
    default: return QString();
    }
}

QString FileSettingsStore::defaultScrollWidth()
{
    int extent = 17; // the registry's own default, when no style is at hand
    // Without a setting of its own the up-down button is as wide as the style's spin-box arrows.
    if (qobject_cast<QApplication *>(QCoreApplication::instance()))
        extent = FrameStyle::spinButtonWidth(nullptr);
    return QString::number(-extent * 15);
}

bool FileSettingsStore::isWindowMetrics(Handle root, const QString &path)
{
    return root == CurrentUser && path.compare(windowMetricsPath, Qt::CaseInsensitive) == 0;
}

QString FileSettingsStore::findGroup(Handle root, const QString &path) const
{
    QSettings settings(m_fileName, QSettings::IniFormat);
    QString found = rootName(root);
    if (found.isEmpty())
        return QString();
    QStringList parts = path.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    parts.prepend(found);
    found.clear();
    for (const QString &part : parts) {
        if (!found.isEmpty())
            settings.beginGroup(found);
        QString match;
        for (const QString &g : settings.childGroups()) {
            if (g.compare(part, Qt::CaseInsensitive) == 0) {
                match = g;
                break;
            }
        }
        if (!found.isEmpty())
            settings.endGroup();
        if (match.isEmpty())
            return QString();
        found = found.isEmpty() ? match : found + QLatin1Char('/') + match;
    }
    return found;
}

bool FileSettingsStore::keyExists(Handle root, const QString &path) const
{
    return isWindowMetrics(root, path) || !findGroup(root, path).isEmpty();
}

std::optional<SettingsStore::Value> FileSettingsStore::value(Handle root, const QString &path,
                                                             const QString &valueName) const
{
    const QString group = findGroup(root, path);
    if (!group.isEmpty()) {
        QSettings settings(m_fileName, QSettings::IniFormat);
        settings.beginGroup(group);
        for (const QString &key : settings.childKeys()) {
            if (key.compare(valueName, Qt::CaseInsensitive) != 0)
                continue;
            const QVariant stored = settings.value(key);
            // An unquoted INI value with commas comes back as a list; join it back.
            const QString text = stored.userType() == QMetaType::QStringList
                                     ? stored.toStringList().join(QLatin1Char(','))
                                     : stored.toString();
            return decode(text);
        }
    }
    if (isWindowMetrics(root, path)
        && valueName.compare(QLatin1String("ScrollWidth"), Qt::CaseInsensitive) == 0)
        return Value{RegSz, textBytes(defaultScrollWidth())};
    return std::nullopt;
}

void FileSettingsStore::setValue(Handle root, const QString &subKey, const QString &valueName,
                                 int type, const QByteArray &data)
{
    const QString name = rootName(root);
    if (name.isEmpty())
        return;
    QString group = name;
    for (const QString &part : normalizedPath(subKey).split(QLatin1Char('\\'), Qt::SkipEmptyParts))
        group += QLatin1Char('/') + part;
    QSettings settings(m_fileName, QSettings::IniFormat);
    settings.beginGroup(group);
    settings.setValue(valueName, encode(type, data));
    settings.endGroup();
    settings.sync();
    touch();
}

} // namespace Tarnwell
