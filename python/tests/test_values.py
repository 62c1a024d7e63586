"""Values cross the boundary as Python developers expect them, exactly."""

import datetime
import unittest
from decimal import Decimal

from support import Form, tarnwell

CURRENCY_MAX = Decimal("922337203685477")
DECIMAL_MAX = Decimal("79228162514264337593543950335")
# Written out: negating under decimal's default context would round to 28 digits.
DECIMAL_MIN = Decimal("-79228162514264337593543950335")


class DecimalRoundTrips(unittest.TestCase):
    # (data type, value set, value read back): exact at the limits and the smallest steps.
    ROWS = [
        (tarnwell.twCurrency, CURRENCY_MAX, CURRENCY_MAX),
        (tarnwell.twCurrency, -CURRENCY_MAX, -CURRENCY_MAX),
        (tarnwell.twCurrency, Decimal("922337203685476.9999"), Decimal("922337203685476.9999")),
        (tarnwell.twCurrency, Decimal("-0.0001"), Decimal("-0.0001")),
        (tarnwell.twCurrency, 7, Decimal("7")),
        (tarnwell.twDecimal, DECIMAL_MAX, DECIMAL_MAX),
        (tarnwell.twDecimal, DECIMAL_MIN, DECIMAL_MIN),
        (tarnwell.twDecimal, Decimal("7922816251426433759354395033.5"), Decimal("7922816251426433759354395033.5")),
        (tarnwell.twDecimal, Decimal("1E+3"), Decimal("1000")),
        (tarnwell.twDecimal, 2**90, Decimal(2**90)),
    ]

    def test_set_and_read_back(self):
        box = tarnwell.NumberBox()
        for data_type, value, expected in self.ROWS:
            with self.subTest(data_type=data_type.name, value=value):
                box.setDataType(data_type)
                box.setValue(value)
                got = box.Value()
                self.assertIsInstance(got, Decimal)
                self.assertEqual(got, expected)
                # By name as well: PyQt6's own QObject.property and setProperty.
                box.setProperty("Value", Decimal(0))
                self.assertTrue(box.setProperty("Value", value))
                self.assertEqual(box.property("Value"), expected)

    def test_limits_themselves(self):
        box = tarnwell.NumberBox()
        for data_type, low, high in [(tarnwell.twCurrency, -CURRENCY_MAX, CURRENCY_MAX),
                                     (tarnwell.twDecimal, DECIMAL_MIN, DECIMAL_MAX)]:
            with self.subTest(data_type=data_type.name):
                box.setDataType(data_type)
                self.assertEqual((box.Minimum(), box.Maximum()), (low, high))


class EmptyAndNull(unittest.TestCase):
    ROWS = [  # (control class, NullIfEmpty, what Value gives with nothing in it)
        (tarnwell.MaskBox, False, None),
        (tarnwell.MaskBox, True, tarnwell.Null),
        (tarnwell.NumberBox, False, None),
        (tarnwell.NumberBox, True, tarnwell.Null),
        (tarnwell.DateBox, False, None),
        (tarnwell.DateBox, True, tarnwell.Null),
        (tarnwell.TimeBox, False, None),
        (tarnwell.TimeBox, True, tarnwell.Null),
    ]

    def test_unticked_check_box_holds_no_value(self):
        for cls, null_if_empty, expected in self.ROWS:
            with self.subTest(cls=cls.__name__, null_if_empty=null_if_empty):
                box = cls()
                box.setNullIfEmpty(null_if_empty)
                box.setCheckBox(True)
                box.setChecked(False)
                self.assertIs(box.Value(), expected)
                self.assertIs(box.property("Value"), expected)

    def test_setting_null_unticks(self):
        for cls, value in [(tarnwell.MaskBox, "abc"), (tarnwell.NumberBox, 5),
                           (tarnwell.DateBox, datetime.date(2024, 3, 7)),
                           (tarnwell.TimeBox, datetime.time(10, 30))]:
            with self.subTest(cls=cls.__name__):
                box = cls()
                box.setCheckBox(True)
                box.setValue(value)
                self.assertTrue(box.Checked())
                box.setValue(tarnwell.Null)
                self.assertFalse(box.Checked())

    def test_null_is_a_falsy_singleton(self):
        self.assertIs(type(tarnwell.Null)(), tarnwell.Null)
        self.assertFalse(tarnwell.Null)
        self.assertIsNot(tarnwell.Null, None)


