"""Checks what a host's dynamic_cast or typeid reads: the word before each native class's virtual table.

The records are those of Microsoft's 64-bit C++ ABI. The word leads to a complete object locator; all that this holds are
distances from the image's base.
"""

import os
import pathlib
import struct

import pefile
import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
MODULE = ROOT / "build" / os.environ.get("TALQ_BUILD", "windows-cross") / "TalqOpenGL.dll"
NATIVE_CLASSES = ["OGLColor", "OGLMaterialColor", "OGLMaterial", "OGLLightColor", "OGLFog", "TOpenGL"]
IMAGE = pefile.PE(str(MODULE))
BASE = IMAGE.OPTIONAL_HEADER.ImageBase
MEMORY = IMAGE.get_memory_mapped_image()


def class_name(descriptor):
    """The name in a type descriptor: behind type_info's virtual table and a word for the runtime's own use."""
    return MEMORY[descriptor + 16 : MEMORY.index(b"\0", descriptor + 16)].decode()


def locator_of(name):
    """Where the complete object locator of the class named so lies: the one record that knows both the class's type
    descriptor and its own place."""
    descriptor = MEMORY.index(f".?AV{name}@@\0".encode()) - 16
    places = [
        at for at in range(0, len(MEMORY) - 24, 4)
        if struct.unpack_from("<2I", MEMORY, at + 12)[0] == descriptor
        and struct.unpack_from("<I", MEMORY, at + 20)[0] == at
    ]
    assert len(places) == 1
    return places[0]


def bases_of(locator):
    """The class and its bases, from the class outwards, with their offsets in the object."""
    signature, offset, displacement, _, hierarchy, _ = struct.unpack_from("<6I", MEMORY, locator)
    assert (signature, offset, displacement) == (1, 0, 0)
    _, _, count, array = struct.unpack_from("<4I", MEMORY, hierarchy)
    bases = struct.unpack_from(f"<{count}I", MEMORY, array)
    return [(class_name(struct.unpack_from("<I", MEMORY, base)[0]), struct.unpack_from("<i", MEMORY, base + 8)[0])
            for base in bases]


def functions_behind(locator):
    """The two words behind each pointer to the locator: the virtual tables that it belongs to."""
    pointer = struct.pack("<Q", BASE + locator)
    at = MEMORY.find(pointer)
    while at >= 0:
        yield struct.unpack_from("<2Q", MEMORY, at + 8)
        at = MEMORY.find(pointer, at + 8)


def is_code(address):
    sections = [section for section in IMAGE.sections if section.Name.startswith(b".text")]
    return any(section.contains_rva(address - BASE) for section in sections)


@pytest.mark.parametrize("name", NATIVE_CLASSES)
def test_virtual_tables_lead_to_the_type_of_the_class(name):
    locator = locator_of(name)
    assert bases_of(locator)[0] == (f".?AV{name}@@", 0)
    assert bases_of(locator)[-1] == (".?AVTalqAss@@", 0)
    tables = list(functions_behind(locator))
    assert tables and all(is_code(function) for table in tables for function in table)
