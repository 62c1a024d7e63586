"""Refused values raise tarnwell.Error with the library's number, leave the control as it was,
and never end the interpreter, whichever way the write comes."""

import os
import subprocess
import sys
import textwrap
import unittest
from decimal import Decimal

from support import tarnwell


def design_mode(box):
    box.setUserMode(False)
    return box


def currency_box():
    box = tarnwell.NumberBox()
    box.setDataType(tarnwell.twCurrency)
    return box


def bag_with(key, value):
    bag = tarnwell.PropertyBag()
    bag.WriteProperty(key, value)
    # Through JSON and back, as a saved form comes in.
    return tarnwell.PropertyBag.fromJsonText(bag.toJsonText())


class DocumentedErrors(unittest.TestCase):
    # (what, make the control, the refused call, error number, reading that must not change)
    ROWS = [
        ("MaskBox Text at run time", tarnwell.MaskBox, lambda b: b.setText("x"), 382, lambda b: b.Text()),
        ("MaskBox Text at design time", lambda: design_mode(tarnwell.MaskBox()), lambda b: b.setText("x"), 387, lambda b: b.Text()),
        ("MaskBox Value at design time", lambda: design_mode(tarnwell.MaskBox()), lambda b: b.setValue("1"), 387, lambda b: b.Mask()),
        ("MaskBox oversized mask", tarnwell.MaskBox, lambda b: b.setMask("#" * 32768), 6, lambda b: b.Mask()),
        ("SelStart below 0", tarnwell.MaskBox, lambda b: b.setSelStart(-1), 380, lambda b: b.SelStart()),
        ("SelLength below 0", tarnwell.MaskBox, lambda b: b.setSelLength(-1), 380, lambda b: b.SelLength()),
        ("SelText of a MaskBox", tarnwell.MaskBox, lambda b: b.setSelText("x"), 382, lambda b: b.Text()),
        ("NumberBox Value not a number", currency_box, lambda b: b.setValue("abc"), 13, lambda b: b.Value()),
        ("NumberBox Value past Currency", currency_box, lambda b: b.setValue(Decimal("922337203685477.0001")), 6, lambda b: b.Value()),
        ("NumberBox Minimum not a number", currency_box, lambda b: b.setMinimum("x"), 13, lambda b: b.Minimum()),
        ("NumberBox MaxDecimalPlaces", tarnwell.NumberBox, lambda b: b.setMaxDecimalPlaces(3), 382, lambda b: b.MaxDecimalPlaces()),
        ("ValueBox Text", tarnwell.NumberBox, lambda b: b.setText("1"), 382, lambda b: b.Text()),
        ("DateBox Separator", tarnwell.DateBox, lambda b: b.setSeparator("ab"), 380, lambda b: b.Separator()),
        ("DateBox Value not a date", tarnwell.DateBox, lambda b: b.setValue("not a date"), 13, lambda b: b.Value()),
        ("TimeBox Separator", tarnwell.TimeBox, lambda b: b.setSeparator("-"), 380, lambda b: b.Separator()),
        ("PropertyBag read", tarnwell.MaskBox,
         lambda b: b.ReadProperties(bag_with("CharCase", 9)),
         380, lambda b: b.CharCase()),
    ]

    def test_refusals(self):
        for what, make, call, number, reading in self.ROWS:
            with self.subTest(what):
                box = make()
                before = reading(box)
                with self.assertRaises(tarnwell.Error) as caught:
                    call(box)
                self.assertEqual(caught.exception.number, number)
                self.assertEqual(caught.exception.message, tarnwell.Error(number).message)
                self.assertEqual(reading(box), before)

    def test_error_is_an_exception_with_its_text(self):
        error = tarnwell.Error(380)
        self.assertIsInstance(error, Exception)
        self.assertEqual(str(error), "Invalid property value (380)")


class RefusedByName(unittest.TestCase):
    # (control class, property, refused value, error number)
    ROWS = [
        (tarnwell.DateBox, "Separator", "ab", 380),
        (tarnwell.TimeBox, "Separator", "-", 380),
        (tarnwell.NumberBox, "ShowCurrencySymbol", 7, 380),
        (tarnwell.MaskBox, "CharCase", 9, 380),
        (tarnwell.MaskBox, "Text", "x", 382),
        (tarnwell.NumberBox, "Value", "abc", 13),
    ]

    def test_every_path_by_name_raises(self):
        from PyQt6 import QtCore
        for cls, name, value, number in self.ROWS:
            box = cls()
            meta = box.metaObject().property(box.metaObject().indexOfProperty(name))
            paths = {
                "bound setProperty": lambda: box.setProperty(name, value),
                "unbound QObject.setProperty": lambda: QtCore.QObject.setProperty(box, name, value),
                "QMetaProperty.write": lambda: meta.write(box, value),
            }
            for path, write in paths.items():
                with self.subTest(cls=cls.__name__, name=name, path=path):
                    before = box.property(name)
                    with self.assertRaises(tarnwell.Error) as caught:
                        write()
                    self.assertEqual(caught.exception.number, number)
                    self.assertEqual(box.property(name), before)

    def test_other_objects_write_as_before(self):
        from PyQt6 import QtWidgets
        edit = QtWidgets.QLineEdit()
        self.assertTrue(edit.setProperty("text", "abc"))
        self.assertEqual(edit.property("text"), "abc")
        self.assertFalse(edit.setProperty("maxLength", "not a number"))

    def test_interpreter_keeps_running(self):
        # In a child interpreter, so that an abort would show as its exit status.
        script = textwrap.dedent("""
            import os
            os.environ.setdefault("QT_QPA_PLATFORM", "offscreen")
            from PyQt6 import QtCore, QtWidgets
            import tarnwell
            app = QtWidgets.QApplication([])
            box = tarnwell.DateBox()
            for write in (lambda: QtCore.QObject.setProperty(box, "Separator", "ab"),
                          lambda: box.setSeparator("ab")):
                try:
                    write()
                except tarnwell.Error as error:
                    print(error.number)
            print("alive")
        """)
        result = subprocess.run([sys.executable, "-c", script], capture_output=True, text=True,
                                env=os.environ.copy(), timeout=60)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stdout.split(), ["380", "380", "alive"])


if __name__ == "__main__":
    unittest.main()
