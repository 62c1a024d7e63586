#pragma once
#include "shared/settingsstore.h"

#include <QFileSystemWatcher>
#include <QPointer>
#include <QString>

namespace Tarnwell {

// The per-user settings file used where there is no registry: an INI file (QSettings) whose
// groups are the root's name and the key path ("HKEY_CURRENT_USER/Control Panel/International")
// and whose values carry their type as a prefix: "REG_SZ:2", "REG_EXPAND_SZ:%HOME%",
// "REG_BINARY:f1 fe", "REG_DWORD:17". A value without a known prefix is REG_SZ text. Names are
// matched without regard to case, as the registry does.
//
// The window metrics always exist: without a ScrollWidth in the file the store reports the
// style's scroll-bar extent in negative twips as REG_SZ text, as the registry holds it.
//
// Readers keep what they read until generation() moves: the file (or, while it does not exist,
// the nearest folder above it) is watched for changes once an application object exists.
class FileSettingsStore : public SettingsStore
{
public:
    // `fileName` empty: "tarnwell/settings.ini" in the user's generic config location.
    explicit FileSettingsStore(const QString &fileName = QString());
    ~FileSettingsStore() override;

    quint64 generation() const override;

    QString fileName() const { return m_fileName; }
    static QString defaultFileName();
    // Writes a value in the file's format (creates the file and the key).
    void setValue(Handle root, const QString &subKey, const QString &valueName, int type,
                  const QByteArray &data);
    // The ScrollWidth reported when the file has none: the style's spin-box button width in
    // negative twips ("-210" for 14-pixel buttons).
    static QString defaultScrollWidth();

    static QString rootName(Handle root); // "HKEY_CURRENT_USER", ...; empty for a non-root

protected:
    bool keyExists(Handle root, const QString &path) const override;
    std::optional<Value> value(Handle root, const QString &path,
                               const QString &valueName) const override;

private:
    static bool isWindowMetrics(Handle root, const QString &path);
    // The group as spelled in the file (case-insensitive match), empty when missing.
    QString findGroup(Handle root, const QString &path) const;

    void watch() const;

    QString m_fileName;
    mutable QPointer<QFileSystemWatcher> m_watcher;
};

} // namespace Tarnwell
