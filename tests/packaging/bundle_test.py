"""Tests of the folder that packaging/make-bundle makes: it is moved, and started through a link with an
environment that would mislead it; whatever is loaded comes from the folder, but for the C library.

bundle_test.py --source DIR --build DIR --work DIR
"""

import argparse
import os
import re
import shutil
import subprocess
import xml.etree.ElementTree as xml
from pathlib import Path

from packaging_test import expect, run

# The libraries that have to be the system's own: those of the C library.
SYSTEM = re.compile(r"(ld-linux.*|linux-vdso|lib(c|m|mvec|dl|rt|pthread|resolv|util|anl))\.so[.\d]*")

settings = None


def remove_work():
    """Files of folders that are read-only can be removed by root alone."""
    for path in settings.work.rglob("*"):
        if path.is_dir() and not path.is_symlink():
            path.chmod(0o755)
    shutil.rmtree(settings.work, ignore_errors=True)


def make_bundle():
    remove_work()
    first = settings.work / "first"
    first.parent.mkdir(parents=True)
    run(settings.source / "packaging/make-bundle", "--build", settings.build, "--into", first)
    return first.rename(settings.work / "the folder of kurv")


def binaries(folder):
    files = [path for part in ("bin", "lib", "plugins") for path in (folder / part).rglob("*")]
    return [path for path in files if path.is_file() and path.read_bytes()[:4] == b"\x7fELF"]


def check_binaries(folder):
    names = {path.name for path in binaries(folder)}
    for name in ("kurv", "libQt6Widgets.so.6", "libqxcb.so", "libqoffscreen.so", "libqsvgicon.so",
                 "libcupsprintersupport.so", "libstdc++.so.6"):
        expect(name in names, f"the folder has no {name}")
    expect(not any(SYSTEM.fullmatch(name) for name in names), "the folder has the C library")
    for path in binaries(folder):
        dynamic = run("readelf", "-d", path)
        expect(re.search(r"\(RPATH\).*\[\$ORIGIN(/\.\.)*(/lib)?\]", dynamic),
               f"{path.name} does not look into the folder")
        for line in run("ldd", path).splitlines():
            name, _, found = line.strip().partition(" => ")
            if name == "statically linked" or SYSTEM.fullmatch(name.split(" (")[0].split("/")[-1]):
                continue
            expect(found.startswith(str(folder)), f"{path.name} loads {line.strip()}")
    expect(", stripped" in run("file", folder / "bin/kurv"), "kurv is not stripped")


def check_program(folder):
    """Neither libraries nor plugins of the system are taken, not even where the environment names them."""
    for path in folder.rglob("*"):
        path.chmod(path.stat().st_mode & ~0o222)
    link = settings.work / "kurv"
    link.symlink_to(folder / "kurv")
    table = settings.work / "table.csv"
    table.write_text("x,y\n1,2\n2,4\n3,3\n")
    misleading = settings.work / "misleading"
    (misleading / "platforms").mkdir(parents=True)
    for name in ("libQt6Core.so.6", "platforms/libqoffscreen.so"):
        (misleading / name).write_text("of another version")
    env = {"PATH": os.environ["PATH"], "HOME": str(settings.work),
           "LD_LIBRARY_PATH": str(misleading), "QT_PLUGIN_PATH": str(misleading),
           "LD_DEBUG": "files"}
    picture = settings.work / "table.png"
    # Its text comes on standard error.
    loaded = run("sh", "-c", '"$0" "$@" 2>&1', link, "render", table, "-o", picture, env=env)
    expect(picture.read_bytes().startswith(b"\x89PNG"), "kurv writes no picture")
    files = set(re.findall(r"calling fini: (\S.*?) \[", loaded))
    expect(any("libqoffscreen" in file for file in files), f"only {files} are loaded")
    foreign = [file for file in files if not file.startswith(str(folder))
               and not SYSTEM.fullmatch(file.split("/")[-1])]
    expect(not foreign, f"{foreign} are not of the folder")


