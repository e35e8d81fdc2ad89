"""A graph in a window of another process, on a real screen:  native_window_test.py HOST"""

import re
import subprocess
import sys
import time

from PyQt6.QtWidgets import QApplication, QWidget


def expect(condition, message):
    if not condition:
        child.kill()
        sys.exit(f"FAILED: {message}\n{child.stdout.read()}")


def wait_for(condition, message):
    for _ in range(400):
        application.processEvents()
        if condition():
            return
        time.sleep(0.05)
    expect(False, message)


def children():
    tree = subprocess.run(["xwininfo", "-tree", "-id", str(number)], capture_output=True, text=True)
    return re.findall(r"300x200\+0\+0", tree.stdout)


def is_drawn():
    """Whether there is something of the graph's frame where its lower half is."""
    image = application.primaryScreen().grabWindow(number, 0, 100, 300, 100).toImage()
    colours = {image.pixel(x, y) for x in range(0, image.width()) for y in range(image.height())}
    return 0xFF000000 in colours and 0xFFFFFFFF in colours


application = QApplication(sys.argv)
window = QWidget()
window.setGeometry(100, 100, 400, 300)
window.show()
number = int(window.winId())
child = subprocess.Popen([sys.argv[1], str(number)], stdout=subprocess.PIPE,
                         stderr=subprocess.STDOUT, text=True)
wait_for(lambda: children() or child.poll() is not None, "there is no child window")
expect(child.poll() is None, "the host has ended")
wait_for(is_drawn, "nothing is drawn")
corner = window.mapToGlobal(window.rect().topLeft())
subprocess.run(["xdotool", "mousemove", str(corner.x() + 150), str(corner.y() + 120), "click", "1"],
               check=True)
lines = []
while "MouseUp\n" not in lines:
    lines.append(child.stdout.readline())
    expect(lines[-1], f"no event, only {lines}")
child.kill()
