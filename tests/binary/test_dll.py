"""Checks of the built DLLs: tables, virtual tables, size, and that nothing of the build machine is left in them."""

import itertools
import os
import pathlib
import re
import subprocess

import pefile
import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / os.environ.get("TALQ_BUILD", "windows-cross")
MODULE = BUILD / "TalqOpenGL.dll"
HOST = BUILD / "Talq.dll"
PROGRAM = BUILD / "talq.exe"
each_file = pytest.mark.parametrize("path", [MODULE, HOST, PROGRAM], ids=lambda path: path.name)

# Ordinals 2 to 5 (version text, method table, error table, the empty hook) are exported by number alone.
EXPORTS = {
    2: None,
    3: None,
    4: None,
    5: None,
    6: b"??D@YA?AVVariable@@AEBV0@0@Z",  # operator*
    7: b"??G@YA?AVVariable@@AEBV0@0@Z",  # operator-
    8: b"??H@YA?AVVariable@@AEBV0@0@Z",  # operator+
    9: b"??I@YA?AVVariable@@AEBV0@0@Z",  # operator&
    10: b"??K@YA?AVVariable@@AEBV0@0@Z",  # operator/
    11: b"??L@YA?AVVariable@@AEBV0@0@Z",  # operator%
    12: b"??T@YA?AVVariable@@AEBV0@0@Z",  # operator^
    13: b"??U@YA?AVVariable@@AEBV0@0@Z",  # operator|
    14: b"?Add@@YAXAEAVVariable@@AEBV1@1@Z",
    15: b"?And@@YAXAEAVVariable@@AEBV1@1@Z",
    16: b"?Div@@YAXAEAVVariable@@AEBV1@1@Z",
    17: b"?GetOwner@@YAPEAVProcessor@@XZ",
    18: b"?Mul@@YAXAEAVVariable@@AEBV1@1@Z",
    19: b"?Or@@YAXAEAVVariable@@AEBV1@1@Z",
    20: b"?TalqSystemGetLibInst@@YAPEAUHINSTANCE__@@XZ",
    21: b"?Rest@@YAXAEAVVariable@@AEBV1@1@Z",
    22: b"?Sub@@YAXAEAVVariable@@AEBV1@1@Z",
    23: b"?TopType@@YAGW4TVARTYPE@@0@Z",
    24: b"?Xor@@YAXAEAVVariable@@AEBV1@1@Z",
    25: b"HMALLOCZ",
}

# What the module may import besides the host: OpenGL, GDI, the kernel and the C runtime.
SYSTEM_LIBRARIES = {b"OPENGL32.dll", b"GLU32.dll", b"GDI32.dll", b"KERNEL32.dll", b"msvcrt.dll"}

# The module's classes that derive from the host's TalqAss.
NATIVE_CLASSES = {"OGLColor", "OGLMaterialColor", "OGLMaterial", "OGLLightColor", "OGLFog", "TOpenGL"}


def host_names():
    """The decorated names that the module may import from the host."""
    lines = (ROOT / "host" / "talq.def").read_text().splitlines()
    return {line.strip().encode() for line in lines if line.startswith("  ")}


@pytest.fixture(scope="module")
def module():
    return pefile.PE(str(MODULE))


@pytest.fixture(scope="module")
def host():
    return pefile.PE(str(HOST))


def exports(image):
    return {symbol.ordinal: symbol.name for symbol in image.DIRECTORY_ENTRY_EXPORT.symbols if symbol.address}


def imports(image):
    return {
        entry.dll: {symbol.name for symbol in entry.imports}
        for entry in image.DIRECTORY_ENTRY_IMPORT
    }


def test_module_exports(module):
    assert module.DIRECTORY_ENTRY_EXPORT.struct.Base == 2
    assert module.DIRECTORY_ENTRY_EXPORT.name == b"TalqOpenGL.dll"
    assert exports(module) == EXPORTS


def test_module_imports_exactly_the_listed_names_from_the_host(module):
    assert imports(module)[b"Talq.dll"] == host_names()


def test_module_imports_only_system_libraries_besides(module):
    libraries = {name.lower() for name in imports(module)} - {b"talq.dll"}
    assert libraries - {name.lower() for name in SYSTEM_LIBRARIES} == set()
    assert b"opengl32.dll" in libraries


def test_host_exports_all_names_that_modules_import(host):
    assert host_names() - set(exports(host).values()) == set()


def test_host_exports_nothing_else_but_the_main_function(host):
    assert {name for name in exports(host).values() if name not in host_names()} == {b"TalqMain"}


