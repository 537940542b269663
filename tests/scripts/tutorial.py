"""The steps of the tutorial: their scripts, and the pictures that the page shows of them."""

import pathlib

import numpy

import conftest

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = ROOT / "docs" / "tutorial"
STEPS = sorted(FOLDER.glob("*.talq"))
# Those that show a window until their user closes it; the others save their picture under the script's name.
WINDOWS = [path for path in STEPS if "->Pump(" in path.read_text()]
BITMAPS = [path for path in STEPS if path not in WINDOWS]
WIDTH, HEIGHT = 640, 480
FRAME_TOP, FRAME_SIDE, FRAME_BOTTOM = 20, 1, 5  # pixels of the window manager around a window's client area


def picture_of(script):
    return script.with_suffix(".png")


def shown_picture(script):
    """What the page shows of the step, without the frame that the window manager has drawn around a window."""
    picture = conftest.read_picture(picture_of(script))
    return picture[FRAME_TOP : FRAME_TOP + HEIGHT, FRAME_SIDE : FRAME_SIDE + WIDTH] if script in WINDOWS else picture


def place_of_red_ball(picture):
    """The column and row of the first ball's middle, or None while others hide most of it."""
    red, green, _ = numpy.moveaxis(picture.astype(int), 2, 0)
    rows, columns = numpy.nonzero((red > 90) & (red > 2.8 * green))
    return (int(numpy.median(columns)), int(numpy.median(rows))) if len(rows) > 1200 else None
