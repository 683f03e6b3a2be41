#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the public interface of a build with interface.abi, the one that programs were built against:
functions and objects that can be linked, the sizes of classes, and the order of virtual functions.

Usage: interface.py BUILD_FOLDER [--renew]

With --renew the stored interface becomes that of the build. A line that went or changed breaks programs
that are built already: it needs a new major version. A line that came does not.
"""

import difflib
import re
import subprocess
import sys
import tempfile
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parents[1]
STORED = HERE / "interface.abi"
LIBRARIES = ("lib/libZoltaControls.so", "packaging/development/libZoltaEqualizer.a",
             "packaging/development/libZoltaEngine.a")
# Inline functions are in a library or not as the compiler likes.
LINKABLE = "TDBRV"
NAMESPACE = "CommonController_MemAPI::"


def run(*command):
    return subprocess.run([str(part) for part in command], check=True, capture_output=True,
                          text=True).stdout


def headers(detail):
    lines = (HERE / "interface.txt").read_text().splitlines()
    return [line.split()[1] for line in lines
            if re.match("[A-Z]", line) and (detail or not line.endswith(" detail"))]


def public_names():
    """Classes, namespaces and free functions of the public headers."""
    text = "".join((ROOT / header).read_text() for header in headers(detail=False))
    scopes = re.findall(r"^(?:class|struct|namespace) (?:ZOLTA_EXPORT )?(\w+)(?: final)?(?: :|$| \{)", text,
                        re.M)
    functions = re.findall(r"^(?!class|struct|using|namespace)(?:ZOLTA_EXPORT )?[\w:<>,*& ]+[ *&>](\w+)[(;]",
                           text, re.M)
    return (set(scopes) | set(functions)) - {"CommonController_MemAPI", "Qt", "std"}


def plain(symbol):
    """What a symbol belongs to: a class, a namespace or a function."""
    name = re.sub(r"^(?:vtable|typeinfo(?: name)?|VTT|guard variable|non-virtual thunk) (?:for|to) ", "",
                  symbol)
    return re.match(r"\w*", name.removeprefix(NAMESPACE))[0]


def symbols(build, names):
    for library in LIBRARIES:
        dynamic = ["--dynamic"] if library.endswith(".so") else []
        listing = run("nm", "--extern-only", "--defined-only", "-C", *dynamic, build / library)
        found = re.findall(rf"^[0-9a-f]+ [{LINKABLE}] (.*)$", listing, re.M)
        yield from sorted({f"{Path(library).name}: {symbol}" for symbol in found
                           if plain(symbol) in names})


def class_dump():
    """What the compiler says about the classes of all public headers."""
    flags = run("pkg-config", "--cflags", "Qt6Widgets").split()
    with tempfile.TemporaryDirectory() as folder:
        source, dump = Path(folder, "all.cpp"), Path(folder, "dump")
        source.write_text("".join(f'#include "{header}"\n' for header in headers(detail=True)))
        run("g++", "-std=c++20", "-fPIC", "-S", "-o", "/dev/null", f"-I{ROOT}", *flags,
            f"-fdump-lang-class={dump}", source)
        return dump.read_text()


def layouts(names):
    for block in sorted(class_dump().split("\n\n")):
        head, *lines = block.splitlines() or [""]
        match = re.match(r"(Class|Vtable for) (.+)", head)
        if not match or plain(match[2]) not in names or match[2].endswith("::QPrivateSignal"):
            continue
        if match[1] == "Class":
            yield f"{match[2]}: {lines[0].strip().split(' align')[0]}"
        else:
            yield from (f"{match[2]}: slot {slot}: {function}" for slot, function in
                        re.findall(r"^(\d+)\s+\(int \(\*\)\(\.\.\.\)\)(\w.*)$", block, re.M)
                        if plain(function.replace("::_ZThn", "::")) in names)


def current(build):
    names = public_names()
    return [*symbols(Path(build), names), *layouts(names)]


def main(build, renew=""):
    found = current(build)
    if renew == "--renew":
        STORED.write_text("\n".join(found) + "\n")
        return 0
    changes = list(difflib.unified_diff(STORED.read_text().splitlines(), found, "stored", "built",
                                        lineterm="", n=0))
    print(*changes, sep="\n")
    if changes:
        print("The public interface is another one. If that is meant, run",
              f"packaging/development/interface.py {build} --renew", sep="\n")
    return 1 if changes or not found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
