"""The members of a graph, made from the library's member table."""

from __future__ import annotations

import inspect
from typing import Any, Callable, Dict, List, Optional

from . import _library as lib
from ._events import NOTICES, attribute_name
from ._errors import ArgumentError

_TYPES = {
    lib.INTEGER: "int, 16 bits", lib.BOOLEAN: "bool", lib.SINGLE: "float, single precision",
    lib.DOUBLE: "float", lib.STRING: "str", lib.DOUBLES: "list or array of float",
    lib.MATRIX: "lists or array of float, by column and point", lib.STRINGS: "list of str",
    lib.BOOLEANS: "list of bool", lib.VARIANT: "any",
}


def _property(member: lib.Member) -> property:
    def get(graph: Any) -> Any:
        return graph._get(member)

    def let(graph: Any, value: Any) -> None:
        graph._let(member, value)

    lines = [member.summary, "", f"Type: {_TYPES[member.type]}"]
    if member.unit:
        lines.append(f"Unit: {member.unit}")
    if member.initially:
        lines.append(f"Initially: {member.initially}")
    return property(get, let, doc="\n".join(lines))


def _signature(member: lib.Member) -> inspect.Signature:
    kind = inspect.Parameter.POSITIONAL_OR_KEYWORD
    parameters = [inspect.Parameter("self", inspect.Parameter.POSITIONAL_ONLY)]
    for row in member.parameters:
        default = None if row.optional else inspect.Parameter.empty
        parameters.append(inspect.Parameter(row.name, kind, default=default))
    return inspect.Signature(parameters)


def _method(member: lib.Member) -> Callable[..., None]:
    signature = _signature(member)

    def method(*arguments: Any, **named: Any) -> None:
        try:
            bound = signature.bind(*arguments, **named)
        except TypeError as error:
            number = 450 if "unexpected" in str(error) or "too many" in str(error) else 449
            raise ArgumentError(number, f"{member.name}() {error}") from None
        bound.apply_defaults()
        graph, *values = bound.arguments.values()
        graph._call(member, values)

    lines = [member.summary]
    if member.parameters:
        lines.append("")
        lines += [f"{row.name}: {_TYPES[row.type]}{' (optional)' if row.optional else ''}"
                  for row in member.parameters]
    method.__name__ = member.name
    method.__qualname__ = f"KurvGraph.{member.name}"
    method.__doc__ = "\n".join(lines)
    method.__signature__ = signature  # type: ignore[attr-defined]
    return method


def _event(name: str, doc: str, parameters: List[lib.Parameter]) -> property:
    def get(graph: Any) -> Optional[Callable[..., Any]]:
        return graph._listener.functions.get(name)

    def let(graph: Any, function: Optional[Callable[..., Any]]) -> None:
        if function is None:
            graph._listener.functions.pop(name, None)
        elif callable(function):
            graph._listener.functions[name] = function
        else:
            raise TypeError(f"{attribute_name(name)} takes a function or None")

    if parameters:
        doc += "\n\nCalled with: " + ", ".join(row.name for row in parameters)
    return property(get, let, doc=doc)


def make_members() -> Dict[str, Any]:
    """Attributes of the class: properties, methods and events."""
    attributes: Dict[str, Any] = {}
    for member in lib.members():
        if member.kind == lib.PROPERTY:
            attributes[member.name] = _property(member)
        elif member.kind == lib.METHOD:
            attributes[member.name] = _method(member)
        else:
            attributes[attribute_name(member.name)] = _event(member.name, member.summary,
                                                             member.parameters)
    for name, doc in NOTICES.items():
        attributes[attribute_name(name)] = _event(name, doc, [])
    return attributes
