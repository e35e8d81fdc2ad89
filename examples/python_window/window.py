"""A window with a graph, and a button that adds a curve."""

import math
import sys

from PyQt6.QtWidgets import QApplication, QPushButton, QVBoxLayout, QWidget

import kurvgraph


class Window(QWidget):
    def __init__(self):
        super().__init__()
        self.setWindowTitle("Harmonics")
        self.graph = kurvgraph.KurvGraph()
        self.curves = {}
        button = QPushButton("&Add a curve")
        button.setObjectName("add")
        button.clicked.connect(self.add_curve)
        layout = QVBoxLayout(self)
        layout.addWidget(self.graph.widget(self), stretch=1)
        layout.addWidget(button)
        self.add_curve()

    def add_curve(self):
        number = len(self.curves) + 1
        x = [i / 50 for i in range(315)]
        self.curves[f"wave {number}"] = [math.sin(number * value) / number for value in x]
        self.graph.plot(x, self.curves, title="Harmonics")


if __name__ == "__main__":
    application = QApplication(sys.argv)
    window = Window()
    window.resize(760, 560)
    window.show()
    sys.exit(application.exec())
