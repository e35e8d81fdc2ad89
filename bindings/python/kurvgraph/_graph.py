"""The graph."""

from __future__ import annotations

import atexit
import ctypes
import operator
import os
import reprlib
import tempfile
import warnings
import weakref
from typing import TYPE_CHECKING, Any, Dict, Iterable, List, Optional, Sequence, Tuple, Union

from . import _library as lib
from . import _widget
from ._data import check_counts, has_names, in_order, read_curves
from ._errors import INVALID_HANDLE, Error, InvalidCall, Message, OutOfRange, new_error
from ._events import Listener, stack_level
from ._members import make_members
from ._values import decoded, encoded

Path = Union[str, "os.PathLike[str]"]

# Graphs whose widget exists: they receive events although nothing else may refer to them.
_shown: Dict[int, "KurvGraph"] = {}


def _text(text: Any, what: str = "a text") -> bytes:
    """For a function that takes a text up to its first NUL."""
    if not isinstance(text, str):
        raise TypeError(f"{what} has to be a str, not {type(text).__name__}")
    if "\0" in text:
        raise ValueError(f"{what} contains a NUL character")
    return lib.encode(text)


def _whole_size(size: Any) -> Tuple[int, int]:
    """Width and height for the library, which checks their range. ctypes would cut off the upper
    bits of a number that is too large."""
    try:
        width, height = (max(-1, min(operator.index(side), 1 << 30)) for side in size)
    except (TypeError, ValueError):
        raise TypeError("size has to be two whole numbers, such as (720, 480), not "
                        f"{size!r}") from None
    return width, height


class _WidgetMethod:
    """KurvGraph.widget(), on a graph and on the class."""

    def __get__(self, graph: Optional["KurvGraph"], owner: type) -> Any:
        def widget(parent: Any = None) -> Any:
            """The graph as a widget of PyQt6 or PySide6, whichever is imported; a child of
            `parent`, which is a widget, or of the layout that it is added to.

            A new graph becomes a widget by its first call, before any other member is used. Called
            on the class it makes a new graph. The attribute `graph` of the widget is the graph.
            """
            chosen = graph if graph is not None else owner()
            return chosen._show(parent)

        return widget


