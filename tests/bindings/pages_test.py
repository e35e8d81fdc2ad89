"""Runs the programs of the pages about C and Python:  pages_test.py SOURCE LIBRARY_FOLDER CC"""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.append(str(Path(__file__).parents[1] / "support"))
import pages  # noqa: E402

SOURCE, LIBRARIES, COMPILER = sys.argv[1:]


def blocks(page, language):
    return [block.text for block in pages.blocks(Path(SOURCE), page) if block.language == language]


class Pages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def run_here(self, *command):
        environment = dict(os.environ, LD_LIBRARY_PATH=LIBRARIES)
        result = subprocess.run([str(part) for part in command], cwd=self.folder, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=environment)
        self.assertEqual(result.returncode, 0, result.stdout)
        return result.stdout

    def test_the_program_in_c(self):
        program, *fragments = blocks("docs/c.md", "c")
        for number, fragment in enumerate(fragments):
            program += f"void fragment_{number}(kurv_graph graph) {{\n{fragment}}}\n"
        (self.folder / "squares.c").write_text(program)
        self.run_here(COMPILER, "-std=c99", "-Wall", "-Wextra", "-pedantic", "-Werror", "squares.c",
                      "-o", "squares", f"-I{SOURCE}/include", f"-L{LIBRARIES}",
                      "-lkurvgraph-core")
        self.run_here("./squares", "picture.png")
        picture = (self.folder / "picture.png").read_bytes()
        self.assertEqual(picture[:8], b"\x89PNG\r\n\x1a\n")

    def test_the_programs_in_python(self):
        programs = blocks("docs/python.md", "python")
        self.assertGreaterEqual(len(programs), 8)
        programs += blocks("bindings/python/README.md", "python")
        for program in programs:
            with self.subTest(program):
                program = program.replace("application.exec()", "application.processEvents()")
                self.run_here(sys.executable, "-B", "-W", "error", "-c", program)
        for name in ("squares.png", "waves.png", "line.gdf"):
            self.assertTrue((self.folder / name).exists(), name)

    def test_the_lines_of_the_readme(self):
        (program,) = blocks("README.md", "python")
        self.run_here(sys.executable, "-B", "-W", "error", "-c", program)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
