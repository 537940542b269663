"""The examples that show a window: a user who does anything at all, and the page that shows them."""

import random
import re
import shutil
import time

import pytest

import gallery
from desktop import BUTTONS

# A round of random input takes until there were so many frames and sizes of the window.
FRAMES = 100
SIZES = 10
ROUND_LIMIT = 300  # seconds
MEBIBYTE = 1 << 20
# The second round may take so much: 160 KB lost in each frame are seen, or the buffers of each size, which have two
# mebibytes on average. What software rendering compiles when it first meets a state takes some mebibytes.
MOST_GROWTH = 16 * MEBIBYTE
# Without any input there are 52: those of a window and of Wine itself.
MOST_HANDLES = 64
KEYS = ["Left", "Right", "Up", "Down", "Home", "End", "Prior", "Next", "space", "Return", "Tab", "Delete", "BackSpace"]
KEYS += [f"F{number}" for number in range(1, 13)] + list("abcdefghijklmnopqrstuvwxyz0123456789")
LOOP = 'while (window->Pump(60) && !window->WasKeyPressed("Escape")) {'


def copy_that_counts(name, folder):
    """The example, which prints "frame" for each of its frames and at its end how many GDI handles it has, among all
    that it reads."""
    shutil.copytree(gallery.EXAMPLES, folder / "examples", ignore=shutil.ignore_patterns("pictures"))
    script = folder / "examples" / f"{name}.talq"
    text = script.read_text(encoding="utf-8")
    assert text.count(LOOP) == 1
    counted = text.replace(LOOP, LOOP + ' Print("frame");')
    script.write_text(counted + 'Print("handles", GdiHandles());\n', encoding="utf-8")
    return script


class User:
    """Does anything. One seed always gives the same things in the same order; how many there are, and in which frame of
    the script each falls, is left to the machine."""

    def __init__(self, window, seed):
        self.window = window
        window.moment = 0  # in no hurry to be understood
        self.random = random.Random(seed)
        self.sizes = 0  # that the window was given

    def place(self):
        _, _, width, height = self.window.client_area()
        return self.random.randrange(width), self.random.randrange(height)

    def act(self):
        choose = self.random.choice
        button = choose(list(BUTTONS))
        window = self.window
        choose([
            lambda: window.key(choose(KEYS)),
            lambda: window.key(choose(KEYS)),
            lambda: window.move(*self.place()),
            lambda: window.click(*self.place(), button),
            lambda: window.drag([self.place() for _ in range(4)], button),
            lambda: window.scroll(choose([-3, -1, 1, 3])),
            lambda: self.hold(choose(KEYS)),
            self.resize,
        ])()  # fmt: skip

    def hold(self, key):
        self.window.hold_key(key)
        self.window.move(*self.place())
        self.window.release_key(key)

    def resize(self):
        self.window.resize(self.random.randrange(120, 900), self.random.randrange(60, 700))
        self.sizes += 1

    def act_for_a_round(self):
        end = time.monotonic() + ROUND_LIMIT
        frames, sizes = frames_of(self.window) + FRAMES, self.sizes + SIZES
        while self.sizes < sizes or frames_of(self.window) < frames:
            assert self.window.program.poll() is None, "the script has ended"
            assert time.monotonic() < end, "too few frames or sizes"
            self.act()


def frames_of(window):
    """How many there were."""
    return window.desktop.printed().splitlines().count("frame")


def resident_bytes(window):
    """Of the script, its window having one and the same size."""
    window.resize(640, 480)
    time.sleep(1)
    with open(f"/proc/{window.program.pid}/status") as status:
        return int(re.search(r"VmRSS:\s+(\d+) kB", status.read())[1]) * 1024


@pytest.mark.parametrize("name", gallery.INTERACTIVE)
def test_example_bears_any_input(desktop, name):
    with desktop.start(copy_that_counts(name, desktop.folder), options=["--check"]) as window:
        user = User(window, name)
        user.act_for_a_round()
        before = resident_bytes(window)
        user.act_for_a_round()
        grown = resident_bytes(window) - before
        window.key("Escape")
    assert window.exit_code == 0 and window.stderr == "", window.shown()
    handles = int(re.search(r"^handles (\d+)$", window.stdout, re.MULTILINE)[1])
    print(f"grown by {grown} bytes, {handles} handles")
    assert grown < MOST_GROWTH and handles < MOST_HANDLES


# ---- The page that shows them

SECTION = (gallery.ROOT / "docs" / "gallery.md").read_text(encoding="utf-8").split("\n## In a window\n")[1].split("\n## ")[0]
PICTURES = gallery.ROOT / "docs" / "windows"


def test_page_shows_every_window_once():
    shown = re.findall(r"\]\(windows/(.+?)\.png\)", SECTION)
    assert sorted(shown) == gallery.INTERACTIVE == sorted(path.stem for path in PICTURES.iterdir())


@pytest.mark.parametrize("text", SECTION.split("\n### ")[1:], ids=lambda text: text.splitlines()[0])
def test_page_says_how_to_open_the_window(text):
    (name,) = re.findall(r"\]\(windows/(.+?)\.png\)", text)
    (command,) = re.findall(r"^    ./run --window (\S+)", text, re.MULTILINE)
    assert command == f"examples/{name}.talq"
