"""Packs the tree that this recipe is a part of: conan create packaging/conan"""

import os

from conan import ConanFile
from conan.errors import ConanInvalidConfiguration
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, rmdir

required_conan_version = ">=2.0"


class KurvGraphConan(ConanFile):
    name = "kurvgraph"
    version = "1.0.0"
    description = "An embeddable two-dimensional graph control"
    license = "MIT"
    topics = ("plot", "graph", "widget")
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "fPIC": [True, False], "pixels": [True, False], "widget": [True, False]}
    default_options = {
        "shared": True,
        "fPIC": True,
        "pixels": True,
        "widget": True,
        "qt/*:gui": True,
        "qt/*:qtsvg": True,
        "qt/*:widgets": True,
    }
    implements = ["auto_shared_fpic"]

    def export_sources(self):
        root = os.path.join(self.recipe_folder, "..", "..")
        left_out = ("build/*", "out/*", ".git/*")
        copy(self, "*", root, self.export_sources_folder, excludes=left_out)

    def layout(self):
        cmake_layout(self)

    def requirements(self):
        if self.options.widget:
            # The public headers include those of Qt.
            self.requires("qt/[>=6.4 <7]", transitive_headers=True, transitive_libs=True)

        if self.options.pixels:
            for package in ("fontconfig/[>=2.13]", "freetype/[>=2.11]", "harfbuzz/[>=4]",
                            "libpng/[>=1.6]"):
                self.requires(package)

    def validate(self):
        check_min_cppstd(self, 20)
        if self.settings.os != "Linux":
            raise ConanInvalidConfiguration("KurvGraph is built on Linux alone")

    def generate(self):
        CMakeDeps(self).generate()
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["KURV_DESIGNER"] = False
        toolchain.cache_variables["KURV_PIXELS"] = bool(self.options.pixels)
        toolchain.cache_variables["KURV_PROGRAM"] = False
        toolchain.cache_variables["KURV_QT"] = bool(self.options.widget)
        toolchain.cache_variables["KURV_TESTS"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))
        CMake(self).install()
        # Conan generates its own from package_info().
        for folder in ("cmake", "pkgconfig"):
            rmdir(self, os.path.join(self.package_folder, "lib", folder))
        rmdir(self, os.path.join(self.package_folder, "share"))

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "KurvGraph")
        core = self.cpp_info.components["Core"]
        core.libs = ["kurvgraph-core"]
        core.set_property("cmake_target_name", "KurvGraph::Core")
        core.set_property("pkg_config_name", "kurvgraph-core")
        pixels = []
        if self.options.pixels:
            pixels = ["fontconfig::fontconfig", "freetype::freetype", "harfbuzz::harfbuzz",
                      "libpng::libpng"]
        core.requires = pixels
        if self.options.widget:
            widget = self.cpp_info.components["KurvGraph"]
            widget.libs = ["kurvgraph"]
            widget.requires = ["qt::qtWidgets", "qt::qtPrintSupport", "qt::qtSvg"] + pixels
            widget.set_property("cmake_target_name", "KurvGraph::KurvGraph")
            widget.set_property("pkg_config_name", "kurvgraph")
