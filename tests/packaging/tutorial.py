"""Follows docs/tutorial.md: writes its files, runs its commands, and compares its pictures."""

import os
import shutil
import sys
from pathlib import Path

import pages

PAGE = "docs/tutorial.md"
# What comes before the first file: the test of the installed tree does the same.
INSTALLING = ["./run --version", "cmake --build build/release",
              "cmake --install build/release --prefix $HOME/kurvgraph"]
STEPS = ["window", "data", "signal", "menu", "files"]
# Linked into the programs that have something to click.
DRIVER = """
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
target_sources(plotter PRIVATE tutorial_driver.cpp)
target_link_libraries(plotter PRIVATE Qt6::Test)
"""
# The texts of the windows have one font, whatever a machine has besides.
FONTS = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  <dir>{folder}</dir>
  <cachedir>{cache}</cachedir>
  <match target="pattern">
    <edit name="family" mode="append" binding="strong"><string>Liberation Sans</string></edit>
  </match>
  <match target="pattern"><edit name="hintstyle" mode="append"><const>hintslight</const></edit></match>
</fontconfig>
"""


class Tutorial:
    def __init__(self, source, home, env, run):
        """`home` is the reader's: the library is in its folder kurvgraph."""
        self.source, self.home, self.env, self.run = source, home, env, run
        self.folder = home
        self.step = ""
        self.steps = []
        self.commands = []
        font = Path(run("fc-match", "-f", "%{file}", "Liberation Sans"))
        assert font.name.startswith("Liberation"), f"the font is {font}"
        (home / "fonts.conf").write_text(FONTS.format(folder=font.parent, cache=home / "fonts"))

    def follow(self):
        for block in pages.blocks(self.source, PAGE):
            if block.name:
                self.write(block)
                continue
            for command in block.text.splitlines():
                self.commands.append(command)
                if command not in INSTALLING:
                    self.obey(command)
        assert self.commands[:3] == INSTALLING, self.commands
        assert self.steps == STEPS, self.steps

    def write(self, block):
        step, _, name = block.name.rpartition("/")
        (self.folder / name).write_text(block.text)
        if not step or step == self.step:
            return
        self.step = step
        self.steps.append(step)
        if step == "signal":
            shutil.copy(Path(__file__).with_name("tutorial_driver.cpp"), self.folder)
            with open(self.folder / "CMakeLists.txt", "a") as lists:
                lists.write(DRIVER)

    def shell(self, command, **env):
        # The environment's own HOME has the compiler cache.
        command = command.replace("$HOME", str(self.home))
        return self.run("bash", "-euc", command, cwd=self.folder, env=dict(self.env, **env))

    def obey(self, command):
        """Runs a command; a program that would show its window writes its picture instead."""
        if command.startswith("cd "):
            self.folder = Path(command.removeprefix("cd ").replace("$HOME", str(self.home)))
            return
        if not command.startswith("build/plotter"):
            self.shell(command)
            return
        picture = self.folder / "picture.png"
        picture.unlink(missing_ok=True)
        self.shell(f"{command} picture.png", QT_QPA_PLATFORM="offscreen",
                   FONTCONFIG_FILE=str(self.home / "fonts.conf"))
        self.compare(picture)
        if self.steps.index(self.step) >= STEPS.index("signal"):
            self.shell("build/plotter", QT_QPA_PLATFORM="offscreen", PLOTTER_STEP=self.step)

    def compare(self, picture):
        shown = self.source / f"docs/pictures/tutorial/{self.step}.png"
        wanted_by = os.environ.get("KURV_TUTORIAL_PICTURES")  # docs/make-pictures
        if wanted_by:
            shutil.copy(picture, Path(wanted_by) / shown.name)
        elif picture.read_bytes() != shown.read_bytes():
            sys.exit(f"FAILED: {shown} is not what the program shows; docs/make-pictures tutorial writes it anew")
