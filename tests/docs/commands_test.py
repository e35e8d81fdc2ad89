"""Runs every command of the pages:  commands_test.py SOURCE BUILD

The pages are taken apart by tests/support/pages.py. A command is a line of an indented block, a block
that is marked "sh" or "console", or a code span such as `tools/check --tidy`. It runs in a copy of the
project in which everything is built already, with the sample files below. A window counts as open when
its program still runs after a while. What cannot run here is in ELSEWHERE, with what runs it or why
nothing does. A command or a block that nothing here knows is a failure.
"""

import json
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

sys.path.append(str(Path(__file__).parents[1] / "support"))
import pages  # noqa: E402

SOURCE, BUILD = (Path(argument).resolve() for argument in sys.argv[1:3])

# The files that commands read, in the folder of each page and in that of the project.
TABLE = "time,up,down\n0,1.0,6.1\n1,1.8,5.2\n2,3.1,4.4\n3,4.9,2.9\n4,5.6,2.2\n"
SAMPLES = {"measurements.csv": TABLE, "log.csv": TABLE, "table.csv": TABLE,
           "YOUR_SCRIPT.py": "import kurvgraph\nkurvgraph.KurvGraph().close()\n",
           "measure": "#!/bin/sh\nprintf 'time,up\\n0,1\\n1,2\\n2,4\\n'\n"}
SAMPLE_GRAPH = "squares.gdf"

# Commands that may run in the copy; any other one is a failure and does not run.
RUNS_HERE = re.compile(r"([A-Z_]+=\S+ )*(kurv|kurv_\w+|\./run|\./measure|\./draw_all\.sh|\./graph\.(py|sh)"
                       r"|python3|~/graphs/bin/python|seq|build/dev/tests/\S+)( |$)")
# Commands that show a window until the user closes it.
WINDOWS = {"./run measurements.csv", "kurv measurements.csv", "kurv squares.gdf", "kurv_live",
           "kurv_minimal", "kurv_own_menus", "python3 window.py", "./measure | kurv --follow -",
           "kurv --follow log.csv", "~/graphs/bin/python examples/python_window/window.py"}
SECONDS_OF_A_WINDOW = 3

# Blocks that others run or compare: by page, or by page and language.
TESTED_BLOCKS = {
    ("README.md", "cpp"): "tests/examples/examples_test.cpp",
    ("README.md", "python"): "tests/bindings/pages_test.py",
    ("bindings/python/README.md", "python"): "tests/bindings/pages_test.py",
    ("docs/python.md", "python"): "tests/bindings/pages_test.py",
    ("docs/c.md", "c"): "tests/bindings/pages_test.py",
    ("docs/gallery.md", ""): "tests/docs/pictures_test.sh",
    ("docs/designer.md", "cmake"): "tests/packaging/packaging_test.py",
    ("docs/designer.md", "cpp"): "tests/packaging/packaging_test.py",
    ("docs/tutorial.md", None): "tests/packaging/tutorial.py",
}
# Files that are in docs/embedding.md, as tests/packaging takes them from there.
EMBEDDING_FILES = (r"(widget|core)\.cpp|vcpkg\.json|conanfile\.txt"
                   r"|(find_package|add_subdirectory|FetchContent)/(widget|core)/CMakeLists\.txt"
                   r"|pkg-config/(widget|core)/build\.sh")

