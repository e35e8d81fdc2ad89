"""The data that plot() takes: values of x, and curves with names."""

from __future__ import annotations

from typing import Any, List, Mapping, NamedTuple, Optional, Sequence

from ._errors import new_error
from ._values import is_array, numbers_of

MOST_POINTS = 32767
MOST_CURVES = 149


class Curves(NamedTuple):
    x: Any
    y: Any  # an array with a row for each curve, or a list of arrays and buffers
    x_name: str
    names: List[str]


def _listed(values: Any, what: str) -> Any:
    """Something with a length."""
    is_list = hasattr(values, "__iter__") and getattr(values, "ndim", 1) > 0
    if isinstance(values, (str, bytes)) or not is_list:
        raise TypeError(f"{what} has to be a list or an array of numbers, not "
                        f"{type(values).__name__}")
    return values if hasattr(values, "__len__") else list(values)


def _own_name(values: Any) -> str:
    """The name of a Series, or nothing."""
    name = getattr(values, "name", None)
    return name if isinstance(name, str) else ""


def _is_table(y: Any) -> bool:
    """Whether this is a DataFrame: columns with names."""
    return hasattr(y, "columns") and hasattr(y, "__getitem__")


def has_names(y: Any) -> bool:
    """Whether the curves are given by their names."""
    return isinstance(y, Mapping) or _is_table(y)


def _is_one_curve(y: Any) -> bool:
    """Whether these are the values of one curve, not of several."""
    if is_array(y):
        return y.ndim == 1 if hasattr(y, "ndim") else True
    return not any(hasattr(value, "__len__") and not isinstance(value, (str, bytes)) for value in y)


def _default_names(y: Any) -> List[str]:
    if len(y) == 1:
        return [_own_name(y[0]) or "y"]
    return [_own_name(curve) or f"y{number}" for number, curve in enumerate(y, 1)]


def _checked_names(names: Any, curves: int) -> List[str]:
    if isinstance(names, str):
        raise TypeError("names has to be a list of texts")
    if len(names) != curves:
        raise ValueError(f"{len(names)} names for {curves} curves")
    return list(names)


def _check_lengths(data: Curves, transposed: str) -> None:
    """`transposed` is what to write where the rows of y are the points, not the curves."""
    points = len(data.x)
    lengths = [len(curve) for curve in data.y]
    for name, length in zip(data.names, lengths):
        if length != points:
            are_points = transposed and len(lengths) == points and len(set(lengths)) == 1
            advice = f"; each row is a curve, so pass {transposed}" if are_points else ""
            raise ValueError(f"the curve {name!r} has {length} values for {points} values of x"
                             f"{advice}")


def read_curves(x: Any, y: Any, names: Optional[Sequence[str]] = None,
                x_name: Optional[str] = None) -> Curves:
    """What plot() takes, with names and checked lengths."""
    transposed = "" if has_names(y) else "y.T" if is_array(y) else "list(zip(*y))"
    x_name = x_name if x_name is not None else _own_name(x) or "x"
    if _is_table(y):
        y = {name: y[name] for name in y.columns}
    if isinstance(y, Mapping):
        names = [str(name) for name in y] if names is None else names
        y = list(y.values())
    y = _listed(y, "y")
    if _is_one_curve(y) and len(y):
        y = [y]
    names = _checked_names(_default_names(y) if names is None else names, len(y))
    if is_array(y):
        y = numbers_of(y, "y", 2)
    else:
        y = [numbers_of(curve, f"the curve {name!r}") for curve, name in zip(y, names)]
        if len(y) == 1 and is_array(y[0]):
            y = y[0][None, :]  # of an array no copy is made
    data = Curves(numbers_of(_listed(x, "x"), "x"), y, x_name, names)
    _check_lengths(data, transposed)
    return data


def check_counts(data: Curves) -> None:
    """For an intake, which refuses what a graph does not hold."""
    if len(data.x) > MOST_POINTS:
        raise new_error(6, "Overflow",
                        f"{len(data.x)} points; a graph has at most {MOST_POINTS}")
    if len(data.y) > MOST_CURVES:
        raise new_error(9, "Subscript out of range",
                        f"{len(data.y)} curves; a graph has at most {MOST_CURVES}")


def in_order(data: Curves, names: Sequence[str]) -> Curves:
    """The curves in the order of these names, where they have the same ones."""
    if sorted(names) != sorted(data.names) or len(set(names)) != len(names):
        return data
    order = [data.names.index(name) for name in names]
    return data._replace(y=[data.y[place] for place in order], names=list(names))
