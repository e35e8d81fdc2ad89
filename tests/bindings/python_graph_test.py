"""The Python module without a window."""

import gc
import math
import os
import resource
import subprocess
import sys
import tempfile
import threading
import unittest
from pathlib import Path

import numpy

import kurvgraph
from kurvgraph import _library

SQUARES = [1, 4, 9, 16]


def new_graph():
    graph = kurvgraph.KurvGraph(size=(360, 240))
    graph.plot([1, 2, 3, 4], SQUARES, title="Squares")
    return graph


def ink(graph):
    """How many pixels are not white."""
    return int((numpy.asarray(graph.pixels())[:, :, :3] != 255).any(axis=2).sum())


class Members(unittest.TestCase):
    def setUp(self):
        self.graph = new_graph()
        self.addCleanup(self.graph.close)

    def test_every_row_of_the_table_is_an_attribute(self):
        names = set(dir(self.graph))
        for member in _library.members():
            if member.kind == _library.EVENT:
                self.assertIn("on_mouse_up", names)
                continue
            self.assertIn(member.name, names)
            self.assertIn(member.summary, getattr(kurvgraph.KurvGraph, member.name).__doc__)

    def test_every_property_takes_its_own_value(self):
        for member in _library.members():
            if member.kind != _library.PROPERTY:
                continue
            value = getattr(self.graph, member.name)
            setattr(self.graph, member.name, value)
            self.assertEqual(getattr(self.graph, member.name), value, member.name)

    def test_values_have_types_of_python(self):
        self.graph.FontSize = 8.1
        self.assertEqual(self.graph.FontSize, 8.1)
        self.graph.X_grid = True
        self.assertIs(self.graph.X_grid, True)
        self.graph.NumTicks = numpy.int64(7)
        self.assertEqual(self.graph.NumTicks, 7)
        self.graph.ymax = numpy.float32(2.5)
        self.assertEqual(self.graph.ymax, 2.5)
        self.graph.X_grid = numpy.bool_(False)
        self.assertIs(self.graph.X_grid, False)
        self.graph.Title = "a\0b, \u20ac \udcff"
        self.assertEqual(self.graph.Title, "a\0b, \u20ac \udcff")

    def test_wrong_values(self):
        with self.assertRaises(OverflowError) as caught:
            self.graph.NumTicks = 40000
        self.assertEqual(caught.exception.number, 6)
        self.assertEqual(caught.exception.text, "Overflow")
        for value in (None, [], {}, object(), b"bytes", 1j):
            with self.assertRaises(TypeError):
                self.graph.NumTicks = value
        with self.assertRaises(TypeError):
            self.graph.NumTicks = "many"
        with self.assertRaises(OverflowError):
            self.graph.ymax = 10**400
        with self.assertRaises(UnicodeEncodeError):
            self.graph.Title = "\ud800"

    def test_misspelled_names(self):
        with self.assertRaisesRegex(AttributeError, "there is Title"):
            self.graph.title = "x"
        with self.assertRaises(AttributeError):
            self.graph.nothing

    def test_keyword_and_omitted_arguments(self):
        arguments = dict(yarr_=[SQUARES], xarr=[1, 2, 3, 4], pNumData_=4, pNumY_=1, pTitle_="T",
                         xVarName_="x", yVarName_=["y"], pNumYFunc_=0, y_func_=[])
        self.graph.scatter_graph(**arguments)
        self.assertIs(self.graph.Connected, False)
        self.graph.scatter_graph(*arguments.values(), draw_scatter_points_=True)
        self.assertIs(self.graph.Connected, False)
        self.assertIs(self.graph.DrawMarkers, True)
        with self.assertRaisesRegex(kurvgraph.ArgumentError, "xarr"):
            self.graph.scatter_graph([SQUARES])
        with self.assertRaises(TypeError):
            self.graph.init(1)
        with self.assertRaises(TypeError):
            self.graph.file_load(file="x")