# Commands that do not run here: what they match, and what runs them instead or why nothing does.
ELSEWHERE = {
    r"\./test( -R \w+)?|UPDATE_GOLDENS=1 \./test": "this test is one of those that it runs",
    r"cmake --preset \w+( && cmake --build --preset \w+( --target \w+)?( && ctest --preset \w+)?)?":
        "a whole build; its preset and target are looked up",
    r"cmake --build --preset \w+ --target \w+": "a whole build; its preset and target are looked up",
    r"ctest --preset \w+ -R '\^\w+\$'": "this test may be run by it; preset and test are looked up",
    r"cmake -S \. -B build( -DKURV_TESTS=OFF)?|cmake --build (build|--preset release)": "a whole build",
    r"cmake -S \. -B build -DCMAKE_PREFIX_PATH=/opt/kurvgraph": "tests/packaging builds the programs of the page",
    r"(sudo )?cmake --install build(/release)?( --prefix /opt/kurvgraph)?":
        "tests/packaging installs into a folder of its own",
    r"cmake -S examples/minimal -B out && cmake --build out": "a whole build",
    r"sudo (ldconfig|update-mime-database /usr/local/share/mime)": "root alone may",
    r"sudo apt-get install --no-install-recommends .*":
        "root alone may; lists_test.py compares the packages with tools/setup",
    r"sudo apt-get install cmake g\+\+ make pkgconf": "root alone may; packaging/check-debian installs them",
    r"sudo apt-get (install|purge) (\./build/packages|kurv ).*|sudo xargs rm < build/release/install_manifest\.txt":
        "root alone may; packaging/check-debian does it",
    r"packaging/(make-packages( && packaging/check-debian)?|make-bundle( && packaging/check-bundle)?|check-(debian|bundle))|tar -xf kurv-1\.0\.0-\S+|kurv-1\.0\.0-\w+-\w+/kurv":
        "tests/packaging/deb_test.py and bundle_test.py make them and look into them",
    r"QT_PLUGIN_PATH=\S+ /usr/lib/qt6/bin/designer": "tests/qt/designer loads the plugin",
    r"bindings/python/make-venv ~/graphs": "it would install packages; the environment is there",
    r"sudo (dnf|pacman) .*": "other distributions",
    r"pip install bindings/python": "it would install into this machine",
    r"cc -std=c99 .* kurvgraph-\w+\)": "tests/bindings/pages_test.py compiles the program",
    r"QT_QPA_PLATFORM=offscreen build/widget squares\.png|build/widget": "tests/packaging runs the program",
    r"cmake -S \. -B build --toolchain \$VCPKG_ROOT/.*": "vcpkg is not here",
    r"conan (create|install) .*|cmake --preset conan-release": "Conan is not here",
    r"tools/check( --tidy)?|tools/fuzz \w+ \d+|bench/run( --\w+)?|tools/screenshots|docs/make-(pictures|api)":
        "takes minutes, or a screen; the script and its name are looked up",
}
SPAN = re.compile(r"(kurv (render|convert|info|eval|--follow)|\./(run|test)|build/widget|tools/(check|screenshots)|tools/fuzz "
                  r"|docs/make|packaging/(make|check)-|bindings/python/make-|bench/run|cmake -|ctest|pip install \w|python3 |UPDATE_GOLDENS=1 \.|QT_QPA_PLATFORM=\w+ \.)")
PLACEHOLDER = re.compile(r"\b[A-Z]{2,}\b(?!=)|\.\.\.|^kurv \S+$|^cmake --install$|--follow( -)?$|--check$|name=value")
MAGIC = {".png": b"\x89PNG", ".bmp": b"BM", ".svg": b"<?xml", ".pdf": b"%PDF", ".gdf": b"QXPLOT/V500//"}

# A function around the lines of a page that no example has, with the names that the page presupposes.
FRAGMENT = """#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/control.h>
#include <KurvGraph/font_text_painter.h>
#include <KurvGraph/headless.h>
#include <KurvGraph/pixel_picture.h>
#include <KurvGraph/png_file.h>
#include <QAction>
#include <QLayout>
#include <QStatusBar>
#include <QUndoStack>
using namespace kurv;
void fragment({declarations}) {{
  {{
{code}
  }}
}}
"""
DECLARATIONS = {
    "docs/widget.md": "QWidget& window, std::vector<double> days, std::vector<double> heights, "
                      "std::vector<double> widths, kurv::KurvGraph* graph, QLayout* layout",
    "docs/control.md": "kurv::Control& graph",
}


def logical_lines(text):
    """The commands of a block, each with its continuation lines; comments alone are none."""
    joined = re.sub(r"\\\n\s*", "", text)
    return [line.strip() for line in joined.splitlines() if line.strip() and not line.startswith("#")]


