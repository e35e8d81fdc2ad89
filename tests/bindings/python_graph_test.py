"""The Python module without a window."""

import array
import datetime
import gc
import math
import os
import resource
import subprocess
import sys
import tempfile
import threading
import unittest
import warnings
from pathlib import Path

import numpy

import kurvgraph
from kurvgraph import _data, _library

SQUARES = [1, 4, 9, 16]


def new_graph():
    graph = kurvgraph.KurvGraph(size=(360, 240))
    graph.plot([1, 2, 3, 4], SQUARES, title="Squares")
    return graph


def ink(graph):
    """How many pixels are not white."""
    return int((numpy.asarray(graph.pixels())[:, :, :3] != 255).any(axis=2).sum())


class Series:
    """A column with a name, which is no array of NumPy."""
    ndim = 1

    def __init__(self, name, values):
        self.name = name
        self.values = values

    def __len__(self):
        return len(self.values)

    def __iter__(self):
        return iter(self.values)

    def __array__(self, dtype=None):
        return numpy.array(self.values, dtype=dtype)


class Frame:
    """Columns with names."""
    ndim = 2

    def __init__(self, **series):
        self.columns = list(series)
        self.series = series

    def __getitem__(self, name):
        return self.series[name]

    def __len__(self):
        return len(self.series[self.columns[0]])

    def __array__(self, dtype=None):
        return numpy.array([column.values for column in self.series.values()], dtype=dtype).T


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


