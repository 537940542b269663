"""Checks of the files of the build for Microsoft's tools: their names, and the C runtime that they ask for."""

import collections
import os.path
import pathlib
import re
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "clang-cl-on-linux"


def files_of_the_build():
    """The files that the build's rules name: inputs, outputs, and what linkers write besides."""
    rules = (BUILD / "build.ninja").read_text().replace("$\n", "").replace("$:", ":")
    for line in rules.splitlines():
        if line.startswith("build ") and ": phony" not in line:
            outputs, _, inputs = line.removeprefix("build ").partition(": ")
            yield from (outputs + " " + inputs.partition(" ")[2]).replace("|", " ").split()
        elif beside := re.match(r"  TARGET_(?:FILE|IMPLIB|PDB) = (\S+)$", line):
            yield beside[1]


def test_no_two_files_differ_in_case_alone():
    spellings = collections.defaultdict(set)
    for name in files_of_the_build():
        path = os.path.normpath(BUILD / name)
        spellings[path.casefold()].add(path)
    assert len(spellings) > 100
    assert [paths for paths in spellings.values() if len(paths) > 1] == []


def test_objects_ask_for_the_runtime_that_is_linked_in():
    objects = sorted((BUILD / "CMakeFiles" / "talq_module.dir").rglob("*.obj"))
    assert len(objects) > 30
    command = ["llvm-readobj-19", "--coff-directives", *objects]
    directives = subprocess.run(command, capture_output=True, text=True, check=True).stdout
    libraries = re.findall(r"/DEFAULTLIB:\"?([^\s\"]+)", directives)
    assert {library.lower().removesuffix(".lib") for library in libraries} == {"libcmt", "oldnames"}
    assert len(libraries) == 2 * len(objects)
