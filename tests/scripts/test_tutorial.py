"""docs/tutorial.md: its scripts run without a finding of --check, its pictures are theirs, and its windows answer."""

import re

import numpy
import pytest

import tutorial
from comparison import CHANGES, Difference

PAGE = (tutorial.ROOT / "docs" / "tutorial.md").read_text()
WINDOW, MOTION, CLICKS = tutorial.WINDOWS


def is_shown(picture, script):
    return Difference(picture, tutorial.shown_picture(script)).is_small()


def opened(desktop, script):
    return desktop.start(script, options=["--check"])


def assert_ended_well(window):
    assert (window.exit_code, window.stderr) == (0, ""), window.shown()


def red_ball(window):
    """Where the first ball is now that the carousel is halted, as soon as it is seen."""
    window.wait_until(tutorial.place_of_red_ball)
    window.key("space")
    return tutorial.place_of_red_ball(still_picture(window))


def still_picture(window):
    """The picture of a carousel that no longer turns."""
    last = [window.picture()]

    def is_as_before(picture):
        before, last[0] = last[0], picture
        return (picture == before).all()

    return window.wait_until(is_as_before)


def top_of_roof(picture):
    """The row where the picture's middle column is no longer sky."""
    column = picture[:, picture.shape[1] // 2].astype(int)
    return int((numpy.abs(column - column[0]).sum(axis=1) > 60).argmax())


def test_the_page_has_each_script_and_its_picture_in_order():
    assert len(tutorial.STEPS) == 8
    assert re.findall(r"^```talq\n(.*?)^```$", PAGE, re.MULTILINE | re.DOTALL) == [
        script.read_text() for script in tutorial.STEPS
    ]
    shown = re.findall(r"^!\[(.+)\]\(tutorial/(.+)\.png\)$", PAGE, re.MULTILINE)
    assert [name for _, name in shown] == [script.stem for script in tutorial.STEPS]
    assert sorted(path.stem for path in tutorial.FOLDER.glob("*.png")) == [script.stem for script in tutorial.STEPS]


@pytest.mark.parametrize("script", tutorial.BITMAPS, ids=lambda script: script.stem)
def test_a_step_draws_its_picture(talq, script):
    run = talq(script, options=["--check"])
    assert (run.exit_code, run.stderr) == (0, ""), run.shown()
    assert list(run.pictures) == [script.stem]
    difference = Difference(run.pictures[script.stem], tutorial.shown_picture(script))
    assert difference.is_small(), difference


@pytest.mark.parametrize("change", CHANGES)
@pytest.mark.parametrize("script", [*tutorial.BITMAPS, WINDOW], ids=lambda script: script.stem)
def test_comparison_sees(script, change):
    assert not is_shown(change(tutorial.shown_picture(script)), script)


def test_the_window_shows_its_picture_in_any_size_until_it_is_closed(desktop):
    with opened(desktop, WINDOW) as window:
        window.wait_until(lambda picture: is_shown(picture, WINDOW))
        window.resize(800, 480)
        # The scene stays in the middle, and does not become wider.
        wider = window.wait_until(lambda picture: is_shown(picture[:, 80:720], WINDOW))
        assert wider.shape == (480, 800, 3)
        window.resize(800, 600)
        higher = top_of_roof(tutorial.shown_picture(WINDOW)) * 600 / 480
        window.wait_until(lambda picture: picture.shape == (600, 800, 3) and abs(top_of_roof(picture) - higher) < 2)
        window.close()
    assert_ended_well(window)


def test_the_carousel_turns_until_space_halts_it(desktop):
    with opened(desktop, MOTION) as window:
        first = red_ball(window)
        window.key("space")
        window.wait_until(lambda picture: (place := tutorial.place_of_red_ball(picture)) and abs(place[0] - first[0]) > 40)
        window.key("Escape")
    assert_ended_well(window)


def test_what_a_step_in_motion_shows_beside_the_carousel_is_on_its_picture(desktop):
    for script in (MOTION, CLICKS):
        with opened(desktop, script) as window:
            still = tutorial.shown_picture(script)
            # Sky, roof and the floor before the carousel.
            parts = [(slice(0, 200), slice(0, 640)), (slice(400, 480), slice(0, 640))]
            window.wait_until(lambda picture: all(Difference(picture[part], still[part]).is_small() for part in parts))
            window.close()
        assert_ended_well(window)


def test_a_click_chooses_the_ball_that_is_seen_there(desktop):
    with opened(desktop, CLICKS) as window:
        x, y = red_ball(window)
        window.click(x, y)
        window.wait_for_title("Carousel: ball 0")
        # In light, its white is without a tint.
        window.wait_until(lambda picture: min(picture[y, x]) > 100 and picture[y, x].ptp() < 4)
        window.click(320, 150)  # the roof
        window.wait_for_title("Carousel")
        window.wait_until(lambda picture: tutorial.place_of_red_ball(picture) == (x, y))
        window.close()
    assert_ended_well(window)
