"""The pictures of the examples picking, plot and solar-system, checked by what their scenes say."""

import json
import re

import numpy
import pytest

import gallery
from camera import project

of_picking = pytest.mark.xdist_group("example picking")
of_plot = pytest.mark.xdist_group("example plot")
of_system = pytest.mark.xdist_group("example solar-system")


def read_scene(run, name):
    """The printed lines, the scene's values and the picture."""
    *lines, values = run.stdout.splitlines()
    return lines, json.loads(values), run.pictures[name].astype(int)


@pytest.fixture
def picking(example):
    return read_scene(example("picking"), "picking")


@of_picking
def test_picked_names_are_those_of_the_marbles_in_the_rectangle(picking):
    lines, (eye, centre, view, (left, top, width, height), (columns, radius), places), _ = picking
    names = [tuple(map(int, re.findall(r"\d+", line)[:2])) for line in lines if line.startswith("row")]
    found = {row * columns + column for row, column in names}
    assert len(found) == len(names) and lines[-2].startswith(f"{len(names)} marbles")
    x, y, scale = project(places, eye, centre, view)
    off_x = numpy.maximum(numpy.maximum(left - x, x - left - width), 0)
    off_y = numpy.maximum(numpy.maximum(top - y, y - top - height), 0)
    # In radii; a marble of flat faces, seen in perspective, is not quite a circle.
    distance = numpy.hypot(off_x, off_y) / (radius * scale)
    assert set(numpy.flatnonzero(distance < 0.95)) <= found <= set(numpy.flatnonzero(distance < 1.05))
    assert 10 < len(found) < len(places) / 2


@of_picking
def test_depths_are_ordered_as_the_marbles_are(picking):
    lines, (eye, centre, _, _, (columns, _), places), _ = picking
    hits = [list(map(float, re.findall(r"[\d.]+", line))) for line in lines if line.startswith("row")]
    forward = numpy.subtract(centre, eye) / numpy.linalg.norm(numpy.subtract(centre, eye))
    away = [numpy.subtract(places[int(hit[0]) * columns + int(hit[1])], eye) @ forward for hit in hits]
    # Between the nearest and the farthest point of a marble lies its centre.
    middles = [(hit[2] + hit[3]) / 2 for hit in hits]
    assert numpy.corrcoef(numpy.argsort(numpy.argsort(away)), numpy.argsort(numpy.argsort(middles)))[0, 1] > 0.99
    assert all(0 < hit[2] < hit[3] < 2 for hit in hits)


@of_picking
def test_only_picked_marbles_glow(picking):
    lines, (eye, centre, view, (left, top, width, height), _, _), picture = picking
    red, blue = picture[:, :, 0], picture[:, :, 2]
    rows, columns = numpy.nonzero(red > blue + 100)
    assert len(rows) > 10000
    # They reach into the rectangle, so none is farther outside than the diameter of the largest.
    assert columns.min() > left - 90 and columns.max() < left + width + 90
    assert rows.min() > top - 90 and rows.max() < top + height + 90


# Drawn by the example; where everything lies in it, the chart of the same table tells.
PLOT = f"""
path = "{gallery.EXAMPLES}/plot/sun.csv";
include "{gallery.EXAMPLES}/plot/chart.talq";
places = [];
for (row = 0; row < Length(corners); row += 1) places->Add(corners[row][0]);
Print([Triple(OrbitEye(orbit)), Triple(orbit[orbitCentre]), [orbit[orbitField], width, height], places]);
"""


@of_plot
def test_surface_has_the_colour_of_its_height_where_it_lies(talq, example):
    picture = example("plot").pictures["plot"].astype(int)
    eye, centre, view, places = json.loads(talq(PLOT).stdout)
    # Faces that the viewer sees, from the blue of a winter night to the red of noon in summer.
    days_and_hours = [(358, 4), (358, 8), (358, 12), (302, 12), (204, 12)]
    x, y, _ = project([places[day // 7][hour] for day, hour in days_and_hours], eye, centre, view)
    # Beside the lines, which run through the places.
    red, _, blue = numpy.array([picture[int(b) - 6 : int(b) - 1, int(a) + 3 : int(a) + 8].mean(axis=(0, 1))
                                for a, b in zip(x, y)]).T
    redness = red - blue
    assert (numpy.diff(redness) > 10).all() and redness[0] < -100 and redness[-1] > 100


@pytest.fixture
def system(example):
    return read_scene(example("solar-system"), "solar-system")


def offsets_from(place, radius, eye, centre, view):
    """How far each pixel's centre lies to the right of a body and below it, in the body's radii."""
    x, y, scale = (value[0] for value in project([place], eye, centre, view))
    columns, rows = numpy.meshgrid(numpy.arange(view[1]) + 0.5, numpy.arange(view[2]) + 0.5)
    return (columns - x) / (radius * scale), (rows - y) / (radius * scale)


@of_system
def test_sun_shines_where_it_projects_to(system):
    _, (eye, centre, view, (radius, *_)), picture = system
    distance = numpy.hypot(*offsets_from([0, 0, 0], radius, eye, centre, view))
    red = picture[:, :, 0]
    assert numpy.percentile(red[distance < 0.95], 5) > 230
    # Its light fades outwards.
    rings = [red[(distance > r) & (distance < r + 0.1)].mean() for r in (1.05, 1.3, 1.6)]
    assert rings == sorted(rings, reverse=True) and rings[0] > 1.5 * rings[2]


@of_system
def test_saturn_is_lit_from_the_side_of_the_sun(system):
    _, (eye, centre, view, (_, distance, degrees, radius)), picture = system
    angle = numpy.radians(degrees)
    place = [distance * numpy.cos(angle), 0, -distance * numpy.sin(angle)]
    right, down = offsets_from(place, radius, eye, centre, view)
    inside = numpy.hypot(right, down) < 0.9
    brightness = picture.sum(axis=2)
    assert inside.sum() > 10000  # of the whole disc, right of the sun
    assert brightness[inside & (right < -0.3)].mean() > 1.5 * brightness[inside & (right > 0.3)].mean()


@of_system
def test_system_has_many_colours(system):
    picture = system[2]
    assert len(gallery.colors_in(picture)) > 5000
