"""What `pip install` calls to make a wheel of the module, with the library in it. It needs nothing
from a package index, only what the library needs to be built."""

import base64
import hashlib
import os
import re
import shutil
import subprocess
import sysconfig
import zipfile
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
SOURCE = FOLDER.parents[1]
MODULE = FOLDER / "kurvgraph"

NAME = "kurvgraph"
VERSION = re.search(r'^__version__ = "(.+)"', (MODULE / "__init__.py").read_text(), re.M).group(1)
DIST_INFO = f"{NAME}-{VERSION}.dist-info"
TAG = "py3-none-" + re.sub(r"[-.]", "_", sysconfig.get_platform())

METADATA = f"""\
Metadata-Version: 2.1
Name: {NAME}
Version: {VERSION}
Summary: A two-dimensional graph: curves, functions, legend and titles, in pictures and in windows
License: MIT
Requires-Python: >=3.9
Provides-Extra: arrays
Requires-Dist: numpy; extra == "arrays"
Description-Content-Type: text/markdown

{(FOLDER / "README.md").read_text()}"""
WHEEL = f"""\
Wheel-Version: 1.0
Generator: {Path(__file__).name}
Root-Is-Purelib: false
Tag: {TAG}
"""


def _build() -> Path:
    """Builds the library with the widget."""
    if not (SOURCE / "CMakePresets.json").exists():
        raise SystemExit(f"The library is built from its source tree, and {SOURCE} is none. "
                         "KURVGRAPH_LIBRARY can name one that is built already.")
    for tool in ("cmake", "ninja"):
        if not shutil.which(tool):
            raise SystemExit(f"{tool} is missing. bindings/python/make-venv installs what is needed "
                             "on Debian and Ubuntu; docs/building.md names the packages of others.")
    configure = ["cmake", "--preset", "release"]
    if shutil.which("ccache"):
        configure.append("-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
    subprocess.run(configure, cwd=SOURCE, check=True)
    subprocess.run(["cmake", "--build", "--preset", "release", "--target", "kurvgraph"], cwd=SOURCE,
                   check=True)
    return SOURCE / "build" / "release" / "libkurvgraph.so"


def _library() -> Path:
    """The library to put into the wheel: the one in KURVGRAPH_LIBRARY, a file or its folder, or else
    a new one."""
    chosen = os.environ.get("KURVGRAPH_LIBRARY")
    if not chosen:
        return _build()
    path = Path(chosen)
    if path.is_dir():
        path /= "libkurvgraph.so"
    if not path.is_file():
        raise SystemExit(f"KURVGRAPH_LIBRARY names {path}, which is not there.")
    return path


def _name_in_wheel(library: Path) -> str:
    """Without a version, so that the module finds it."""
    return library.name.partition(".so")[0] + ".so"


def _digest(data: bytes) -> str:
    digest = base64.urlsafe_b64encode(hashlib.sha256(data).digest())
    return digest.rstrip(b"=").decode()


def _dist_info() -> dict:
    return {f"{DIST_INFO}/METADATA": METADATA.encode(),
            f"{DIST_INFO}/WHEEL": WHEEL.encode(),
            f"{DIST_INFO}/LICENSE": (SOURCE / "LICENSE").read_bytes()}


def get_requires_for_build_wheel(config_settings=None):
    return []


def prepare_metadata_for_build_wheel(metadata_directory, config_settings=None):
    """Without it pip builds a wheel to find out what is in it."""
    for name, data in _dist_info().items():
        path = Path(metadata_directory) / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(data)
    return DIST_INFO


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    """Writes the wheel and returns its name."""
    library = _library()
    files = {f"{NAME}/{path.name}": path.read_bytes()
             for path in sorted(MODULE.iterdir()) if path.suffix == ".py" or path.name == "py.typed"}
    files[f"{NAME}/{_name_in_wheel(library)}"] = library.read_bytes()
    files.update(_dist_info())
    record = [f"{name},sha256={_digest(data)},{len(data)}" for name, data in files.items()]
    record.append(f"{DIST_INFO}/RECORD,,")
    files[f"{DIST_INFO}/RECORD"] = "\n".join([*record, ""]).encode()
    wheel = f"{NAME}-{VERSION}-{TAG}.whl"
    with zipfile.ZipFile(Path(wheel_directory) / wheel, "w", zipfile.ZIP_DEFLATED) as pack:
        for name, data in files.items():
            pack.writestr(name, data)
    return wheel


def build_sdist(sdist_directory, config_settings=None):
    raise SystemExit("The module is built in the source tree of the library: make a wheel.")