class Pictures(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.path = Path(self.folder.name)

    def test_pixels(self):
        with new_graph() as graph:
            pixels = graph.pixels()
            self.assertEqual(pixels.shape, (240, 360, 4))
            self.assertEqual(pixels[0, 0, 3], 255)
            self.assertGreater(ink(graph), 1000)
            graph.resize((100, 50), 2)
            self.assertEqual(graph.pixels().shape, (100, 200, 4))
        self.assertEqual(pixels.shape, (240, 360, 4))  # a copy

    def test_files(self):
        with new_graph() as graph:
            graph.save(self.path / "squares.png")
            graph.save(os.fsencode(self.path / "squares.gdf"))
            with kurvgraph.KurvGraph() as other:
                other.file_load(str(self.path / "squares.gdf"))
                self.assertEqual(other.Title, "Squares")
            with self.assertRaises(FileNotFoundError) as caught:
                graph.save(self.path / "nowhere" / "squares.png")
            self.assertEqual(caught.exception.detail, str(self.path / "nowhere" / "squares.png"))
            with self.assertRaises(FileNotFoundError):
                graph.file_load(str(self.path / "nothing.gdf"))
            for name in ("squares", "squares.jpg", "squares\0.png"):
                with self.assertRaises(ValueError):
                    graph.save(name)
        begin = (self.path / "squares.png").read_bytes()[:8]
        self.assertEqual(begin, b"\x89PNG\r\n\x1a\n")

    def test_png_bytes(self):
        with new_graph() as graph:
            graph.save(self.path / "squares.png")
            self.assertEqual(graph.png(), (self.path / "squares.png").read_bytes())
            self.assertEqual(graph._repr_png_(), (graph.png(), {"width": 360}))
            graph.resize((100, 50), 2)
            self.assertEqual(graph._repr_png_()[1], {"width": 100})
        self.assertIsNone(graph._repr_png_())

    def test_names_that_are_not_utf8(self):
        with new_graph() as graph:
            path = os.fsdecode(os.fsencode(self.path) + b"/\xff.png")
            graph.save(path)
            self.assertTrue(os.path.exists(path))

    def test_render_needs_no_toolkit_and_no_display(self):
        script = ("import sys, kurvgraph; kurvgraph.render(sys.argv[1], [1, 2], [3, 4], title='T', "
                  "size=(200, 100), ratio=2); assert not any('Qt' in name for name in sys.modules)")
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        subprocess.run([sys.executable, "-c", script, self.path / "picture.png"], check=True,
                       env=environment)
        header = (self.path / "picture.png").read_bytes()[16:24]
        self.assertEqual(header, (400).to_bytes(4, "big") + (200).to_bytes(4, "big"))


class Events(unittest.TestCase):
    def click(self, graph):
        graph.press_mouse(1, 0, 2000, 1500)
        graph.release_mouse(1, 0, 2000, 1500)

    def test_functions_are_called(self):
        with new_graph() as graph, new_graph() as other:
            seen = []
            graph.on_mouse_up = lambda *arguments: seen.append(arguments)
            other.on_mouse_up = lambda *arguments: seen.append("other")
            graph.on_redrawn = lambda: seen.append("redrawn")
            self.click(graph)
            graph.build_the_graph()
            self.assertEqual(seen, [(1, 0, 2000.0, 1500.0), "redrawn"])
            graph.on_mouse_up = None
            self.assertIsNone(graph.on_mouse_up)
            self.click(graph)
            self.assertEqual(len(seen), 2)
            with self.assertRaises(TypeError):
                graph.on_mouse_up = 1

    def test_what_a_function_raises_reaches_the_caller(self):
        with new_graph() as graph:
            graph.on_mouse_up = lambda *_: 1 / 0
            with self.assertRaises(ZeroDivisionError):
                self.click(graph)
            graph.build_the_graph()

    def test_a_function_may_close_the_graph(self):
        graph = new_graph()
        graph.on_mouse_up = lambda *_: graph.close()
        self.click(graph)
        self.assertTrue(graph.closed)


class Life(unittest.TestCase):
    def test_closed_graphs(self):
        graph = new_graph()
        graph.close()
        graph.close()
        self.assertTrue(graph.closed)
        for call in (lambda: graph.Title, graph.build_the_graph, graph.pixels, graph.widget,
                     lambda: graph.save("x.png")):
            with self.assertRaisesRegex(ValueError, "closed"):
                call()

    def test_sizes(self):
        for size in ((0, 10), (10, -1), (40000, 10), (2**32 + 10, 10)):
            with self.assertRaises(ValueError):
                kurvgraph.KurvGraph(size)
        for ratio in (0, math.nan, math.inf):
            with self.assertRaises(ValueError):
                kurvgraph.KurvGraph(ratio=ratio)
        with self.assertRaises((TypeError, ValueError)):
            kurvgraph.KurvGraph(7)
        kurvgraph.KurvGraph(numpy.array([20, 10])).close()
        gc.collect()

    def test_graphs_that_nobody_needs_end(self):
        gc.collect()
        before = _library.living()
        graphs = [new_graph() for _ in range(10)]
        graphs[0].on_redrawn = lambda: graphs  # a cycle
        self.assertEqual(_library.living(), before + 10)
        del graphs
        gc.collect()
        self.assertEqual(_library.living(), before)

    def test_memory_does_not_grow(self):
        def make(count):
            for _ in range(count):
                with kurvgraph.KurvGraph((20, 20)) as graph:
                    graph.plot([1, 2], [[1, 2]])
        make(200)
        before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
        make(2000)
        self.assertLess(resource.getrusage(resource.RUSAGE_SELF).ru_maxrss - before, 3000)

    def test_a_graph_belongs_to_its_thread(self):
        graph = new_graph()
        raised = []

        def use():
            try:
                graph.build_the_graph()
            except kurvgraph.WrongThread as error:
                raised.append(error.number)
            with new_graph() as own:
                raised.append(ink(own) > 1000)

        threads = [threading.Thread(target=use) for _ in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(sorted(raised), [-2] * 4 + [True] * 4)
        graph.close()


class Library(unittest.TestCase):
    def run_with(self, **environment):
        return subprocess.run([sys.executable, "-c", "import kurvgraph"], capture_output=True,
                              text=True, env={**os.environ, **environment})

    def test_the_environment_chooses(self):
        folder = Path(kurvgraph.LIBRARY_PATH).parent
        self.assertEqual(self.run_with(KURVGRAPH_LIBRARY=str(folder)).returncode, 0)
        self.assertEqual(self.run_with(KURVGRAPH_LIBRARY=kurvgraph.LIBRARY_PATH).returncode, 0)
        failed = self.run_with(KURVGRAPH_LIBRARY="/nowhere")
        self.assertIn("ImportError: The library libkurvgraph.so cannot be loaded", failed.stderr)

    def test_another_library_is_refused(self):
        failed = self.run_with(KURVGRAPH_LIBRARY="libc.so.6")
        self.assertIn("ImportError", failed.stderr)

    def test_versions_agree(self):
        self.assertEqual(kurvgraph.library_version(), kurvgraph.__version__)


if __name__ == "__main__":
    unittest.main()
