"""Scripts with windows under real input: a display with a window manager, and a user's mouse and keys.

    def test_something(desktop):
        with desktop.start(SCRIPT) as window:             # a script's text or path, and its arguments
            window.wait_until(lambda picture: is_green(picture[10, 10]))
            window.click(20, 30)                          # pixels of the client area, y down
            window.key("Left")
            window.close()
        assert window.exit_code == 0, window.shown()      # also window.stdout, window.stderr

Buttons are "left", "middle" and "right", keys have X's names: "Left", "a", "Return", "shift+a". What the user does
reaches the script in the order of the calls. A press and a release have a moment each for a script that asks ten times
a second; what has to have one otherwise, the test waits for: window.wait_for_line("what the script prints of it").
"""

import contextlib
import os
import subprocess
import time

import numpy
import PIL.Image
import PIL.ImageGrab

TIME_LIMIT = 60  # seconds, for whatever a test waits for
BUTTONS = {"left": 1, "middle": 2, "right": 3}
WHEEL_UP, WHEEL_DOWN = 4, 5
MOMENT = 0.1  # seconds, in which a script that asks often takes a button's event by itself, also on a busy machine


def wait_for(condition, what):
    """The condition's value as soon as it is true."""
    end = time.monotonic() + TIME_LIMIT
    while not (value := condition()):
        assert time.monotonic() < end, f"{what}: not within {TIME_LIMIT} s"
        time.sleep(0.05)
    return value


@contextlib.contextmanager
def running(command, **options):
    """A silent program meanwhile, which is ended then."""
    program = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)
    try:
        yield
    finally:
        program.terminate()
        try:
            program.wait(TIME_LIMIT)
        finally:
            program.kill()


def window_manager(display):
    """One meanwhile that decorates windows, gives them the focus, and closes them, as its own settings say."""
    command = ["openbox", "--sm-disable", "--config-file", "/etc/xdg/openbox/rc.xml"]
    return running(command, env=os.environ | {"DISPLAY": display})


class Desktop:
    """start_talq(arguments, stdout, stderr) starts talq.exe on the display, in the folder."""

    def __init__(self, display, folder, start_talq):
        self.environment = os.environ | {"DISPLAY": display}
        self.display = display
        self.folder = folder
        self.start_talq = start_talq

    @contextlib.contextmanager
    def start(self, script, *arguments, options=()):
        """Runs a script, under talq's options, until its first window is there, as a UserWindow with the focus. In the
        end waits for the script, which has to end by then."""
        if isinstance(script, str):
            text, script = script, self.folder / "window.talq"
            script.write_text(text, encoding="utf-8")
        with open(self.folder / "stdout", "wb") as stdout, open(self.folder / "stderr", "wb") as stderr:
            program = self.start_talq([*options, script, *map(str, arguments)], stdout, stderr)
        window = UserWindow(self, program)
        try:
            window.appear()
            yield window
            window.wait_for_end()
        finally:
            program.kill()
            program.wait(TIME_LIMIT)

    @contextlib.contextmanager
    def keyboard(self, layout):
        """The keys are those of another country meanwhile."""
        self.ask("setxkbmap", layout)
        try:
            yield
        finally:
            self.ask("setxkbmap", "us")

    def saved(self, name):
        """A PNG file that the script has left."""
        return numpy.asarray(PIL.Image.open(self.folder / f"{name}.png").convert("RGB"))

    def printed(self):
        """What the script has printed until now. Its Pump hands over what was printed before."""
        return (self.folder / "stdout").read_text(encoding="utf-8")

    def windows(self):
        """The numbers of the scripts' windows that are seen."""
        return self.try_to_ask("xdotool", "search", "--onlyvisible", "--class", "talq.exe").stdout.split()

    def ask(self, *command):
        """What a program prints, which has to succeed."""
        done = self.try_to_ask(*command)
        assert done.returncode == 0, f"{' '.join(done.args)}: {done.stderr}"
        return done.stdout

    def try_to_ask(self, *command):
        """The program's end, well or not, with what it has printed."""
        return subprocess.run(
            list(map(str, command)),
            env=self.environment,
            capture_output=True,
            encoding="utf-8",
            timeout=TIME_LIMIT,
        )


