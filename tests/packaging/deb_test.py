"""Tests of the Debian packages that cpack makes of a build: what is in them and what they depend on,
and that what they hold runs from a folder into which they are unpacked.

deb_test.py --source DIR --build DIR --work DIR --cmake CMAKE --compiler "CXX FLAGS"
"""

import argparse
import gzip
import os
import re
import shlex
import shutil
from pathlib import Path

from packaging_test import check_picture, expect, run

NAMES = ("kurv", "libkurvgraph-dev", "libkurvgraph1", "python3-kurvgraph")

settings = None


def make_packages():
    """The files of the packages, by the packages' names."""
    folder = settings.work / "packages"
    shutil.rmtree(settings.work, ignore_errors=True)
    cpack = Path(settings.cmake).with_name("cpack")
    run(cpack, "-G", "DEB", "-B", folder, "-D", "CPACK_DEBIAN_COMPRESSION_TYPE=gzip",
        cwd=settings.build)
    files = {path.name.split("_")[0]: path for path in folder.glob("*.deb")}
    expect(tuple(sorted(files)) == NAMES, f"the packages are {sorted(files)}")
    return files


def fields(package):
    text = re.sub(r"\n ", " ", run("dpkg-deb", "-f", package))
    return dict(re.findall(r"^([\w-]+): *(.*)$", text, re.MULTILINE))


def check_fields(packages):
    project = (settings.source / "CMakeLists.txt").read_text()
    version = re.search(r"project\(KurvGraph VERSION (\S+)", project)[1]
    changes = (settings.source / "packaging/debian/changelog").read_text()
    expect(changes.startswith(f"kurvgraph ({version}-1) "), "changelog names another version")
    control = {name: fields(path) for name, path in packages.items()}
    for name, values in control.items():
        expect(values["Package"] == name, f"{packages[name]} is {values['Package']}")
        expect(values["Version"] == f"{version}-1", f"{name} has the version {values['Version']}")
        expect(values["Source"] == "kurvgraph", f"{name} comes from {values['Source']}")
        expect("<kurvgraph@localhost>" in values["Maintainer"], f"{name} has no maintainer")
        expect(len(values["Description"]) > 60, f"{name} is not described")
    same = f"libkurvgraph1 (= {version}-1)"
    expected = {"kurv": ("libqt6widgets6", "libzip4", "libc6"),
                "libkurvgraph1": ("libqt6widgets6", "libfreetype6", "libc6"),
                "libkurvgraph-dev": (same, "qt6-base-dev (>= 6.4)"),
                "python3-kurvgraph": (same, "python3:any (>= 3.9)")}
    if has_designer():
        expected["libkurvgraph-dev"] += ("libqt6designer6",)
    for name, packages_needed in expected.items():
        depends = control[name]["Depends"].split(", ")
        for needed in packages_needed:
            expect(any(item.startswith(needed) for item in depends),
                   f"{name} does not depend on {needed}, but on {depends}")
        own = [item for item in depends if "kurv" in item]
        expect(set(own) <= {same}, f"{name} depends on {own}")
    sections = {name: values["Section"] for name, values in control.items()}
    expect(sections == {"kurv": "science", "libkurvgraph-dev": "libdevel",
                        "libkurvgraph1": "libs", "python3-kurvgraph": "python"},
           f"the sections are {sections}")
    architectures = {name: values["Architecture"] for name, values in control.items()}
    expect(architectures.pop("python3-kurvgraph") == "all", "the module for Python is not for all")
    own = run("dpkg", "--print-architecture").strip()
    expect(set(architectures.values()) == {own}, f"the architectures are {architectures}")


def has_designer():
    return bool(list(settings.build.glob("qt/designer/plugins/designer/*.so")))


def check_control_files(packages):
    for name, package in packages.items():
        folder = settings.work / "control" / name
        folder.parent.mkdir(exist_ok=True)
        run("dpkg-deb", "-e", package, folder)
        files = {path.name for path in folder.iterdir()} - {"control", "md5sums"}
        expected = {"libkurvgraph1": {"postinst", "postrm", "shlibs", "triggers"},
                    "python3-kurvgraph": {"postinst", "prerm"}}.get(name, set())
        expect(files == expected, f"{name} has the control files {files}")
        for script in files & {"postinst", "postrm", "prerm"}:
            run("sh", "-n", folder / script)
            expect(os.access(folder / script, os.X_OK), f"{name}'s {script} cannot be executed")
    shlibs = (settings.work / "control/libkurvgraph1/shlibs").read_text().split("\n")
    named = {f"lib/{line.split()[0]}.so.{line.split()[1]}" for line in shlibs if line}
    libraries = {f"lib/{path.name}" for path in unpacked("libkurvgraph1").rglob("*.so.1")}
    expect(named == libraries, f"shlibs names {named}, the package has {libraries}")


def unpacked(name):
    return settings.work / "root" / name


def files_of(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*")
            if path.is_symlink() or path.is_file()}


