"""Windows and their user: pictures, mouse, keys, sizes, closing, by real input on a display with a window manager."""

import os
import pathlib
import subprocess
import time

import numpy
import pytest

from desktop import wait_for

ROOT = pathlib.Path(__file__).resolve().parents[2]
pytestmark = pytest.mark.xdist_group("window")

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

# A green window whose script prints what REPORT says of each moment, until it is closed.
GREEN = (0, 255, 0)
RECORD = """
window = new MDC(300, 200, "record");
gl = new TOpenGL();
gl->Open(window);
gl->SetClearColor(0, 1, 0);
last = 0;
wasDown = false;
typed = "";
while (window->Pump(200)) {
  gl->Clear();
  gl->Flush();
  REPORT
}
"""


def record(desktop, report, act, ended=0):
    """The lines that the script prints of what act(window) does."""
    with desktop.start(RECORD.replace("REPORT", report)) as window:
        window.wait_until(lambda picture: is_green(picture[-1, -1]))
        act(window)
        window.close()
    assert window.exit_code == ended, window.shown()
    return window.stdout.splitlines()


def is_green(pixel):
    return tuple(pixel) == GREEN


@pytest.mark.parametrize("is_double_buffered", [0, 1])
def test_a_window_shows_what_a_bitmap_gets(desktop, is_double_buffered):
    with desktop.start(SCENE, is_double_buffered) as window:
        shown = window.wait_until(lambda picture: len(numpy.unique(picture.reshape(-1, 3), axis=0)) > 100)
        window.close()
    assert window.exit_code == 0, window.shown()
    bitmap = desktop.saved("bitmap")
    # The sphere was drawn first and lies nearer: red covers blue.
    assert bitmap[100, 170, 0] > bitmap[100, 170, 2] and bitmap[190, 160, 2] > bitmap[190, 160, 0]
    assert numpy.array_equal(bitmap, desktop.saved("window"))
    assert numpy.array_equal(bitmap, shown)


MOUSE = """
  for (i = 0; i < 3; i += 1) {
    button = ["left", "middle", "right"][i];
    if (window->WasMousePressed(button)) Print("pressed", button, window->MouseX(), window->MouseY());
    if (window->WasMouseReleased(button)) Print("released", button, window->MouseX(), window->MouseY());
    if (window->IsMouseDown(button) && last != window->MouseX()) Print("down", button, window->MouseX());
  }
  last = window->MouseX();
"""


def without_down(lines):
    return [line for line in lines if not line.startswith("down")]


def test_buttons_and_their_places(desktop):
    def act(window):
        window.click(20, 30)
        window.click(21, 199, "middle")
        window.click(0, 0, "right")

    assert without_down(record(desktop, MOUSE, act)) == [
        "pressed left 20 30",
        "released left 20 30",
        "pressed middle 21 199",
        "released middle 21 199",
        "pressed right 0 0",
        "released right 0 0",
    ]


def test_dragging_goes_on_outside_of_the_window(desktop):
    lines = record(desktop, MOUSE, lambda window: window.drag([(20, 30), (350, 40), (360, 250)]))
    assert without_down(lines) == ["pressed left 20 30", "released left 360 250"]
    assert "down left 350" in lines


def test_the_wheel_turns_by_notches(desktop):
    def act(window):
        window.move(10, 10)
        window.scroll(3)
        window.scroll(-2)

    turned = [float(line) for line in record(desktop, "if (window->Wheel() != 0) Print(window->Wheel());", act)]
    assert sum(turned) == 1 and sum(abs(notches) for notches in turned) == 5


KEYS = {
    "Left": "Left", "Right": "Right", "Up": "Up", "Down": "Down", "Space": "space", "Enter": "Return",
    "Escape": "Escape", "Tab": "Tab", "Backspace": "BackSpace", "Delete": "Delete", "Home": "Home", "End": "End",
    "PageUp": "Prior", "PageDown": "Next", "Shift": "Shift_L", "Control": "Control_L", "Alt": "Alt_L",
    "A": "a", "M": "m", "Z": "z", "0": "0", "5": "5", "9": "9",
} | {f"F{n}": f"F{n}" for n in range(1, 13)}  # fmt: skip


