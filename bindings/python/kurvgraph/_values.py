"""Python values as values of the library, and back."""

from __future__ import annotations

import array
import ctypes
import datetime
import numbers
import reprlib
from typing import Any, List, Sequence, Tuple

from . import _library as lib
from ._errors import InvalidCall, TypeMismatch, mismatch

# A value, and what must live as long as it is used.
Encoded = Tuple[lib.Value, Any]

_HIGHEST_INTEGER = 32767


def _new(kind: int) -> lib.Value:
    return lib.Value(type=kind, lower=1, lower_point=1)


def is_array(value: Any) -> bool:
    """Whether NumPy makes an array of it without a loop; then NumPy is there."""
    return hasattr(value, "__array_interface__") or hasattr(value, "__array__")


def _described(dtype: Any) -> str:
    """What an array holds instead of numbers."""
    if dtype.kind in "mM":
        return (f"{dtype} is not a number; subtract a time and divide by a unit, such as "
                "(t - t.min()) / numpy.timedelta64(1, 'h')")
    return f"an array of {dtype} instead of numbers"


def _float_array(value: Any) -> Any:
    import numpy

    found = numpy.asarray(value)
    if isinstance(value, numpy.ma.MaskedArray) and found.dtype.kind in "biuf":
        return value.astype(numpy.float64).filled(numpy.nan)
    if found.dtype.kind in "OUS":
        return _floats_of_objects(found)
    if found.dtype.kind not in "biuf":
        raise mismatch(_described(found.dtype))
    return numpy.asarray(found, dtype=numpy.float64)


def _floats_of_objects(found: Any) -> Any:
    import numpy

    if found.dtype == object:
        try:
            return numpy.asarray(found, dtype=numpy.float64)
        except (TypeError, ValueError):
            pass  # the loop finds out which of them it is, and knows more kinds of missing values
    return numpy.array(_numbers(found.ravel().tolist())).reshape(found.shape)


def _scalar(value: Any) -> Encoded:
    if value is None:
        return _new(lib.MISSING), None
    if isinstance(value, str):
        data = lib.encode(value)
        result = _new(lib.STRING)
        result.text = lib.Text(ctypes.cast(ctypes.c_char_p(data), ctypes.c_void_p), len(data))
        return result, data
    if isinstance(value, bool) or type(value).__name__ in ("bool_", "bool"):
        result = _new(lib.BOOLEAN)
        result.boolean = -1 if value else 0
        return result, None
    if isinstance(value, numbers.Integral) and -_HIGHEST_INTEGER - 1 <= value <= _HIGHEST_INTEGER:
        result = _new(lib.INTEGER)
        result.integer = int(value)
        return result, None
    if isinstance(value, numbers.Real):
        result = _new(lib.DOUBLE)
        result.number = float(value)
        return result, None
    raise mismatch(f"{type(value).__name__} is no number, text or truth value")


def _items(value: Any) -> Sequence[Any]:
    if isinstance(value, (str, bytes, dict)):
        raise mismatch(f"{type(value).__name__} instead of a list")
    try:
        return value if isinstance(value, (list, tuple)) else list(value)
    except TypeError:
        raise mismatch(f"{type(value).__name__} instead of a list") from None


def _number(value: Any) -> float:
    if value is None or type(value).__name__ == "NAType":  # pandas.NA
        return float("nan")
    if isinstance(value, (str, bytes)):
        raise TypeError
    return float(value)


def _not_a_number(item: Any, index: int) -> str:
    if isinstance(item, (datetime.date, datetime.timedelta)):
        return (f"a {type(item).__name__} at index {index} is not a number; subtract a time and "
                "divide by a unit, such as (t - first) / datetime.timedelta(hours=1)")
    is_short = isinstance(item, (str, bytes, complex))
    shown = reprlib.repr(item) if is_short else f"a {type(item).__name__}"
    return f"{shown} at index {index} is not a number"


def _numbers(items: Sequence[Any]) -> List[float]:
    """One by one, to say which of them is no number."""
    found = []
    for index, item in enumerate(items):
        try:
            found.append(_number(item))
        except (TypeError, ValueError):
            raise mismatch(_not_a_number(item, index)) from None
    return found


def _double_buffer(value: Any) -> Tuple[int, int, Any]:
    """Address, count and owner of numbers that follow each other in memory."""
    if is_array(value):
        import numpy

        found = numpy.ascontiguousarray(_float_array(value))
        if found.ndim != 1:
            raise mismatch(f"an array of {found.ndim} dimensions instead of one")
        return found.ctypes.data, found.size, found
    if isinstance(value, array.array) and value.typecode == "d":
        address, count = value.buffer_info()
        return address, count, value
    if isinstance(value, ctypes.Array) and value._type_ is ctypes.c_double:
        return ctypes.addressof(value), len(value), value
    items = _items(value)
    buffer = (ctypes.c_double * len(items))()
    try:
        buffer[:] = items  # without a loop in Python where all are numbers
    except TypeError:
        buffer[:] = _numbers(items)
    return ctypes.addressof(buffer), len(items), buffer


