# SPDX-License-Identifier: GPL-3.0-or-later
"""Builds on the installed headers and libraries as other programs do.

Usage: test_development.py BUILD_FOLDER PREFIX
"""

import re
import sys
import tempfile
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from Development import (ROOT, WARNINGS, environment, include_flags, public_headers, run,
                         system_flags)

build = prefix = None

STANDARD_LIBRARY_ONLY = ("Equalizer", "Engine")


class DevelopmentTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def test_installs_the_listed_headers_and_no_others(self):
        folder = prefix / "include/zolta"
        installed = {str(file.relative_to(folder)) for file in folder.rglob("*.h")}
        self.assertEqual(installed, {header for _, header, _ in public_headers()})

    def compile(self, standard, component, *headers):
        """Compiles the headers with nothing but what their component asks for."""
        source = self.folder / f"{component}-{len(headers)}-{Path(headers[0]).stem}.cpp"
        source.write_text("".join(f"#include <zolta/{header}>\n" for header in headers))
        packages = [] if component in STANDARD_LIBRARY_ONLY else ["Qt6Widgets"]
        run("g++", f"-std={standard}", "-fPIC", "-fsyntax-only", *WARNINGS,
            *include_flags(prefix), *(system_flags(*packages) if packages else []), source)

    def test_each_header_compiles_by_itself_without_warnings(self):
        with ThreadPoolExecutor() as pool:
            list(pool.map(lambda entry: self.compile("c++20", *entry[:2]),
                          (entry for entry in public_headers() if not entry[2])))

    def test_all_headers_compile_together_in_newer_language(self):
        for component in ("Interfaces", "Controls", "Equalizer", "Engine"):
            headers = [header for owner, header, _ in public_headers() if owner == component]
            self.compile("c++23", component, *headers)

    def test_knows_no_folder_of_its_making(self):
        texts = [*prefix.glob("lib/cmake/Zolta/*"), *prefix.glob("lib/pkgconfig/*")]
        self.assertGreater(len(texts), 10)
        for file in texts:
            for folder in (str(ROOT), str(build), str(prefix.parent / "first")):
                self.assertNotIn(folder, file.read_text(), file)

    def test_controls_have_a_soname_and_show_public_classes_only(self):
        library = prefix / "lib/libZoltaControls.so"
        dynamic = run("readelf", "-dW", library)
        self.assertIn("Library soname: [libZoltaControls.so.2]", dynamic)
        self.assertNotRegex(dynamic, r"\((?:RPATH|RUNPATH)\)")
        names = run("nm", "-DC", "--defined-only", library)
        self.assertIn("CommonController_MemAPI::KnobController::setKnobType(", names)
        for hidden in ("SvgRasters", "RoundShapes", "EditGesture", "TextEditControllerPrivate"):
            self.assertNotRegex(names, rf" {hidden}|CommonController_MemAPI::{hidden}")

    def configure(self, lines, *options):
        project = self.folder / "project"
        project.mkdir()
        (project / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.25)\nproject(user LANGUAGES CXX)\n" + lines)
        return run("cmake", "-S", project, "-B", self.folder / "build",
                   f"-DCMAKE_PREFIX_PATH={prefix}", *options, env=environment(prefix))

    def test_each_component_brings_its_targets(self):
        self.configure("""
            find_package(Zolta 2.0 REQUIRED COMPONENTS Engine)
            if(TARGET Zolta::Interfaces OR TARGET Qt6::Core OR NOT TARGET Zolta::Equalizer)
                message(FATAL_ERROR "not what was asked for")
            endif()
            find_package(Zolta 2 REQUIRED)
            foreach(name Interfaces Controls Equalizer Engine)
                if(NOT TARGET Zolta::${name})
                    message(FATAL_ERROR "no ${name}")
                endif()
            endforeach()
            if(NOT EXISTS ${Zolta_EDITOR_LIBRARY} OR NOT EXISTS ${Zolta_FONTS_FOLDER}/fonts.conf)
                message(FATAL_ERROR "no editor")
            endif()""")

    def test_says_what_is_missing(self):
        for request, sentence in (("3 REQUIRED", r"compatible\s+with\s+requested\s+version"),
                                  ("2 REQUIRED COMPONENTS Reverb", r"no component\s+Reverb")):
            with self.subTest(request), tempfile.TemporaryDirectory() as folder:
                self.folder = Path(folder)
                with self.assertRaisesRegex(AssertionError, sentence):
                    self.configure(f"find_package(Zolta {request})")

    def test_pkg_config_builds_a_program(self):
        source, program = self.folder / "program.cpp", self.folder / "program"
        source.write_text("#include <zolta/engine/ChannelProcessor.h>\n"
                          "int main() { return static_cast<int>(ChannelProcessor().latency()); }\n")
        flags = run("pkg-config", "--cflags", "--libs", "zolta-engine",
                    env=environment(prefix)).split()
        run("g++", "-std=c++20", source, "-o", program, *flags)
        run(program)
        for name in ("interfaces", "controls", "equalizer", "engine"):
            version = run("pkg-config", "--modversion", f"zolta-{name}", env=environment(prefix))
            self.assertRegex(version, re.escape(project_version()))


def project_version():
    return re.search(r"project\(Zolta VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text())[1]


if __name__ == "__main__":
    prefix, build = Path(sys.argv.pop()), Path(sys.argv.pop())
    unittest.main()
