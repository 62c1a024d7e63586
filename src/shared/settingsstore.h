#pragma once
#include <QByteArray>
#include <QHash>
#include <QString>

#include <cstdint>
#include <optional>

namespace Tarnwell {

// A per-user settings store shaped like the registry: keys opened by path under a predefined
// root, values with a type number and raw bytes. Handles are small numbers; 0 is "no key".
// Subclasses answer only two questions (does a key exist, what does a value hold); handle
// bookkeeping lives here.
class SettingsStore
{
public:
    using Handle = std::uint32_t;

    // Predefined roots.
    static constexpr Handle ClassesRoot = 0x80000000u;
    static constexpr Handle CurrentUser = 0x80000001u;
    static constexpr Handle LocalMachine = 0x80000002u;
    static constexpr Handle Users = 0x80000003u;

    // Value types, with the registry's numbers.
    enum Type : int { RegNone = 0, RegSz = 1, RegExpandSz = 2, RegBinary = 3, RegDword = 4 };

    struct Value {
        int type = RegNone;
        QByteArray data;
    };

    SettingsStore() = default;
    virtual ~SettingsStore() = default;
    SettingsStore(const SettingsStore &) = delete;
    SettingsStore &operator=(const SettingsStore &) = delete;

    static bool isRoot(Handle handle) { return handle >= ClassesRoot && handle <= Users; }
    // A sub-key path in one spelling: backslash-separated, no empty parts.
    static QString normalizedPath(const QString &subKey);

    // Opens `subKey` under `parent` (a root or an open key); 0 when it does not exist.
    Handle openKey(Handle parent, const QString &subKey);
    void closeKey(Handle key);
    // The type and size of a value; nothing when the key or value is missing.
    std::optional<Value> queryInfo(Handle key, const QString &valueName) const;
    // The bytes of a value, read a second time; nothing when the read fails.
    std::optional<QByteArray> readData(Handle key, const QString &valueName) const;
    int openKeyCount() const { return int(m_open.size()); }
    // A number that moves whenever a value of the store may have changed, so that readers can
    // keep what they read until then.
    virtual quint64 generation() const { return m_generation; }

protected:
    // Called by a store whose values changed.
    void touch() { ++m_generation; }

    virtual bool keyExists(Handle root, const QString &path) const = 0;
    virtual std::optional<Value> value(Handle root, const QString &path,
                                       const QString &valueName) const = 0;
    // The bytes of the second read; by default the same as value().
    virtual std::optional<QByteArray> data(Handle root, const QString &path,
                                           const QString &valueName) const;

private:
    struct OpenKey {
        Handle root;
        QString path;
    };
    bool resolve(Handle key, OpenKey *out) const;

    QHash<Handle, OpenKey> m_open;
    Handle m_next = 1;
    quint64 m_generation = 0;
};

} // namespace Tarnwell
