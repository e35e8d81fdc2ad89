"""Lists of the pages are those of the program and the sources:  lists_test.py SOURCE KURV"""

import json
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.append(str(Path(__file__).parents[1] / "support"))
import pages  # noqa: E402

SOURCE, KURV = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
# Of the commands that draw: their own, which are not about what is drawn.
OTHER_OPTIONS = {"--help", "--output", "--version", "--follow", "--check"}


def read(path):
    return (SOURCE / path).read_text()


def rows(page, heading, first_column):
    return pages.table(pages.section(SOURCE, page, heading), first_column)


def spans(page, heading, first_column, column=0):
    """The code spans in one column of a table, without what follows a blank, "=" or "("."""
    return [re.split(r"[ =(]", span)[0] for row in rows(page, heading, first_column)
            for span in pages.code_spans(row[column])]


def source_rows(path, name, row=r'\{"(\w*)"'):
    """The first texts of the rows of a table in the sources."""
    table = re.search(rf"{name}\[\] = \{{\n(.*?)^ *\}};", read(path), re.MULTILINE | re.DOTALL)[1]
    return re.findall(row, table)


def help_of(*command):
    return subprocess.run([KURV, *command, "--help"], check=True, capture_output=True, text=True).stdout


def options_of(*command):
    return set(re.findall(r"(?:^  (?:-\w,)?|,)(--[\w-]+)", help_of(*command), re.MULTILINE)) - OTHER_OPTIONS


class CommandLine(unittest.TestCase):
    def test_commands(self):
        listed = {span.split()[1] for row in pages.table(
            [line for _, line in pages.prose(SOURCE, "docs/kurv.md")], "Command")
            for span in pages.code_spans(row[0])[:1] if re.match(r"kurv [a-z]", span)}
        text = help_of().split("Subcommands:\n")[1].split("\n\n")[0]
        self.assertEqual(listed, set(re.findall(r"^  (\w+)", text, re.MULTILINE)))

    def test_options(self):
        drawing = set(spans("docs/kurv.md", "What is drawn", "Option"))
        tables = set(spans("docs/tables.md", "Options", "Option"))
        self.assertEqual(drawing | tables, options_of("render"))
        self.assertEqual(options_of("render") - options_of("convert"), {"--scale", "--format"})
        self.assertEqual(options_of(), options_of("convert"))
        self.assertLessEqual(tables, options_of("info"))

    def test_defaults(self):
        """What the page says is used without an option is in parentheses at the end of its help."""
        text = " ".join(help_of("render").split())
        count = 0
        for option, _, default in rows("docs/kurv.md", "What is drawn", "Option"):
            name = re.escape(pages.code_spans(option)[0].split()[0])
            said = re.search(rf"{name}\b(?:(?! --).)*? \(([\w.]+)\)(?= -|$)", text)
            if said and re.fullmatch(r"`?[\w.]+`?", default):
                count += 1
                self.assertEqual(default.strip("`"), said[1], option)
        self.assertGreaterEqual(count, 4)

    def test_exit_status(self):
        listed = [row[0] for row in rows("docs/kurv.md", "Exit status", "Status")]
        manual = read("packaging/command_line/kurv.1").split(".SH EXIT STATUS\n")[1].split(".SH")[0]
        self.assertEqual(re.findall(r"^\.TP\n(\d+)$", manual, re.MULTILINE), listed)
        with tempfile.TemporaryDirectory() as folder:
            runs = {"0": [["eval", "1+1"]],
                    "1": [["eval", "1+"], ["info", "nosuch.csv"], ["info", "--check", "broken.gdf"],
                          ["info", "words.csv"], ["render", "table.csv", "-o", "nosuch/a.png"]],
                    "2": [["render"], ["eval", "--nosuch"], ["render", "table.csv", "-o", "a.jpg"],
                          ["render", "table.csv", "-o", "a.svg", "--scale", "2"],
                          ["info", "--x", "1", "broken.gdf"]]}
            Path(folder, "broken.gdf").write_text("QXPLOT/V500//\n")
            Path(folder, "words.csv").write_text("a,b\nc,d\n")
            Path(folder, "table.csv").write_text("x,y\n1,2\n2,4\n")
            self.assertEqual(sorted(runs), listed)
            for status, commands in runs.items():
                for command in commands:
                    ended = subprocess.run([KURV, *command], cwd=folder, capture_output=True, text=True)
                    self.assertEqual(str(ended.returncode), status, f"{command}: {ended.stderr}")
                    if status != "0" and "--check" not in command:
                        self.assertEqual(ended.stderr.count("\n"), 1, f"{command}: {ended.stderr}")


class Widget(unittest.TestCase):
    def test_signals(self):
        header = read("include/KurvGraph/KurvGraph.h").split(" Q_SIGNALS:\n")[1].split(" protected:")[0]
        declared = re.findall(r"^  void (\w+)\(", header, re.MULTILINE)
        self.assertEqual(spans("docs/widget.md", "Signals", "Signal"), declared)

    def test_toolbar_and_commands(self):
        buttons = source_rows("qt/widget/toolbar.cpp", "kEntries")
        words = source_rows("control/commands.cpp", "kCommands")
        listed = [span.removeprefix("tbrGraph.")
                  for span in spans("docs/widget.md", "Toolbar and commands", "Button")]
        self.assertEqual(sorted(listed), sorted(buttons))
        self.assertEqual(spans("docs/widget.md", "Toolbar and commands", "Button", 1), listed)
        text = "\n".join(pages.section(SOURCE, "docs/widget.md", "Toolbar and commands"))
        for word in words:
            self.assertIn(f"`{word}`", text)


