#pragma once
#include <tarnwell/global.h>

#include <QObject>
#include <QMimeData>
#include <QPointer>
#include <QStringList>
#include <QVariant>

#include <functional>

namespace Tarnwell {

/// @brief The data carried by a drag: the host's data object over a QMimeData.
///
///  Formats are the host's
/// clipboard format numbers; a format declared with SetData and no value is filled on demand
/// through the data-request handler (the control raises OLESetData from it).
class TARNWELL_EXPORT DataObject : public QObject
{
    Q_OBJECT
public:
    /// The host's clipboard formats.
    enum Format {
        CFText = 1,      ///< text (QString)
        CFBitmap = 2,    ///< a bitmap (QImage)
        CFMetafile = 3,  ///< a metafile
        CFDIB = 8,       ///< a device-independent bitmap (QImage)
        CFPalette = 9,   ///< a colour palette
        CFEMetafile = 14, ///< an enhanced metafile
        CFFiles = 15,    ///< a list of files (QStringList)
        CFRTF = -16639,  ///< rich text
    };
    Q_ENUM(Format)

    /// Wraps `data` without owning it (an incoming drop), or a new QMimeData of its own when
    /// `data` is null (an outgoing drag; take it with takeMimeData()).
    explicit DataObject(const QMimeData *data = nullptr, QObject *parent = nullptr);
    ~DataObject() override;

    /// The value in `format` (text as QString, pictures as QImage, files as QStringList); Empty
    /// when the data holds no such format. Error(380) for a format number the object does not know.
    Q_INVOKABLE QVariant GetData(int format) const;
    /// Stores `value` in `format`; format 0 picks it from the value (string, image, string list).
    /// An Empty value only declares the format, to be supplied on request. Error(380) for an
    /// unknown format or a value that does not fit the format, Error(387) on incoming data.
    Q_INVOKABLE void SetData(const QVariant &value = QVariant(), int format = 0);
    /// Whether the data holds (or declares) `format`.
    Q_INVOKABLE bool GetFormat(int format) const;
    /// Removes every format (Error(387) on incoming data).
    Q_INVOKABLE void Clear();
    /// The file names carried in the CFFiles format.
    Q_INVOKABLE QStringList Files() const;
    /// Stores file names in the CFFiles format.
    Q_INVOKABLE void setFiles(const QStringList &files);

    /// Called when a reader asks for a declared format that holds no value yet.
    using DataRequestHandler = std::function<void(DataObject *data, short &format)>;
    /// Installs the handler that supplies declared formats on request.
    void setDataRequestHandler(DataRequestHandler handler);

    /// The QMimeData the object wraps (incoming) or fills (outgoing, until taken).
    const QMimeData *mimeData() const;
    /// Hands the outgoing QMimeData to a QDrag (which takes ownership); null for incoming data.
    QMimeData *takeMimeData();

    /// Whether `format` is one of #Format.
    static bool isKnownFormat(int format);
    /// MIME type a format travels under ("text/plain", "text/uri-list", ...).
    static QString mimeTypeOf(int format);

private:
    class Mime;
    friend class Mime;
    void requestData(int format) const;

    const QMimeData *m_incoming = nullptr;
    QPointer<QMimeData> m_own; // ours until takeMimeData(); a QDrag may delete it afterwards
    bool m_ownTaken = false;
    DataRequestHandler m_handler;
    mutable bool m_requesting = false;
};

} // namespace Tarnwell
