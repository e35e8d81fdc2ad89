#!/usr/bin/env python3
"""Prints a file as Doxygen should read it: doxygen_filter.py FILE

Of control.h and KurvGraph.h, KURV_PROPERTIES() becomes the getters and setters that it declares, each with
the summary of its row in property_list.h, because comments in a macro are lost. In a guide, links to headers
and examples become links to the pages that Doxygen makes of them, pictures have names without folders, and
links to what is no page here become plain text. Lines keep their numbers.
"""

import re
import sys
from pathlib import Path

TOOLKIT_TYPES = {"Boolean": "bool", "Integer": "int", "Single": "double", "Double": "double",
                 "String": "QString"}
ROW = re.compile(r'X\((\w+),\s*0x\w+,\s*(\w+),\s*(\w+),\s*"([^"]*)",\s*"([^"]*)",\s*"([^"]*)"\)')
LINK = r"\[([^\]]*)\]\(\.\./"


def rows(folder):
    """The rows of the table: name, type, rule, initial value, unit, summary."""
    text = (folder / "property_list.h").read_text("utf-8")
    table = text[text.index("#define KURV_PROPERTIES(X)"):].replace("\\\n", "\n")
    found = ROW.findall(table)
    if len(found) != len(re.findall(r"\bX\(\w+,", table)):
        sys.exit("doxygen_filter.py: a row of property_list.h has another form")
    return found


def declarations(folder, types):
    """The getter and the setter of each row, with a comment each."""
    parts = []
    for name, kind, rule, initially, unit, summary in rows(folder):
        value = types.get(kind, kind)
        argument = f"const {value}&" if kind == "String" else value
        unit = f" In {unit}." if unit else ""
        range_ = " Ignores values outside of kurv::kMinMarkerSize..kurv::kMaxMarkerSize." \
            if rule == "kMarkerRange" else ""
        parts.append(f"/** {summary}{unit} Initially {initially}. */ {value} {name}() const; "
                     f"/** Sets {name}() and does not redraw.{range_} */ "
                     f"void set_{name}({argument} value);")
    return " ".join(parts)


def header(path):
    text = path.read_text("utf-8")
    text = text.replace("KURV_PROPERTIES(KURV_QT_PROPERTY)\n", "\n")
    for macro, types in (("KURV_QT_DECLARE", TOOLKIT_TYPES), ("KURV_DECLARE", {})):
        line = f"KURV_PROPERTIES({macro})\n"
        if line in text:
            text = text.replace(line, declarations(path.parent, types) + "\n")
    return text


def guide(path):
    text = path.read_text("utf-8")
    text = re.sub(LINK + r"include/KurvGraph/(\w+)\.h\)",
                  lambda link: f'<a href="{link[2].replace("_", "__")}_8h.html">{link[1]}</a>', text)
    text = re.sub(LINK + r"examples/(\w+)/main\.cpp\)",
                  r'<a href="\2_2main_8cpp-example.html">\1</a>', text)
    text = re.sub(LINK + r"[^)]*\)", r"\1", text)
    text = re.sub(r"\]\(pictures/(\w+/)*", "](", text)
    return re.sub(r"\[([^\]]*)\]\(([\w-]+\.md)(#[^)]*)?\)",
                  lambda link: link[0] if link[2] in guides() else link[1], text)


def guides():
    """The guides that become pages."""
    settings = Path(__file__).with_name("Doxyfile").read_text("utf-8")
    return re.findall(r"\bdocs/([\w-]+\.md)", settings)


def main():
    path = Path(sys.argv[1])
    sys.stdout.reconfigure(encoding="utf-8")
    sys.stdout.write(guide(path) if path.suffix == ".md" else header(path))


if __name__ == "__main__":
    main()
