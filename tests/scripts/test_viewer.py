"""examples/viewer.talq under its user's mouse and keys, checked by what its mesh and its camera let expect."""

import os
import pathlib
import re

import numpy
import pytest

import gallery
from desktop import wait_for
from test_bunny import MODEL, read_obj, unit
from test_orbit import drag_slowly

VIEWER = gallery.EXAMPLES / "viewer.talq"
FIELD = 35  # degrees, from the picture's bottom to its top


class Camera:
    """The one that the viewer starts with for these vertices."""

    def __init__(self, vertices):
        low, high = vertices.min(axis=0), vertices.max(axis=0)
        self.centre = (low + high) / 2
        self.distance = numpy.linalg.norm(high - low) / 2 / numpy.sin(numpy.radians(FIELD / 2))
        self.turn, self.rise = 25.0, 15.0  # degrees

    def axes(self):
        """To the right, upwards and backwards as the eye sees it."""
        turn, rise = numpy.radians([self.turn, self.rise])
        back = numpy.array([numpy.sin(turn) * numpy.cos(rise), numpy.sin(rise), numpy.cos(turn) * numpy.cos(rise)])
        side = unit(numpy.cross([0, 1, 0], back))
        return numpy.array([side, numpy.cross(back, side), back])

    def eye(self):
        return self.centre + self.distance * self.axes()[2]

    def pixel(self, height):
        """Its size at a distance of 1 from the eye."""
        return 2 * numpy.tan(numpy.radians(FIELD) / 2) / height

    def project(self, vertices, width, height):
        """Columns and rows."""
        x, y, z = self.axes() @ (vertices - self.eye()).T
        return width / 2 - x / z / self.pixel(height), height / 2 + y / z / self.pixel(height)

    def first_met(self, corners, x, y, width, height):
        """The number of the triangle and the point that are seen in the middle of a pixel; corners are N x 3 x 3."""
        to_the_right, up = (x + 0.5 - width / 2) * self.pixel(height), (height / 2 - y - 0.5) * self.pixel(height)
        way = numpy.array([to_the_right, up, -1]) @ self.axes()
        a, b, c = (corners[:, corner] - self.eye() for corner in range(3))
        # The ray passes within a triangle where it is on the same side of all three planes through the eye and an edge.
        sides = numpy.array([numpy.cross(p, q) @ way for p, q in ((a, b), (b, c), (c, a))])
        met = (sides > 0).all(axis=0) | (sides < 0).all(axis=0)
        normals = numpy.cross(b - a, c - a)
        lengths = numpy.full(len(corners), numpy.inf)
        lengths[met] = (numpy.sum(a * normals, axis=1) / (normals @ way))[met]
        nearest = lengths.argmin()
        return nearest, self.eye() + lengths[nearest] * way


@pytest.fixture(scope="module")
def bunny():
    """Vertices, and the corners of each triangle."""
    vertices, faces = read_obj(MODEL)
    return vertices, vertices[faces]


def is_warm(picture):
    """The mesh and its mark; the background that is there first is bluish."""
    return picture[:, :, 0] > picture[:, :, 2]


def extent(picture):
    rows, columns = numpy.nonzero(is_warm(picture))
    return [columns.min(), columns.max() + 1, rows.min(), rows.max() + 1] if len(rows) else [0, 0, 0, 0]


def wait_for_view(window, vertices, camera):
    """The picture in which the mesh reaches as far as the camera lets expect."""
    width, height = window.client_area()[2:]
    x, y = camera.project(vertices, width, height)
    expected = [x.min(), x.max(), y.min(), y.max()]
    assert 0 < expected[0] < expected[1] < width and 0 < expected[2] < expected[3] < height
    return window.wait_until(lambda picture: numpy.abs(numpy.subtract(extent(picture), expected)).max() <= 2)


def test_mouse_turns_zooms_and_moves(desktop, bunny):
    vertices, _ = bunny
    camera = Camera(vertices)
    with desktop.start(VIEWER) as window:
        first = wait_for_view(window, vertices, camera)
        wait_for(lambda: re.fullmatch(r"bunny\.obj - \d+ frames a second", window.title()), "the count of frames")

        drag_slowly(window, [(300, 300), (360, 310), (400, 330)], "left")
        camera.turn, camera.rise = 25 - 40, 15 + 12
        wait_for_view(window, vertices, camera)

        window.scroll(2)
        camera.distance *= 0.88**2
        wait_for_view(window, vertices, camera)

        drag_slowly(window, [(300, 300), (320, 290), (340, 280)], "right")
        side, up, _ = camera.axes()
        camera.centre = camera.centre - camera.pixel(600) * camera.distance * (40 * side + 20 * up)
        wait_for_view(window, vertices, camera)

        window.key("Home")
        window.wait_until(lambda picture: numpy.array_equal(picture, first))
        window.key("Escape")
    assert window.exit_code == 0, window.shown()