class Host(unittest.TestCase):
    def test_requests(self):
        requests = re.search(r"kRequests\[\] = \{\n(.*?)^  \};", read("app/host/host_session.cpp"),
                             re.MULTILINE | re.DOTALL)[1]
        keys = {word: re.findall(r'"(\w+)"', others)
                for word, others in re.findall(r'\{\{"(\w+)", \{(.*?)\}\}', requests)}
        listed = [re.match(r'\{"(\w+)"', pages.code_spans(row[0])[0])[1]
                  for row in rows("docs/host.md", "Requests", "Request")]
        self.assertEqual(sorted(listed), sorted(keys))
        page = read("docs/host.md")
        for others in keys.values():
            for key in others:
                self.assertIn(f'"{key}"', page)

    def test_an_unknown_request_is_refused_by_its_name(self):
        """So that the names above are those that are taken."""
        names = [re.match(r'\{"(\w+)"', pages.code_spans(row[0])[0])[1]
                 for row in rows("docs/host.md", "Requests", "Request")]
        lines = "".join(f'{{"{name}x":1}}\n' for name in names)
        ended = subprocess.run([KURV, "host"], input=lines, capture_output=True, text=True)
        for name, line in zip(names, ended.stdout.splitlines(), strict=True):
            self.assertIn(f"did you mean '{name}'?", json.loads(line)["error"]["detail"])

    def test_error_numbers(self):
        kinds = re.search(r"enum class FaultKind.*?\};", read("include/KurvGraph/fault.h"), re.DOTALL)[0]
        listed = [row[0] for row in rows("docs/host.md", "Answers", "Number")]
        self.assertEqual(listed, re.findall(r"= (\d+),", kinds))


class Expressions(unittest.TestCase):
    def test_functions(self):
        listed = spans("docs/expressions.md", "Functions and constants", "Function")
        self.assertEqual(sorted(listed), sorted(source_rows("expr/functions.cpp", "kFunctions")))

    def test_errors(self):
        """Each sentence of the table is what kurv eval says of its text."""
        count = 0
        for text, sentence in rows("docs/expressions.md", "Errors", "Text"):
            if not pages.code_spans(text):
                continue
            count += 1
            ended = subprocess.run([KURV, "eval", "--", pages.code_spans(text)[0], "x=1", "a=1"],
                                   capture_output=True, text=True)
            self.assertIn(sentence.replace("\\*", "*"), ended.stderr)
        self.assertGreater(count, 12)


class Building(unittest.TestCase):
    def test_options(self):
        listed = set(spans("docs/building.md", "Without the scripts", "Option"))
        declared = set(re.findall(r"option\((\w+) ", read("CMakeLists.txt")))
        self.assertEqual(declared - listed, {"KURV_FUZZ"}, "only the preset for fuzzers sets that")
        self.assertEqual(listed - declared, {"CMAKE_UNITY_BUILD"})

    def test_presets(self):
        listed = set(spans("CONTRIBUTING.md", "Setting up and testing", "Preset"))
        presets = json.loads(read("CMakePresets.json"))["configurePresets"]
        self.assertEqual(listed, {preset["name"] for preset in presets if not preset.get("hidden")})

    @staticmethod
    def packages_of(page):
        """Those that the commands of a page install."""
        texts = [block.text.replace("\\\n", " ") for block in pages.blocks(SOURCE, page)]
        return [re.search(r"apt-get install --no-install-recommends (.*)", text)[1].split()
                for text in texts if "apt-get install --no" in text]

    @staticmethod
    def packages_in_setup(name):
        return re.search(rf"^{name}=\((.*?)\)", read("tools/setup"), re.MULTILINE | re.DOTALL)[1].split()

    def test_packages(self):
        """The commands for doing it by hand install what the scripts do."""
        self.assertEqual(self.packages_of("docs/building.md"), [self.packages_in_setup("kurv_packages")])
        [designer] = self.packages_of("docs/designer.md")
        self.assertLessEqual(set(designer), set(self.packages_in_setup("kurv_deb_packages")))
        self.assertLessEqual(set(designer), set(self.packages_in_setup("kurv_test_packages")))

    def test_generator(self):
        """What the pages have built is built by the generator that CMake takes by itself, which needs make."""
        configured = [line for page in pages.pages(SOURCE) for block in pages.blocks(SOURCE, page)
                      for line in block.text.splitlines() if re.match(r"cmake -S (?!.* -G )", line)]
        self.assertTrue(configured)
        packages = re.search(r"^kurv_packages=\((.*?)^\)", read("tools/setup"), re.MULTILINE | re.DOTALL)[1]
        self.assertIn("make", packages.split())
        for row in rows("docs/building.md", "On other distributions", ""):
            if row[0] == "To build":
                for listed in row[1:]:
                    self.assertIn("make", listed.strip("`").split())

    def test_limits_of_the_first_page(self):
        limits = read("include/KurvGraph/limits.h")
        self.assertIn("kMaxCurves = 149;", limits)
        self.assertIn("kMaxFunctions = 30;", limits)
        self.assertIn("up to 149 curves of 32,767 points, and thirty functions", read("README.md"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
