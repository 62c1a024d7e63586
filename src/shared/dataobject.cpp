#include <tarnwell/dataobject.h>
#include <tarnwell/error.h>

#include <QImage>
#include <QPixmap>
#include <QSet>
#include <QUrl>

namespace Tarnwell {

// Outgoing data: a QMimeData that also lists formats declared without a value and asks the
// owner for them when a reader wants one.
class DataObject::Mime : public QMimeData
{
public:
    explicit Mime(DataObject *owner) : m_owner(owner) {}

    void declare(const QString &mimeType) { m_declared.insert(mimeType); }
    void fulfil(const QString &mimeType) { m_declared.remove(mimeType); }
    void forgetDeclared() { m_declared.clear(); }
    void detach() { m_owner = nullptr; }

    bool hasFormat(const QString &mimeType) const override
    {
        return m_declared.contains(mimeType) || QMimeData::hasFormat(mimeType);
    }
    QStringList formats() const override
    {
        QStringList all = QMimeData::formats();
        for (const QString &f : m_declared) {
            if (!all.contains(f))
                all.append(f);
        }
        return all;
    }

protected:
    QVariant retrieveData(const QString &mimeType, QMetaType type) const override
    {
        if (m_declared.contains(mimeType) && m_owner) {
            for (int format : {int(CFText), int(CFBitmap), int(CFMetafile), int(CFDIB),
                               int(CFPalette), int(CFEMetafile), int(CFFiles), int(CFRTF)}) {
                if (mimeTypeOf(format) == mimeType) {
                    m_owner->requestData(format);
                    break;
                }
            }
        }
        return QMimeData::retrieveData(mimeType, type);
    }

private:
    DataObject *m_owner;
    QSet<QString> m_declared;
};

DataObject::DataObject(const QMimeData *data, QObject *parent) : QObject(parent), m_incoming(data)
{
    if (!data)
        m_own = new Mime(this);
}

DataObject::~DataObject()
{
    if (m_own) {
        static_cast<Mime *>(m_own.data())->detach();
        if (!m_ownTaken)
            delete m_own.data();
    }
}

bool DataObject::isKnownFormat(int format)
{
    return !mimeTypeOf(format).isEmpty();
}

QString DataObject::mimeTypeOf(int format)
{
    switch (format) {
    case CFText: return QStringLiteral("text/plain");
    case CFBitmap:
    case CFDIB: return QStringLiteral("application/x-qt-image");
    case CFMetafile: return QStringLiteral("image/x-wmf");
    case CFEMetafile: return QStringLiteral("image/x-emf");
    case CFPalette: return QStringLiteral("application/x-tarnwell-palette");
    case CFFiles: return QStringLiteral("text/uri-list");
    case CFRTF: return QStringLiteral("text/rtf");
    default: return QString();
    }
}

const QMimeData *DataObject::mimeData() const
{
    return m_incoming ? m_incoming : m_own.data();
}

QMimeData *DataObject::takeMimeData()
{
    if (!m_own || m_ownTaken)
        return nullptr;
    m_ownTaken = true;
    return m_own.data();
}

void DataObject::setDataRequestHandler(DataRequestHandler handler)
{
    m_handler = std::move(handler);
}

void DataObject::requestData(int format) const
{
    if (!m_handler || m_requesting)
        return;
    m_requesting = true;
    short f = short(format);
    try {
        m_handler(const_cast<DataObject *>(this), f);
    } catch (...) {
        // A reader asking for data must never see the host's failure; it gets no data instead.
    }
    m_requesting = false;
}

bool DataObject::GetFormat(int format) const
{
    const QMimeData *data = mimeData();
    if (!data || !isKnownFormat(format))
        return false;
    switch (format) {
    case CFText: return data->hasText();
    case CFBitmap:
    case CFDIB: return data->hasImage();
    case CFFiles: return data->hasUrls();
    default: return data->hasFormat(mimeTypeOf(format));
    }
}

QVariant DataObject::GetData(int format) const
{
    if (!isKnownFormat(format))
        throw Error(Error::InvalidPropertyValue);
    const QMimeData *data = mimeData();
    if (!data || !GetFormat(format))
        return QVariant();
    switch (format) {
    case CFText: return data->text();
    case CFBitmap:
    case CFDIB: {
        const QVariant image = data->imageData();
        if (image.canConvert<QImage>())
            return QVariant(qvariant_cast<QImage>(image));
        return QVariant();
    }
    case CFFiles: return Files();
    case CFRTF: return QString::fromUtf8(data->data(mimeTypeOf(format)));
    default: return data->data(mimeTypeOf(format));
    }
}

void DataObject::SetData(const QVariant &value, int format)
{
    if (!m_own || m_incoming)
        throw Error(Error::SetNotPermitted);
    if (format == 0) {
        switch (value.typeId()) {
        case QMetaType::QString: format = CFText; break;
        case QMetaType::QImage:
        case QMetaType::QPixmap: format = CFBitmap; break;
        case QMetaType::QStringList: format = CFFiles; break;
        default: throw Error(Error::InvalidPropertyValue);
        }
    }
    if (!isKnownFormat(format))
        throw Error(Error::InvalidPropertyValue);
    auto *mime = static_cast<Mime *>(m_own.data());
    const QString type = mimeTypeOf(format);
    if (!value.isValid()) {
        mime->declare(type);
        return;
    }
    switch (format) {
    case CFText:
        if (!value.canConvert<QString>())
            throw Error(Error::InvalidPropertyValue);
        mime->setText(value.toString());
        break;
    case CFBitmap:
    case CFDIB:
        if (value.typeId() == QMetaType::QImage)
            mime->setImageData(value);
        else if (value.typeId() == QMetaType::QPixmap)
            mime->setImageData(qvariant_cast<QPixmap>(value).toImage());
        else
            throw Error(Error::InvalidPropertyValue);
        break;
    case CFFiles:
        if (value.typeId() == QMetaType::QStringList)
            setFiles(value.toStringList());
        else if (value.typeId() == QMetaType::QString)
            setFiles(QStringList{value.toString()});
        else
            throw Error(Error::InvalidPropertyValue);
        break;
    default:
        if (value.typeId() == QMetaType::QByteArray)
            mime->setData(type, value.toByteArray());
        else if (value.canConvert<QString>())
            mime->setData(type, value.toString().toUtf8());
        else
            throw Error(Error::InvalidPropertyValue);
        break;
    }
    mime->fulfil(type);
}

void DataObject::Clear()
{
    if (!m_own || m_incoming)
        throw Error(Error::SetNotPermitted);
    auto *mime = static_cast<Mime *>(m_own.data());
    mime->clear();
    mime->forgetDeclared();
}

QStringList DataObject::Files() const
{
    QStringList files;
    if (const QMimeData *data = mimeData()) {
        for (const QUrl &url : data->urls())
            files.append(url.isLocalFile() ? url.toLocalFile() : url.toString());
    }
    return files;
}

void DataObject::setFiles(const QStringList &files)
{
    if (!m_own || m_incoming)
        throw Error(Error::SetNotPermitted);
    QList<QUrl> urls;
    for (const QString &f : files)
        urls.append(QUrl::fromLocalFile(f));
    auto *mime = static_cast<Mime *>(m_own.data());
    mime->setUrls(urls);
    mime->fulfil(mimeTypeOf(CFFiles));
}

} // namespace Tarnwell
