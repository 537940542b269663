"""./check-host finds the names that a host library lacks, and says what its own declarations differ in."""

import pathlib
import re
import subprocess

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "windows-cross"
HOST = BUILD / "Talq.dll"
WINE_CPP_LIBRARY = pathlib.Path("/usr/lib/x86_64-linux-gnu/wine/x86_64-windows/msvcp140.dll")
NAMES = [line.strip() for line in (ROOT / "host" / "talq.def").read_text().splitlines() if line.startswith("  ")]


def check(path):
    return subprocess.run([ROOT / "check-host", path], capture_output=True, text=True)


def host_with(tmp_path, *renamed):
    """A copy of the development host in which some exports have other names of the same length."""
    content = HOST.read_bytes()
    for old, new in renamed:
        assert len(old) == len(new)
        assert content.count(b"\0" + old.encode() + b"\0") == 1
        content = content.replace(b"\0" + old.encode() + b"\0", b"\0" + new.encode() + b"\0")
    path = tmp_path / "Renamed.dll"
    path.write_bytes(content)
    return path


def missing(output):
    """Maps each missing name to the lines below it."""
    blocks = [block.splitlines() for block in output.strip().split("\n\n") if block.startswith("missing  ")]
    return {block[0].removeprefix("missing  "): block[1:] for block in blocks}


def test_the_development_host_has_all_names():
    done = check(HOST)
    assert done.returncode == 0, done.stdout
    assert done.stdout.count("present  ") == len(NAMES) and not missing(done.stdout)
    assert "present  public: int __cdecl Variable::GetDim(void)\n" in done.stdout
    assert f"\n{len(NAMES)} of {len(NAMES)} names are present, 0 missing; " in done.stdout


@pytest.mark.parametrize(
    "old, new, difference",
    [
        (
            "?IsTrue@VarRegister@@QEAAHXZ",
            "?IsTrue@VarRegister@@QEBAHXZ",
            "constness of the member function: not const in host/talq.h, const in the host",
        ),
        (
            "?GetDim@Variable@@QEAAHXZ",
            "?GetDim@Variable@@QEAAIXZ",
            "return type: int in host/talq.h, unsigned int in the host (signed integer and unsigned integer)",
        ),
        (
            "?GetDim@Variable@@QEAAHXZ",
            "?GetDim@Variable@@QEAAJXZ",
            "return type: int in host/talq.h, long in the host (the type's name; both have 32 bits)",
        ),
        (
            "?GetDim@Variable@@QEAAHXZ",
            "?GetDim@Variable@@QEAAFXZ",
            "return type: int in host/talq.h, short in the host (width: 32 and 16 bits)",
        ),
        (
            "?GetDim@Variable@@QEAAHXZ",
            "?GetDim@Variable@@QEAAMXZ",
            "return type: int in host/talq.h, float in the host (signed integer and floating point)",
        ),
        (
            "?Clear@Variable@@QEAAXXZ",
            "?Clear@Variable@@QEAAHXZ",
            "return type: void in host/talq.h, int in the host (a value or none)",
        ),
        (
            "??BVariable@@QEAANXZ",
            "??BVariable@@QEAAOXZ",
            "return type: double in host/talq.h, long double in the host (the type's name; both have 64 bits)",
        ),
        (
            "?GetErrorOffset@@YAGPEAUHINSTANCE__@@@Z",
            "?GetErrorOffset@@YAGPEAVHINSTANCE__@@@Z",
            "argument 1: struct HINSTANCE__* in host/talq.h, class HINSTANCE__* in the host "
            "(class, struct, union or enum of what it points to)",
        ),
        (
            "?TalqError@@YAXHPEAD@Z",
            "?TalqError@@YAXHPEBD@Z",
            "argument 2: char * in host/talq.h, char const * in the host (const)",
        ),
        (
            "?Join@TalqAss@@QEAAXPEAVVariable@@PEAX@Z",
            "?Join@TalqAss@@QEAAXAEAVVariable@@PEAX@Z",
            "argument 1: class Variable * in host/talq.h, class Variable & in the host (value, pointer or reference)",
        ),
        (
            "?MakeInstance@Processor@@QEAAXAEAVVariable@@PEADPEAVVarRegister@@H@Z",
            "?MakeInstance@Processor@@QEAAXAEAVVariable@@PEAEPEAVVarRegister@@H@Z",
            "argument 2: char * in host/talq.h, unsigned char * in the host "
            "(signed integer and unsigned integer of what it points to)",
        ),
        (
            "?PlaceHolder@TalqAss@@MEAAXXZ",
            "?PlaceHolder@TalqAss@@UEAAXXZ",
            "access: protected in host/talq.h, public in the host",
        ),
        (
            "??1TalqAss@@UEAA@XZ",
            "??1TalqAss@@QEAA@XZ",
            "kind of member function: virtual in host/talq.h, neither static nor virtual in the host",
        ),
        (
            "?GetOwner@TVConnect@@QEAAPEAVProcessor@@XZ",
            "?GetOwner@TVConnect@@QEAQPEAVProcessor@@XZ",
            "calling convention: __cdecl in host/talq.h, __vectorcall in the host",
        ),
        (
            "??0Variable@@QEAA@W4TVARTYPE@@PEAD@Z",
            "??0Variable@@QEAA@W4TVARTYPE@@HHHH@Z",
            "number of arguments: 2 in host/talq.h, 5 in the host",
        ),
    ],
)
def test_what_a_declaration_differs_in(tmp_path, old, new, difference):
    done = check(host_with(tmp_path, (old, new)))
    assert done.returncode == 1, done.stderr
    assert list(missing(done.stdout)) == [old]
    expected, *found = missing(done.stdout)[old]
    assert expected.startswith("  the module expects  ")
    assert found[0].startswith("  the host has        ")
    assert [line.strip() for line in found[1:]] == [new, difference]


