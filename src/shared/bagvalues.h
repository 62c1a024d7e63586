#pragma once
#include <tarnwell/date.h>
#include <tarnwell/olecolor.h>

#include <QFont>
#include <QPixmap>
#include <QString>
#include <QVariant>

// Readers of property-bag values. Anything unreadable throws Error(380), as a bad property value
// does, so that every control refuses a damaged bag the same way.
namespace Tarnwell::BagValue {

// Booleans stored as themselves or as numbers (non-zero is true).
bool toBool(const QVariant &value);
// A whole number in lowest..highest; OLE colours count as their 32-bit value.
qint64 toInt(const QVariant &value, qint64 lowest, qint64 highest);
// A colour stored as its own type or as a Long (negative values are system colours).
OleColor toColor(const QVariant &value);
QString toString(const QVariant &value);
// A font stored as itself or as QFont::toString() text.
QFont toFont(const QVariant &value);
// No picture (Empty or Null), a pixmap or an image.
QPixmap toPicture(const QVariant &value);
// A date (or a time of day) stored as itself, as its serial number or as a date text; a value
// outside the years the date type holds is unreadable too.
Date toDate(const QVariant &value);

} // namespace Tarnwell::BagValue
