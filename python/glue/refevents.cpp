#include "glue/refevents.h"

#include "glue/pyref.h"
#include "sipAPI_tarnwell.h"

#include <tarnwell/controlframe.h>
#include <tarnwell/dataobject.h>

#include <QObject>

#include <limits>
#include <type_traits>
#include <utility>

namespace TarnwellPython {

namespace {

// One Python slot on one event of one control. It is the connection's context object and a
// child of the control, so the connection ends with the control or when the slot is removed.
class SlotHolder : public QObject
{
public:
    SlotHolder(QObject *control, const QString &event, PyObject *slot)
        : QObject(control), m_event(event), m_slot(slot)
    {
    }
    const QString &event() const { return m_event; }
    PyObject *slot() const { return m_slot.get(); }

private:
    QString m_event;
    PyRef m_slot;
};

PyObject *toPython(short value) { return PyLong_FromLong(value); }
PyObject *toPython(int value) { return PyLong_FromLong(value); }
PyObject *toPython(float value) { return PyFloat_FromDouble(value); }
PyObject *toPython(bool value) { return PyBool_FromLong(value); }
PyObject *toPython(Tarnwell::DataObject *data)
{
    return sipConvertFromType(data, sipType_Tarnwell_DataObject, nullptr);
}

template <typename T>
bool fromPython(PyObject *object, T &value)
{
    if constexpr (std::is_same_v<T, bool>) {
        const int truth = PyObject_IsTrue(object);
        if (truth < 0)
            return false;
        value = truth == 1;
    } else if constexpr (std::is_floating_point_v<T>) {
        const double number = PyFloat_AsDouble(object);
        if (number == -1.0 && PyErr_Occurred())
            return false;
        value = static_cast<T>(number);
    } else {
        PyObject *index = PyNumber_Index(object);
        if (!index)
            return false;
        const long number = PyLong_AsLong(index);
        Py_DECREF(index);
        if (number == -1 && PyErr_Occurred())
            return false;
        if (number < std::numeric_limits<T>::min() || number > std::numeric_limits<T>::max()) {
            PyErr_SetString(PyExc_OverflowError, "the returned value does not fit the event's argument");
            return false;
        }
        value = static_cast<T>(number);
    }
    return true;
}

// Writes the slot's result back into the references, in order: a lone value sets the first.
template <typename Arg>
void writeBack(Arg &&arg, PyObject *result, bool sequence, int &position)
{
    using Plain = std::remove_reference_t<Arg>;
    if constexpr (std::is_lvalue_reference_v<Arg &&> && !std::is_pointer_v<Plain>) {
        const int index = position++;
        PyObject *item = nullptr;
        if (sequence) {
            item = PySequence_GetItem(result, index);
        } else if (index == 0) {
            item = result;
            Py_INCREF(item);
        }
        if (!item) {
            PyErr_Clear();
            return;
        }
        Plain value{};
        if (fromPython(item, value))
            arg = value;
        else
            PyErr_Print();
        Py_DECREF(item);
    }
}

template <typename... Args>
void deliver(PyObject *slot, Args &&...args)
{
    Gil gil;
    PyObject *arguments = PyTuple_New(sizeof...(Args));
    if (!arguments) {
        PyErr_Print();
        return;
    }
    Py_ssize_t index = 0;
    ((PyTuple_SET_ITEM(arguments, index++, toPython(static_cast<std::remove_reference_t<Args>>(args)))), ...);
    PyObject *result = PyObject_CallObject(slot, arguments);
    Py_DECREF(arguments);
    if (!result) {
        // A slot's exception is reported and the values stay as they were, as for any slot.
        PyErr_Print();
        return;
    }
    if (result != Py_None) {
        const bool sequence = PySequence_Check(result) && !PyUnicode_Check(result);
        int position = 0;
        (writeBack(std::forward<Args>(args), result, sequence, position), ...);
    }
    Py_DECREF(result);
}

using Connector = QMetaObject::Connection (*)(Tarnwell::ControlFrame *, SlotHolder *);

template <auto Signal, typename... Args>
QMetaObject::Connection connectTo(Tarnwell::ControlFrame *control, SlotHolder *holder, void (Tarnwell::ControlFrame::*)(Args...))
{
    return QObject::connect(control, Signal, holder,
                            [holder](Args... args) { deliver(holder->slot(), std::forward<Args>(args)...); },
                            Qt::DirectConnection);
}

template <auto Signal>
QMetaObject::Connection connector(Tarnwell::ControlFrame *control, SlotHolder *holder)
{
    return connectTo<Signal>(control, holder, Signal);
}

struct RefEvent {
    const char *name;
    Connector connect;
};

using F = Tarnwell::ControlFrame;
const RefEvent refEvents[] = {
    {"KeyDown", connector<&F::KeyDown>},
    {"keyPress", connector<&F::keyPress>},
    {"KeyUp", connector<&F::KeyUp>},
    {"MouseDown", connector<&F::MouseDown>},
    {"MouseMove", connector<&F::MouseMove>},
    {"MouseUp", connector<&F::MouseUp>},
    {"OLECompleteDrag", connector<&F::OLECompleteDrag>},
    {"OLEDragDrop", connector<&F::OLEDragDrop>},
    {"OLEDragOver", connector<&F::OLEDragOver>},
    {"OLEGiveFeedback", connector<&F::OLEGiveFeedback>},
    {"OLESetData", connector<&F::OLESetData>},
    {"OLEStartDrag", connector<&F::OLEStartDrag>},
};

} // namespace

bool connectRefEvent(Tarnwell::ControlFrame *control, const QString &event, PyObject *slot)
{
    for (const RefEvent &candidate : refEvents) {
        if (event == QLatin1String(candidate.name)) {
            auto *holder = new SlotHolder(control, event, slot);
            candidate.connect(control, holder);
            return true;
        }
    }
    PyErr_Format(PyExc_AttributeError, "no event with arguments by reference named '%s'",
                 event.toUtf8().constData());
    return false;
}

bool disconnectRefEvent(Tarnwell::ControlFrame *control, const QString &event, PyObject *slot)
{
    bool found = false;
    const QObjectList children = control->children(); // a copy: holders are deleted on the way
    for (QObject *child : children) {
        auto *holder = dynamic_cast<SlotHolder *>(child);
        if (!holder || holder->event() != event)
            continue;
        if (slot != Py_None && PyObject_RichCompareBool(holder->slot(), slot, Py_EQ) != 1) {
            PyErr_Clear();
            continue;
        }
        delete holder;
        found = true;
        if (slot != Py_None)
            break;
    }
    return found;
}

} // namespace TarnwellPython