def numbers_of(value: Any, what: str, dimensions: int = 1) -> Any:
    """Numbers as an array or a buffer, which is encoded without another conversion. An error names
    `what` they are."""
    try:
        if not is_array(value):
            return _double_buffer(value)[2]
        found = _float_array(value)
        if found.ndim != dimensions:
            raise mismatch(f"an array of {found.ndim} dimensions instead of {dimensions}")
        return found
    except TypeMismatch as error:
        raise mismatch(f"{what}: {error.detail}") from None


def _doubles(value: Any) -> Encoded:
    address, count, owner = _double_buffer(value)
    result = _new(lib.DOUBLES)
    result.array.data = address
    result.array.count = count
    return result, owner


def _matrix_of(address: int, columns: int, points: int, column_stride: int,
               point_stride: int) -> lib.Value:
    result = _new(lib.MATRIX)
    matrix = result.matrix
    matrix.data, matrix.columns, matrix.points = address, columns, points
    matrix.column_stride, matrix.point_stride = column_stride, point_stride
    return result


def _array_matrix(value: Any) -> Encoded:
    """Any strides are passed on, so a transposed array or a slice is not copied."""
    import numpy

    found = _float_array(value)
    if found.ndim == 1:
        found = found[numpy.newaxis, :]
    if found.ndim != 2:
        raise mismatch(f"an array of {found.ndim} dimensions instead of two")
    if not found.flags.aligned or any(stride % 8 for stride in found.strides):
        found = numpy.ascontiguousarray(found)
    columns, points = found.shape
    strides = [stride // 8 for stride in found.strides]
    return _matrix_of(found.ctypes.data, columns, points, *strides), found


def _matrix(value: Any) -> Encoded:
    if is_array(value):
        return _array_matrix(value)
    columns = [_double_buffer(column) for column in _items(value)]
    points = columns[0][1] if columns else 0
    if any(count != points for _, count, _ in columns):
        raise InvalidCall(5, "Invalid procedure call or argument", "columns of different lengths")
    buffer = (ctypes.c_double * (len(columns) * points))()
    for index, (address, count, _) in enumerate(columns):
        ctypes.memmove(ctypes.addressof(buffer) + index * points * 8, address, count * 8)
    return _matrix_of(ctypes.addressof(buffer), len(columns), points, points, 1), buffer


def _strings(value: Any) -> Encoded:
    texts = []
    for item in _items(value):
        if not isinstance(item, str):
            raise mismatch(f"{type(item).__name__} among texts")
        texts.append(lib.encode(item))
    buffer = (lib.Text * len(texts))()
    for target, data in zip(buffer, texts):
        target.bytes = ctypes.cast(ctypes.c_char_p(data), ctypes.c_void_p)
        target.length = len(data)
    result = _new(lib.STRINGS)
    result.array.data = ctypes.addressof(buffer)
    result.array.count = len(texts)
    return result, (buffer, texts)


def _booleans(value: Any) -> Encoded:
    items = _items(value)
    if any(isinstance(item, str) for item in items):
        raise mismatch("a text among truth values")
    buffer = (ctypes.c_int16 * len(items))(*[-1 if item else 0 for item in items])
    result = _new(lib.BOOLEANS)
    result.array.data = ctypes.addressof(buffer)
    result.array.count = len(items)
    return result, buffer


_ENCODERS = {lib.DOUBLES: _doubles, lib.MATRIX: _matrix, lib.STRINGS: _strings,
             lib.BOOLEANS: _booleans}


def encoded(value: Any, wanted: int) -> Encoded:
    """A value for a parameter or a property of that type. None is an omitted argument."""
    return _ENCODERS.get(wanted, _scalar)(value) if value is not None else _scalar(None)


def _shortest(number: float) -> float:
    """A number of single precision with its own shortest digits: 8.1, not 8.100000381469727."""
    for digits in range(6, 10):
        short = float(f"{number:.{digits}g}")
        if ctypes.c_float(short).value == number:
            return short
    return number


def _list_of(value: lib.Value, kind: Any) -> List[Any]:
    count = value.array.count
    return list((kind * count).from_address(value.array.data)) if count else []


def decoded(value: lib.Value) -> Any:
    """The Python value; the library's own may be cleared afterwards."""
    if value.type == lib.INTEGER:
        return value.integer
    if value.type == lib.BOOLEAN:
        return value.boolean != 0
    if value.type == lib.SINGLE:
        return _shortest(value.single)
    if value.type == lib.DOUBLE:
        return value.number
    if value.type == lib.STRING:
        return str(value.text)
    if value.type == lib.DOUBLES:
        return _list_of(value, ctypes.c_double)
    if value.type == lib.BOOLEANS:
        return [bits != 0 for bits in _list_of(value, ctypes.c_int16)]
    if value.type == lib.STRINGS:
        return [str(text) for text in _list_of(value, lib.Text)]
    return None
