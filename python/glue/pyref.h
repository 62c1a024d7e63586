#pragma once
// Holding Python objects from C++ code that outlives the call that gave them.
#include <Python.h>

#include <memory>

namespace TarnwellPython {

// Holds the GIL for its lifetime, whichever thread state the caller was in.
class Gil
{
public:
    Gil() : m_state(PyGILState_Ensure()) {}
    ~Gil() { PyGILState_Release(m_state); }
    Gil(const Gil &) = delete;
    Gil &operator=(const Gil &) = delete;

private:
    PyGILState_STATE m_state;
};

// A strong reference that may be copied and dropped from any C++ code: the last copy releases
// the object under the GIL (and not at all once the interpreter is gone).
class PyRef
{
public:
    PyRef() = default;
    explicit PyRef(PyObject *object)
        : m_object(object ? (Py_INCREF(object), object) : nullptr, release)
    {
    }
    PyObject *get() const { return m_object.get(); }
    explicit operator bool() const { return m_object != nullptr; }

private:
    static void release(PyObject *object)
    {
        if (object && Py_IsInitialized()) {
            Gil gil;
            Py_DECREF(object);
        }
    }
    std::shared_ptr<PyObject> m_object;
};

} // namespace TarnwellPython
