"""The Python module in windows of PyQt6."""

import gc
import os
import subprocess
import sys
import textwrap
import unittest

from PyQt6 import sip
from PyQt6.QtCore import QEvent, QPointF, Qt
from PyQt6.QtGui import QMouseEvent
from PyQt6.QtWidgets import QApplication, QVBoxLayout, QWidget

import kurvgraph
from kurvgraph import _library

application = QApplication.instance() or QApplication(sys.argv)


def click(widget):
    plot = widget.findChild(QWidget, "PicGraph")
    at = QPointF(100, 90)
    for kind, buttons in ((QEvent.Type.MouseButtonPress, Qt.MouseButton.LeftButton),
                          (QEvent.Type.MouseButtonRelease, Qt.MouseButton.NoButton)):
        event = QMouseEvent(kind, at, plot.mapToGlobal(at), Qt.MouseButton.LeftButton, buttons,
                            Qt.KeyboardModifier.NoModifier)
        QApplication.sendEvent(plot, event)


class Widgets(unittest.TestCase):
    def tearDown(self):
        gc.collect()
        self.assertEqual(_library.living(), 0)

    def test_a_graph_in_a_window(self):
        window = QWidget()
        graph = kurvgraph.KurvGraph()
        widget = graph.widget(window)
        self.assertIsInstance(widget, QWidget)
        self.assertIs(widget.parentWidget(), window)
        self.assertIs(graph.widget(), widget)
        self.assertIs(widget.graph, graph)
        QVBoxLayout(window).addWidget(widget)
        window.resize(500, 400)
        window.show()
        graph.plot([1, 2, 3], [1, 4, 9], title="Squares")
        self.assertEqual(graph.Title, "Squares")
        self.assertEqual(widget.property("Title"), "Squares")
        self.assertGreater(graph.pixels().shape[1], 400)
        graph.add_function("x^2")
        with self.assertRaises(ValueError):
            graph.add_function("x^")
        with self.assertRaises(ValueError):
            graph.press_mouse(1, 0, 1, 1)
        graph.close()
        self.assertTrue(sip.isdeleted(widget))

    def test_a_widget_of_the_class(self):
        widget = kurvgraph.KurvGraph.widget()
        widget.graph.plot([1, 2], [3, 4])
        self.assertIsNone(widget.parentWidget())
        widget.graph.close()

    def test_the_parent_goes_first(self):
        window = QWidget()
        graph = kurvgraph.KurvGraph()
        widget = graph.widget(window)
        seen = []
        graph.on_destroyed = lambda: seen.append(graph.closed)
        graph.plot([1, 2], [3, 4])
        sip.delete(window)
        self.assertEqual(seen, [True])
        self.assertTrue(graph.closed and sip.isdeleted(widget))
        with self.assertRaisesRegex(ValueError, "closed"):
            graph.build_the_graph()
        with self.assertRaises(RuntimeError):
            widget.show()
        graph.close()

    def test_the_window_is_collected(self):
        window = QWidget()
        graph = kurvgraph.KurvGraph()
        QVBoxLayout(window).addWidget(graph.widget())
        del window
        gc.collect()
        self.assertTrue(graph.closed)

    def test_events_arrive_although_nothing_refers_to_the_graph(self):
        window = QWidget()
        seen = []

        def make():
            graph = kurvgraph.KurvGraph()
            graph.on_mouse_up = lambda *arguments: seen.append(arguments)
            QVBoxLayout(window).addWidget(graph.widget())
            graph.plot([1, 2, 3], [1, 4, 9])

        make()
        gc.collect()
        window.show()
        click(window)
        self.assertEqual(len(seen), 1)
        sip.delete(window)

    def test_what_a_function_raises_reaches_the_hook(self):
        graph = kurvgraph.KurvGraph()
        widget = graph.widget()
        graph.plot([1, 2, 3], [1, 4, 9])
        widget.show()
        graph.on_mouse_up = lambda *_: 1 / 0
        raised = []
        hook, sys.excepthook = sys.excepthook, lambda kind, *_: raised.append(kind)
        try:
            click(widget)
        finally:
            sys.excepthook = hook
        self.assertEqual(raised, [ZeroDivisionError])
        graph.on_mouse_up = lambda *_: graph.close()
        click(widget)
        self.assertTrue(graph.closed)

    def test_a_graph_that_has_been_used_stays_in_pixels(self):
        with kurvgraph.KurvGraph() as graph:
            graph.Title = "used"
            with self.assertRaisesRegex(kurvgraph.InvalidCall, "before the other members"):
                graph.widget()

    def test_parents_that_are_none(self):
        with kurvgraph.KurvGraph() as graph:
            for parent in (1, "window", object(), application):
                with self.assertRaises(TypeError):
                    graph.widget(parent)
            deleted = QWidget()
            sip.delete(deleted)
            with self.assertRaises(RuntimeError):
                graph.widget(deleted)

    def test_context_manager(self):
        window = QWidget()
        with kurvgraph.KurvGraph() as graph:
            widget = graph.widget(window)
        self.assertTrue(sip.isdeleted(widget))


def run_script(text):
    return subprocess.run([sys.executable, "-c", textwrap.dedent(text)], capture_output=True,
                          text=True, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})


class Programs(unittest.TestCase):
    def test_without_a_toolkit(self):
        result = run_script("""
            import kurvgraph
            kurvgraph.KurvGraph().widget()
            """)
        self.assertIn("import its QtWidgets first", result.stderr)
        self.assertEqual(result.returncode, 1)

    def test_without_an_application(self):
        result = run_script("""
            from PyQt6.QtWidgets import QWidget
            import kurvgraph
            kurvgraph.KurvGraph().widget()
            """)
        self.assertIn("Make a QApplication first", result.stderr)
        self.assertEqual(result.returncode, 1)

    def test_the_end_of_a_program_with_windows(self):
        for end in ("", "sys.exit()", "application.quit()", "del window", "del application",
                    "graph.close()"):
            result = run_script(f"""
                import sys
                from PyQt6.QtWidgets import QApplication, QVBoxLayout, QWidget
                import kurvgraph
                application = QApplication(sys.argv)
                window = QWidget()
                graph = kurvgraph.KurvGraph()
                graph.on_redrawn = lambda: None
                QVBoxLayout(window).addWidget(graph.widget())
                alone = kurvgraph.KurvGraph.widget()
                alone.graph.plot([1, 2], [3, 4])
                graph.plot([1, 2], [3, 4])
                window.show()
                alone.show()
                application.processEvents()
                {end}
                """)
            self.assertEqual(result.returncode, 0, end)
            self.assertNotIn("Error", result.stderr, end)


if __name__ == "__main__":
    unittest.main()
