"""The camera of examples/orbit.talq: what it shows, and where it picks."""

import json
import re
import time

import numpy
import pytest

import gallery
from desktop import wait_for

WIDTH, HEIGHT = 400, 300
FRAME = f"""
include "{gallery.EXAMPLES}/orbit.talq";
device = new MDC({WIDTH}, {HEIGHT});
gl = new TOpenGL();
gl->OpenBitmap(device);
gl->Clear();
orbit = NewOrbit(new POINT3(1, 2, 3), 2, 30, 20);
"""
SAVE = f"""
gl->Flush();
new MBmp({WIDTH}, {HEIGHT}, gl->GetDIBits(0, 0, {WIDTH}, {HEIGHT}))->Save("frame.png");
"""
APPLY = f"ApplyOrbit(gl, orbit, {WIDTH}, {HEIGHT});\n"


def run(talq, statements):
    done = talq(FRAME + statements)
    assert done.exit_code == 0, done.shown()
    return done


def extent(done):
    """The first and last column and the first and last row that are drawn."""
    rows, columns = numpy.nonzero(done.pictures["frame"].any(axis=2))
    return numpy.array([columns.min(), columns.max(), rows.min(), rows.max()])


def test_ball_of_the_radius_fills_the_height(talq):
    done = run(talq, APPLY + "gl->Sphere(orbit[orbitCentre], 2, 100);\n" + SAVE)
    middle, half = WIDTH / 2, HEIGHT / 2
    assert numpy.abs(extent(done) - [middle - half, middle + half - 1, 0, HEIGHT - 1]).max() <= 1


@pytest.mark.parametrize(
    "turn, rise, direction",
    [(0, 0, [0, 0, 1]), (90, 0, [1, 0, 0]), (180, 30, [0, 0.5, -0.75**0.5]), (-90, -90, [-0.0174524, -0.9998477, 0])],
)
def test_eye_stands_where_the_angles_say(talq, turn, rise, direction):
    # The rise ends a degree from the poles.
    done = run(talq, f"""
        orbit = NewOrbit(new POINT3(1, 2, 3), 2, 10, 40);
        TurnOrbit(orbit, {turn} - 10, {rise} - 40);
        eye = OrbitEye(orbit);
        Print([eye.x, eye.y, eye.z, orbit[orbitDistance]]);
        """)
    *eye, distance = json.loads(done.stdout)
    assert eye == pytest.approx([place + distance * part for place, part in zip([1, 2, 3], direction)], abs=1e-4)


@pytest.mark.parametrize("turn, rise", [(30, 20), (200, -60)])
def test_what_is_moved_stays_under_the_mouse(talq, turn, rise):
    done = run(talq, f"""
        orbit = NewOrbit(new POINT3(1, 2, 3), 2, {turn}, {rise});
        MoveOrbit(orbit, 90, -60, {HEIGHT});
        {APPLY}
        gl->Sphere(1, 2, 3, 0.1, 40);
        """ + SAVE)
    left, right, top, bottom = extent(done)
    # A ball beside the line of sight appears a little wider.
    assert (left + right + 1) / 2 == pytest.approx(WIDTH / 2 + 90, abs=1)
    assert (top + bottom + 1) / 2 == pytest.approx(HEIGHT / 2 - 60, abs=1)


def test_reset_orbit_is_the_one_of_the_start(talq):
    done = run(talq, """
        TurnOrbit(orbit, 70, -50);
        MoveOrbit(orbit, 10, 20, 300);
        orbit[orbitDistance] = 50;
        ResetOrbit(orbit);
        MoveOrbit(orbit, 10, 20, 300);
        ResetOrbit(orbit);
        Print(orbit[orbitCentre], orbit[orbitTurn], orbit[orbitRise], orbit[orbitDistance]);
        """)
    point, distance = done.stdout.rsplit(" ", 1)
    assert point == "POINT3(1, 2, 3) 30 20"
    assert float(distance) == pytest.approx(2 / numpy.sin(numpy.radians(35 / 2)))


def test_nearest_thing_under_the_pixel_is_picked(talq):
    # Three balls behind each other, of which neither the first nor the last drawn is nearest to the eye on the side of
    # +z, and another one on the right.
    done = run(talq, f"""
        orbit = NewOrbit(new POINT3(0, 0, 0), 2, 0, 0);
        {APPLY}
        function Scene(gl) {{
          gl->PushName(7);
          gl->PushName(1);
          gl->Sphere(0, 0, -1, 0.4, 20);
          gl->LoadName(2);
          gl->Sphere(0, 0, 1, 0.2, 20);
          gl->LoadName(3);
          gl->Sphere(0, 0, 0, 0.4, 20);
          gl->PopName();
          gl->LoadName(8);
          gl->Sphere(1, 0, 0, 0.2, 20);
          gl->PopName();
        }}
        Print([PickAt(gl, 200, 150, Scene), PickAt(gl, 224, 150, Scene), PickAt(gl, 275, 150, Scene),
               PickAt(gl, 275, 250, Scene)]);
        """)
    assert json.loads(done.stdout) == [[7, 2], [7, 3], [8], []]