def test_every_key_by_its_name(desktop):
    names = "[" + ", ".join(f'"{name}"' for name in KEYS) + "]"
    report = f"""
  names = {names};
  for (i = 0; i < Length(names); i += 1) if (window->WasKeyPressed(names[i])) Print(names[i]);
"""

    def act(window):
        for key in KEYS.values():
            window.key(key)

    assert record(desktop, report, act) == list(KEYS)


def test_a_held_key_is_down_and_pressed_once(desktop):
    report = """
  if (window->WasKeyPressed("A")) Print("pressed", window->IsKeyDown("Shift"));
  if (wasDown != window->IsKeyDown("A")) Print("down", window->IsKeyDown("A"));
  wasDown = window->IsKeyDown("A");
  typed = typed + window->TypedText();
  if (Length(typed) > 2) window->SetTitle("repeats");
"""

    def act(window):
        window.hold_key("shift")
        window.hold_key("a")
        window.wait_for_title("repeats")
        window.release_key("a")
        window.release_key("shift")

    assert record(desktop, report, act) == ["pressed 1", "down 1", "down 0"]


def test_typed_text_and_titles_are_utf8(desktop):
    report = """
  if (window->TypedText() != "") typed += window->TypedText();
  if (window->WasKeyPressed("Enter")) { Print(typed); window->SetTitle("größer ✓"); }
"""

    def act(window):
        window.type("a B")
        with desktop.keyboard("de"):
            window.key("udiaeresis")
            window.key("Escape")
        window.key("Return")
        window.wait_for_title("größer ✓")

    assert record(desktop, report, act) == ["a Bü"]


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


def test_losing_the_focus_releases_all(desktop):
    report = """
  if (window->WasMouseReleased("left")) Print("button released");
  if (wasDown != window->IsKeyDown("Right")) Print("key", window->IsKeyDown("Right"));
  if (window->WasMousePressed("left")) window->SetTitle("pressed");
  if (wasDown && !window->IsKeyDown("Right") && !window->IsMouseDown("left")) window->SetTitle("released");
  wasDown = window->IsKeyDown("Right");
"""

    def act(window):
        window.hold_key("Right")
        window.move(50, 50)
        window.press()
        window.wait_for_title("pressed")
        window.minimize()
        window.wait_for_title("released")  # by the user only now
        window.release_key("Right")
        window.release()
        window.activate()
        window.wait_until(lambda picture: is_green(picture[0, 0]) and is_green(picture[-1, -1]))

    assert record(desktop, report, act) == ["key 1", "button released", "key 0"]


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
window = new MDC(64, 64, "window");
gl = new TOpenGL();
gl->Open(window);
gl->Clear();
gl->Flush();
window->Pump();
gl->Close();
Print("before the end");
WriteText("before_the_end", "");
Fail("on purpose");
""")
    environment = {name: value for name, value in os.environ.items() if name != "DISPLAY"}
    with open(tmp_path / "stdout", "wb") as stdout, open(tmp_path / "stderr", "wb") as stderr:
        command = [ROOT / "run", "--window", "script.talq"]
        done = subprocess.run(command, cwd=tmp_path, env=environment, stdout=stdout, stderr=stderr)
    closing = time.time() - (tmp_path / "before_the_end").stat().st_mtime
    lines = (tmp_path / "stderr").read_text().splitlines()
    assert done.returncode == 1, lines
    assert (tmp_path / "stdout").read_text() == "before the end\n"
    assert lines[0] == "DISPLAY is not set: windows open on a virtual display and cannot be seen"
    assert "error 27" in lines[1]
    assert closing < 2  # seconds, of which less than one on a machine that does nothing else
