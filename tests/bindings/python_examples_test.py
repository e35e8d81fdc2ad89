"""Runs the examples in Python."""

import importlib.util
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from PyQt6.QtWidgets import QApplication, QPushButton

EXAMPLES = Path(__file__).parents[2] / "examples"

application = QApplication(sys.argv)


class Script(unittest.TestCase):
    def test_draws_a_picture(self):
        with tempfile.TemporaryDirectory() as folder:
            picture = Path(folder) / "waves.png"
            subprocess.run([sys.executable, EXAMPLES / "python_script" / "waves.py", picture],
                           check=True)
            self.assertEqual(struct.unpack(">II", picture.read_bytes()[16:24]), (1440, 960))


class Window(unittest.TestCase):
    def test_the_button_adds_a_curve(self):
        path = EXAMPLES / "python_window" / "window.py"
        spec = importlib.util.spec_from_file_location("window_example", path)
        module = importlib.util.module_from_spec(spec)
        spec.loader.exec_module(module)
        window = module.Window()
        window.resize(760, 560)
        window.show()
        before = bytes(window.graph.pixels())
        window.findChild(QPushButton, "add").click()
        self.assertEqual(list(window.curves), ["wave 1", "wave 2"])
        self.assertNotEqual(bytes(window.graph.pixels()), before)


if __name__ == "__main__":
    unittest.main()
