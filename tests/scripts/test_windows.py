"""Windows on a display with a window manager: pictures, sizes, closing, paces and errors."""

import os
import pathlib
import subprocess

import numpy
import pytest

import conftest
from desktop import wait_for
from recording import is_green, record

ROOT = pathlib.Path(__file__).resolve().parents[2]
RUN_LIMIT = 300  # seconds, in which ./run may also build what is not up to date
# One scene on a memory bitmap and on a window, read back from both, and shown until the window is closed.
SCENE = """
param isDoubleBuffered;
isDoubleBuffered = int(isDoubleBuffered);

function Draw(gl, name) {
  gl->SetViewPort(0, 0, 320, 240);
  gl->SetPerspective(40, 320 / 240.0, 1, 50);
  gl->SetViewerPos(0, -5, 4, 0, 0, 0, 0, 0, 1);
  gl->SetClearColor(0.2, 0.3, 0.4);
  gl->Clear();
  gl->EnableSmooth(true);
  gl->EnableLight(true);
  gl->SetLightPosition(-4, -4, 6);
  gl->SetMaterial(new OglMaterial(0.9, 0.3, 0.1, 1));
  gl->Sphere(0.3, 0.2, 0.4, 0.9, 32);
  gl->SetMaterial(new OglMaterial(0.2, 0.6, 0.9, 1));
  gl->Torus(1.5, 48, 0.5, 48);
  new MBmp(320, 240, gl->GetDIBits(0, 0, 320, 240))->Save(name + ".png");
}

bitmap = new MDC(320, 240);
inMemory = new TOpenGL();
inMemory->OpenBitmap(bitmap);
Draw(inMemory, "bitmap");
window = new MDC(320, 240, "scene", isDoubleBuffered);
onScreen = new TOpenGL();
onScreen->EnableDoubleBuff(isDoubleBuffered);
onScreen->Open(window);
Draw(onScreen, "window");
if (isDoubleBuffered) onScreen->SwapBuffers(); else onScreen->Flush();
while (window->Pump(20)) { }
"""

@pytest.mark.parametrize("is_double_buffered", [0, 1])
def test_a_window_shows_what_a_bitmap_gets(desktop, is_double_buffered):
    with desktop.start(SCENE, is_double_buffered) as window:
        bitmap = desktop.saved("bitmap")
        window.wait_until(lambda picture: numpy.array_equal(picture, bitmap))
        window.close()
    assert window.exit_code == 0, window.shown()
    # The sphere was drawn first and lies nearer: red covers blue.
    assert bitmap[100, 170, 0] > bitmap[100, 170, 2] and bitmap[190, 160, 2] > bitmap[190, 160, 0]
    assert numpy.array_equal(bitmap, desktop.saved("window"))


def test_another_size(desktop):
    report = """
  if (window->WasResized()) {
    Print(window->GetWidth(), window->GetHeight(), window->GetClientRect());
    gl->BindMDC(window);
    gl->SetViewPort(0, 0, window->GetWidth(), window->GetHeight());
  }
"""

    def act(window):
        window.resize(410, 260)
        window.wait_until(lambda picture: is_green(picture[0, 0]) and is_green(picture[259, 409]))

    assert record(desktop, report, act)[-1] == "410 260 RECT(0, 0, 410, 260)"


def test_the_user_asks_and_the_script_closes(desktop):
    script = """
window = new MDC(300, 200, "to be closed");
gl = new TOpenGL();
gl->Open(window);
gl->SetClearColor(0, 1, 0);
gl->Clear();
gl->Flush();
while (window->Pump(20)) { }
window->SetTitle("asked");
while (!window->WasKeyPressed("Escape")) window->Pump(20);
Print(window->IsOpen(), window->GetID() != 0);
window->Close();
Print(window->Pump(), window->GetID());
"""
    with desktop.start(script) as window:
        window.wait_until(lambda picture: is_green(picture[100, 100]))
        window.close()
        window.wait_for_title("asked")
        window.key("Escape")
    assert (window.exit_code, window.stdout) == (0, "0 1\n0 0\n"), window.shown()


def test_frames_come_at_their_pace_while_the_window_answers(desktop):
    report = """
  begin = Seconds();
  if (window->WasKeyPressed("Space")) {
    for (i = 0; i < 21; i += 1) window->Pump(20);
    Print(Seconds() - begin);
    window->SetTitle("done");
  }
"""

    def act(window):
        window.key("space")
        window.wait_for_title("done")

    (line,) = record(desktop, report, act)
    assert 0.95 < float(line) < 3


def test_what_is_printed_is_seen_while_the_window_lives(desktop):
    script = 'w = new MDC(60, 40, "w"); Print("here"); while (w->Pump(30)) { }'
    with desktop.start(script) as window:
        wait_for(lambda: (desktop.folder / "stdout").read_bytes(), "a line of the script")
        window.close()
    assert window.exit_code == 0, window.shown()