@pytest.mark.parametrize("width, height", [(500, 640), (801, 330)])
def test_another_size_keeps_the_proportions(desktop, bunny, width, height):
    vertices, _ = bunny
    with desktop.start(VIEWER) as window:
        window.resize(width, height)
        picture = wait_for_view(window, vertices, Camera(vertices))
        # The background reaches from edge to edge.
        assert picture[0].max() < 60 and picture[-1].min() > 100
        window.key("Escape")
    assert window.exit_code == 0, window.shown()


def test_keys_change_the_looks_and_back(desktop, bunny):
    with desktop.start(VIEWER) as window:
        first = wait_for_view(window, bunny[0], Camera(bunny[0]))
        mesh = is_warm(first)
        colors = lambda picture: len(gallery.colors_in(picture[mesh]))
        dark = lambda picture: (picture[mesh] < 50).all(axis=1).mean()
        # How far the mesh is from the colour of the fog, that of the background's lower edge.
        from_fog = lambda picture: numpy.abs(picture[mesh] - 255 * numpy.array([0.42, 0.50, 0.60])).mean()
        for key, has_changed in [
            ("w", lambda picture: dark(picture) > dark(first) + 0.1),
            ("s", lambda picture: 100 < colors(picture) < colors(first) * 0.8),
            ("l", lambda picture: (numpy.abs(picture[mesh] - 255 * numpy.array([0.80, 0.62, 0.46])) < 1).all()),
            ("f", lambda picture: from_fog(picture) < from_fog(first) * 0.75),
        ]:
            window.key(key)
            changed = window.wait_until(has_changed)
            # Outlines may go over the edge by a pixel.
            assert (changed[~mesh] != first[~mesh]).any(axis=1).mean() < 0.005
            window.key(key)
            window.wait_until(lambda picture: numpy.array_equal(picture, first))
        for corner in [(250, 250, 247), (0, 0, 0), first[0, 0]]:
            window.key("b")
            changed = window.wait_until(lambda picture: numpy.abs(picture[0, 0] - numpy.array(corner)).max() < 3)
            assert numpy.array_equal(changed[mesh], first[mesh])
        window.key("Escape")
    assert window.exit_code == 0, window.shown()


def is_mark(pixel):
    return numpy.abs(pixel - numpy.array([255, 25.5, 127.5])).max() < 1


def places_on_mesh(picture):
    """Twelve pixels anywhere on the mesh."""
    rows, columns = numpy.nonzero(is_warm(picture))
    chosen = numpy.random.default_rng(5).choice(len(rows), 12, replace=False)
    return zip(columns[chosen].tolist(), rows[chosen].tolist())


def test_click_picks_the_triangle_that_is_seen_there(desktop, bunny):
    vertices, corners = bunny
    camera = Camera(vertices)
    camera.turn, camera.rise = 25 + 60, 15 - 8
    expected = []
    with desktop.start(VIEWER) as window:
        drag_slowly(window, [(300, 300), (200, 290), (150, 280)], "left")
        seen = wait_for_view(window, vertices, camera)
        for x, y in places_on_mesh(seen):
            expected.append(camera.first_met(corners, x, y, 800, 600))
            window.click(x, y)
            window.wait_until(lambda picture: is_mark(picture[y, x]))
            wait_for(lambda: f": triangle {expected[-1][0]} at " in window.title(), "the triangle in the title")
        # Beside the mesh, a click takes the mark away.
        window.click(20, 20)
        window.wait_until(lambda picture: numpy.array_equal(picture, seen))
        window.key("Escape")
    assert window.exit_code == 0, window.shown()
    picked = re.findall(r"^bunny\.obj: triangle (\d+) at (\S+) (\S+) (\S+)$", window.stdout, re.MULTILINE)
    assert [int(triangle) for triangle, *_ in picked] == [triangle for triangle, _ in expected]
    for (_, *point), (_, place) in zip(picked, expected):
        assert list(map(float, point)) == pytest.approx(place.tolist(), abs=0.001)


