"""Property pages and the dialog driven from Python."""

import unittest

from PyQt6 import QtWidgets
from PyQt6.QtCore import Qt
from PyQt6.QtTest import QTest

from support import app, tarnwell


def filled_page(page_class, control):
    page = page_class()
    page.setSelectedControls([control])
    page.SelectionChanged()
    return page


class Pages(unittest.TestCase):
    def test_general_page_applies_typed_mask(self):
        box = tarnwell.MaskBox()
        page = filled_page(tarnwell.xGeneralMB, box)
        self.assertFalse(page.Changed())
        mask = page.findChild(QtWidgets.QLineEdit, "txtMask")
        mask.selectAll()
        QTest.keyClicks(mask, "##-##")
        self.assertTrue(page.Changed())
        page.ApplyChanges()
        self.assertEqual(box.Mask(), "##-##")
        self.assertFalse(page.Changed())

    def test_refused_apply_raises_and_stays_changed(self):
        box = tarnwell.MaskBox()
        page = filled_page(tarnwell.xGeneralMB, box)
        mask = page.findChild(QtWidgets.QLineEdit, "txtMask")
        mask.setMaxLength(40000)  # a mask longer than the control takes
        mask.setText("#" * 32768)
        with self.assertRaises(tarnwell.Error) as caught:
            page.ApplyChanges()
        self.assertEqual(caught.exception.number, 6)
        self.assertTrue(page.Changed())
        self.assertEqual(box.Mask(), "")

    def test_python_writer_records_and_refuses(self):
        box = tarnwell.MaskBox()
        page = filled_page(tarnwell.xGeneralMB, box)
        written = []

        def writer(control, name, value):
            written.append(name)
            if name == "Mask":
                raise tarnwell.Error(380)
            control.setProperty(name, value)

        page.setPropertyWriter(writer)
        page.findChild(QtWidgets.QLineEdit, "txtMask").setText("###")
        with self.assertRaises(tarnwell.Error) as caught:
            page.ApplyChanges()
        self.assertEqual(caught.exception.number, 380)
        self.assertEqual(written[-1], "Mask")
        self.assertEqual(written[:2], ["CheckBox", "Checked"])

    def test_general_page_per_class(self):
        for cls, page_class in [(tarnwell.MaskBox, tarnwell.xGeneralMB),
                                (tarnwell.NumberBox, tarnwell.xGeneralNB),
                                (tarnwell.DateBox, tarnwell.xGeneralDB),
                                (tarnwell.TimeBox, tarnwell.xGeneralTB)]:
            with self.subTest(cls=cls.__name__):
                dialog = tarnwell.PropertyDialog([cls()])
                self.assertEqual([p.Caption() for p in dialog.pages()], ["General", "About"])
                self.assertIsInstance(dialog.page("General"), page_class)
                self.assertIsInstance(dialog.page("About"), tarnwell.xAbout)

    def test_dialog_apply_button(self):
        box = tarnwell.MaskBox()
        dialog = tarnwell.PropertyDialog([box])
        general = dialog.page("General")
        general.findChild(QtWidgets.QCheckBox, "chkEnabled").click()
        self.assertTrue(dialog.applyButton().isEnabled())
        QTest.mouseClick(dialog.applyButton(), Qt.MouseButton.LeftButton)
        self.assertFalse(box.Enabled())
        self.assertFalse(dialog.applyButton().isEnabled())


class Delegate(unittest.TestCase):
    def test_editors_by_cell_type(self):
        from PyQt6.QtCore import QDate, QTime
        from PyQt6.QtGui import QStandardItem, QStandardItemModel
        model = QStandardItemModel(1, 4)
        for column, value in enumerate([5, QDate(2024, 3, 7), QTime(10, 30), "text"]):
            item = QStandardItem()
            item.setData(value, Qt.ItemDataRole.EditRole)
            model.setItem(0, column, item)
        view = QtWidgets.QTableView()
        view.setModel(model)
        view.setItemDelegate(tarnwell.ItemDelegate(view))
        expected = [tarnwell.NumberBox, tarnwell.DateBox, tarnwell.TimeBox, tarnwell.MaskBox]
        for column, cls in enumerate(expected):
            with self.subTest(column=column):
                editor = view.itemDelegate().createEditor(view.viewport(), QtWidgets.QStyleOptionViewItem(),
                                                          model.index(0, column))
                self.assertIsInstance(editor, cls)
                editor.deleteLater()
        app.processEvents()


if __name__ == "__main__":
    unittest.main()
