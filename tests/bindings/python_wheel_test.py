"""The wheel that pip makes of the Python module."""

import base64
import hashlib
import importlib
import os
import subprocess
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path
from unittest import mock

FOLDER = Path(__file__).parents[2] / "bindings" / "python"

sys.path.insert(0, str(FOLDER))
backend = importlib.import_module("wheel_builder")


class Wheel(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.name = backend.build_wheel(folder.name)
        cls.path = cls.folder / cls.name

    def test_works_where_it_is_unpacked_without_a_path_to_the_library(self):
        with zipfile.ZipFile(self.path) as wheel:
            wheel.extractall(self.folder / "site")
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("KURVGRAPH_LIBRARY", "LD_LIBRARY_PATH", "PYTHONPATH")}
        script = ("import sys, importlib.metadata; sys.path.insert(0, 'site'); import kurvgraph; "
                  "kurvgraph.render('picture.png', [1, 2], [3, 4]); print(kurvgraph.LIBRARY_PATH); "
                  "print(importlib.metadata.version('kurvgraph'))")
        result = subprocess.run([sys.executable, "-B", "-c", script], cwd=self.folder, check=True,
                                env=environment, capture_output=True, text=True)
        path, version = result.stdout.split()
        self.assertEqual(Path(path).name, "libkurvgraph.so")
        self.assertEqual(Path(path).parent.name, "kurvgraph")
        self.assertEqual(version, backend.VERSION)
        self.assertTrue((self.folder / "picture.png").exists())

    def test_the_record_is_right(self):
        with zipfile.ZipFile(self.path) as wheel:
            (record,) = [name for name in wheel.namelist() if name.endswith("/RECORD")]
            lines = wheel.read(record).decode().split()
            self.assertEqual(sorted(line.split(",")[0] for line in lines), sorted(wheel.namelist()))
            for line in lines:
                name, digest, size = line.split(",")
                if name == record:
                    self.assertEqual(digest + size, "")
                    continue
                data = wheel.read(name)
                expected = base64.urlsafe_b64encode(hashlib.sha256(data).digest()).decode()
                self.assertEqual(digest, "sha256=" + expected.rstrip("="))
                self.assertEqual(int(size), len(data))

    def test_the_metadata_are_those_that_were_prepared(self):
        prepared = self.folder / "prepared"
        prepared.mkdir()
        self.assertEqual(backend.prepare_metadata_for_build_wheel(str(prepared)), backend.DIST_INFO)
        with zipfile.ZipFile(self.path) as wheel:
            for path in (prepared / backend.DIST_INFO).iterdir():
                self.assertEqual(path.read_bytes(), wheel.read(f"{backend.DIST_INFO}/{path.name}"))

    def test_the_tag_is_in_the_name(self):
        tag = self.name[:-len(".whl")].split("-", 2)[2]
        with zipfile.ZipFile(self.path) as wheel:
            description = wheel.read(f"{backend.DIST_INFO}/WHEEL").decode()
        self.assertIn(f"Tag: {tag}\n", description)
        self.assertTrue(tag.startswith("py3-none-linux"))


class Refusals(unittest.TestCase):
    def refusal(self, **environment):
        with tempfile.TemporaryDirectory() as folder, mock.patch.dict(os.environ, environment):
            with self.assertRaises(SystemExit) as caught:
                backend.build_wheel(folder)
            self.assertEqual(os.listdir(folder), [])
        return str(caught.exception)

    def test_without_the_library(self):
        self.assertIn("/nowhere, which is not there", self.refusal(KURVGRAPH_LIBRARY="/nowhere"))

    def test_without_cmake(self):
        self.assertIn("cmake is missing", self.refusal(KURVGRAPH_LIBRARY="", PATH="/nowhere"))

    def test_outside_of_the_source_tree(self):
        with mock.patch.object(backend, "SOURCE", Path("/nowhere")):
            self.assertIn("/nowhere is none", self.refusal(KURVGRAPH_LIBRARY=""))


class Environment(unittest.TestCase):
    def test_the_script_says_what_it_takes(self):
        for arguments in ([], ["--help"], ["one", "two"]):
            result = subprocess.run([FOLDER / "make-venv", *arguments], capture_output=True, text=True)
            self.assertEqual((result.returncode, result.stdout), (2, ""))
            self.assertIn("make-venv FOLDER", result.stderr)


if __name__ == "__main__":
    unittest.main()