# ---- By its user

# Tells the orbit whenever A is pressed, and how many clicks there were; the title says how often it has done so.
WINDOW = f"""
include "{gallery.EXAMPLES}/orbit.talq";
window = new MDC(300, 200, "starts", true);
orbit = NewOrbit(new POINT3(1, 2, 3), 2, 30, 20);
clicks = 0;
states = 0;
while (window->Pump(60)) {{
  UpdateOrbit(orbit, window);
  clicks += IsClick(orbit, window);
  centre = orbit[orbitCentre];
  if (window->WasKeyPressed("A")) {{
    Print([orbit[orbitTurn], orbit[orbitRise], orbit[orbitDistance], [centre.x, centre.y, centre.z], clicks]);
    states += 1;
    window->SetTitle("state " + Text(states));
  }}
  if (!states) CountFrame(window, "scene");
}}
"""


PAUSE = 0.3  # seconds, in which the script has several frames


def hold(window, key):
    window.hold_key(key)
    time.sleep(PAUSE)
    window.release_key(key)


def drag_slowly(window, places, button):
    """In several frames, but that the last place is reached in the one in which the button is released."""
    window.move(*places[0])
    window.press(button)
    for place in places[1:]:
        time.sleep(PAUSE)
        window.move(*place)
    window.release(button)


STEPS = [
    lambda window: window.move(150, 100),
    lambda window: drag_slowly(window, [(100, 100), (190, 130), (200, 150)], "left"),
    lambda window: window.click(30, 40),
    lambda window: window.click(150, 60),
    lambda window: [window.scroll(2), window.scroll(-1), window.scroll(1)],
    lambda window: drag_slowly(window, [(150, 100), (180, 80)], "right"),
    lambda window: drag_slowly(window, [(150, 100), (135, 110)], "middle"),
    lambda window: hold(window, "Right"),
    lambda window: hold(window, "Down"),
    lambda window: hold(window, "Prior"),
    lambda window: window.key("Home"),
]


def states_in_window(desktop):
    """The orbit's turn, rise, distance and centre and the number of clicks after each step."""
    with desktop.start(WINDOW) as window:
        wait_for(lambda: re.fullmatch(r"scene - [1-9]\d* frames a second", window.title()), "the count of frames")
        for number, step in enumerate(STEPS):
            step(window)
            time.sleep(PAUSE)
            window.key("a")
            window.wait_for_title(f"state {number + 1}")
        window.close()
    assert window.exit_code == 0, window.shown()
    return [json.loads(line) for line in window.stdout.splitlines()]


def test_orbit_follows_mouse_and_keys(desktop):
    start, dragged, once, clicked, nearer, moved, back, right, down, page, home = states_in_window(desktop)
    assert start[:2] == [30, 20] and start[3:] == [[1, 2, 3], 0]
    assert dragged[:2] == pytest.approx([30 - 40, 20 + 20]) and dragged[2:] == start[2:]
    assert once == dragged[:4] + [1] and clicked == dragged[:4] + [2]
    assert nearer[2] == pytest.approx(start[2] * 0.88**2) and nearer[:2] == dragged[:2]

    turn, rise = numpy.radians(nearer[:2])
    to_the_right = numpy.array([numpy.cos(turn), 0, -numpy.sin(turn)])
    upwards = numpy.array([-numpy.sin(turn) * numpy.sin(rise), numpy.cos(rise), -numpy.cos(turn) * numpy.sin(rise)])
    pixel = 2 * nearer[2] * numpy.tan(numpy.radians(35 / 2)) / 200
    for before, after, by in [(nearer, moved, (30, -20)), (moved, back, (-15, 10))]:
        expected = before[3] + pixel * (by[1] * upwards - by[0] * to_the_right)
        assert after[3] == pytest.approx(expected.tolist(), abs=1e-5)
        assert after[:3] == before[:3]

    assert right[0] > back[0] + 9 and right[1:] == back[1:]
    assert down[1] < right[1] - 6 and down[0] == right[0]
    assert page[2] < down[2] * 0.9 and page[:2] == down[:2]
    assert home == start[:4] + [2]
