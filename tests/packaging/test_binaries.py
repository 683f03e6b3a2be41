# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads from the built programs and libraries that none of them looks for libraries anywhere but where
the system does, and that those which are shipped are hardened.

Usage: test_binaries.py BUILD_FOLDER BUILD_TYPE SANITIZERS
"""

import re
import subprocess
import sys
from pathlib import Path

SHIPPED = ("bin/*", "lib/zolta/*.so", "lib/libZoltaControls.so", "lib/qt6/plugins/designer/*.so",
           "lib/lv2/*/*.so", "lib/vst3/*/Contents/*/*.so")
OTHERS = ("tests/tst_*", "tests/*/plugins/*.so", "benchmarks/*", "fuzz/*")
# Marks where an indirect branch may arrive. Debian's start-up code has none, so the programs' notes do
# not claim the protection although all of our code has it.
ENDBR64 = b"\xf3\x0f\x1e\xfa"


def elf_files(folder, patterns):
    files = sorted(file for pattern in patterns for file in folder.glob(pattern) if file.is_file())
    return [file for file in files if file.open("rb").read(4) == b"\x7fELF"]


def readelf(file, *options):
    return subprocess.run(["readelf", "-W", *options, file], check=True, capture_output=True,
                          text=True).stdout


def paths_of(file):
    return re.findall(r"\((?:RPATH|RUNPATH)\).*\[(.*)\]", readelf(file, "-d"))


def weaknesses_of(file, optimised):
    dynamic, headers = readelf(file, "-d"), readelf(file, "-l")
    symbols = readelf(file, "--dyn-syms")
    found = {
        "is not position-independent": "Type:                              DYN" in readelf(file, "-h"),
        "has no read-only relocations": "GNU_RELRO" in headers,
        "binds lazily": "BIND_NOW" in dynamic or re.search(r"\bNOW\b", dynamic),
        "has no stack protector": "__stack_chk_fail" in symbols,
        "has no control-flow protection": file.read_bytes().count(ENDBR64) > 100,
        "has an executable stack": not re.search(r"GNU_STACK.*RWE", headers),
        "has no fortified calls": not optimised or re.search(r"__\w+_chk\b", symbols),
    }
    return [weakness for weakness, isFine in found.items() if not isFine]


def main(folder, build_type, sanitizers):
    folder = Path(folder)
    shipped = elf_files(folder, SHIPPED)
    problems = [f"{file}: looks for libraries in [{path}]"
                for file in shipped + elf_files(folder, OTHERS) for path in paths_of(file)
                if path != "$ORIGIN"]
    if not sanitizers:
        problems += [f"{file}: {weakness}" for file in shipped
                     for weakness in weaknesses_of(file, build_type == "Release")]
    print(*problems, f"{len(shipped)} shipped files read, {len(problems)} problems", sep="\n")
    return 1 if problems or len(shipped) < 6 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
