#pragma once
// Conversions between Tarnwell's values and the Python types the module hands out, and the
// bridges from Python callables to the library's C++ hooks.
#include <Python.h>

#include <tarnwell/propertypage.h>
#include <tarnwell/controlframe.h>
#include <tarnwell/error.h>

#include <QString>
#include <QVariant>

#include <exception>

namespace Tarnwell {
class Currency;
class Date;
class Decimal;
class OleColor;
} // namespace Tarnwell

namespace TarnwellPython {

// A QVariant of the library's API as Python sees it: Empty is None, Null tarnwell.Null, Currency
// and Decimal decimal.Decimal, dates datetime.datetime (datetime.date and datetime.time taken
// too); every other value as PyQt6 converts it. The module's declarations use it in place of
// QVariant, so these rules hold for the library's own calls without changing PyQt6's elsewhere.
struct Value {
    QVariant variant;
    Value() = default;
    Value(const QVariant &value) : variant(value) {} // NOLINT: stands for a QVariant
    operator const QVariant &() const { return variant; } // NOLINT
};
bool canConvertToValue(PyObject *object);
bool toValue(PyObject *object, QVariant &value);
PyObject *fromValue(const QVariant &value);
// A value written by name: to one of the library's objects as toValue() converts it, to any other
// object as PyQt6 does.
bool toPropertyValue(QObject *target, PyObject *object, QVariant &value);

// Takes the package's exception class (tarnwell.Error) and its Null singleton.
void install(PyObject *errorType, PyObject *null);
// Teaches PyQt6's own QVariant conversions the library's values, so that QObject.property(),
// QObject.setProperty() and the signals carrying a QVariant see them as the module's methods do.
void registerVariantConvertors();

// SIP's exception handler: a Tarnwell::Error becomes tarnwell.Error (true); anything else is
// left to SIP (false).
bool handleException(std::exception_ptr exception);
// Raises tarnwell.Error(number, message) as the current Python exception.
void raiseError(const Tarnwell::Error &error);

// Numbers: decimal.Decimal, int and float. A conversion that fails returns false with a Python
// exception set (tarnwell.Error for a value the library refuses).
bool isNumber(PyObject *object);
bool toCurrency(PyObject *object, Tarnwell::Currency &value);
bool toDecimal(PyObject *object, Tarnwell::Decimal &value);
PyObject *fromCurrency(const Tarnwell::Currency &value);
PyObject *fromDecimal(const Tarnwell::Decimal &value);

// Dates: datetime.datetime, datetime.date and datetime.time (and Qt's own) in; datetime out.
bool isDateLike(PyObject *object);
bool toDate(PyObject *object, Tarnwell::Date &value);
PyObject *fromDate(const Tarnwell::Date &value);

// Colours: an int (32 bits, system colours included) or a QColor.
bool isColor(PyObject *object);
bool toColor(PyObject *object, Tarnwell::OleColor &value);

// C++ hooks that call a Python callable; None gives the library's default (an empty function).
Tarnwell::ControlFrame::CanPropertyChangeHook propertyChangeHook(PyObject *callable);
Tarnwell::PropertyPage::PropertyWriter propertyWriter(PyObject *callable);

} // namespace TarnwellPython