class DatesAndTimes(unittest.TestCase):
    DATE_ROWS = [  # (value set, Value read back)
        (datetime.date(2024, 3, 7), datetime.datetime(2024, 3, 7)),
        (datetime.datetime(1999, 12, 31, 0, 0), datetime.datetime(1999, 12, 31)),
        (datetime.date(1601, 1, 1), datetime.datetime(1601, 1, 1)),
        (datetime.date(9999, 12, 31), datetime.datetime(9999, 12, 31)),
        ("29/02/2024", datetime.datetime(2024, 2, 29)),
    ]

    def test_date_box(self):
        box = tarnwell.DateBox()
        for value, expected in self.DATE_ROWS:
            with self.subTest(value=value):
                box.setValue(value)
                self.assertEqual(box.Value(), expected)

    TIME_ROWS = [  # (value set, Value read back): a time of day is on day 0, 30 December 1899
        (datetime.time(13, 45, 10), datetime.datetime(1899, 12, 30, 13, 45, 10)),
        (datetime.time(0, 0, 0), datetime.datetime(1899, 12, 30)),
        (datetime.datetime(2024, 3, 7, 23, 59, 59), datetime.datetime(2024, 3, 7, 23, 59, 59)),
    ]

    def test_time_box(self):
        for value, expected in self.TIME_ROWS:
            with self.subTest(value=value):
                box = tarnwell.TimeBox()
                box.setMaximum(datetime.datetime(9999, 12, 31, 23, 59, 59))
                box.setValue(value)
                self.assertEqual(box.Value(), expected)

    def test_bounds_are_datetimes(self):
        box = tarnwell.DateBox()
        box.setMinimum(datetime.date(2000, 1, 1))
        box.setMaximum(datetime.datetime(2030, 6, 30, 12, 0))
        self.assertEqual(box.Minimum(), datetime.datetime(2000, 1, 1))
        self.assertEqual(box.Maximum().date(), datetime.date(2030, 6, 30))

    def test_pinned_clock(self):
        from PyQt6.QtCore import QDateTime, QDate, QTime
        moment = QDateTime(QDate(2024, 3, 7), QTime(9, 30))
        tarnwell.Clock.pin(moment)
        try:
            self.assertEqual(tarnwell.Clock.now(), moment)
        finally:
            tarnwell.Clock.unpin()


class Colours(unittest.TestCase):
    def test_int_and_qcolor(self):
        from PyQt6.QtGui import QColor
        box = tarnwell.MaskBox()
        for value, expected in [(0xFF, 0xFF), (QColor(0, 0, 192), 0xC00000),
                                (0x80000005, 0x80000005)]:
            with self.subTest(value=value):
                box.setBackColor(value)
                self.assertEqual(box.BackColor(), expected)


class TypedEntry(unittest.TestCase):
    """Values typed with real keys come out as Python values."""

    ROWS = [  # (control class, setup, keys, expected Value)
        (tarnwell.MaskBox, lambda b: b.setMask("(###) ###-####"), "5551234567", "5551234567"),
        (tarnwell.NumberBox, lambda b: b.setDataType(tarnwell.twCurrency), "1234.5", Decimal("1234.5")),
        (tarnwell.NumberBox, lambda b: b.setDataType(tarnwell.twDecimal), "-0.25", Decimal("-0.25")),
        (tarnwell.DateBox, lambda b: b.setSeparator("/"), "07032024", datetime.datetime(2024, 3, 7)),
        (tarnwell.TimeBox, lambda b: b.setFormat(tarnwell.twHourMinute), "1345",
         datetime.datetime(1899, 12, 30, 13, 45)),
    ]

    def test_typed(self):
        for cls, setup, keys, expected in self.ROWS:
            with self.subTest(cls=cls.__name__, keys=keys):
                form = Form(cls)
                try:
                    setup(form.control)
                    form.focus()
                    form.type(keys)
                    form.leave()
                    self.assertEqual(form.control.Value(), expected)
                finally:
                    form.close()


if __name__ == "__main__":
    unittest.main()