# A square plate of two triangles before another, both a millimetre large.
PLATES = """v 0 0 0\nv 0.001 0 0\nv 0.001 0.001 0\nv 0 0.001 0
v 0 0 0.0005\nv 0.001 0 0.0005\nv 0.001 0.001 0.0005\nv 0 0.001 0.0005
f 1 2 3 4\nf 5 6 7 8\n"""


def test_places_in_a_small_mesh_have_their_digits(desktop, tmp_path):
    (tmp_path / "small.obj").write_text(PLATES)
    vertices = numpy.array([line.split()[1:] for line in PLATES.splitlines() if line.startswith("v")], dtype=float)
    corners = vertices[[[0, 1, 2], [0, 2, 3], [4, 5, 6], [4, 6, 7]]]
    with desktop.start(VIEWER, "small.obj") as window:
        wait_for_view(window, vertices, Camera(vertices))
        window.click(400, 280)
        wait_for(lambda: " at " in window.title(), "the triangle in the title")
        window.key("Escape")
    triangle, place = Camera(vertices).first_met(corners, 400, 280, 800, 600)
    (line,) = [line for line in window.stdout.splitlines() if line.startswith("small.obj: ")]
    name, number, point = re.fullmatch(r"(\S+): triangle (\d+) at (.*)", line).groups()
    assert int(number) == triangle >= 2
    assert list(map(float, point.split())) == pytest.approx(place.tolist(), abs=1e-6)


def test_pictures_are_saved_under_new_names(desktop, bunny):
    with desktop.start(VIEWER) as window:
        first = wait_for_view(window, bunny[0], Camera(bunny[0]))
        window.key("p")
        window.wait_for_line("out/viewer-1.png")
        window.resize(402, 300)
        second = wait_for_view(window, bunny[0], Camera(bunny[0]))
        window.key("p")
        window.wait_for_line("out/viewer-2.png")
        window.key("Escape")
    assert window.exit_code == 0, window.shown()
    assert window.stdout.splitlines()[-2:] == ["out/viewer-1.png", "out/viewer-2.png"]
    assert numpy.array_equal(desktop.saved("out/viewer-1"), first)
    # The width is cut to a multiple of 4.
    assert numpy.array_equal(desktop.saved("out/viewer-2"), second[:, :400])


def test_picture_that_cannot_be_saved_ends_nothing(desktop, bunny):
    (desktop.folder / "out").write_text("a file in the place of the folder")
    with desktop.start(VIEWER) as window:
        first = wait_for_view(window, bunny[0], Camera(bunny[0]))
        window.key("p")
        window.key("b")
        window.wait_until(lambda picture: (picture != first).any())
        window.key("Escape")
    assert window.exit_code == 0, window.shown()
    assert "out/viewer-1.png" in window.stdout.splitlines()[-1] and window.stdout.splitlines()[-1] != "out/viewer-1.png"


def processes_in(folder):
    """The programs that were started there, and those that these have started."""
    inside = []
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            inside += [process.name] * (os.readlink(process / "cwd") == str(folder))
        except OSError:
            pass  # it has ended, or is another user's
    return inside


@pytest.mark.parametrize("end", ["Escape", "the window's button"])
def test_nothing_is_left_running(desktop, bunny, end):
    with desktop.start(VIEWER) as window:
        wait_for_view(window, bunny[0], Camera(bunny[0]))
        assert processes_in(desktop.folder)
        if end == "Escape":
            window.key("Escape")
        else:
            window.close()
    assert window.exit_code == 0 and window.stderr == "", window.shown()
    wait_for(lambda: not processes_in(desktop.folder), "the end of all programs")
    assert desktop.windows() == []


@pytest.mark.parametrize(
    "text, message",
    [
        (None, "model.obj"),
        ("v 0 0 0\nv 1 0\n", "model.obj is not a proper OBJ file: line 2: three numbers are needed."),
        ("v 0 0 0\nv 1 0 0\n", "model.obj has no faces."),
        ("v 1 2 3\nf 1 1 1\n", "model.obj has no extent."),
    ],
    ids=["missing", "malformed", "no faces", "no extent"],
)
def test_bad_model_is_told(talq, tmp_path, text, message):
    if text is not None:
        (tmp_path / "model.obj").write_text(text)
    run = talq(VIEWER, "model.obj")
    assert run.exit_code == 1 and message in run.stderr, run.shown()


def test_without_a_display_the_error_says_what_to_do(talq):
    run = talq(VIEWER)
    assert run.exit_code == 1
    assert "hint: scripts with windows run with ./run --window" in run.stderr
