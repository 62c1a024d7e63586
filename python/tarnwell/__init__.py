"""Tarnwell's data-entry controls for PyQt6: MaskBox, NumberBox, DateBox and TimeBox, their
property pages and dialog, the item delegate, the property bag and the clock.

Values: Currency and Decimal are decimal.Decimal, dates datetime.datetime (datetime.date and
datetime.time are taken too), Empty is None and Null is tarnwell.Null, colours are int (or a
QColor when setting). A refused value raises tarnwell.Error, with the library's error number.
"""

from PyQt6 import QtCore, QtWidgets  # noqa: F401  (PyQt6's types come first)

from . import _tarnwell

__all__ = [
    "Error", "Null", "MaskBox", "NumberBox", "DateBox", "TimeBox", "ControlFrame", "ValueBox",
    "PropertyBag", "Clock", "DataObject", "PropertyPage", "PropertyDialog", "xGeneralMB",
    "xGeneralNB", "xGeneralDB", "xGeneralTB", "xAbout", "ItemDelegate", "REF_EVENTS",
]


class Error(Exception):
    """A value the library refused: `number` is its error number, `message` the host's text."""

    Overflow = 6
    TypeMismatch = 13
    InvalidPropertyValue = 380
    SetNotSupportedAtRuntime = 382
    SetNotPermitted = 387

    def __init__(self, number, message=None):
        if message is None:
            message = _tarnwell._errorText(number)
        super().__init__(number, message)
        self.number = number
        self.message = message

    def __str__(self):
        return f"{self.message} ({self.number})"


class _NullType:
    """The variant Null: no value, as opposed to Empty (None)."""

    _instance = None

    def __new__(cls):
        if cls._instance is None:
            cls._instance = super().__new__(cls)
        return cls._instance

    def __repr__(self):
        return "tarnwell.Null"

    def __bool__(self):
        return False

    def __reduce__(self):
        return (_NullType, ())


Null = _NullType()

_tarnwell._install(Error, Null)

_ns = _tarnwell.Tarnwell
ControlFrame = _ns.ControlFrame
ValueBox = _ns.ValueBox
MaskBox = _ns.MaskBox
NumberBox = _ns.NumberBox
DateBox = _ns.DateBox
TimeBox = _ns.TimeBox
PropertyBag = _ns.PropertyBag
Clock = _ns.Clock
DataObject = _ns.DataObject
PropertyPage = _ns.PropertyPage
PropertyDialog = _ns.PropertyDialog
xGeneralMB = _ns.xGeneralMB
xGeneralNB = _ns.xGeneralNB
xGeneralDB = _ns.xGeneralDB
xGeneralTB = _ns.xGeneralTB
xAbout = _ns.xAbout
ItemDelegate = _ns.ItemDelegate

# The enumerations, and their constants at module level as the C++ namespace has them.
for _enum_name in ("twBorderStyleConstants", "twCharCaseConstants", "twDataTypeConstants",
                   "twCurrencyPositionConstants", "twDateFormatConstants",
                   "twTimeFormatConstants", "twAlignmentConstants"):
    _enum = getattr(_ns, _enum_name)
    globals()[_enum_name] = _enum
    __all__.append(_enum_name)
    for _member in _enum:
        globals()[_member.name] = _member
        __all__.append(_member.name)


# The events whose arguments are references, with the references of each in order.
REF_EVENTS = {
    "KeyDown": ("KeyCode", "Shift"),
    "keyPress": ("KeyAscii",),
    "KeyUp": ("KeyCode", "Shift"),
    "MouseDown": ("Button", "Shift", "X", "Y"),
    "MouseMove": ("Button", "Shift", "X", "Y"),
    "MouseUp": ("Button", "Shift", "X", "Y"),
    "OLECompleteDrag": ("Effect",),
    "OLEDragDrop": ("Effect", "Button", "Shift", "X", "Y"),
    "OLEDragOver": ("Effect", "Button", "Shift", "X", "Y", "State"),
    "OLEGiveFeedback": ("Effect", "DefaultCursors"),
    "OLESetData": ("DataFormat",),
    "OLEStartDrag": ("AllowedEffects",),
}


class _BoundRefEvent:
    """An event with arguments by reference on one control.

    connect(slot) calls slot directly at the emission with every argument; the slot returns the
    new values of the references: None leaves them, a number sets the first, a tuple sets them
    in order. For keyPress, returning 0 cancels the key and another code types that key instead.
    """

    __slots__ = ("_control", "_name")

    def __init__(self, control, name):
        self._control = control
        self._name = name

    def connect(self, slot):
        if not callable(slot):
            raise TypeError(f"{self._name}.connect() needs a callable")
        _tarnwell._connectEvent(self._control, self._name, slot)

    def disconnect(self, slot=None):
        if not _tarnwell._disconnectEvent(self._control, self._name, slot):
            raise TypeError(f"{self._name}: the slot is not connected")

    def __repr__(self):
        return f"<event {self._name}({', '.join(REF_EVENTS[self._name])}) of {self._control!r}>"


class _RefEvent:
    def __init__(self, name):
        self._name = name

    def __get__(self, control, owner=None):
        if control is None:
            return self
        return _BoundRefEvent(control, self._name)


for _event in REF_EVENTS:
    setattr(ControlFrame, _event, _RefEvent(_event))


# PyQt6's own entry points to a property by name reach the controls' throwing setters with no
# C++ frame of theirs to catch a Tarnwell::Error: they are routed through the module, which
# catches it and raises tarnwell.Error (for every object; others behave as before).
def _set_property(self, name, value):
    if isinstance(name, (bytes, bytearray)):
        name = bytes(name).decode()
    return _tarnwell._setProperty(self, name, value)


def _property(self, name):
    if isinstance(name, (bytes, bytearray)):
        name = bytes(name).decode()
    return _tarnwell._property(self, name)


def _write_property(self, obj, value):
    return _tarnwell._writeProperty(self, obj, value)


_set_property.__doc__ = QtCore.QObject.setProperty.__doc__
_property.__doc__ = QtCore.QObject.property.__doc__
_write_property.__doc__ = QtCore.QMetaProperty.write.__doc__
QtCore.QObject.setProperty = _set_property
QtCore.QObject.property = _property
QtCore.QMetaProperty.write = _write_property

del _enum_name, _enum, _member, _event