def test_every_missing_name_is_reported_with_all_differences(tmp_path):
    renamed = [
        ("?GetErrorOffset@@YAGPEAUHINSTANCE__@@@Z", "?GetErrorOffset@@YAKPEAVHINSTANCE__@@@Z"),
        ("??BVarRegister@@QEAA_JXZ", "??BVarRegister@@QEBA_KXZ"),
        ("HMALLOC", "HMALLOD"),
    ]
    done = check(host_with(tmp_path, *renamed))
    assert done.returncode == 1
    found = missing(done.stdout)
    assert set(found) == {old for old, _ in renamed}
    assert [line.split(":")[0].strip() for line in found[renamed[0][0]][3:]] == ["return type", "argument 1"]
    assert [line.split(":")[0].strip() for line in found[renamed[1][0]][3:]] == [
        "return type",
        "constness of the member function",
    ]
    assert found["HMALLOC"] == ["  the module expects  HMALLOC", "  the host has no other export of this name"]
    assert f"\n{len(NAMES) - 3} of {len(NAMES)} names are present, 3 missing; " in done.stdout


def test_a_name_of_c_and_one_of_cpp_are_the_same_function(tmp_path):
    path = library(tmp_path, '"?HMALLOC@@YAPEAX_K@Z" = Nothing')
    assert missing(check(path).stdout)["HMALLOC"][1:] == [
        "  the host has        void * __cdecl HMALLOC(unsigned __int64)",
        "                      ?HMALLOC@@YAPEAX_K@Z",
        '    kind: extern "C" function in host/talq.h, C++ function in the host',
    ]


def library(tmp_path, *exports):
    """A small library with these lines in its list of exports."""
    (tmp_path / "small.c").write_text("void Nothing(void) {}\nint DllMainCRTStartup(void) { return 1; }\n")
    (tmp_path / "small.def").write_text("LIBRARY small.dll\nEXPORTS\n" + "".join(f"  {line}\n" for line in exports))
    compiler = ["x86_64-w64-mingw32-gcc-win32", "-shared", "-nostdlib", "-o", tmp_path / "small.dll"]
    subprocess.run([*compiler, tmp_path / "small.c", tmp_path / "small.def"], check=True)
    return tmp_path / "small.dll"


def test_forwarded_and_nameless_exports(tmp_path):
    path = library(tmp_path, "HMALLOC = KERNEL32.HeapAlloc", "Nothing @7 NONAME", '"?Other@@YAXXZ" = Nothing')
    done = check(path)
    assert done.returncode == 1, done.stderr
    assert "present  HMALLOC  (forwarded to KERNEL32.HeapAlloc)\n" in done.stdout
    assert done.stdout.endswith("names that the host exports: 2; functions without one: 1\n")


def test_names_of_every_shape_are_read():
    # A C++ library: operators, templates, variables, function pointers. It has nothing to do with the host.
    done = check(WINE_CPP_LIBRARY)
    assert done.returncode == 1, done.stderr
    assert re.search(r"^0 of \d+ names are present.* host exports: [1-9]\d{3};", done.stdout, re.MULTILINE)


def test_a_library_without_exports(tmp_path):
    content = bytearray(HOST.read_bytes())
    header = int.from_bytes(content[0x3C:0x40], "little")
    content[header + 24 + 112 : header + 24 + 120] = bytes(8)  # where the export table lies
    (tmp_path / "bare.dll").write_bytes(content)
    done = check(tmp_path / "bare.dll")
    assert done.returncode == 1, done.stderr
    assert len(missing(done.stdout)) == len(NAMES)


def for_another_processor(tmp_path):
    content = bytearray(HOST.read_bytes())
    header = int.from_bytes(content[0x3C:0x40], "little")
    content[header + 4 : header + 6] = (0x14C).to_bytes(2, "little")
    path = tmp_path / "other.dll"
    path.write_bytes(content)
    return path


@pytest.mark.parametrize(
    "path, message",
    [
        (lambda tmp_path: ROOT / "README.md", "is no Windows library"),
        (lambda tmp_path: BUILD / "talq.exe", "is a Windows program or driver, not a library"),
        (lambda tmp_path: tmp_path / "nowhere.dll", "cannot be read: No such file or directory"),
        (lambda tmp_path: tmp_path, "cannot be read: Is a directory"),
        (for_another_processor, "is not for x86-64, for which the module is built"),
    ],
    ids=["text", "program", "missing", "folder", "other processor"],
)
def test_what_is_no_host_library_is_told(tmp_path, path, message):
    path = path(tmp_path)
    done = check(path)
    assert (done.returncode, done.stdout) == (2, "")
    assert done.stderr == f"error: {path} {message}\n"


def test_usage():
    done = subprocess.run([ROOT / "check-host"], capture_output=True, text=True)
    assert done.returncode == 2 and "usage: ./check-host" in done.stderr
    done = subprocess.run([ROOT / "check-host", "--help"], capture_output=True, text=True)
    assert done.returncode == 0 and "usage: ./check-host" in done.stdout
