"""What every test module shares: one QApplication (offscreen unless a display is asked for),
a pinned C locale, and a window that shows a control and gives it the keyboard focus."""

import os
import sys

os.environ.setdefault("QT_QPA_PLATFORM", "offscreen")

from PyQt6 import QtCore, QtWidgets  # noqa: E402
from PyQt6.QtTest import QTest  # noqa: E402

import tarnwell  # noqa: E402

QtCore.QLocale.setDefault(QtCore.QLocale.c())


def _quiet(kind, context, message):
    # The offscreen platform says this of every top-level window; anything else is shown.
    if "propagateSizeHints" not in message:
        print(message, file=sys.stderr)


QtCore.qInstallMessageHandler(_quiet)
app = QtWidgets.QApplication.instance() or QtWidgets.QApplication(sys.argv[:1])


class Form:
    """A window with one control in it, shown, active and focused."""

    def __init__(self, control_class):
        self.window = QtWidgets.QWidget()
        layout = QtWidgets.QVBoxLayout(self.window)
        self.control = control_class(self.window)
        layout.addWidget(self.control)
        self.other = QtWidgets.QLineEdit(self.window)  # somewhere for the focus to go
        layout.addWidget(self.other)
        self.window.show()
        self.window.activateWindow()
        QTest.qWaitForWindowExposed(self.window)
        self.focus()

    def focus(self):
        self.control.setFocus()
        app.processEvents()

    def leave(self):
        self.other.setFocus()
        app.processEvents()

    def type(self, text):
        """Real key presses to the widget holding the focus, as a user types them."""
        QTest.keyClicks(app.focusWidget(), text)
        app.processEvents()

    def key(self, key, modifier=QtCore.Qt.KeyboardModifier.NoModifier):
        QTest.keyClick(app.focusWidget(), key, modifier)
        app.processEvents()

    def close(self):
        self.window.close()
        self.window.deleteLater()
        app.processEvents()
