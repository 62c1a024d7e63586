#include "shared/bagvalues.h"

#include <tarnwell/error.h>
#include <tarnwell/variant.h>

#include <QImage>

#include <climits>

namespace Tarnwell::BagValue {

namespace {

[[noreturn]] void refuse()
{
    throw Error(Error::InvalidPropertyValue);
}

} // namespace

bool toBool(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    return toInt(value, LLONG_MIN, LLONG_MAX) != 0;
}

qint64 toInt(const QVariant &value, qint64 lowest, qint64 highest)
{
    qint64 n = 0;
    if (value.userType() == qMetaTypeId<OleColor>()) {
        n = qvariant_cast<OleColor>(value).value();
    } else {
        bool ok = false;
        n = value.toLongLong(&ok);
        if (!ok)
            refuse();
    }
    if (n < lowest || n > highest)
        refuse();
    return n;
}

OleColor toColor(const QVariant &value)
{
    return OleColor(std::uint32_t(toInt(value, INT32_MIN, UINT32_MAX)));
}

QString toString(const QVariant &value)
{
    if (value.typeId() != QMetaType::QString && !value.canConvert<QString>())
        refuse();
    return value.toString();
}

QFont toFont(const QVariant &value)
{
    if (value.typeId() == QMetaType::QFont)
        return qvariant_cast<QFont>(value);
    if (value.typeId() == QMetaType::QString) {
        QFont font;
        if (font.fromString(value.toString()))
            return font;
    }
    refuse();
}

QPixmap toPicture(const QVariant &value)
{
    if (!value.isValid() || value.isNull())
        return QPixmap();
    if (value.typeId() == QMetaType::QPixmap)
        return qvariant_cast<QPixmap>(value);
    if (value.typeId() == QMetaType::QImage)
        return QPixmap::fromImage(qvariant_cast<QImage>(value));
    refuse();
}

Date toDate(const QVariant &value)
{
    if (!value.isValid() || Variant::isNull(value))
        refuse();
    try {
        return Variant::toDate(value);
    } catch (const Error &) {
        refuse();
    }
}

} // namespace Tarnwell::BagValue