def test_a_window_and_a_bitmap_do_not_mix(talq):
    run = talq("""
bitmap = new MDC(64, 64);
window = new MDC(64, 64, "window");
a = new TOpenGL();
b = new TOpenGL();
a->OpenBitmap(bitmap);
b->SetClearColor(1, 0, 0);
b->Open(window);
a->BindMDC(bitmap);
b->BindMDC(window);
b->Clear();
b->Flush();
Assert(bitmap->GetPixel(32, 32) == 0);
read = b->GetDIBits(0, 0, 64, 64);
Assert(read[0] == 0 && read[1] == 0 && read[2] == 255);
a->BindMDC(bitmap);
a->SetClearColor(0, 0, 1);
a->Clear();
a->Flush();
Assert(bitmap->GetPixel(32, 32) == 0xFF0000);
""", window=True)
    assert run.exit_code == 0, run.shown()


@pytest.mark.parametrize("ending", ["window->Close();", "window = 0;"])
def test_a_window_goes_while_a_renderer_is_on_it(talq, ending):
    run = talq(f"""
window = new MDC(64, 64, "window");
gl = new TOpenGL();
gl->Open(window);
gl->Clear();
{ending}
Print(1);
bitmap = new MDC(8, 8);
other = new TOpenGL();
other->SetClearColor(1, 0, 0);
other->OpenBitmap(bitmap);
other->Clear();
other->Flush();
Print(bitmap->GetPixel(1, 1));
""", window=True, options=["--trace-gl"])
    assert (run.exit_code, run.stdout) == (0, "1\n255\n"), run.shown()
    assert run.stderr.splitlines().count("wglGetCurrentContext() = null") == 2  # as each of the two opens


@pytest.mark.parametrize("call", ["Pump()", "Pump(60)", "MouseX()", "Wheel()", 'IsKeyDown("A")', "TypedText()",
                                  'IsMouseDown("left")', "WasResized()", 'SetTitle("a")'])  # fmt: skip
def test_a_memory_bitmap_has_no_user(talq, call):
    run = talq(f"new MDC(8, 8)->{call};")
    assert run.exit_code == 1
    assert "The MDC is a memory bitmap, no window: new MDC(width, height, title) makes a window." in run.stderr


@pytest.mark.parametrize("call", ["GetPixel(1, 1)", "GetDIBits()"])
def test_a_window_is_read_through_its_renderer(talq, call):
    run = talq(f'new MDC(8, 8, "window")->{call};', window=True)
    assert run.exit_code == 1
    assert "The MDC is a window: read the frame with gl->GetDIBits(x, y, width, height)." in run.stderr


def test_names_and_paces_that_are_none(talq):
    run = talq("""
function TextOfError(call) { try { call(); } catch (code, text) { return text; } return "none"; }
function Key() { window->IsKeyDown("Esc"); }
function Button() { window->WasMousePressed("Left"); }
function Pace() { window->Pump(0); }
window = new MDC(8, 8, "window");
Print(TextOfError(Key));
Print(TextOfError(Button));
Print(TextOfError(Pace));
""", window=True)
    assert (run.exit_code, run.stdout.splitlines()) == (
        0,
        [
            'There is no key "Esc".',
            'There is no mouse button "Left".',
            "Pump takes a number of frames per second above 0, not 0.",
        ],
    ), run.shown()


def test_without_a_display_the_hint_says_what_to_do(talq):
    run = talq('new MDC(8, 8, "window");')
    assert run.exit_code == 1
    assert "hint: scripts with windows run with ./run --window" in run.stderr


def test_run_takes_a_virtual_display_and_ends_with_the_script(tmp_path):
    (tmp_path / "script.talq").write_text("""
shortest = 1000;
for (i = 0; i < 3; i += 1) {
  window = new MDC(64, 64, "window");
  gl = new TOpenGL();
  gl->Open(window);
  gl->Clear();
  gl->Flush();
  window->Pump();
  gl->Close();
  begin = Seconds();
  window->Close();
  shortest = min(shortest, Seconds() - begin);
}
Print(shortest);
Fail("on purpose");
""")
    environment = {name: value for name, value in os.environ.items() if name != "DISPLAY"}
    command = [ROOT / "run", "--window", "script.talq"]
    # Wine is kept running for another display meanwhile: ./run ends only if it waits for nothing but the script.
    with (
        conftest.virtual_display("window"),
        open(tmp_path / "stdout", "wb") as stdout,
        open(tmp_path / "stderr", "wb") as stderr,
    ):
        done = subprocess.run(command, cwd=tmp_path, env=environment, stdout=stdout, stderr=stderr, timeout=RUN_LIMIT)
    lines = (tmp_path / "stderr").read_text(encoding="utf-8").splitlines()
    assert done.returncode == 1, lines
    assert lines[0] == "DISPLAY is not set: windows open on a virtual display and cannot be seen"
    assert "error 27" in lines[1]
    # Without a window manager, Wine would wait two seconds for one whenever a window closes. With one, it takes a
    # hundredth of a second, and no machine is so busy that each of the three windows waits for longer than a second.
    assert float((tmp_path / "stdout").read_text(encoding="utf-8")) < 1.5
