"""The planets of examples/orrery.talq: where they are on a day, and what the user of its window does."""

import datetime
import json
import re
import time

import numpy
import pytest

import gallery
from camera import orbit_eye, project
from desktop import wait_for
from test_orbit import drag_slowly

SCRIPT = gallery.EXAMPLES / "orrery.talq"
START = datetime.date(2000, 1, 1)

# Days for the way around the sun, distance in astronomical units, mean longitude at noon on 1 January 2000, and radius
# in those of the Earth.
PLANETS = {
    "Mercury": (87.97, 0.3871, 252.3, 0.383),
    "Venus": (224.7, 0.7233, 182.0, 0.949),
    "Earth": (365.26, 1, 100.5, 1),
    "Mars": (686.98, 1.5237, 355.4, 0.532),
    "Jupiter": (4332.6, 5.203, 34.4, 11.2),
    "Saturn": (10759, 9.537, 49.9, 9.45),
    "Uranus": (30687, 19.19, 313.2, 4.01),
    "Neptune": (60190, 30.07, 304.9, 3.88),
}
VIEW = [35, 1000, 680]
EYE = orbit_eye(numpy.zeros(3), 88, 205, 22)


def places_on(date, eye=EYE):
    """Of each planet that nothing hides: its pixel, and its radius in pixels."""
    days = (date - START).days + 0.5
    names = list(PLANETS)
    period, distance, longitude, radius = numpy.array(list(PLANETS.values())).T
    angle = numpy.radians(longitude + 360 * days / period)
    way = 8 * numpy.sqrt(distance)
    points = numpy.array([way * numpy.cos(angle), 0 * way, -way * numpy.sin(angle)]).T
    x, y, scale = project(numpy.vstack([points, [0, 0, 0]]), eye, [0, 0, 0], VIEW)
    size = scale * 0.7 * numpy.cbrt([*radius, 109])
    size[names.index("Saturn")] *= 2.5  # the rings
    size[names.index("Earth")] += 1.7 * scale[names.index("Earth")]  # the Moon
    gap = numpy.hypot(x[:, None] - x, y[:, None] - y) - size[:, None] - size
    numpy.fill_diagonal(gap, numpy.inf)
    return {name: (int(x[i]), int(y[i]), size[i]) for i, name in enumerate(names) if gap[i].min() > 3}


def date_of(window):
    """The day in the title, once frames are counted."""
    pattern = r"Orrery - (\d+ \w+ \d+) - \d+ frames a second"
    (text,) = wait_for(lambda: re.findall(pattern, window.title()), "the count of frames")
    return datetime.datetime.strptime(text, "%d %B %Y").date()


def press(window, key, times=1):
    """One after another: a key that is pressed twice in a frame counts once. Each changes the words on the pace."""
    date_of(window)  # its frames have begun
    for _ in range(times):
        before = window.picture()[40:60, :200]
        window.key(key)
        window.wait_until(lambda picture: changed(picture[40:60, :200], before).any())


def settled(window):
    """The picture, when it stays as it is."""
    before = window.picture()
    while True:
        time.sleep(1.5)
        picture = window.picture()
        if not changed(picture, before).any():
            return picture
        before = picture


def pause(window):
    """The day on which the planets stand still, and the picture."""
    press(window, "space")
    date, end = None, time.monotonic() + 30
    while True:
        time.sleep(1.5)  # titles change twice a second
        if date == (date := date_of(window)):
            return date, window.picture()
        assert time.monotonic() < end, "The planets go on."


def changed(picture, before):
    """Where two pictures differ, except for the frames a second in the upper right corner."""
    different = (picture != before).any(axis=2)
    different[:40, 600:] = False
    return different


def is_named_at(picture, before, x, y):
    """Whether letters have come at the right side of the pixel."""
    return changed(picture, before)[y - 14 : y, x : x + 160].sum() > 40


def place_of_neptune(picture):
    """Column and row of what is deep blue in the upper half."""
    red, _, blue = picture[:300].astype(int).transpose(2, 0, 1)
    rows, columns = numpy.nonzero(blue - red > 110)
    return numpy.array([int(numpy.median(columns)), int(numpy.median(rows))])


def test_dates_are_those_of_the_calendar(talq):
    # Days before and behind leap days of several kinds.
    days = [0, 0.99, 1, 31, 58, 59, 60, 365, 366, 1154, 1155, 36583, 36584, 36585, 146096, 146097, 200000]
    done = talq(f'include "{gallery.EXAMPLES}/orrery/bodies.talq"; Print({days});'
                f"days = {days}; for (i = 0; i < Length(days); i += 1) Print(DateOf(days[i]));")
    _, *dates = done.stdout.splitlines()
    expected = [START + datetime.timedelta(days=int(day)) for day in days]
    assert dates == [f"{date.day} {date:%B} {date.year}" for date in expected]