class Data(unittest.TestCase):
    def setUp(self):
        self.graph = kurvgraph.KurvGraph()
        self.addCleanup(self.graph.close)

    def limits(self):
        return (self.graph.xmin, self.graph.xmax, self.graph.ymin, self.graph.ymax)

    def test_all_kinds_of_arrays_are_the_same(self):
        x = [0.0, 1.0, 2.0]
        y = [[1.0, 2.0, 3.0], [10.0, 20.0, 30.0]]
        table = numpy.array(y)
        pictures = []
        for first, second in ((x, y), (tuple(x), tuple(y)), (numpy.array(x), table),
                              (array.array("d", x), [array.array("d", c) for c in y]),
                              (range(3), [numpy.array(c, dtype="float32") for c in y]),
                              (numpy.arange(3), numpy.asfortranarray(table)),
                              (numpy.arange(3), numpy.repeat(table, 3, axis=1)[:, ::3]),
                              (numpy.arange(3), numpy.ascontiguousarray(table.T).T),
                              (numpy.arange(2, -1, -1)[::-1], table[::-1][::-1]),
                              (iter(x), {"y1": y[0], "y2": numpy.array(y[1])})):
            self.graph.plot(first, second)
            pictures.append(bytes(self.graph.pixels()))
        self.assertEqual(len(set(pictures)), 1)
        self.assertEqual(self.limits()[:2], (0, 2))

    def test_missing_values(self):
        self.graph.plot([1, 2, 3], [1, None, 3])
        first = bytes(self.graph.pixels())
        self.graph.plot([1, 2, 3], numpy.array([1, math.nan, 3]))
        self.assertEqual(bytes(self.graph.pixels()), first)
        self.graph.plot([1, 2, 3], [1, math.inf, 3])

    def test_the_library_keeps_no_array_of_the_caller(self):
        y = numpy.array([[1.0, 2.0, 3.0]])
        self.graph.plot([1, 2, 3], y)
        before = bytes(self.graph.pixels())
        y[:] = 7
        self.graph.build_the_graph()
        self.assertEqual(bytes(self.graph.pixels()), before)

    def test_wrong_data(self):
        for y in (["a", "b"], [[1, 2], ["a", "b"]], numpy.array(["a", "b"]), [object(), 1],
                  numpy.array(["2026-01-01", "2026-01-02"], dtype="datetime64[D]"),
                  numpy.array([1j, 2j]), numpy.zeros((2, 2, 2)), "12"):
            with self.assertRaises((TypeError, ValueError), msg=repr(y)):
                self.graph.plot([1, 2], y)
        with self.assertRaisesRegex(ValueError, "3 values for 2"):
            self.graph.plot([1, 2], [1, 2, 3])
        with self.assertRaisesRegex(ValueError, "names"):
            self.graph.plot([1, 2], [1, 2], names=["a", "b"])
        with self.assertRaises(OverflowError):
            self.graph.plot(range(40000), range(40000))
        with self.assertRaises(OverflowError):
            self.graph.plot([1, 2], [10**400, 1])
        with self.assertRaises(TypeError):
            self.graph.plot([1, 2], [1, 2], names="y")
        scatter = self.graph.scatter_graph
        with self.assertRaises(IndexError):
            scatter([[1, 2]], [1, 2], 3, 1, "", "x", ["y"], 0, [])
        with self.assertRaises(ValueError):
            scatter([[1, 2], [1]], [1, 2], 2, 2, "", "x", ["y", "z"], 0, [])
        with self.assertRaises(TypeError):
            scatter([[1, 2]], [1, 2], 2, 1, "", "x", "y", 0, [])
        with self.assertRaises(TypeError):
            scatter(None, [1, 2], 2, 1, "", "x", ["y"], 0, [])
        with self.assertRaises(TypeError):
            self.graph.scatter_graph2("", [[1, 2], [1, 2]], ["x", "y"], 2, 1, ["yes"], 0, [])

    def expect(self, sentence, x, y, **options):
        with self.assertRaises((TypeError, ValueError)) as caught:
            self.graph.plot(x, y, **options)
        self.assertIn(sentence, str(caught.exception))

    def test_errors_say_what_and_where(self):
        self.expect("the curve 'down' has 2 values for 3 values of x", [1, 2, 3],
                    {"up": [1, 2, 3], "down": [1, 2]})
        rows = [(1, 4), (2, 5), (3, 6)]
        self.expect("each row is a curve, so pass list(zip(*y))", [1, 2, 3], rows)
        self.expect("each row is a curve, so pass y.T", [1, 2, 3], numpy.array(rows))
        self.expect("the curve 'y': 'two' at index 1 is not a number", [1, 2], [1, "two"])
        self.expect("the curve 'y': '1' at index 0 is not a number", [1, 2], ["1", "2"])
        self.expect("x: 'a' at index 0 is not a number", ["a", "b"], [1, 2])
        self.expect("x: 'b' at index 1 is not a number", numpy.array([1, "b"], dtype=object), [1, 2])
        self.expect("the curve 'y2': int instead of a list", [1, 2], [[1, 2], 3])
        self.expect("y has to be a list or an array of numbers, not int", [1], 2)
        self.expect("y has to be a list or an array of numbers, not str", [1, 2], "12")
        self.expect("x has to be a list or an array of numbers, not int", 1, [2])
        self.expect("x: an array of 2 dimensions instead of 1", numpy.ones((2, 1)), [1, 2])
        with self.assertRaisesRegex(OverflowError, "40000 points; a graph has at most 32767"):
            self.graph.plot(range(40000), range(40000))
        with self.assertRaisesRegex(IndexError, "150 curves; a graph has at most 149"):
            self.graph.plot([1, 2], numpy.ones((150, 2)))
        with self.assertRaisesRegex(OverflowError, "NumTicks cannot be 40000"):
            self.graph.NumTicks = 40000
        with self.assertRaisesRegex(TypeError, "xmin cannot be 'left'"):
            self.graph.xmin = "left"
        with self.assertRaisesRegex(TypeError, "two whole numbers, such as"):
            kurvgraph.KurvGraph(300)
        with self.assertRaisesRegex(TypeError, "two whole numbers, such as"):
            self.graph.resize((300.5, 200))
        self.graph.plot([1, 2], [[1, 2], [3, 4]])
        with self.assertRaisesRegex(IndexError, "another number of curves than 1"):
            self.graph.append_points([3], [4])

    def test_dates_say_how_they_become_numbers(self):
        days = numpy.array(["2026-01-01", "2026-01-03"], dtype="datetime64[D]")
        self.expect("(t - t.min()) / numpy.timedelta64(1, 'h')", days, [1, 2])
        self.graph.plot((days - days.min()) / numpy.timedelta64(1, "h"), [1, 2])
        self.assertEqual(self.limits()[:2], (0, 48))
        times = [datetime.datetime(2026, 1, 1), datetime.datetime(2026, 1, 1, 6)]
        self.expect("(t - first) / datetime.timedelta(hours=1)", times, [1, 2])
        self.graph.plot([(t - times[0]) / datetime.timedelta(hours=1) for t in times], [1, 2])
        self.assertEqual(self.limits()[:2], (0, 6))

    def test_the_limits_are_those_of_the_library(self):
        header = Path(__file__).parents[2] / "include" / "KurvGraph" / "limits.h"
        self.assertIn(f"kMaxCurves = {_data.MOST_CURVES};", header.read_text())
        self.graph.plot(numpy.arange(_data.MOST_POINTS),
                        numpy.ones((_data.MOST_CURVES, _data.MOST_POINTS)))

    def test_masked_values_are_missing(self):
        self.graph.plot([1, 2, 3], numpy.ma.array([1, 99, 3], mask=[False, True, False]))
        self.assertEqual(self.graph.ymax, 3)

    def test_appended_curves_are_found_by_their_names(self):
        self.graph.plot([1, 2], {"up": [1, 2], "down": [5, 4]})
        self.graph.append_points([3], {"down": [3], "up": [5]})
        self.graph.derive("twice", "2*up")
        self.assertEqual(self.graph.ymax, 10)

    def test_series_and_frames(self):
        self.graph.plot([0, 1, 2], {"up": [1, 2, 3], "down": [5, 4, 3]}, x_name="time")
        expected = bytes(self.graph.pixels())
        time, up, down = (Series(name, values) for name, values in
                          (("time", [0, 1, 2]), ("up", [1, 2, 3]), ("down", [5, 4, 3])))
        for y in (Frame(up=up, down=down), [up, down], {"up": up, "down": down}):
            self.graph.plot(time, y)
            self.assertEqual(bytes(self.graph.pixels()), expected)
        self.graph.plot(Series(None, [0, 1]), Series("up", [1, None]))
        self.graph.append_points([2], Frame(up=Series("up", [5])))
        self.graph.derive("twice", "2*up")
        self.assertEqual((self.graph.xmax, self.graph.ymax), (2, 10))
        self.graph.plot([1, 2], {1: [1, 2], 2: [1, 2]})
        self.graph.derive("sum", "[1]+[2]")
        self.assertEqual(self.graph.ymax, 4)

    def test_data_that_cannot_be_plotted_are_a_warning(self):
        with self.assertWarnsRegex(kurvgraph.Message, "all x values are the same"):
            self.graph.plot([1, 1], [1, 2])
        texts = []
        self.graph.on_message = lambda text, flags, title: texts.append((flags, title))
        with warnings.catch_warnings():
            warnings.simplefilter("error")
            self.graph.plot([1, 1], [1, 2])
        self.assertEqual(texts, [(16, "KURV Guide")])

    def test_a_warning_names_the_line_of_the_program(self):
        scatter = self.graph.scatter_graph
        for call in (lambda: self.graph.plot([1, 1], [1, 2]),
                     lambda: scatter([[1, 2]], [1, 1], 2, 1, "", "x", ["y"], 0, [])):
            with warnings.catch_warnings(record=True) as caught:
                warnings.simplefilter("always")
                call()
            self.assertEqual([warning.filename for warning in caught], [__file__])

    def test_expressions(self):
        self.graph.plot([1, 2, 3], {"up": [1, 2, 3]}, functions=["x^2", "sin(x)"])
        self.graph.derive("twice", "2*up")
        self.assertEqual(self.graph.ymax, 6)
        for call in (lambda: self.graph.add_function("2*"),
                     lambda: self.graph.derive("more", "nothing+1"),
                     lambda: self.graph.add_function("x\0y")):
            with self.assertRaises(ValueError):
                call()
        with self.assertRaises(TypeError):
            self.graph.add_function(1)


    def test_points_that_come_later(self):
        self.graph.plot([1, 2], {"up": [1, 2], "down": [5, 4]})
        self.graph.append_points([3, 4], [[3, 9], [3, 2]])
        self.assertEqual((self.graph.xmax, self.graph.ymax), (4, 9))
        self.graph.append_points([5], {"up": [10], "down": [0]})
        self.assertEqual((self.graph.xmax, self.graph.ymax), (5, 10))
        self.graph.replace_points([1, 2], {"a": [1, 2], "b": [3, 7]}, x_name="time")
        self.graph.derive("c", "a+b")
        self.assertEqual((self.graph.xmax, self.graph.ymax), (2, 9))
        with self.assertRaises(IndexError):
            self.graph.append_points([6], [1])  # two curves were loaded
        with self.assertRaises(ValueError):
            self.graph.append_points([6, 7], [1])
        self.graph.plot([1, 2], [1, 2])
        self.graph.append_points([3], [8])
        self.assertEqual(self.graph.ymax, 8)


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