def test_host_and_program_import_no_module(host):
    system = {b"opengl32.dll", b"gdi32.dll", b"user32.dll", b"shell32.dll", b"kernel32.dll", b"msvcrt.dll"}
    assert {name.lower() for name in imports(host)} - system == set()
    program = imports(pefile.PE(str(PROGRAM)))
    assert program[b"Talq.dll"] == {b"TalqMain"}
    assert {name.lower() for name in program} - {b"talq.dll", b"kernel32.dll", b"msvcrt.dll"} == set()


@each_file
def test_can_be_loaded_anywhere_and_runs_no_data(path):
    image = pefile.PE(str(path))
    header = image.OPTIONAL_HEADER
    assert header.IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE and header.IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA
    assert header.IMAGE_DLLCHARACTERISTICS_NX_COMPAT
    # What the loader needs to move it.
    assert not image.FILE_HEADER.IMAGE_FILE_RELOCS_STRIPPED and image.DIRECTORY_ENTRY_BASERELOC
    for section in image.sections:
        assert not (section.IMAGE_SCN_MEM_WRITE and section.IMAGE_SCN_MEM_EXECUTE), section.Name


@each_file
def test_function_table_is_sorted(path):
    """The system searches it by halves when it walks the stack. Functions that GNU ld removed leave entries of zeros,
    which lie before all others."""
    functions = [entry.struct for entry in pefile.PE(str(path)).DIRECTORY_ENTRY_EXCEPTION]
    assert functions[-1].BeginAddress > 0
    assert all(function.BeginAddress < function.EndAddress for function in functions if function.BeginAddress)
    for function, following in itertools.pairwise(functions):
        assert function.EndAddress <= following.BeginAddress


@each_file
def test_is_64_bit_and_stripped(path):
    image = pefile.PE(str(path))
    assert image.FILE_HEADER.Machine == pefile.MACHINE_TYPE["IMAGE_FILE_MACHINE_AMD64"]
    assert image.FILE_HEADER.NumberOfSymbols == 0 and image.FILE_HEADER.PointerToSymbolTable == 0
    assert not hasattr(image, "DIRECTORY_ENTRY_DEBUG")
    assert not [section.Name for section in image.sections if section.Name.startswith((b".debug", b".stab", b"/"))]


@each_file
def test_holds_no_path_and_no_time_of_the_build(path):
    content = path.read_bytes()
    for trace in (str(ROOT).encode(), b"/usr/", b"/home/", b"/root/", b"libcxx-config"):
        assert trace not in content
    assert pefile.PE(str(path)).FILE_HEADER.TimeDateStamp == 0


def test_program_has_the_same_stack_with_every_linker():
    assert pefile.PE(str(PROGRAM)).OPTIONAL_HEADER.SizeOfStackReserve == 8 << 20


# The third is used by nothing and required all the same.
@pytest.mark.parametrize("name", [b"TOpenGL", b"OglColor", b"OglObject", b"OglMaterial"])
def test_module_keeps_the_names_of_its_classes(name):
    assert name + b"\0" in MODULE.read_bytes()


def test_module_is_small():
    assert MODULE.stat().st_size <= 132 * 1024


def virtual_tables():
    """Maps each class with a virtual table in the module's object files to its size and its slots by offset."""
    objects = sorted((BUILD / "CMakeFiles" / "talq_module.dir").rglob("*.obj"))
    command = ["llvm-readobj-19", "--sections", "--section-relocations", "--section-symbols", *objects]
    listing = subprocess.run(command, capture_output=True, text=True, check=True).stdout
    tables = {}
    for section in re.split(r"^  Section \{$", listing, flags=re.MULTILINE):
        name = re.search(r"^ +Name: \?\?_7(\w+)@@6B@", section, re.MULTILINE)
        if not name:
            continue
        relocations = re.findall(r"^ +0x([0-9A-F]+) IMAGE_REL_AMD64_ADDR64 (\S+)", section, re.MULTILINE)
        size = int(re.search(r"RawDataSize: (\d+)", section).group(1))
        tables.setdefault(name.group(1), []).append((size, {int(at, 16): symbol for at, symbol in relocations}))
    return tables


def test_native_classes_have_the_two_virtual_slots_of_the_host():
    tables = virtual_tables()
    assert NATIVE_CLASSES - set(tables) == set()
    for name, copies in tables.items():
        for size, slots in copies:
            # The word before the slots leads to the class's type.
            assert size == 24, name
            assert slots[0] == f"??_R4{name}@@6B@", name
            assert slots[8] == "?PlaceHolder@TalqAss@@MEAAXXZ", name
            assert re.fullmatch(rf"\?\?_[GE]{name}@@UEAAPEAXI@Z", slots[16]), name