def test_the_moon_goes_around_the_earth(talq):
    done = talq(f"""
include "{gallery.EXAMPLES}/orrery/bodies.talq";
for (day = 0; day < 28; day += 1) {{
  moon = PlaceOf(theMoon, day) - PlaceOf(theEarth, day);
  Print([moon.x, moon.y, moon.z]);
}}
""")
    x, y, z = numpy.array([json.loads(line) for line in done.stdout.splitlines()]).T
    assert numpy.hypot(x, z) == pytest.approx(1.7) and not y.any()
    # Counter-clockwise as seen from +y, and around once in the month.
    turned = numpy.diff(numpy.unwrap(numpy.arctan2(-z, x)))
    assert numpy.degrees(turned) == pytest.approx(360 / 27.32, rel=1e-3)


def test_planets_move_and_clicks_name_them(desktop):
    with desktop.start(SCRIPT) as window:
        first = window.wait_until(lambda picture: (picture.max(axis=2) > 200).sum() > 3000)
        window.wait_until(lambda picture: changed(picture, first).sum() > 500)  # untouched
        named = []
        for years in (0, 6):
            # Later, the planets have come apart by their years.
            if years:
                press(window, "space")
                press(window, "f", 6)  # to 1024 days a second
                wait_for(lambda: (date_of(window) - START).days > 365 * years, "the year")
            date, before = pause(window)
            assert not changed(window.picture(), before).any()
            places = places_on(date)
            assert len(places) >= 4
            for name, (x, y, size) in places.items():
                window.click(x, y)
                named.append(name)
                words = window.wait_until(lambda picture: is_named_at(picture, before, x, y))
                rows, columns = numpy.nonzero(changed(words, before))
                # By its right side.
                assert rows.min() > y - 20 and rows.max() < y + 22 and columns.min() >= x
                window.click(30, 120)  # the sky
                window.wait_until(lambda picture: not changed(picture, before).any())
        window.key("Escape")
    assert window.exit_code == 0, window.shown()
    assert [line.split(":")[0] for line in window.stdout.splitlines()] == named


def test_time_goes_slower_and_faster(desktop):
    with desktop.start(SCRIPT) as window:
        press(window, "s", 4)  # from 16 days a second to one
        time.sleep(2)
        date, begin = date_of(window), time.monotonic()
        time.sleep(4)
        later = date_of(window)
        assert 0 <= (later - date).days <= time.monotonic() - begin + 2
        press(window, "f", 10)
        wait_for(lambda: (date_of(window) - later).days > 800, "the days")
        window.close()
    assert window.exit_code == 0, window.shown()


def test_camera_turns_comes_nearer_and_goes_to_what_was_clicked(desktop):
    with desktop.start(SCRIPT) as window:
        date, before = pause(window)
        size_of_sun = lambda picture: (picture.min(axis=2) > 150).sum()
        window.move(500, 340)
        window.scroll(5)
        window.wait_until(lambda picture: size_of_sun(picture) > 2 * size_of_sun(before))
        window.scroll(-5)
        window.wait_until(lambda picture: changed(picture, before).mean() < 0.01)

        x, y, _ = places_on(date)["Neptune"]
        assert numpy.hypot(*(place_of_neptune(before) - [x, y])) < 4
        drag_slowly(window, [(300, 200), (300, 200), (320, 210), (360, 220), (400, 220)], "left")
        window.wait_until(lambda picture: place_of_neptune(picture)[0] < x - 50)
        turned = settled(window)
        x, y = place_of_neptune(turned)
        window.click(x, y)
        window.wait_until(lambda picture: is_named_at(picture, turned, x, y))
        window.key("Return")
        # It is blue and in the middle, where the sun was.
        window.scroll(10)
        window.wait_until(lambda picture: (picture[330:350, 490:510].mean(axis=(0, 1)) @ [-1, 0, 1]) > 50)
        window.key("Home")
        window.wait_until(lambda picture: size_of_sun(picture) > size_of_sun(before) / 2)
        window.close()
    assert window.exit_code == 0, window.shown()
    assert [line.split(":")[0] for line in window.stdout.splitlines()] == ["Neptune"]


def test_without_a_display_the_hint_says_what_to_do(talq):
    done = talq(SCRIPT)
    assert done.exit_code == 1
    assert "hint: scripts with windows run with ./run --window" in done.stderr
