"""The Python example renders its screenshot."""

import os
import subprocess
import sys
import tempfile
import unittest

from PyQt6 import QtGui

import support  # noqa: F401  (the application for QImage)

EXAMPLE = os.path.join(os.path.dirname(__file__), "..", "..", "examples", "python", "order_form.py")


class OrderFormExample(unittest.TestCase):
    def test_screenshot(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "order.png")
            env = dict(os.environ, QT_QPA_PLATFORM="offscreen")
            result = subprocess.run([sys.executable, EXAMPLE, "--screenshot", path],
                                    capture_output=True, text=True, env=env, timeout=120)
            self.assertEqual(result.returncode, 0, result.stderr)
            image = QtGui.QImage(path)
            self.assertFalse(image.isNull())
            # The form and the dialog side by side.
            self.assertGreater(image.width(), image.height())


if __name__ == "__main__":
    unittest.main()
