"""The shared library: where it is, its structures and its functions."""

from __future__ import annotations

import ctypes
import ctypes.util
import os
from ctypes import (CFUNCTYPE, POINTER, Structure, Union, byref, c_char_p, c_double, c_float, c_int16,
                    c_int32, c_int64, c_size_t, c_ssize_t, c_uint32, c_void_p, sizeof)
from pathlib import Path
from typing import Any, Iterator, List, NamedTuple

from ._errors import new_error

MISSING, INTEGER, BOOLEAN, SINGLE, DOUBLE, STRING = range(6)
DOUBLES, MATRIX, STRINGS, BOOLEANS, VARIANT = range(6, 11)
METHOD, PROPERTY, EVENT = 1, 2, 3
RGBA8 = 2
DESTROYED = 0x7F000003

# The library with the widget, then the one without.
_NAMES = ("libkurvgraph.so", "libkurvgraph.so.1", "libkurvgraph-core.so", "libkurvgraph-core.so.1")


class Text(Structure):
    _fields_ = [("bytes", c_void_p), ("length", c_size_t)]

    def __str__(self) -> str:
        return decode(ctypes.string_at(self.bytes, self.length)) if self.bytes else ""


class _Array(Structure):
    _fields_ = [("data", c_void_p), ("count", c_size_t)]


class _Matrix(Structure):
    _fields_ = [("data", c_void_p), ("columns", c_size_t), ("points", c_size_t),
                ("column_stride", c_ssize_t), ("point_stride", c_ssize_t)]


class _Content(Union):
    _fields_ = [("integer", c_int16), ("boolean", c_int16), ("single", c_float),
                ("number", c_double), ("text", Text), ("array", _Array), ("matrix", _Matrix),
                ("space", c_int64 * 7)]


class Value(Structure):
    _anonymous_ = ("content",)
    _fields_ = [("type", c_int32), ("lower", c_int32), ("lower_point", c_int32),
                ("reserved", c_int32), ("owner", c_void_p), ("content", _Content)]


class _Sized(Structure):
    """A structure that begins with its size."""

    def __init__(self) -> None:
        super().__init__(sizeof(self))


class _ErrorRecord(_Sized):
    _fields_ = [("size", c_size_t), ("number", c_int32), ("text", Text), ("detail", Text)]


class _MemberRecord(_Sized):
    _fields_ = [("size", c_size_t), ("name", c_char_p), ("dispatch_id", c_uint32),
                ("kind", c_int32), ("type", c_int32), ("parameter_count", c_size_t),
                ("summary", c_char_p), ("initially", c_char_p), ("unit", c_char_p)]


class _ParameterRecord(_Sized):
    _fields_ = [("size", c_size_t), ("name", c_char_p), ("type", c_int32), ("optional", c_int32)]


class Pixels(_Sized):
    _fields_ = [("size", c_size_t), ("pixels", c_void_p), ("width", c_int32), ("height", c_int32),
                ("stride", c_int64), ("format", c_int32)]


class EventRecord(Structure):
    _fields_ = [("size", c_size_t), ("name", c_char_p), ("id", c_uint32),
                ("arguments", POINTER(Value)), ("count", c_size_t)]


Listener = CFUNCTYPE(None, c_void_p, POINTER(EventRecord), c_void_p)


class Parameter(NamedTuple):
    name: str
    type: int
    optional: bool


class Member(NamedTuple):
    name: str
    dispatch_id: int
    kind: int
    type: int
    summary: str
    initially: str
    unit: str
    parameters: List[Parameter]


def encode(text: str) -> bytes:
    """As the library takes texts. Bytes of paths that are not UTF-8 go both ways unchanged."""
    return text.encode("utf-8", "surrogateescape")


def decode(text: bytes) -> str:
    return text.decode("utf-8", "surrogateescape")


def _candidates() -> Iterator[str]:
    for name in _NAMES:
        path = Path(__file__).with_name(name)
        if path.exists():
            yield str(path)
    chosen = os.environ.get("KURVGRAPH_LIBRARY")
    if chosen:
        # A choice that does not work is an error, not a reason to take another library.
        folder = Path(chosen)
        found = [str(folder / name) for name in _NAMES if (folder / name).exists()]
        yield found[0] if found else chosen
        return
    yield from _NAMES


