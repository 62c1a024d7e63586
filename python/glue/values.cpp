#include "glue/values.h"

#include "glue/pyref.h"
#include "sipAPI_tarnwell.h"

#include <tarnwell/currency.h>
#include <tarnwell/date.h>
#include <tarnwell/decimal.h>
#include <tarnwell/error.h>
#include <tarnwell/olecolor.h>

#include <datetime.h>

#include <QColor>
#include <QDateTime>

#include <cstddef>
#include <limits>

namespace TarnwellPython {

namespace {

PyObject *g_errorType = nullptr; // tarnwell.Error
PyObject *g_null = nullptr;      // tarnwell.Null
PyObject *g_decimalType = nullptr;

bool dateTimeApi()
{
    if (!PyDateTimeAPI)
        PyDateTime_IMPORT;
    return PyDateTimeAPI != nullptr;
}

PyObject *decimalType()
{
    if (!g_decimalType) {
        PyObject *module = PyImport_ImportModule("decimal");
        if (!module)
            return nullptr;
        g_decimalType = PyObject_GetAttrString(module, "Decimal");
        Py_DECREF(module);
    }
    return g_decimalType;
}

bool isDecimal(PyObject *object)
{
    PyObject *type = decimalType();
    if (!type) {
        PyErr_Clear();
        return false;
    }
    return PyObject_IsInstance(object, type) == 1;
}

bool isInteger(PyObject *object) { return PyLong_Check(object) && !PyBool_Check(object); }

// The exact decimal text of a Decimal (fixed notation, never an exponent) or an int.
bool exactText(PyObject *object, QString &text)
{
    PyObject *str = nullptr;
    if (isInteger(object)) {
        str = PyObject_Str(object);
    } else {
        PyObject *fixed = PyUnicode_FromString("f");
        str = PyObject_Format(object, fixed);
        Py_DECREF(fixed);
    }
    if (!str)
        return false;
    text = QString::fromUtf8(PyUnicode_AsUTF8(str));
    Py_DECREF(str);
    return true;
}

// Runs a conversion of the library, its refusal becoming tarnwell.Error.
template <typename F>
bool guarded(F &&convert)
{
    try {
        convert();
        return true;
    } catch (const Tarnwell::Error &error) {
        raiseError(error);
        return false;
    }
}

PyObject *decimalFromText(const QString &text)
{
    PyObject *type = decimalType();
    if (!type)
        return nullptr;
    return PyObject_CallFunction(type, "s", text.toUtf8().constData());
}

template <typename T>
bool sipHolds(PyObject *object, const sipTypeDef *type, T &out)
{
    if (!sipCanConvertToType(object, type, SIP_NOT_NONE | SIP_NO_CONVERTORS))
        return false;
    int error = 0;
    auto *value = static_cast<T *>(sipConvertToType(object, type, nullptr, SIP_NOT_NONE | SIP_NO_CONVERTORS, nullptr, &error));
    if (error || !value)
        return false;
    out = *value;
    return true;
}

// PyQt6's convertors: the library's values in a QVariant, as the module hands them out.
bool fromVariant(const QVariant &variant, PyObject **result)
{
    const QMetaType type = variant.metaType();
    if (type == QMetaType::fromType<std::nullptr_t>()) {
        if (!g_null)
            return false;
        Py_INCREF(g_null);
        *result = g_null;
    } else if (type == QMetaType::fromType<Tarnwell::Currency>()) {
        *result = fromCurrency(variant.value<Tarnwell::Currency>());
    } else if (type == QMetaType::fromType<Tarnwell::Decimal>()) {
        *result = fromDecimal(variant.value<Tarnwell::Decimal>());
    } else if (type == QMetaType::fromType<Tarnwell::Date>()) {
        *result = fromDate(variant.value<Tarnwell::Date>());
    } else if (type == QMetaType::fromType<Tarnwell::OleColor>()) {
        *result = PyLong_FromUnsignedLong(variant.value<Tarnwell::OleColor>().value());
    } else {
        return false;
    }
    return true;
}

// For PyQt6's own calls (QObject.setProperty by name): Null, decimal.Decimal and the ints past
// 64 bits (as a Decimal: they would not fit a QVariant otherwise), which PyQt6 would otherwise
// wrap as opaque Python objects no C++ code can read. Everything else is left to PyQt6.
bool toVariant(PyObject *object, QVariant &variant, bool *ok)
{
    if (g_null && object == g_null) {
        variant = QVariant::fromValue(nullptr);
        *ok = true;
        return true;
    }
    bool wide = false;
    if (isInteger(object)) {
        int overflow = 0;
        PyLong_AsLongLongAndOverflow(object, &overflow);
        wide = overflow != 0;
    }
    if (!wide && !isDecimal(object))
        return false;
    Tarnwell::Decimal value;
    *ok = toDecimal(object, value);
    if (*ok)
        variant = QVariant::fromValue(value);
    return true;
}

using FromConvertor = bool (*)(const QVariant &, PyObject **);
using ToConvertor = bool (*)(PyObject *, QVariant &, bool *);

// Anything else becomes a QVariant as PyQt6 itself would make it.
bool toQVariantAsPyQt(PyObject *object, QVariant &value)
{
    int error = 0;
    int state = 0;
    auto *converted = static_cast<QVariant *>(sipConvertToType(object, sipType_QVariant, nullptr, 0, &state, &error));
    if (error)
        return false;
    value = *converted;
    sipReleaseType(converted, sipType_QVariant, state);
    return true;
}

} // namespace

bool canConvertToValue(PyObject *object)
{
    return object == Py_None || (g_null && object == g_null) || isNumber(object) || PyBool_Check(object)
        || PyUnicode_Check(object) || isDateLike(object)
        || sipCanConvertToType(object, sipType_QVariant, 0);
}

bool toValue(PyObject *object, QVariant &value)
{
    if (object == Py_None) {
        value = QVariant();
    } else if (g_null && object == g_null) {
        value = QVariant::fromValue(nullptr);
    } else if (PyBool_Check(object)) {
        value = QVariant(object == Py_True);
    } else if (isInteger(object)) {
        int overflow = 0;
        const long long number = PyLong_AsLongLongAndOverflow(object, &overflow);
        if (overflow == 0 && number >= std::numeric_limits<qint32>::min() && number <= std::numeric_limits<qint32>::max())
            value = QVariant(qint32(number));
        else if (overflow == 0)
            value = QVariant(qlonglong(number));
        else {
            Tarnwell::Decimal wide;
            if (!toDecimal(object, wide))
                return false;
            value = QVariant::fromValue(wide);
        }
    } else if (PyFloat_Check(object)) {
        value = QVariant(PyFloat_AsDouble(object));
    } else if (isDecimal(object)) {
        Tarnwell::Decimal exact;
        if (!toDecimal(object, exact))
            return false;
        value = QVariant::fromValue(exact);
    } else if (PyUnicode_Check(object)) {
        value = QVariant(QString::fromUtf8(PyUnicode_AsUTF8(object)));
    } else if (dateTimeApi() && (PyDate_Check(object) || PyTime_Check(object))) {
        Tarnwell::Date date;
        if (!toDate(object, date))
            return false;
        value = QVariant::fromValue(date);
    } else {
        return toQVariantAsPyQt(object, value);
    }
    return true;
}

bool toPropertyValue(QObject *target, PyObject *object, QVariant &value)
{
    if (target && target->inherits("Tarnwell::ControlFrame"))
        return toValue(object, value);
    return toQVariantAsPyQt(object, value);
}

PyObject *fromValue(const QVariant &value)
{
    if (!value.isValid())
        Py_RETURN_NONE;
    PyObject *result = nullptr;
    if (fromVariant(value, &result))
        return result;
    return sipConvertFromType(const_cast<QVariant *>(&value), sipType_QVariant, nullptr);
}

void install(PyObject *errorType, PyObject *null)
{
    Py_XINCREF(errorType);
    Py_XINCREF(null);
    g_errorType = errorType;
    g_null = null;
}

void registerVariantConvertors()
{
    auto registerFrom = reinterpret_cast<void (*)(FromConvertor)>(
        sipImportSymbol("pyqt6_register_from_qvariant_convertor"));
    auto registerTo = reinterpret_cast<void (*)(ToConvertor)>(
        sipImportSymbol("pyqt6_register_to_qvariant_convertor"));
    if (registerFrom)
        registerFrom(fromVariant);
    if (registerTo)
        registerTo(toVariant);
}

bool handleException(std::exception_ptr exception)
{
    try {
        std::rethrow_exception(exception);
    } catch (const Tarnwell::Error &error) {
        raiseError(error);
        return true;
    } catch (...) {
        return false;
    }
}

void raiseError(const Tarnwell::Error &error)
{
    const QByteArray message = error.message().toUtf8();
    if (!g_errorType) {
        PyErr_SetString(PyExc_RuntimeError, message.constData());
        return;
    }
    PyObject *args = Py_BuildValue("(is)", error.number(), message.constData());
    if (args) {
        PyErr_SetObject(g_errorType, args);
        Py_DECREF(args);
    }
}

bool isNumber(PyObject *object)
{
    return isInteger(object) || PyFloat_Check(object) || isDecimal(object);
}

// Currency and Decimal take a float as its double and anything else by its exact decimal text.
template<class Exact>
bool toExact(PyObject *object, Exact &value)
{
    if (PyFloat_Check(object)) {
        const double d = PyFloat_AsDouble(object);
        return guarded([&] { value = Exact::fromDouble(d); });
    }
    QString text;
    if (!exactText(object, text))
        return false;
    return guarded([&] { value = Exact::parse(text, QLocale::c()); });
}

bool toCurrency(PyObject *object, Tarnwell::Currency &value)
{
    return toExact(object, value);
}

bool toDecimal(PyObject *object, Tarnwell::Decimal &value)
{
    return toExact(object, value);
}

PyObject *fromCurrency(const Tarnwell::Currency &value)
{
    return decimalFromText(value.toString(QLocale::c()));
}

PyObject *fromDecimal(const Tarnwell::Decimal &value)
{
    return decimalFromText(value.toString(QLocale::c()));
}

bool isDateLike(PyObject *object)
{
    if (dateTimeApi() && (PyDate_Check(object) || PyTime_Check(object)))
        return true;
    PyErr_Clear();
    const int flags = SIP_NOT_NONE | SIP_NO_CONVERTORS;
    return sipCanConvertToType(object, sipType_QDateTime, flags)
        || sipCanConvertToType(object, sipType_QDate, flags)
        || sipCanConvertToType(object, sipType_QTime, flags);
}

bool toDate(PyObject *object, Tarnwell::Date &value)
{
    if (!dateTimeApi())
        return false;
    // A datetime is also a date: it is asked first.
    if (PyDateTime_Check(object)) {
        const QDateTime moment(
            QDate(PyDateTime_GET_YEAR(object), PyDateTime_GET_MONTH(object), PyDateTime_GET_DAY(object)),
            QTime(PyDateTime_DATE_GET_HOUR(object), PyDateTime_DATE_GET_MINUTE(object),
                  PyDateTime_DATE_GET_SECOND(object), PyDateTime_DATE_GET_MICROSECOND(object) / 1000));
        return guarded([&] { value = Tarnwell::Date::fromQDateTime(moment); });
    }
    if (PyDate_Check(object)) {
        const QDate day(PyDateTime_GET_YEAR(object), PyDateTime_GET_MONTH(object), PyDateTime_GET_DAY(object));
        return guarded([&] { value = Tarnwell::Date::fromQDate(day); });
    }
    if (PyTime_Check(object)) {
        const QTime time(PyDateTime_TIME_GET_HOUR(object), PyDateTime_TIME_GET_MINUTE(object),
                         PyDateTime_TIME_GET_SECOND(object), PyDateTime_TIME_GET_MICROSECOND(object) / 1000);
        return guarded([&] { value = Tarnwell::Date::fromQTime(time); });
    }
    QDateTime moment;
    QDate day;
    QTime time;
    if (sipHolds(object, sipType_QDateTime, moment))
        return guarded([&] { value = Tarnwell::Date::fromQDateTime(moment); });
    if (sipHolds(object, sipType_QDate, day))
        return guarded([&] { value = Tarnwell::Date::fromQDate(day); });
    if (sipHolds(object, sipType_QTime, time))
        return guarded([&] { value = Tarnwell::Date::fromQTime(time); });
    PyErr_Format(PyExc_TypeError, "a date or time is required, not '%s'", Py_TYPE(object)->tp_name);
    return false;
}

PyObject *fromDate(const Tarnwell::Date &value)
{
    if (!dateTimeApi())
        return nullptr;
    const QDateTime moment = value.toQDateTime();
    const QDate day = moment.date();
    const QTime time = moment.time();
    return PyDateTime_FromDateAndTime(day.year(), day.month(), day.day(), time.hour(), time.minute(),
                                      time.second(), time.msec() * 1000);
}

bool isColor(PyObject *object)
{
    return isInteger(object) || sipCanConvertToType(object, sipType_QColor, SIP_NOT_NONE);
}

bool toColor(PyObject *object, Tarnwell::OleColor &value)
{
    if (isInteger(object)) {
        const unsigned long long number = PyLong_AsUnsignedLongLong(object);
        if (PyErr_Occurred() || number > std::numeric_limits<std::uint32_t>::max()) {
            PyErr_Clear();
            PyErr_SetString(PyExc_OverflowError, "a colour is a 32-bit unsigned number");
            return false;
        }
        value = Tarnwell::OleColor(static_cast<std::uint32_t>(number));
        return true;
    }
    int error = 0;
    int state = 0;
    auto *color = static_cast<QColor *>(sipConvertToType(object, sipType_QColor, nullptr, SIP_NOT_NONE, &state, &error));
    if (error)
        return false;
    value = Tarnwell::OleColor::fromQColor(*color);
    sipReleaseType(color, sipType_QColor, state);
    return true;
}

Tarnwell::ControlFrame::CanPropertyChangeHook propertyChangeHook(PyObject *callable)
{
    if (callable == Py_None)
        return nullptr;
    return [hook = PyRef(callable)](const QString &name) {
        Gil gil;
        PyObject *result = PyObject_CallFunction(hook.get(), "s", name.toUtf8().constData());
        if (!result) {
            // A failing host hook must not stop the control: the default host allows the change.
            PyErr_Print();
            return true;
        }
        const bool allowed = PyObject_IsTrue(result) == 1;
        Py_DECREF(result);
        return allowed;
    };
}

Tarnwell::PropertyPage::PropertyWriter propertyWriter(PyObject *callable)
{
    if (callable == Py_None)
        return nullptr;
    return [writer = PyRef(callable)](QObject *control, const char *name, const QVariant &value) {
        int refused = 0;
        {
            Gil gil;
            PyObject *pyControl = sipConvertFromType(control, sipType_QObject, nullptr);
            PyObject *pyValue = sipConvertFromType(const_cast<QVariant *>(&value), sipType_QVariant, nullptr);
            PyObject *result = (pyControl && pyValue)
                ? PyObject_CallFunction(writer.get(), "OsO", pyControl, name, pyValue)
                : nullptr;
            Py_XDECREF(pyControl);
            Py_XDECREF(pyValue);
            if (result) {
                Py_DECREF(result);
            } else if (g_errorType && PyErr_ExceptionMatches(g_errorType)) {
                // The writer's own refusal goes back to the page as the control's would.
                PyObject *type, *error, *traceback;
                PyErr_Fetch(&type, &error, &traceback);
                PyErr_NormalizeException(&type, &error, &traceback);
                PyObject *number = error ? PyObject_GetAttrString(error, "number") : nullptr;
                refused = number ? int(PyLong_AsLong(number)) : Tarnwell::Error::InvalidPropertyValue;
                Py_XDECREF(number);
                Py_XDECREF(type);
                Py_XDECREF(error);
                Py_XDECREF(traceback);
                PyErr_Clear();
            } else {
                PyErr_Print();
                refused = Tarnwell::Error::InvalidPropertyValue;
            }
        }
        if (refused)
            throw Tarnwell::Error(refused);
    };
}

} // namespace TarnwellPython