def check_contents(packages):
    """All that is installed is in one of the packages, and they have nothing but that and what Debian
    wants."""
    added = {}
    for name, package in packages.items():
        unpacked(name).mkdir(parents=True)
        run("dpkg-deb", "-x", package, unpacked(name))
        listed = run("dpkg-deb", "-c", package)
        expect(all(" root/root " in line for line in listed.splitlines()), f"{name} is not root's")
        for line in listed.splitlines():
            expect(line[:10] in ("drwxr-xr-x", "-rw-r--r--", "lrwxrwxrwx") or "./usr/bin/kurv" in line,
                   f"{name} has the permissions {line}")
        files = {path.removeprefix("usr/") for path in files_of(unpacked(name))}
        documents = {f"share/doc/{name}/{file}"
                     for file in ("copyright", "changelog.gz", "changelog.Debian.gz")}
        expect(documents <= files, f"{name} lacks one of {documents}")
        added[name] = files - documents
    python = added.pop("python3-kurvgraph")
    names = [file.removeprefix("lib/python3/dist-packages/") for file in python]
    module = settings.source / "bindings/python/kurvgraph"
    sources = {f"kurvgraph/{path.name}" for path in module.iterdir() if path.is_file()}
    expect({name for name in names if "dist-info" not in name} == sources, f"the module is {names}")

    first = settings.work / "installed"
    run(settings.cmake, "--install", settings.build, "--prefix", first)
    installed = {file for file in files_of(first) if not file.startswith("share/doc/KurvGraph/")}
    installed.remove("share/man/man1/kurv.1")
    installed.add("share/man/man1/kurv.1.gz")
    packed = [file for files in added.values() for file in files]
    expect(sorted(packed) == sorted(installed),
           f"in no package or in two: {set(installed) ^ set(packed)}")
    check_division(added)


def check_division(files):
    for file in files["libkurvgraph1"]:
        expect(re.fullmatch(r"lib/[\w-]+/libkurvgraph[\w-]*\.so\.[\d.]+", file), f"{file} in libs")
    for file in files["libkurvgraph-dev"]:
        expect(re.search(r"^include/|\.(cmake|pc|so)$", file), f"{file} in dev")
    expect(all("libkurvgraph" not in file and "include/" not in file for file in files["kurv"]),
           "kurv has a part of the library")


def check_files(packages):
    manual = gzip.decompress((unpacked("kurv") / "usr/share/man/man1/kurv.1.gz").read_bytes())
    expected = settings.source / "packaging/command_line/kurv.1"
    expect(manual == expected.read_bytes(), "the manual page is another one")
    licence = (settings.source / "LICENSE").read_text().split("\n\n", 2)[2]
    for name in packages:
        text = (unpacked(name) / f"usr/share/doc/{name}/copyright").read_text()
        text = text.split("License: Expat\n")[-1].replace("\n .\n", "\n\n").replace("\n ", "\n")
        expect(text[1:] == licence, f"the licence of {name} is not that of LICENSE")
        for path in unpacked(name).rglob("*"):
            if path.suffix in (".cmake", ".pc"):
                for folder in (settings.source, settings.work):
                    expect(f"{folder}/" not in path.read_text(), f"{path} names the folder {folder}")
    binaries = [path for path in unpacked("libkurvgraph1").rglob("*.so.*") if not path.is_symlink()]
    for path in binaries + [unpacked("kurv") / "usr/bin/kurv"]:
        expect(", stripped" in run("file", path), f"{path.name} is not stripped")


def check_programs():
    """From a folder into which all of them are unpacked."""
    root = settings.work / "root/all"
    for name in NAMES:
        shutil.copytree(unpacked(name), root, symlinks=True, dirs_exist_ok=True)
    libraries = next(root.glob("usr/lib/*/libkurvgraph.so.1")).parent
    env = dict(os.environ, LD_LIBRARY_PATH=str(libraries),
               PYTHONPATH=str(root / "usr/lib/python3/dist-packages"), PYTHONDONTWRITEBYTECODE="1")
    env.pop("KURVGRAPH_LIBRARY", None)
    table = settings.work / "table.csv"
    table.write_text("x,y\n1,2\n2,4\n3,3\n")
    picture = settings.work / "table.png"
    run(root / "usr/bin/kurv", "render", table, "-o", picture)
    expect(picture.read_bytes().startswith(b"\x89PNG"), "kurv writes no picture")
    for library in libraries.glob("libkurvgraph*.so"):
        expect(library.resolve().exists(), f"{library.name} leads nowhere")
        expect("not found" not in run("ldd", library), f"{library.name} lacks a library")
    script = ("import importlib.metadata, kurvgraph; "
              "assert importlib.metadata.version('kurvgraph') == kurvgraph.__version__; "
              f"kurvgraph.render({str(settings.work / 'python.png')!r}, [1, 2], [3, 4])")
    run("python3", "-c", script, env=env)
    expect((settings.work / "python.png").read_bytes().startswith(b"\x89PNG"), "Python draws none")
    check_host(root, libraries, env)


def check_host(root, libraries, env):
    """Compiled as pkg-config says."""
    page = (settings.source / "docs/embedding.md").read_text()
    source = settings.work / "core.cpp"
    source.write_text(re.search(r"^```cpp core.cpp\n(.*?)^```$", page, re.M | re.S)[1])
    env = dict(env, PKG_CONFIG_PATH=str(libraries / "pkgconfig"))
    flags = run("pkg-config", "--cflags", "--libs", "kurvgraph-core", env=env).split()
    expect(any(flag.startswith(f"-I{root}") for flag in flags), f"the flags are {flags}")
    run(*settings.compiler, "-std=c++20", source, "-o", settings.work / "core", *flags, env=env)
    check_picture(settings.work / "core", env=env)


def main():
    global settings
    parser = argparse.ArgumentParser()
    for path in ("source", "build", "work"):
        parser.add_argument(f"--{path}", type=Path)
    parser.add_argument("--cmake")
    parser.add_argument("--compiler", type=shlex.split)
    settings = parser.parse_args()
    packages = make_packages()
    check_fields(packages)
    check_contents(packages)
    check_control_files(packages)
    check_files(packages)
    check_programs()
    # Some dozens of megabytes that nobody needs.
    shutil.rmtree(settings.work)


if __name__ == "__main__":
    main()
