#pragma once
#include <tarnwell/date.h>

#include <QDate>
#include <QMetaType>
#include <QTime>
#include <QVariant>

#include <optional>

// Between the controls' own values (variants of the host's kinds: Currency, Decimal, Date) and
// the plain Qt types an item model holds in its cells. Nothing here throws.
namespace Tarnwell::ModelValues {

// The number types a model cell may hold: integers of every width, and float and double.
bool isInteger(QMetaType type);
bool isUnsigned(QMetaType type);
bool isReal(QMetaType type);
inline bool isNumber(QMetaType type) { return isInteger(type) || isReal(type); }

// Integers wider than a Long (the widest integer data type): their cells are edited as Decimal
// with no decimals, the one exact data type that holds them.
bool isWideInteger(QMetaType type);

// A number of any kind (the host's Currency and Decimal included) as a value of `type`, one of
// the number types above. Integers are rounded half to even, as the host rounds; a value beyond
// an integer type's limits comes back as a double, never wrapped. Empty for a value that is no
// number.
QVariant toNumber(const QVariant &value, QMetaType type);

// What a QVariant property receives when Qt wraps a default value of the property's own type
// (an item delegate writing an empty cell): the inner variant; anything else as it is.
QVariant unwrapped(const QVariant &value);

// A date value as a calendar date or a time of day; invalid for a value that is no date.
QDate toQDate(const QVariant &value);
QTime toQTime(const QVariant &value);

// A valid calendar date or time of day as the host's date; nothing for an invalid one or a date
// the host's date cannot hold (before 1 January 100 or after 31 December 9999). A time keeps
// whole seconds only, as the time box shows and steps them.
std::optional<Date> fromQDate(const QDate &date);
std::optional<Date> fromQTime(const QTime &time);

} // namespace Tarnwell::ModelValues
