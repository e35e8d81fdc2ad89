"""Compares what a shared library exports with what its public headers declare as KURV_EXPORT."""

import re
import subprocess

# What the compiler makes for a class besides its members.
PREFIXES = ("typeinfo name for ", "typeinfo for ", "vtable for ", "VTT for ",
            "non-virtual thunk to ", "virtual thunk to ")

# Every member is inline, so a library has their type information alone, and only where it uses them.
HEADER_ONLY = {"HeadlessContainer", "HeadlessShell"}


def exported(library):
    """The demangled symbols that the library defines."""
    listing = subprocess.run(["nm", "--dynamic", "--demangle", "--defined-only", str(library)],
                             capture_output=True, text=True, check=True).stdout
    return [line.split(maxsplit=2)[2] for line in listing.splitlines()]


def foreign_names(archive):
    """The external names of its objects that are not in namespace kurv, do not begin like the functions
    for C and do not contain the library's name."""
    listing = subprocess.run(["nm", "--demangle", "--defined-only", "--extern-only", str(archive)],
                             capture_output=True, text=True, check=True).stdout
    strong = re.findall(r"^[0-9a-f]+ [TDBRC] (.+)$", listing, re.MULTILINE)
    return [name for name in strong if not name_of(name).startswith(("kurv::", "kurv_"))
            and "kurvgraph" not in name]


def declared(headers):
    """The names of the classes and functions that the headers export."""
    pattern = r"^(?:class KURV_EXPORT (\w+)|(?:\[\[nodiscard\]\] )?KURV_EXPORT [^(;]*?(\w+)\()"
    names = set()
    for header in sorted(headers.glob("*.h")):
        for found in re.findall(pattern, header.read_text(), re.MULTILINE):
            names.update(found)
    return names - {""}


def name_of(symbol):
    """Without what precedes and follows the qualified name: "kurv::Control::show"."""
    for prefix in PREFIXES:
        symbol = symbol.removeprefix(prefix)
    return re.sub(r"[(\[].*", "", symbol)


def read(library, headers):
    """The declared names that the library exports, and the symbols that belong to none."""
    names = declared(headers)
    found = set()
    foreign = []
    for symbol in exported(library):
        parts = name_of(symbol).split("::")
        if parts[0] == "kurv" and len(parts) <= 3 and parts[1] in names:
            found.add(parts[1])
        elif symbol.startswith("kurv_") and symbol in names:
            found.add(symbol)
        else:
            foreign.append(symbol)
    return found, foreign
