"""Tests of what cmake --install copies, and of the ways to embed the libraries.

packaging_test.py NAME --source ... runs the function test_NAME. The programs are those of
docs/embedding.md and docs/designer.md, in code blocks that are marked with a language and a file name.
"""

import argparse
import ast
import json
import os
import re
import shlex
import shutil
import subprocess
import sys
from pathlib import Path

sys.path.append(str(Path(__file__).parents[1] / "support"))
import exported_symbols  # noqa: E402
import pages  # noqa: E402
import tutorial  # noqa: E402

settings = None


def run(*command, cwd=None, env=None):
    """Runs a command and returns what it prints; fails with all of it."""
    result = subprocess.run([str(part) for part in command], cwd=cwd, env=env, text=True,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if result.returncode != 0:
        sys.exit(f"{shlex.join(map(str, command))} failed:\n{result.stdout}")
    return result.stdout


def expect(condition, message):
    if not condition:
        sys.exit(f"FAILED: {message}")


def moved():
    return settings.work / "moved"


def library_folder():
    return next(moved().glob("lib*/**/libkurvgraph*")).parent


def is_shared():
    return bool(list(library_folder().glob("libkurvgraph.so")))


def has_pixels():
    return "KURV_PIXELS:BOOL=ON" in (settings.build / "CMakeCache.txt").read_text()


def new_folder(name):
    folder = settings.work / name
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    return folder


def snippets():
    """The files of the page, by their names."""
    return pages.named_files(settings.source, "docs/embedding.md")


def write_host(way, kind):
    """A folder with the program "widget" or "core" and the file that builds it in this way."""
    folder = new_folder(f"hosts/{way}/{kind}")
    files = snippets()
    (folder / f"{kind}.cpp").write_text(files[f"{kind}.cpp"])
    name = "build.sh" if way == "pkg-config" else "CMakeLists.txt"
    (folder / name).write_text(files[f"{way}/{kind}/{name}"])
    return folder


def configure(folder, *options):
    run(settings.cmake, "-S", folder, "-B", folder / "build", "-G", settings.generator,
        f"-DCMAKE_CXX_COMPILER={settings.compiler}", f"-DCMAKE_CXX_FLAGS={settings.flags}",
        f"-DCMAKE_CXX_COMPILER_LAUNCHER={settings.launcher}",
        "-DCMAKE_COMPILE_WARNING_AS_ERROR=ON", *options)


def build(folder, target):
    run(settings.cmake, "--build", folder / "build", "--target", target)
    return folder / "build" / target


def check_picture(program, env=None):
    picture = program.parent / "squares.png"
    run(program, picture, env=env)
    expect(picture.read_bytes().startswith(b"\x89PNG"), f"{program} writes no picture")


HOSTS = ("widget", "core")


def test_install():
    """Installs into one folder and renames it; the other tests use it under its new name."""
    shutil.rmtree(settings.work, ignore_errors=True)
    first = settings.work / "first"
    run(settings.cmake, "--install", settings.build, "--prefix", first)
    first.rename(moved())
    headers = sorted(path.name for path in (settings.source / "include/KurvGraph").iterdir())
    installed = sorted(path.name for path in (moved() / "include/KurvGraph").iterdir())
    expect(installed == headers, f"the headers {installed}")
    expect([path.name for path in (moved() / "include").iterdir()] == ["KurvGraph"],
           "include/ holds something else")
    for path in moved().rglob("*"):
        if path.suffix in (".cmake", ".pc"):
            text = path.read_text()
            for folder in (first, settings.source, settings.build):
                expect(f"{folder}/" not in text, f"{path} names the folder {folder}")
    expect(run(moved() / "bin/kurv", "--version").startswith("kurv "), "kurv does not run")
    if is_shared():
        link = library_folder() / "libkurvgraph.so.1"
        expect(link.is_symlink() and link.exists(), "there is no libkurvgraph.so.1")
    if list(settings.build.glob("qt/designer/plugins/designer/*.so")):
        check_designer_plugin()


def check_designer_plugin():
    """The form designer finds it, and the loader the library that it links to."""
    plugin = library_folder() / "qt6/plugins/designer/kurvgraph_designer.so"
    expect(plugin.exists(), "there is no plugin for the form designer")
    linked = run("ldd", plugin)
    expect("not found" not in linked, f"the plugin lacks a library:\n{linked}")
    expect(("libkurvgraph.so.1" in linked) == is_shared(), f"the plugin links to\n{linked}")


def test_find_package():
    for kind in HOSTS:
        folder = write_host("find_package", kind)
        configure(folder, f"-DCMAKE_PREFIX_PATH={moved()}")
        check_picture(build(folder, kind))
    # The core alone needs no Qt, and the host looks for its own modules where it did before.
    (folder / "CMakeLists.txt").write_text((folder / "CMakeLists.txt").read_text() + 'if(CMAKE_MODULE_PATH)\n'
                                           '  message(FATAL_ERROR "${CMAKE_MODULE_PATH}")\nendif()\n')
    configure(folder, f"-DCMAKE_PREFIX_PATH={moved()}", "-DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON")
    check_refusal("1 CONFIG", "2 CONFIG", "version")
    check_refusal("COMPONENTS Core", "COMPONENTS Cores", "no component Cores; its components are: Core")


def check_refusal(found, wanted, reason):
    """That the core's host is not configured where it wants something else, and that the reason is said."""
    other = new_folder("hosts/find_package/refused")
    text = snippets()["find_package/core/CMakeLists.txt"].replace(found, wanted)
    (other / "CMakeLists.txt").write_text(text)
    refused = subprocess.run([settings.cmake, "-S", other, "-B", other / "build", "-G",
                              settings.generator, f"-DCMAKE_PREFIX_PATH={moved()}"],
                             capture_output=True, text=True)
    said = " ".join(refused.stderr.split())
    expect(refused.returncode != 0 and "KurvGraph" in said and reason in said, f"{wanted} ends with\n{said}")


def test_pkg_config():
    # The page calls the compiler c++; here that is the compiler of the build around, with its flags.
    tools = new_folder("hosts/tools")
    launched = f"{settings.launcher} {settings.compiler} {settings.flags}"
    (tools / "c++").write_text(f'#!/bin/sh\nexec {launched} -Werror "$@"\n')
    (tools / "c++").chmod(0o755)
    env = dict(os.environ, PATH=f"{tools}:{os.environ['PATH']}",
               PKG_CONFIG_PATH=str(library_folder() / "pkgconfig"),
               LD_LIBRARY_PATH=str(library_folder()))
    expect(run("pkg-config", "--modversion", "kurvgraph", env=env) == "1.0.0\n", "the version")
    for kind in HOSTS:
        folder = write_host("pkg-config", kind)
        run("sh", "-e", "build.sh", cwd=folder, env=env)
        check_picture(folder / kind, env=env)


def check_compilation(folder, kind):
    """The host's own flags are untouched, and no test or program of the library is built."""
    commands = json.loads((folder / "build/compile_commands.json").read_text())
    own = next(entry["command"] for entry in commands if entry["file"].endswith(f"/{kind}.cpp"))
    for flag in ("-Wall", "-fvisibility", "-fno-semantic-interposition"):
        expect(flag not in own, f"the host is compiled with {flag}")
    expect("-std=c++20" in own or "-std=gnu++20" in own, "the host is not compiled as C++20")
    for entry in commands:
        expect("-Wall" not in entry["command"], f"{entry['file']} is compiled with warnings")
        source = os.path.relpath(os.path.realpath(entry["file"]), settings.source)
        left_out = source.split("/")[0] in ("app", "bench", "examples", "fuzz", "tests")
        expect(not left_out, f"{source} is compiled")
    for script in (folder / "build").rglob("cmake_install.cmake"):
        expect("libkurvgraph" not in script.read_text(), "the host installs the library")


def test_source_tree():
    """The widget is configured only. The tree is under one path for both ways to get the core, so that
    the compiler cache has it for the second."""
    tree = settings.work / "hosts/add_subdirectory/core/KurvGraph"
    for way in ("add_subdirectory", "FetchContent"):
        for kind in HOSTS:
            folder = write_host(way, kind)
            if way == "add_subdirectory":
                (folder / "KurvGraph").symlink_to(settings.source)
            configure(folder, f"-DFETCHCONTENT_SOURCE_DIR_KURVGRAPH={tree}",
                      "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON")
            check_compilation(folder, kind)
        check_picture(build(folder, "core"))


def test_static():
    """A host of the static widget links to what the library itself links to. Configures only."""
    folder = new_folder("static")
    run(settings.cmake, "-S", settings.source, "-B", folder / "build", "-G", settings.generator,
        f"-DCMAKE_CXX_COMPILER={settings.compiler}", "-DBUILD_SHARED_LIBS=OFF",
        "-DKURV_PROGRAM=OFF", "-DKURV_TESTS=OFF", f"-DKURV_PIXELS={has_pixels()}")
    required = {"kurvgraph": {"Qt6Gui", "Qt6PrintSupport", "Qt6Svg", "Qt6Widgets"},
                "kurvgraph-core": set()}
    if has_pixels():
        required["kurvgraph-core"] = {"fontconfig", "freetype2", "harfbuzz", "libpng"}
        required["kurvgraph"] |= required["kurvgraph-core"]
    for name, packages in required.items():
        text = (folder / f"build/{name}.pc").read_text()
        line = re.search(r"^Requires:(.*)$", text, re.MULTILINE)[1]
        expect(set(line.split()) == packages, f"{name}.pc requires {line}")
    found = (folder / "build/KurvGraph-dependencies.cmake").read_text()
    for part in ("Gui", "PrintSupport", "Svg", "Widgets"):
        expect(f"find_dependency(Qt6 6.4 COMPONENTS {part})" in found, f"Qt6::{part} is not found")


def test_core_alone():
    """Of a build without Qt, the core and its headers are installed, here as a static library."""
    new_folder("moved").rmdir()
    run(settings.cmake, "--install", settings.build, "--prefix", moved())
    for path in (moved() / "include/KurvGraph").iterdir():
        expect("#include <Q" not in path.read_text(), f"{path.name} needs Qt")
    expect((library_folder() / "libkurvgraph-core.a").exists(), "there is no static library")
    expect(not list(moved().glob("**/*kurvgraph.*")), "there is something of the widget")
    folder = write_host("find_package", "core")
    configure(folder, f"-DCMAKE_PREFIX_PATH={moved()}")
    check_picture(build(folder, "core"))


def test_boundary():
    folder = new_folder("hosts/boundary")
    text = snippets()["find_package/widget/CMakeLists.txt"].replace("widget", "boundary")
    (folder / "CMakeLists.txt").write_text(text)
    shutil.copy(Path(__file__).parent / "boundary.cpp", folder)
    configure(folder, f"-DCMAKE_PREFIX_PATH={moved()}", "-DCMAKE_CXX_VISIBILITY_PRESET=hidden",
              "-DCMAKE_VISIBILITY_INLINES_HIDDEN=ON")
    run(build(folder, "boundary"))


def test_headers():
    """Each header compiles alone, against the installed tree and with nothing of the sources."""
    folder = new_folder("hosts/headers")
    headers = sorted(path.name for path in (moved() / "include/KurvGraph").iterdir())
    for header in headers:
        (folder / f"{header}.cpp").write_text(f"#include <KurvGraph/{header}>\n")
    page = snippets()["find_package/widget/CMakeLists.txt"]
    files = " ".join(f"{header}.cpp" for header in headers)
    text = page.replace("add_executable(widget widget.cpp)", f"add_library(headers OBJECT {files})")
    (folder / "CMakeLists.txt").write_text(text.replace("(widget ", "(headers "))
    configure(folder, f"-DCMAKE_PREFIX_PATH={moved()}")
    run(settings.cmake, "--build", folder / "build")


def test_form():
    """The program of docs/designer.md, with a form that has the names of the page."""
    folder = new_folder("hosts/form")
    for name, text in pages.named_files(settings.source, "docs/designer.md").items():
        (folder / name).write_text(text)
    shutil.copy(settings.source / "tests/qt/designer/growth.ui", folder)
    configure(folder, f"-DCMAKE_PREFIX_PATH={moved()}")
    run(settings.cmake, "--build", folder / "build")
    expect((folder / "build/growth").exists(), "there is no program")


def test_tutorial():
    """What docs/tutorial.md has its reader do, in an empty folder, with the tree in the reader's home."""
    home = new_folder("hosts/tutorial")
    (home / "kurvgraph").symlink_to(moved())
    env = dict(os.environ, CMAKE_GENERATOR=settings.generator, CXX=settings.compiler,
               CXXFLAGS=settings.flags, CMAKE_CXX_COMPILER_LAUNCHER=settings.launcher)
    tutorial.Tutorial(settings.source, home, env, run).follow()
    for file in ("window.png", "squares.gdf", "a.svg", "a.pdf", "a.png"):
        expect((home / "plotter" / file).stat().st_size > 0, f"the programs write no {file}")


def test_symbols():
    if not is_shared() or not has_pixels():
        print("Only shared libraries with everything in them have the list of symbols that is compared.")
        sys.exit(77)  # skipped
    headers = moved() / "include/KurvGraph"
    exported = {}
    for name in ("kurvgraph", "kurvgraph-core"):
        exported[name], foreign = exported_symbols.read(library_folder() / f"lib{name}.so", headers)
        expect(not foreign, f"{name} exports\n" + "\n".join(foreign))
    missing = (exported_symbols.declared(headers) - exported_symbols.HEADER_ONLY
               - set.union(*exported.values()))
    expect(not missing, f"no library exports {missing}")
    expect(exported["kurvgraph-core"] < exported["kurvgraph"], "the widget lacks a part of the core")


def test_object_names():
    """A host that links the modules as static libraries may use every name that is not kurv's."""
    modules = [path for path in settings.build.rglob("libkurv_*.a")
               if path.relative_to(settings.build).parts[0] not in ("app", "bench", "tests")]
    expect(len(modules) >= 9, f"only the modules {modules} are built")
    for module in modules:
        foreign = exported_symbols.foreign_names(module)
        expect(not foreign, f"{module.name} defines {foreign}")


def test_recipes():
    """What can be checked of the recipes without the tools that they are for."""
    packaging = settings.source / "packaging"
    port = packaging / "vcpkg/kurvgraph"
    manifest = json.loads((port / "vcpkg.json").read_text())
    recipe = (packaging / "conan/conanfile.py").read_text()
    ast.parse(recipe)
    project = (settings.source / "CMakeLists.txt").read_text()
    version = re.search(r"project\(KurvGraph VERSION (\S+)", project)[1]
    expect(manifest["version-semver"] == version, "the version in vcpkg.json")
    expect(f'version = "{version}"' in recipe, "the version in conanfile.py")
    json.loads(snippets()["vcpkg.json"])
    expect(f"kurvgraph/{version}" in snippets()["conanfile.txt"], "the version in conanfile.txt")

    # The portfile, with functions that do nothing in the place of those of vcpkg.
    commands = set(re.findall(r"^(vcpkg_\w+)\(", (port / "portfile.cmake").read_text(), re.M))
    work = new_folder("hosts/vcpkg")
    stubs = "".join(f"function({command})\nendfunction()\n" for command in sorted(commands))
    script = f'{stubs}set(CURRENT_PACKAGES_DIR "{work}")\nset(PORT kurvgraph)\n'
    script += f'include("{port}/portfile.cmake")\n'
    script += 'if(NOT EXISTS "${SOURCE_PATH}/LICENSE")\nmessage(FATAL_ERROR "no tree")\nendif()\n'
    (work / "port.cmake").write_text(script)
    run(settings.cmake, "-P", work / "port.cmake")
    expect((work / "share/kurvgraph/usage").exists(), "the port installs no usage")

    # Their options exist, and the libraries that the recipe names are installed.
    for text in (recipe, (port / "portfile.cmake").read_text()):
        for option in re.findall(r"KURV_[A-Z]+", text):
            expect(f"({option} " in project, f"there is no option {option}")
    for library in re.findall(r'libs = \["(.+?)"\]', recipe):
        expect(list(library_folder().glob(f"lib{library}.*")), f"no library {library} is installed")


def main():
    global settings
    parser = argparse.ArgumentParser()
    parser.add_argument("name")
    for path in ("source", "build", "work"):
        parser.add_argument(f"--{path}", type=Path)
    for text in ("cmake", "generator", "compiler", "flags", "launcher"):
        parser.add_argument(f"--{text}")
    settings = parser.parse_args()
    globals()[f"test_{settings.name}"]()


if __name__ == "__main__":
    main()
