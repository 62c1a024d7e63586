#pragma once
// Python slots on the events whose arguments are references (KeyDown, keyPress, KeyUp, the mouse
// and OLE events). The slot is called directly from the emission with the values and returns the
// new ones: None leaves them, a number sets the first reference, a sequence sets them in order.
#include <Python.h>

#include <QString>

namespace Tarnwell {
class ControlFrame;
}

namespace TarnwellPython {

// False with a Python exception set for a name that is no such event.
bool connectRefEvent(Tarnwell::ControlFrame *control, const QString &event, PyObject *slot);
// Disconnects `slot` (every slot of the event for None); true when one was connected.
bool disconnectRefEvent(Tarnwell::ControlFrame *control, const QString &event, PyObject *slot);

} // namespace TarnwellPython
