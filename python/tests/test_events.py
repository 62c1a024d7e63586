"""Python slots on the events by reference, and Python overrides of the controls' hooks, driven
with real keys."""

import unittest

from PyQt6.QtCore import Qt

from support import Form, tarnwell


class KeyPressSlots(unittest.TestCase):
    # (mask, slot, keys typed, Value after): the slot sees each character code and returns the
    # one to type, 0 to cancel, None to leave it.
    ROWS = [
        ("#####", lambda k: 0 if k == ord("5") else None, "15253", "123"),
        ("#####", lambda k: ord("9") if k == ord("1") else k, "1212", "9292"),
        ("&&&&", lambda k: ord(chr(k).upper()), "abcd", "ABCD"),
        ("&&&&", lambda k: (0,), "abcd", ""),
    ]

    def test_slot_changes_or_cancels_the_key(self):
        for mask, slot, keys, expected in self.ROWS:
            with self.subTest(mask=mask, keys=keys, expected=expected):
                form = Form(tarnwell.MaskBox)
                try:
                    form.control.setMask(mask)
                    form.control.setPromptInclude(False)
                    form.control.keyPress.connect(slot)
                    form.focus()
                    form.type(keys)
                    self.assertEqual(form.control.Value(), expected)
                finally:
                    form.close()

    def test_every_control_raises_the_key_events_in_order(self):
        for cls in (tarnwell.MaskBox, tarnwell.NumberBox, tarnwell.DateBox, tarnwell.TimeBox):
            with self.subTest(cls=cls.__name__):
                form = Form(cls)
                seen = []
                try:
                    form.control.KeyDown.connect(lambda code, shift: seen.append(("down", code)))
                    form.control.keyPress.connect(lambda ascii: seen.append(("press", ascii)))
                    form.control.KeyUp.connect(lambda code, shift: seen.append(("up", code)))
                    form.focus()
                    form.type("1")
                    self.assertEqual(seen, [("down", ord("1")), ("press", ord("1")), ("up", ord("1"))])
                finally:
                    form.close()

    def test_key_down_cancelled_by_its_key_code(self):
        # Delete is a key without a character: zeroing KeyCode in KeyDown consumes it.
        form = Form(tarnwell.MaskBox)
        try:
            form.control.setMask("####")
            form.control.setPromptInclude(False)
            form.focus()
            form.type("1234")
            form.key(Qt.Key.Key_Home)
            form.control.KeyDown.connect(lambda code, shift: (0, shift) if code == 46 else None)
            form.key(Qt.Key.Key_Delete)
            self.assertEqual(form.control.Value(), "1234")
            form.control.KeyDown.disconnect()
            form.key(Qt.Key.Key_Delete)
            self.assertEqual(form.control.Value(), "234")
        finally:
            form.close()

    def test_failing_slot_leaves_the_key_alone(self):
        form = Form(tarnwell.MaskBox)
        try:
            form.control.setMask("##")
            form.control.keyPress.connect(lambda k: 1 / 0)
            form.focus()
            import contextlib, io
            with contextlib.redirect_stderr(io.StringIO()) as err:
                form.type("4")
            self.assertIn("ZeroDivisionError", err.getvalue())
            self.assertEqual(form.control.Value().strip(), "4")
        finally:
            form.close()

    def test_unknown_event_and_bad_slot(self):
        box = tarnwell.MaskBox()
        with self.assertRaises(TypeError):
            box.keyPress.connect(5)
        with self.assertRaises(TypeError):
            box.keyPress.disconnect(print)


class UpperMask(tarnwell.MaskBox):
    """A subclass whose key hook turns letters upper case and refuses digits."""

    def handleKeyPress(self, key_ascii):
        if ord("0") <= key_ascii <= ord("9"):
            return 0
        return super().handleKeyPress(ord(chr(key_ascii).upper()))


class EvenStepper(tarnwell.NumberBox):
    """A subclass whose step hook moves two increments at a time."""

    def stepValue(self, up):
        self.setValue(self.Value() + (2 if up else -2))
        return True


class Overrides(unittest.TestCase):
    def test_key_hook(self):
        form = Form(UpperMask)
        try:
            form.control.setMask("&&&&")
            form.control.setPromptInclude(False)
            form.focus()
            form.type("a1b2")
            self.assertEqual(form.control.Value(), "AB")
        finally:
            form.close()

    def test_step_hook(self):
        form = Form(EvenStepper)
        try:
            form.control.setDataType(tarnwell.twLong)
            form.control.setValue(10)
            form.control.setInterceptArrowKeys(True)
            form.focus()
            form.key(Qt.Key.Key_Up)
            self.assertEqual(form.control.Value(), 12)
        finally:
            form.close()

    def test_size_hints_are_the_controls(self):
        for cls in (tarnwell.MaskBox, tarnwell.NumberBox, tarnwell.DateBox, tarnwell.TimeBox,
                    UpperMask):
            with self.subTest(cls=cls.__name__):
                hint = cls().sizeHint()
                self.assertGreater(hint.width(), 0)
                self.assertGreater(hint.height(), 0)


if __name__ == "__main__":
    unittest.main()