def without_comment(command):
    return re.sub(r"\s+# .*$", "", command)


class Sandbox:
    """A copy of the project, in which what ./run builds and what the examples are is there already."""

    def __init__(self, folder):
        self.root = folder / "KurvGraph"
        self.bin = folder / "bin"
        self.home = folder / "home"
        for new in (self.root, self.bin, self.home):
            new.mkdir()
        for name in ("docs", "examples", "bindings", "tools"):
            shutil.copytree(SOURCE / name, self.root / name)
        shutil.copy(SOURCE / "run", self.root)
        # What ./run sources to install and build: nothing of that here.
        (self.root / "tools/setup").write_text(
            'cd "$(dirname "${BASH_SOURCE[0]}")/.."\nkurv_packages=()\nneed() { :; }\nbuild() { :; }\n')
        (self.root / "build").mkdir()
        for preset in ("dev", "release"):
            (self.root / "build" / preset).symlink_to(BUILD)
        # The distribution's own, which has NumPy and PyQt6.
        (self.bin / "python3").symlink_to("/usr/bin/python3")
        (self.home / "graphs/bin").mkdir(parents=True)
        (self.home / "graphs/bin/python").symlink_to("/usr/bin/python3")
        (self.bin / "kurv").symlink_to(BUILD / "app/kurv")
        for program in BUILD.glob("examples/*/kurv_*"):
            if os.access(program, os.X_OK) and program.is_file():
                (self.bin / program.name).symlink_to(program)
        self.env = {key: value for key, value in os.environ.items()
                    if key not in ("DISPLAY", "WAYLAND_DISPLAY", "KURV")}
        self.env.update(PATH=f"{self.bin}:{os.environ['PATH']}", HOME=str(self.home),
                        XDG_CONFIG_HOME=str(self.home), QT_QPA_PLATFORM="offscreen",
                        PYTHONPATH=str(self.root / "bindings/python"), PYTHONDONTWRITEBYTECODE="1",
                        KURVGRAPH_LIBRARY=str(BUILD))

    def folder_of(self, page):
        """Where the commands of a page are typed: those of the examples in their own folders."""
        return (self.root / page).parent if page.startswith("examples/") else self.root

    def add_samples(self, page):
        folder = self.folder_of(page)
        named = {} if page in ("docs/embedding.md", "docs/tutorial.md") else pages.named_files(SOURCE, page)
        for name, text in {**SAMPLES, **named}.items():
            (folder / name).write_text(text)
        (folder / "measure").chmod(0o755)
        self.run("seq 1 9 | awk '{ print $1, $1 * $1 }' | kurv_own_shell " + SAMPLE_GRAPH, folder)

    def run(self, script, folder, seconds=120, **env):
        """The exit status, or None for a command that still runs after that time, and what it says."""
        with tempfile.TemporaryFile("w+") as said:
            process = subprocess.Popen(["bash", "-euo", "pipefail", "-c", script], cwd=folder,
                                       env={**self.env, **env}, stdin=subprocess.DEVNULL, stdout=said,
                                       stderr=said, start_new_session=True)
            try:
                status = process.wait(seconds)
            except subprocess.TimeoutExpired:
                status = None
                os.killpg(process.pid, signal.SIGKILL)
                process.wait()
            said.seek(0)
            return status, said.read()