class UserWindow:
    def __init__(self, desktop, program):
        self.desktop = desktop
        self.program = program
        self.id = None
        self.moment = MOMENT  # that a press and a release have each
        self.exit_code = None
        self.stdout = self.stderr = ""

    # What there is to see

    def title(self):
        return self.desktop.ask("xdotool", "getwindowname", self.id).rstrip("\n")

    def client_area(self):
        """left, top, width and height on the display."""
        report = self.desktop.ask("xwininfo", "-id", self.id)
        value = lambda label: int(report.split(label + ":")[1].split()[0])
        return value("Absolute upper-left X"), value("Absolute upper-left Y"), value("Width"), value("Height")

    def picture(self):
        """The client area as it is on the display: height x width x 3 bytes (red, green, blue)."""
        left, top, width, height = self.client_area()
        return numpy.asarray(self.screenshot())[top : top + height, left : left + width]

    def screenshot(self):
        return PIL.ImageGrab.grab(xdisplay=self.desktop.display).convert("RGB")

    def wait_until(self, condition):
        """The picture for which the condition holds."""

        def picture():
            taken = self.picture()
            # A window that is about to be shown again has no picture.
            return [taken] if taken.size and condition(taken) else []

        return wait_for(picture, "the picture")[0]

    def wait_for_title(self, title):
        wait_for(lambda: self.title() == title, f"the title {title}")

    def wait_for_line(self, line):
        """Until the script has printed it and called Pump."""
        wait_for(lambda: line in self.desktop.printed().splitlines(), f"the line {line}")

    # What the user does

    def move(self, x, y):
        """Outside of the window too."""
        left, top, _, _ = self.client_area()
        self._do("mousemove", "--", left + x, top + y)

    def press(self, button="left"):
        self._do("mousedown", BUTTONS[button])
        time.sleep(self.moment)

    def release(self, button="left"):
        self._do("mouseup", BUTTONS[button])
        time.sleep(self.moment)

    def click(self, x, y, button="left"):
        self.move(x, y)
        self.press(button)
        self.release(button)

    def drag(self, places, button="left"):
        """From the first place to the last, by way of the others."""
        self.move(*places[0])
        self.press(button)
        for place in places[1:]:
            self.move(*place)
        self.release(button)

    def scroll(self, notches):
        for _ in range(abs(notches)):
            self._do("click", WHEEL_UP if notches > 0 else WHEEL_DOWN)

    def key(self, name):
        self._do("key", name)

    def hold_key(self, name):
        self._do("keydown", name)

    def release_key(self, name):
        self._do("keyup", name)

    def type(self, text):
        self._do("type", text)

    def resize(self, width, height):
        """Through the window manager."""
        self._do("windowsize", self.id, width, height)
        wait_for(lambda: self.client_area()[2:] == (width, height), "the new size")

    def minimize(self):
        self._do("windowminimize", self.id)

    def activate(self):
        def has_become_active():
            self.desktop.try_to_ask("xdotool", "windowactivate", self.id)
            return self.desktop.try_to_ask("xdotool", "getactivewindow").stdout.split() == [self.id]

        wait_for(has_become_active, "the focus")

    def close(self):
        """Asks the script for it, by the button at the end of the title's bar."""
        left, top, width, _ = self.client_area()
        self._do("mousemove", left + width - 10, top - 10, "click", 1)

    # The script's life

    def appear(self):
        def windows_or_end():
            return self.desktop.windows() or (["none"] if self.program.poll() is not None else [])

        self.id = wait_for(windows_or_end, "a window")[-1]
        if self.id == "none":
            self.wait_for_end()
            raise AssertionError("The script has no window.\n" + self.shown())
        self.activate()

    def wait_for_end(self):
        self.program.wait(TIME_LIMIT)
        self.exit_code = self.program.returncode
        self.stdout = self.desktop.printed()
        self.stderr = (self.desktop.folder / "stderr").read_text(encoding="utf-8")

    def shown(self):
        return f"exit code {self.exit_code}\n--- stdout\n{self.stdout}\n--- stderr\n{self.stderr}"

    def _do(self, *arguments):
        self.desktop.ask("xdotool", *arguments)
