"""Checks the pages that docs/make-api makes of the public headers: api_test.py SOURCE_DIR"""

import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(sys.argv.pop(1))

# What loses its comment in one of the tests: a header, a declaration in it, and its name.
GAPS = [
    ("KurvGraph.h", "Q_INVOKABLE void file_load(", "file_load"),
    ("KurvGraph.h", "explicit KurvGraph(QWidget", "KurvGraph(QWidget"),
    ("KurvGraph.h", "void redrawn();", "redrawn"),
    ("kurv_graph_plot.h", "bool markers = false;", "markers"),
    ("automation.h", "struct Member {", "kurv::Member"),
    ("automation.h", "using EventListener", "EventListener"),
    ("fault.h", "kOverflow = 6,", "kOverflow"),
    ("limits.h", "kMaxCurves = 149", "kMaxCurves"),
    ("shell.h", "enum class Answer {", "Answer"),
    ("shell.h", "virtual void beep() = 0;", "beep"),
    ("kurvgraph_c.h", "int32_t kurv_destroy(", "kurv_destroy"),
    ("kurvgraph_c.h", "#define KURV_IN_USE 1", "KURV_IN_USE"),
    ("kurvgraph_c.h", "KURV_METHOD = 1,", "KURV_METHOD"),
    ("kurvgraph_c_values.h", "ptrdiff_t column_stride;", "column_stride"),
]


def make_pages(tree, folder):
    return subprocess.run([tree / "docs/make-api", folder], text=True, capture_output=True)


def without_comment(text, declaration):
    """The header without the comment above the declaration and behind it."""
    lines = text.split("\n")
    at = next(i for i, line in enumerate(lines) if declaration in line)
    lines[at] = re.sub(r"\s*///<.*", "", lines[at])
    begin = at
    while lines[begin - 1].strip().startswith("///"):
        begin -= 1
    return "\n".join(lines[:begin] + lines[at:])


class Pages(unittest.TestCase):
    """All of them read the pages of the project, which are made once."""

    @classmethod
    def setUpClass(cls):
        cls.work = tempfile.TemporaryDirectory()
        cls.folder = Path(cls.work.name) / "api"
        cls.made = make_pages(SOURCE, cls.folder)
        cls.pages = {path.name: path.read_text() for path in cls.folder.glob("*.html")}

    @classmethod
    def tearDownClass(cls):
        cls.work.cleanup()

    def test_are_made_without_a_warning(self):
        self.assertEqual(self.made.returncode, 0, self.made.stderr)
        self.assertEqual(self.made.stderr, f"Made {self.folder}/index.html\n")

    def test_link_to_pages_and_pictures_that_exist(self):
        dead = set()
        for name, text in self.pages.items():
            for link in re.findall(r'(?:href|src)="([^"#]+)', text):
                if not re.match("https?:|javascript:", link) and not (self.folder / link).exists():
                    dead.add(f"{name}: {link}")
        self.assertEqual(dead, set())

    def test_begin_with_the_widget_the_control_c_and_every_guide(self):
        guides = re.findall(r"docs/(\w+-?\w*)\.md", (SOURCE / "docs/api/Doxyfile").read_text())
        self.assertGreater(len(guides), 8)
        links = set(re.findall(r'href="(\w+)\.html', self.pages["index.html"]))
        wanted = {"classkurv_1_1KurvGraph", "classkurv_1_1Control", "kurvgraph__c_8h"}
        wanted |= {f"md_docs_{guide.replace('-', '_')}" for guide in guides}
        self.assertEqual(wanted - links, set())

    def test_have_each_example_with_links_to_what_it_calls(self):
        for example in (SOURCE / "examples").glob("*/main.cpp"):
            page = f"{example.parent.name}_2main_8cpp-example.html"
            self.assertTrue(page in self.pages["examples.html"], page)
            self.assertTrue('href="classkurv' in self.pages[page], page)

    def test_describe_the_getter_and_the_setter_of_each_property(self):
        rows = (SOURCE / "include/KurvGraph/property_list.h").read_text()
        names = re.findall(r"\bX\((\w+), 0x", rows)
        self.assertGreater(len(names), 30)
        for page in ("classkurv_1_1Control.html", "classkurv_1_1KurvGraph.html"):
            described = set(re.findall(r"<(?:a|b)[^>]*>(\w+)</(?:a|b)> \(", self.pages[page]))
            self.assertEqual({*names, *(f"set_{name}" for name in names)} - described, set())

    def test_contain_no_path_of_the_machine(self):
        for name, text in self.pages.items():
            self.assertFalse(str(SOURCE) in text, name)


class Gaps(unittest.TestCase):
    def test_are_named(self):
        with tempfile.TemporaryDirectory() as work:
            tree = Path(work)
            for folder in ("docs", "examples", "include", "tools"):
                shutil.copytree(SOURCE / folder, tree / folder)
            for header, declaration, _ in GAPS:
                path = tree / "include/KurvGraph" / header
                path.write_text(without_comment(path.read_text(), declaration))
            made = make_pages(tree, tree / "api")
            self.assertEqual(made.returncode, 1)
            for header, _, name in GAPS:
                self.assertRegex(made.stderr, rf"{header}:\d+: .*{re.escape(name)}")


if __name__ == "__main__":
    unittest.main()
