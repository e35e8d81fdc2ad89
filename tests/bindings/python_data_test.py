"""The data that the Python module takes."""

import array
import datetime
import math
import unittest
import warnings
from pathlib import Path

import numpy

import kurvgraph
from kurvgraph import _data


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


if __name__ == "__main__":
    unittest.main()
