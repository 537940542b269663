"""`talq --probe`: what it says of a machine, here Wine with Mesa's software renderer."""

import re

from conftest import run_in_wine

BITMAP_FLAGS = "PFD_DRAW_TO_BITMAP | PFD_SUPPORT_GDI | PFD_SUPPORT_OPENGL | PFD_SWAP_COPY"
ODD_DEPTHS = "pixel type 24; bits: colour 0, depth 0, accumulated alpha 16"


def sections(run):
    """The report's sections by their first lines, each as the lines below."""
    assert run.exit_code == 0, run.shown()
    begins = re.split(r"^(?=  \w)", run.stdout, flags=re.MULTILINE)[1:]
    return {lines[0].strip(): [line.strip() for line in lines[1:]] for lines in map(str.splitlines, begins)}


def assert_is_mesa(lines):
    assert "can be made current" in lines
    assert "vendor:   Mesa/X.org" in lines
    assert any(line.startswith("renderer: llvmpipe") for line in lines)
    assert any(re.fullmatch(r"at most:  viewport 16384 x 16384, texture \d+", line) for line in lines)


def test_tells_of_the_machine_and_of_bitmaps_without_a_display(talq_options):
    run = talq_options("--probe")
    report = sections(run)
    assert re.search(r"^module:     TALQ Support DLL v5.0 ", run.stdout)
    assert re.search(r"^system:     Windows [\d.]+ \(Wine [\d.]+\)$", run.stdout, re.MULTILINE)
    assert re.search(r"^code pages: ANSI \d+, OEM \d+, console input \d+, console output \d+$", run.stdout, re.MULTILINE)
    assert re.search(r"^GLU:        1\.3$", run.stdout, re.MULTILINE)
    lines = report["a memory bitmap: the renderer opens"]
    assert lines[0] == f"asked for: {BITMAP_FLAGS}; {ODD_DEPTHS}"
    assert [line for line in lines if line.startswith("of")] == ["of 24 bits a pixel:", "of 32 bits a pixel:"]
    for bits in ("24", "32"):
        begin = lines.index(f"of {bits} bits a pixel:") + 1
        assert re.fullmatch(r"pixel format \d+: generic, not accelerated; bits: colour 32, .*single-buffered", lines[begin])
        assert_is_mesa(lines[begin : begin + 6])
    windows = [name for name in report if name.startswith("a window")]
    assert len(windows) == 4 and all("the renderer does not open: " in name for name in windows)


def test_tells_of_windows_where_there_is_a_display(display, tmp_path):
    report = sections(run_in_wine("talq.exe", ["--probe"], tmp_path, display))
    for name in ("a window", "a window, with the accelerator"):
        for buffers in ("", ", double-buffered"):
            lines = report[f"{name}{buffers}: the renderer opens"]
            assert ("PFD_DOUBLEBUFFER" in lines[0]) == bool(buffers)
            assert ("PFD_GENERIC_ACCELERATED" in lines[0]) == ("accelerator" in name)
            assert lines[0].endswith(ODD_DEPTHS)
            assert lines[1].endswith(buffers.removeprefix(", ") or "single-buffered")
            assert_is_mesa(lines)