def _load() -> tuple[ctypes.CDLL, str]:
    reasons = []
    for path in _candidates():
        try:
            library = ctypes.CDLL(path)
            library.kurv_version  # noqa: B018  another library of this name has no such function
            return library, path
        except (OSError, AttributeError) as error:
            reasons.append(str(error))
    raise ImportError("The library libkurvgraph.so cannot be loaded. Install the module with pip, which "
                      "builds it, or set KURVGRAPH_LIBRARY to it or to its folder. "
                      f"({'; '.join(reasons)})")


_library, LIBRARY_PATH = _load()
HAS_WIDGET = hasattr(_library, "kurv_create_widget")


def _declare(name: str, *arguments: Any) -> None:
    function = getattr(_library, name)
    function.argtypes = arguments
    function.restype = c_int32


_declare("kurv_version")
_declare("kurv_last_error", POINTER(_ErrorRecord))
_declare("kurv_create_pixels", c_int32, c_int32, c_double, POINTER(c_void_p))
_declare("kurv_destroy", c_void_p)
_declare("kurv_detach", c_void_p)
_declare("kurv_member_at", c_size_t, POINTER(_MemberRecord))
_declare("kurv_parameter_at", c_size_t, c_size_t, POINTER(_ParameterRecord))
_declare("kurv_get_by_id", c_void_p, c_uint32, POINTER(Value))
_declare("kurv_let_by_id", c_void_p, c_uint32, POINTER(Value))
_declare("kurv_call_by_id", c_void_p, c_uint32, POINTER(Value), c_size_t)
_declare("kurv_add_function", c_void_p, c_char_p)
_declare("kurv_derive", c_void_p, c_char_p, c_char_p)
_declare("kurv_append_points", c_void_p, POINTER(Value))
_declare("kurv_replace_points", c_void_p, POINTER(Value), POINTER(Value))
_declare("kurv_get_pixels", c_void_p, POINTER(Pixels))
_declare("kurv_copy_pixels", c_void_p, c_int32, c_void_p, c_size_t)
_declare("kurv_save_png", c_void_p, c_char_p)
_declare("kurv_save_graph", c_void_p, c_char_p)
_declare("kurv_resize", c_void_p, c_int32, c_int32, c_double)
_declare("kurv_listen", c_void_p, Listener, c_void_p)
_declare("kurv_press_mouse", c_void_p, c_int16, c_int16, c_float, c_float)
_declare("kurv_release_mouse", c_void_p, c_int16, c_int16, c_float, c_float)
if HAS_WIDGET:
    _declare("kurv_create_widget", c_void_p, POINTER(c_void_p), POINTER(c_void_p))
_library.kurv_member_count.restype = c_size_t
_library.kurv_living.restype = c_size_t
_library.kurv_value_clear.restype = None
_library.kurv_value_clear.argtypes = [POINTER(Value)]


def call(name: str, *arguments: Any) -> None:
    """Calls a function of the library, and raises its error."""
    number = getattr(_library, name)(*arguments)
    if number == 0:
        return
    record = _ErrorRecord()
    _library.kurv_last_error(byref(record))
    raise new_error(number, str(record.text), str(record.detail))


def release(name: str, handle: int) -> None:
    """kurv_destroy() or kurv_detach(), also of what is gone already."""
    getattr(_library, name)(handle)


def clear(value: Value) -> None:
    _library.kurv_value_clear(byref(value))


def living() -> int:
    """The number of graphs in this process."""
    return _library.kurv_living()


def library_version() -> str:
    """The version of the library, such as "1.0.0"."""
    version = _library.kurv_version()
    return f"{version // 10000}.{version // 100 % 100}.{version % 100}"


def _parameter(member: int, index: int) -> Parameter:
    record = _ParameterRecord()
    call("kurv_parameter_at", member, index, byref(record))
    return Parameter(decode(record.name), record.type, bool(record.optional))


def members() -> Iterator[Member]:
    """The rows of the member table: methods, properties, events."""
    for index in range(_library.kurv_member_count()):
        record = _MemberRecord()
        call("kurv_member_at", index, byref(record))
        parameters = [_parameter(index, i) for i in range(record.parameter_count)]
        yield Member(decode(record.name), record.dispatch_id, record.kind, record.type,
                     decode(record.summary), decode(record.initially), decode(record.unit),
                     parameters)