def check_start_script():
    """With a program in the place of kurv that prints its environment."""
    folder = settings.work / "start"
    (folder / "bin").mkdir(parents=True)
    shutil.copy(settings.source / "packaging/bundle/kurv", folder)
    (folder / "bin/kurv").write_text("#!/bin/sh\nenv\n")
    (folder / "bin/kurv").chmod(0o755)

    def started(**environment):
        printed = run(folder / "kurv", env={"PATH": os.environ["PATH"], **environment})
        return dict(line.split("=", 1) for line in printed.splitlines())

    expect(started()["FONTCONFIG_FILE"] == f"{folder}/share/fontconfig/fonts.conf", "no fonts")
    expect(started(FONTCONFIG_FILE="/own")["FONTCONFIG_FILE"] == "/own", "the user's fonts are lost")
    expect("QT_QPA_PLATFORM" not in started(DISPLAY=":0", XDG_CURRENT_DESKTOP="GNOME"), "GNOME on X")
    wayland = {"DISPLAY": ":0", "WAYLAND_DISPLAY": "wayland-0"}
    gnome = {**wayland, "XDG_CURRENT_DESKTOP": "ubuntu:GNOME"}
    expect(started(**gnome)["QT_QPA_PLATFORM"] == "xcb;wayland", "a window without title bar")
    own = started(**gnome, QT_QPA_PLATFORM="wayland", QT_LOGGING_RULES="*=true")
    expect(own["QT_QPA_PLATFORM"] == "wayland", "the user's platform is lost")
    expect(own["QT_LOGGING_RULES"] == "*=true", "the user's messages are lost")
    expect("QT_QPA_PLATFORM" not in started(**wayland, XDG_CURRENT_DESKTOP="KDE"), "KDE on Wayland")


def check_fonts(folder):
    settings_file = folder / "share/fontconfig/fonts.conf"
    element = xml.parse(settings_file).getroot().find("dir")
    expect(element.get("prefix") == "relative", "the folder of fonts is not beside the settings")
    fonts = {path.name for path in (settings_file.parent / element.text).iterdir()}
    for name in ("LiberationSans-Regular.ttf", "LiberationSans-Bold.ttf", "LiberationSerif-Regular.ttf"):
        expect(name in fonts, f"the folder has the fonts {fonts}")


def check_licences(folder):
    licences = folder / "licences"
    text = (licences / "README.txt").read_text()
    packages = re.findall(r"^(\S+) \S+, from \S+ \S+$", text, re.MULTILINE)
    files = {path.stem for path in licences.glob("*.txt")} - {"README", "kurv"}
    expect(files == set(packages), f"the list and the files differ: {files ^ set(packages)}")
    for package in ("libqt6core6", "libqt6svg6", "libfontconfig1", "libicu72", "fonts-liberation"):
        name = re.sub(r"\d+$", "", package)
        expect(any(file.startswith(name) for file in files), f"the licence of {package} is missing")
    for name in ("LGPL-3", "GPL-3", "LGPL-2.1"):
        expect((licences / "common" / name).stat().st_size > 1000, f"there is no text of the {name}")
    own = (licences / "kurv.txt").read_text()
    expect(own == (settings.source / "LICENSE").read_text(), "the program's own licence is missing")
    readme = (folder / "README.txt").read_text()
    expect("@" not in readme and "glibc 2." in readme, f"README.txt is incomplete:\n{readme}")


def check_usage():
    result = subprocess.run([settings.source / "packaging/make-bundle", "--help"],
                            capture_output=True, text=True)
    expect(result.returncode == 2 and "usage:" in result.stderr, "make-bundle --help does not help")


def main():
    global settings
    parser = argparse.ArgumentParser()
    for path in ("source", "build", "work"):
        parser.add_argument(f"--{path}", type=Path)
    settings = parser.parse_args()
    check_usage()
    folder = make_bundle()
    check_binaries(folder)
    check_fonts(folder)
    check_licences(folder)
    check_program(folder)
    check_start_script()
    # A hundred megabytes that nobody needs.
    remove_work()


if __name__ == "__main__":
    main()