class KurvGraph:
    """A graph in pixels, `size` in logical pixels, with `ratio` device pixels for each; or a
    widget, see widget().

    Its members are those of the control: help(KurvGraph) describes them. Setting a property does
    not redraw; build_the_graph() does.
    """

    widget = _WidgetMethod()

    if TYPE_CHECKING:
        # Type checkers do not see the members that are made from the library's table.
        def __getattr__(self, name: str) -> Any: ...

    def __init__(self, size: Tuple[int, int] = (720, 480), ratio: float = 1.0) -> None:
        handle = ctypes.c_void_p()
        self._toolkit_widget: Any = None
        self._handle = 0
        self._is_used = False
        self._names: List[str] = []  # of the curves that plot() or replace_points() has loaded
        self._ratio = float(ratio)
        width, height = _whole_size(size)
        lib.call("kurv_create_pixels", width, height, self._ratio, ctypes.byref(handle))
        self._take(handle.value)
        self._finalizer = weakref.finalize(self, lib.release, "kurv_destroy", self._handle)

    def _take(self, handle: Optional[int]) -> None:
        """The graph has this handle from now on."""
        assert handle is not None
        self._handle = handle
        self._listener = Listener(self)
        lib.call("kurv_listen", handle, self._listener.function, None)

    def __setattr__(self, name: str, value: Any) -> None:
        """A name that is misspelled is an error, not a new attribute."""
        if not name.startswith("_") and not hasattr(type(self), name):
            alike = [known for known in dir(type(self)) if known.lower() == name.lower()]
            hint = f"; there is {alike[0]}" if alike else ""
            raise AttributeError(f"a graph has no attribute {name}{hint}")
        super().__setattr__(name, value)

    # -- Calls ----------------------------------------------------------------------------------

    def _do(self, name: str, *arguments: Any) -> None:
        """Calls a function of the library for this graph. What a function of an event has raised
        meanwhile is raised afterwards."""
        if not self._handle:
            raise new_error(INVALID_HANDLE, "The graph is closed")
        listener = self._listener
        self._is_used = True
        listener.in_call += 1
        try:
            lib.call(name, self._handle, *arguments)
        finally:
            listener.in_call -= 1
            if not listener.in_call:
                listener.raise_kept()

    def _get(self, member: lib.Member) -> Any:
        value = lib.Value()
        self._do("kurv_get_by_id", member.dispatch_id, ctypes.byref(value))
        try:
            return decoded(value)
        finally:
            lib.clear(value)

    def _let(self, member: lib.Member, value: Any) -> None:
        if value is None:
            raise TypeError(f"{member.name} cannot be None")
        converted, owner = encoded(value, member.type)
        try:
            self._do("kurv_let_by_id", member.dispatch_id, ctypes.byref(converted))
        except Error as error:
            if error.detail not in ("", member.name):
                raise
            detail = f"{member.name} cannot be {reprlib.repr(value)}"
            raise new_error(error.number, error.text, detail) from None
        del owner

    def _call(self, member: lib.Member, values: Sequence[Any]) -> None:
        converted = [encoded(value, row.type) for value, row in zip(values, member.parameters)]
        arguments = (lib.Value * len(converted))(*[value for value, _ in converted])
        self._do("kurv_call_by_id", member.dispatch_id, arguments, len(converted))
        for argument in arguments:
            lib.clear(argument)

    # -- Data -----------------------------------------------------------------------------------

    def plot(self, x: Any, y: Any, *, title: str = "", x_name: Optional[str] = None,
             names: Optional[Sequence[str]] = None, functions: Iterable[str] = (),
             connected: bool = True, markers: bool = False) -> None:
        """Loads data and draws them. `x` are the values of x; `y` the values of one curve, a list
        or two-dimensional array of several, each of them a row, or a mapping of their names to
        their values; or Series and a DataFrame, which have names. None and NaN are missing values.
        `functions` are expressions of x, such as "x^2"."""
        data = read_curves(x, y, names, x_name)
        check_counts(data)
        expressions = [functions] if isinstance(functions, str) else list(functions)
        load: Any = getattr(self, "scatter_graph")
        load(data.y, data.x, len(data.x), len(data.y), title, data.x_name, data.names, 0, [],
             connected, markers)
        self._names = data.names
        for expression in expressions:
            self.add_function(expression)

    def append_points(self, x: Any, y: Any) -> None:
        """Adds points to the curves that were loaded, and redraws: `x` and `y` as those of plot(),
        in the same order, or with the same names. The first points beyond 32,767 are dropped, and
        derived curves follow."""
        data = in_order(read_curves(x, y), self._names if has_names(y) else [])
        points, owner = encoded([data.x, *data.y], lib.MATRIX)
        try:
            self._do("kurv_append_points", ctypes.byref(points))
        except OutOfRange as error:
            detail = f"the graph has another number of curves than {len(data.y)}"
            raise new_error(error.number, error.text, error.detail or detail) from None
        del owner

    def replace_points(self, x: Any, y: Any, *, x_name: Optional[str] = None,
                       names: Optional[Sequence[str]] = None) -> None:
        """Puts these points in the place of all points, and redraws: as plot(), but what the user
        has set stays, and so do names that somebody has changed."""
        data = read_curves(x, y, names, x_name)
        points, owner = encoded([data.x, *data.y], lib.MATRIX)
        texts, text_owner = encoded([data.x_name, *data.names], lib.STRINGS)
        self._do("kurv_replace_points", ctypes.byref(points), ctypes.byref(texts))
        self._names = data.names
        del owner, text_owner

    def add_function(self, expression: str) -> None:
        """Adds a function curve, an expression of x, and redraws. InvalidCall says why an
        expression is not accepted."""
        self._do("kurv_add_function", _text(expression, "an expression"))

    def derive(self, name: str, expression: str) -> None:
        """Adds a curve that is computed from x and other curves by their names, and redraws."""
        self._do("kurv_derive", _text(name, "a name"), _text(expression, "an expression"))

    # -- Pictures and files ---------------------------------------------------------------------

    def save(self, path: Path) -> None:
        """Saves the picture as a PNG file, or the graph as a graph file: as the name ends, .png or
        .gdf."""
        name = os.fspath(path)
        if not isinstance(name, str):
            name = os.fsdecode(name)
        suffix = os.path.splitext(name)[1].lower()
        functions = {".png": "kurv_save_png", ".gdf": "kurv_save_graph"}
        if suffix not in functions:
            raise ValueError(f"{name} ends neither in .png nor in .gdf")
        self._do(functions[suffix], _text(name, "a path"))

    def png(self) -> bytes:
        """The picture as the bytes of a PNG file."""
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "graph.png")
            self.save(path)
            with open(path, "rb") as file:
                return file.read()

    def _repr_png_(self) -> Any:
        """What a notebook shows of a graph: the picture, in logical pixels."""
        if self.closed:
            return None
        data = self.png()
        width = int.from_bytes(data[16:20], "big")
        return data, {"width": round(width / self._ratio)}

    def pixels(self) -> memoryview:
        """A copy of the picture: rows from top to bottom, in each of them pixels, in each of them
        red, green, blue and 255. numpy.asarray() makes an array of it without another copy."""
        shape = lib.Pixels()
        self._do("kurv_get_pixels", ctypes.byref(shape))
        data = bytearray(shape.width * shape.height * 4)
        buffer = (ctypes.c_char * len(data)).from_buffer(data)
        self._do("kurv_copy_pixels", lib.RGBA8, buffer, len(data))
        return memoryview(data).cast("B", (shape.height, shape.width, 4))

    def resize(self, size: Tuple[int, int], ratio: float = 1.0) -> None:
        """Another size; draws anew. A widget has the ratio of its screen."""
        width, height = _whole_size(size)
        self._do("kurv_resize", width, height, float(ratio))
        self._ratio = float(ratio)

    # -- Mouse and events -----------------------------------------------------------------------

    def press_mouse(self, button: int, shift: int, x: float, y: float) -> None:
        """A button of the mouse goes down on a graph in pixels, at a point in twips."""
        self._do("kurv_press_mouse", button, shift, x, y)

    def release_mouse(self, button: int, shift: int, x: float, y: float) -> None:
        """It comes up. This is what on_mouse_up reports."""
        self._do("kurv_release_mouse", button, shift, x, y)

    def _handle_event(self, name: str, arguments: List[Any]) -> None:
        if name == "destroyed":
            self._forget_widget()
        function = self._listener.functions.get(name)
        if function is not None:
            function(*arguments)
        elif name == "message":
            text = " ".join(arguments[0].split())
            warnings.warn(text, Message, stacklevel=stack_level())

    # -- Widget ---------------------------------------------------------------------------------

    def _show(self, parent: Any) -> Any:
        if self._toolkit_widget is not None:
            return self._toolkit_widget
        if not self._handle:
            raise new_error(INVALID_HANDLE, "The graph is closed")
        if self._is_used:
            raise InvalidCall(5, "Call widget() before the other members of the graph")
        toolkit = _widget.toolkit(parent)
        handle, widget = toolkit.create(parent)
        functions = self._listener.functions
        self._finalizer()
        self._take(handle)
        self._listener.functions = functions
        self._toolkit_widget = widget
        self._toolkit = toolkit
        _shown[self._handle] = self
        widget.graph = self
        return widget

    def _forget_widget(self) -> None:
        """The widget is gone, whoever has deleted it."""
        _shown.pop(self._handle, None)
        self._handle = 0
        widget, self._toolkit_widget = self._toolkit_widget, None
        if widget is not None:
            self._toolkit.invalidate(widget)

    # -- End ------------------------------------------------------------------------------------

    @property
    def closed(self) -> bool:
        """Whether the graph has ended."""
        return not self._handle

    def close(self) -> None:
        """Ends the graph and its widget. Again has no effect."""
        if not self._handle:
            return
        if self._toolkit_widget is None:
            self._finalizer()
            self._handle = 0
            return
        handle = self._handle
        lib.release("kurv_destroy", handle)
        self._forget_widget()

    def __enter__(self) -> "KurvGraph":
        return self

    def __exit__(self, *_: Any) -> None:
        self.close()

    def __repr__(self) -> str:
        if self.closed:
            return "<kurvgraph.KurvGraph, closed>"
        kind = "pixels" if self._toolkit_widget is None else "widget"
        return f"<kurvgraph.KurvGraph, {kind}>"


for _name, _attribute in make_members().items():
    setattr(KurvGraph, _name, _attribute)


@atexit.register
def _stop_events() -> None:
    """The toolkit may delete widgets after the interpreter has ended."""
    for graph in list(_shown.values()):
        lib.release("kurv_detach", graph._handle)


def render(path: Path, x: Any, y: Any, *, size: Tuple[int, int] = (720, 480), ratio: float = 1.0,
           **options: Any) -> None:
    """Draws a picture into a file, without a window: x, y and options as those of
    KurvGraph.plot()."""
    with KurvGraph(size, ratio) as graph:
        graph.plot(x, y, **options)
        graph.save(path)
