#!/usr/bin/python3
"""An order form built with Tarnwell's four controls from Python.

    /usr/bin/python3 examples/python/order_form.py                     # run it
    QT_QPA_PLATFORM=offscreen /usr/bin/python3 examples/python/order_form.py --screenshot form.png

The form has a customer's telephone (MaskBox), a price and quantity (NumberBox), an order date
(DateBox) and a delivery time (TimeBox); the order lines are a table edited in place through
tarnwell.ItemDelegate; "Properties..." opens the property dialog on the field that last had the
focus. --screenshot types a sample order, opens a table cell's editor and the dialog, renders the
window and the dialog side by side into a PNG and exits.
"""

import argparse
import datetime
import sys
from decimal import Decimal

from PyQt6 import QtCore, QtGui, QtWidgets
from PyQt6.QtTest import QTest

import tarnwell


class OrderForm(QtWidgets.QWidget):
    def __init__(self):
        super().__init__()
        self.setWindowTitle("Order")
        self.last_field = None

        self.phone = tarnwell.MaskBox()
        self.phone.setMask("(###) ###-####")
        self.price = tarnwell.NumberBox()
        self.price.setDataType(tarnwell.twCurrency)
        self.price.setCurrencySymbol("$")
        self.price.setShowCurrencySymbol(tarnwell.twLeft)
        self.quantity = tarnwell.NumberBox()
        self.quantity.setDataType(tarnwell.twInteger)
        self.quantity.setMinimum(1)
        self.quantity.setUpDown(True)
        self.amount = QtWidgets.QLabel()
        self.order_date = tarnwell.DateBox()
        self.order_date.setSeparator("/")
        self.delivery = tarnwell.TimeBox()
        self.delivery.setFormat(tarnwell.twHourMinuteAMPM)

        self.fields = [self.phone, self.price, self.quantity, self.order_date, self.delivery]
        form = QtWidgets.QFormLayout()
        for text, field in [("&Telephone:", self.phone), ("&Price:", self.price),
                            ("&Quantity:", self.quantity), ("Amount:", self.amount),
                            ("Order &date:", self.order_date), ("De&livery:", self.delivery)]:
            label = QtWidgets.QLabel(text)
            label.setBuddy(field)
            form.addRow(label, field)
            if isinstance(field, tarnwell.ControlFrame):
                field.Change.connect(self.update_amount)
        # A by-reference event: the quantity takes no minus sign and no decimal point.
        self.quantity.keyPress.connect(lambda key: 0 if chr(key) in "-." else None)
        QtWidgets.QApplication.instance().focusChanged.connect(self.remember_field)

        self.lines = QtGui.QStandardItemModel(0, 4, self)
        self.lines.setHorizontalHeaderLabels(["Product", "Quantity", "Unit price", "Ship by"])
        for product, quantity, price, ship in [("Pencils", 12, 0.45, QtCore.QDate(2024, 3, 11)),
                                               ("Notebook", 3, 2.95, QtCore.QDate(2024, 3, 12))]:
            row = []
            for value in (product, quantity, price, ship):
                item = QtGui.QStandardItem()
                item.setData(value, QtCore.Qt.ItemDataRole.EditRole)
                row.append(item)
            self.lines.appendRow(row)
        self.table = QtWidgets.QTableView()
        self.table.setModel(self.lines)
        self.table.setItemDelegate(tarnwell.ItemDelegate(self.table))
        self.table.horizontalHeader().setStretchLastSection(True)

        properties = QtWidgets.QPushButton("P&roperties...")
        properties.clicked.connect(self.show_properties)

        layout = QtWidgets.QVBoxLayout(self)
        layout.addLayout(form)
        layout.addWidget(self.table)
        layout.addWidget(properties, alignment=QtCore.Qt.AlignmentFlag.AlignRight)
        self.update_amount()

    def remember_field(self, old, now):
        # The form's own fields only: the table's editors come and go.
        while now is not None and now not in self.fields:
            now = now.parentWidget()
        if now is not None:
            self.last_field = now

    def update_amount(self):
        price, quantity = self.price.Value(), self.quantity.Value()
        if isinstance(price, Decimal) and isinstance(quantity, int):
            self.amount.setText(f"${price * quantity:,.2f}")
        else:
            self.amount.setText("")

    def property_dialog(self):
        dialog = tarnwell.PropertyDialog([self.last_field or self.phone], self)
        dialog.setWindowTitle("Properties")
        return dialog

    def show_properties(self):
        self.property_dialog().exec()


def type_sample(form):
    """Types a sample order with real keys, as a user would."""
    for field, keys in [(form.phone, "5551234567"), (form.price, "19.99"), (form.quantity, "3"),
                        (form.delivery, "0930")]:
        field.setFocus()
        QtWidgets.QApplication.processEvents()
        QTest.keyClicks(QtWidgets.QApplication.focusWidget(), keys)
    form.delivery.setFocus()
    QtWidgets.QApplication.processEvents()
    QTest.keyClick(QtWidgets.QApplication.focusWidget(), QtCore.Qt.Key.Key_P)
    form.order_date.setValue(datetime.date(2024, 3, 7))
    form.phone.setFocus()


def screenshot(form, path):
    app = QtWidgets.QApplication.instance()
    type_sample(form)
    form.table.setFocus()
    form.table.edit(form.lines.index(0, 2))  # a NumberBox editing a cell
    app.processEvents()
    form.last_field = form.price
    dialog = form.property_dialog()
    dialog.show()
    app.processEvents()
    window, sheet = form.grab(), dialog.grab()
    canvas = QtGui.QPixmap(window.width() + sheet.width() + 24, max(window.height(), sheet.height()) + 16)
    canvas.fill(form.palette().color(QtGui.QPalette.ColorRole.Window).darker(110))
    painter = QtGui.QPainter(canvas)
    painter.drawPixmap(8, 8, window)
    painter.drawPixmap(window.width() + 16, 8, sheet)
    painter.end()
    dialog.close()
    return canvas.save(path)


def main(argv):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--screenshot", metavar="FILE", help="render the form and the dialog to a PNG and exit")
    args, qt_args = parser.parse_known_args(argv[1:])
    app = QtWidgets.QApplication([argv[0]] + qt_args)
    form = OrderForm()
    form.resize(460, 420)
    form.show()
    if args.screenshot:
        QTest.qWaitForWindowExposed(form)
        return 0 if screenshot(form, args.screenshot) else 1
    return app.exec()


if __name__ == "__main__":
    sys.exit(main(sys.argv))
