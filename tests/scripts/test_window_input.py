"""Mouse, keys, text and focus of windows, by real input on a display with a window manager."""

from recording import is_green, record

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
    clicks = [("left", 20, 30), ("middle", 21, 199), ("right", 0, 0)]
    expected = [f"{event} {button} {x} {y}" for button, x, y in clicks for event in ("pressed", "released")]

    def act(window):
        for button, x, y in clicks:
            window.move(x, y)
            window.press(button)
            window.wait_for_line(f"pressed {button} {x} {y}")
            window.release(button)
            window.wait_for_line(f"released {button} {x} {y}")

    assert without_down(record(desktop, MOUSE, act)) == expected


def test_dragging_goes_on_outside_of_the_window(desktop):
    def act(window):
        window.move(20, 30)
        window.press()
        window.wait_for_line("pressed left 20 30")
        window.move(350, 40)
        window.wait_for_line("down left 350")
        window.move(360, 250)
        window.release()
        window.wait_for_line("released left 360 250")

    assert without_down(record(desktop, MOUSE, act)) == ["pressed left 20 30", "released left 360 250"]


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