class Page:
    """The commands of one page, in one copy of the project."""

    def __init__(self, page):
        self.page = page
        self.failures = []
        self.ran = 0
        self.excused = set()

    def check(self):
        with tempfile.TemporaryDirectory() as folder:
            self.sandbox = Sandbox(Path(folder))
            self.folder = self.sandbox.folder_of(self.page)
            self.sandbox.add_samples(self.page)
            for block in pages.blocks(SOURCE, self.page):
                self.check_block(block)
            for number, line in pages.prose(SOURCE, self.page):
                for span in pages.code_spans(line):
                    if SPAN.match(span) and not PLACEHOLDER.search(span):
                        self.check_command(f"{self.page}:{number}", span)
        return self

    def fail(self, place, text):
        self.failures.append(f"{place}: {text}")

    def check_block(self, block):
        for key in ((block.page, block.language), (block.page, None)):
            if key in TESTED_BLOCKS:
                if not (SOURCE / TESTED_BLOCKS[key]).exists():
                    self.fail(block.place, f"{TESTED_BLOCKS[key]} is said to test it")
                return
        if block.page == "docs/embedding.md" and block.name:
            if not re.fullmatch(EMBEDDING_FILES, block.name):
                self.fail(block.place, f"tests/packaging does not know {block.name}")
        elif not block.is_fenced:
            for command in logical_lines(block.text):
                self.check_command(block.place, without_comment(command))
        elif block.language == "sh" and not block.name:
            self.check_command(block.place, block.text)
        elif block.language == "console":
            self.check_console(block)
        elif block.language == "json" and not block.name:
            self.check_requests(block)
        elif block.language == "python":
            self.check_python(block)
        elif block.language == "cpp" and not block.name:
            self.check_fragment(block)
        elif not (block.language == "text" or (block.language == "csv" and block.name)):
            self.fail(block.place, f"a block that no test knows, marked '{block.language}'")

    def check_command(self, place, command):
        for pattern in ELSEWHERE:
            if re.fullmatch(pattern, command):
                self.excused.add(pattern)
                self.look_up(place, command)
                return
        if not RUNS_HERE.match(command):
            self.fail(place, f"{command}\nis a command that no test knows")
            return
        self.ran += 1
        before = {path: path.stat().st_mtime_ns for path in self.sandbox.root.rglob("*") if path.is_file()}
        if command in WINDOWS:
            self.open_window(place, command)
            return
        status, said = self.sandbox.run(command, self.folder)
        if status != 0:
            self.fail(place, f"{command}\nends with {status} and says\n{said}")
        self.check_files(place, command, before)

    def open_window(self, place, command):
        status, said = self.sandbox.run(command, self.folder, SECONDS_OF_A_WINDOW, DISPLAY=":none")
        complaint = re.search(r"^kurv: .*$|Traceback", said, re.MULTILINE)
        if status is not None or complaint:
            self.fail(place, f"{command}\nshows no window; it ends with {status} and says\n{said}")

    def check_files(self, place, command, before):
        """Files that a command names exist, and what comes after -o has just been written."""
        for flag, name in re.findall(r"(-o )?([\w./]+\.\w+)\b", command):
            path = self.folder / name
            magic = MAGIC.get(path.suffix)
            if not magic or name in (SAMPLE_GRAPH, "graph.py"):
                continue
            if not path.is_file() or not path.read_bytes().startswith(magic):
                self.fail(place, f"{command}\nleaves no {path.suffix} file {name}")
            elif flag and before.get(path) == path.stat().st_mtime_ns:
                self.fail(place, f"{command}\ndoes not write {name}")

    def look_up(self, place, command):
        """The names in a command that does not run here: scripts, presets, targets, tests, fuzzers."""
        for script in re.findall(r"(?:^|\s)((?:tools|bench|docs|packaging|bindings/python)/[\w-]+|\./test)(?= |$)", command):
            if not os.access(SOURCE / script, os.X_OK):
                self.fail(place, f"{command}\nnames no script of the project")
        presets = json.loads((SOURCE / "CMakePresets.json").read_text())
        for kind, option in (("configurePresets", "cmake --preset"), ("buildPresets", "--build --preset"),
                             ("testPresets", "ctest --preset")):
            for name in re.findall(rf"{option} (\w+)(?!-)\b", command):
                if name != "conan" and name not in {preset["name"] for preset in presets[kind]}:
                    self.fail(place, f"{command}\nthere is no {name} among the {kind}")
        for target in re.findall(r"--target (\w+)", command):
            if not re.search(rf"^build {target}: ", (BUILD / "build.ninja").read_text(), re.MULTILINE):
                self.fail(place, f"{command}\nthere is no target {target}")
        for fuzzer in re.findall(r"tools/fuzz (\w+) ", command):
            if not (SOURCE / f"fuzz/{fuzzer}_fuzzer.cpp").exists():
                self.fail(place, f"{command}\nthere is no such fuzzer")

    def check_console(self, block):
        """Commands after "$ ", each followed by what it prints."""
        for part in re.split(r"^\$ ", block.text, flags=re.MULTILINE)[1:]:
            command, _, shown = part.partition("\n")
            self.ran += 1
            status, said = self.sandbox.run(command, self.folder)
            if status != 0 or said != shown:
                self.fail(block.place, f"{command}\nends with {status} and prints\n{said}")

    def check_requests(self, block):
        """Requests of the pipe, each followed by its answer, on the graph of the page's script."""
        lines = block.text.splitlines()
        script = next(other.text for other in pages.blocks(SOURCE, self.page) if other.language == "sh")
        graph = next(line for line in script.splitlines() if line.startswith('{"call"'))
        requests = "\n".join([graph, *lines[::2]])
        self.ran += len(lines[::2])
        _, said = self.sandbox.run(f"kurv host <<'REQUESTS'\n{requests}\nREQUESTS", self.folder)
        answers = [json.loads(line) for line in said.splitlines()[1:]]
        if answers != [json.loads(line) for line in lines[1::2]]:
            self.fail(block.place, f"kurv host answers\n{said}")

    def check_python(self, block):
        (self.folder / "block.py").write_text("import json, subprocess\n" + block.text)
        self.check_command(block.place, "python3 block.py")
        self.check_files(block.place, " ".join(re.findall(r'picture="(.*?)"', block.text)), {})

    def check_fragment(self, block):
        """Lines of C++: an example has all of them, or they compile; "..." is what a page leaves out."""
        examples = " ".join(" ".join(path.read_text() for path in SOURCE.glob("examples/*/main.cpp")).split())
        lines = [re.sub(r"\s*//.*", "", line) for line in block.text.splitlines()]
        pieces = [" ".join(piece.split()) for line in lines for piece in line.split("...")]
        if not all(piece in examples for piece in pieces):
            self.compile_fragment(block)

    def compile_fragment(self, block):
        program = self.folder / "fragment.cpp"
        code = re.sub(r"^#.*\n|\.\.\.", "", block.text, flags=re.MULTILINE)
        program.write_text(FRAGMENT.format(declarations=DECLARATIONS.get(self.page, ""), code=code))
        commands = json.loads((BUILD / "compile_commands.json").read_text())
        minimal = next(entry for entry in commands if entry["file"].endswith("examples/minimal/main.cpp"))
        command = re.sub(r" -o \S+ -c \S+$", f" -Wno-error -fsyntax-only {program}", minimal["command"])
        self.ran += 1
        status, said = self.sandbox.run(f"cd {minimal['directory']} && {command}", self.folder)
        if status != 0:
            self.fail(block.place, f"it does not compile, and no example has all of its lines\n{said}")


class Commands(unittest.TestCase):
    def test_they_do_what_the_pages_say(self):
        # The pages at the same time: most of it is waiting for windows.
        with ThreadPoolExecutor(4) as pool:
            checked = list(pool.map(lambda page: Page(page).check(), pages.pages(SOURCE)))
        failures = [failure for page in checked for failure in page.failures]
        self.assertFalse(failures, "\n\n".join(["", *failures]))
        self.assertGreater(sum(page.ran for page in checked), 40)
        excused = set().union(*(page.excused for page in checked))
        self.assertEqual(set(ELSEWHERE) - excused, set(), "these patterns match no command any more")

    def test_run_without_a_display_draws_a_picture(self):
        with tempfile.TemporaryDirectory() as folder:
            sandbox = Sandbox(Path(folder))
            (sandbox.root / "build/release").unlink()
            app = sandbox.root / "build/release/app"
            app.mkdir(parents=True)
            (app / "kurv").symlink_to(BUILD / "app/kurv")
            _, said = sandbox.run("./run", sandbox.root)
            picture = re.search(r"\S+\.png", said)
            self.assertTrue(picture, said)
            self.assertTrue(Path(picture[0]).read_bytes().startswith(MAGIC[".png"]))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
