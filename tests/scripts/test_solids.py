"""Solids cover the pixels whose rays meet them: each is given by the distance of a point from it."""

import numpy
import pytest

from frame import EYE, HEIGHT, WIDTH, assert_covers, draw, drawn, pixel_centres

# From GLU's flat sides to the round shape.
FACETS = 0.3
RED = "gl->SetColor(1, 0, 0, 1);\n"


def depth_along_rays(distance):
    """How deep the ray through each pixel's centre dips into the solid (negative: how far it passes by)."""
    x, y = pixel_centres()
    nearest = numpy.full(x.shape, numpy.inf)
    for t in numpy.linspace(0.6, 1.4, 1601):  # 1: at z = 0
        point = [EYE[0] + t * (x - EYE[0]), EYE[1] + t * (y - EYE[1]), numpy.full(x.shape, EYE[2] * (1 - t))]
        nearest = numpy.minimum(nearest, distance(*point))
    return -nearest


def sphere(centre, radius):
    return lambda x, y, z: numpy.sqrt((x - centre[0]) ** 2 + (y - centre[1]) ** 2 + (z - centre[2]) ** 2) - radius


def box(low, high):
    # Inside, and outside near an edge, the largest of the six signed distances serves.
    def distance(*point):
        sides = [numpy.maximum(low[i] - point[i], point[i] - high[i]) for i in range(3)]
        return numpy.maximum(numpy.maximum(sides[0], sides[1]), sides[2])

    return distance


def torus(centre, ring, tube):
    def distance(x, y, z):
        return numpy.hypot(numpy.hypot(x - centre[0], y - centre[1]) - ring, z - centre[2]) - tube

    return distance


def cone_frustum(centre, base, top, height):
    """Along +y from the centre."""

    def distance(x, y, z):
        along = y - centre[1]
        radius = base + (top - base) * numpy.clip(along / height, 0, 1)
        slope = height / numpy.hypot(height, top - base)
        side = (numpy.hypot(x - centre[0], z - centre[2]) - radius) * slope
        return numpy.maximum(side, numpy.maximum(-along, along - height))

    return distance


SOLIDS = {
    "sphere": ("gl->Sphere(30, 25, -4, 15, 60);", sphere((30, 25, -4), 15)),
    "sphere at a point": ("gl->Sphere(new POINT3(50, 30, 5), 20, 60);", sphere((50, 30, 5), 20)),
    "box at a corner": ("gl->Box(15, 10, -20, 30, 25, 40);", box((15, 10, -20), (45, 50, 5))),
    "box": ("gl->Translate(55, 40, -5);\ngl->Box(20, 30, 10);", box((45, 35, -20), (65, 45, 10))),
    "torus": ("gl->Translate(40, 30, 0);\ngl->Torus(20, 90, 6, 40);", torus((40, 30, 0), 20, 6)),
    "cylinder": (
        "gl->Translate(35, 10, 0);\ngl->Rotate(1, 0, 0, -90);\ngl->Cylinder(20, 8, 40, 60, 3);",
        cone_frustum((35, 10, 0), 20, 8, 40),
    ),
}


@pytest.mark.parametrize("statement, distance", SOLIDS.values(), ids=SOLIDS.keys())
def test_silhouette(talq, statement, distance):
    assert_covers(draw(talq, RED + statement), depth_along_rays(distance), (255, 0, 0), FACETS)


@pytest.mark.parametrize("statement, distance", SOLIDS.values(), ids=SOLIDS.keys())
def test_wired_draws_outlines_only(talq, statement, distance):
    if "Sphere" in statement or "Torus" in statement:  # coarse enough to see through
        statement = statement.replace("60)", "10)").replace("90, 6, 40", "12, 6, 4")
    lines = drawn(draw(talq, RED + "gl->EnableWired(true);\n" + statement.replace("60, 3", "8, 2")))
    depth = depth_along_rays(distance)
    assert not lines[depth < -1.2].any()
    assert 0.05 < lines[depth > 0].mean() < 0.75


def test_defaults_are_ten_slices(talq):
    assert (draw(talq, RED + "gl->Sphere(40, 30, 0, 20);") == draw(talq, RED + "gl->Sphere(40, 30, 0, 20, 10);")).all()
    cylinder = RED + "gl->EnableWired(true);\ngl->Translate(40, 30, 0);\ngl->Rotate(1, 1, 0, 50);\ngl->Cylinder(%s);"
    assert (draw(talq, cylinder % "9, 5, 20") == draw(talq, cylinder % "9, 5, 20, 10, 10")).all()


def polar():
    """Distance from the frame's middle, and the angle from +y towards +x in degrees."""
    x, y = pixel_centres()
    return numpy.hypot(x - 40, y - 30), numpy.degrees(numpy.arctan2(x - 40, y - 30)) % 360


def test_disk(talq):
    picture = draw(talq, RED + "gl->Translate(40, 30, 0);\ngl->Disk(10, 25, 90);")
    radius, _ = polar()
    assert_covers(picture, numpy.minimum(radius - 10, 25 - radius), (255, 0, 0), 0.05)


def test_partial_disk_sweeps_as_far_as_it_starts(talq):
    picture = draw(talq, RED + "gl->Translate(40, 30, 0);\ngl->PartialDisk(8, 28, 40.9, 2.9, 70);")
    radius, angle = polar()
    aside = radius * numpy.sin(numpy.radians(numpy.minimum(angle - 70, 140 - angle)))
    depth = numpy.minimum(numpy.minimum(radius - 8, 28 - radius), numpy.where(numpy.abs(angle - 105) < 90, aside, -1))
    assert_covers(picture, depth, (255, 0, 0), 0.05)


LIT = """
gl->SetAmbientLightColor(0, 0, 0);
gl->SetDiffuseLightColor(1, 1, 1);
gl->EnableLight(true);
gl->EnableSmooth(true);
gl->SetLightPosition(%g, %g, %g);
material = new OglMaterial();
material->SetSpecular(0, 0, 0, 1);
gl->SetMaterial(material);
gl->Sphere(40, 30, 0, 25, 60);
"""


def tilt(direction, cosine, angle):
    """A direction turned away by that cosine, the way of an angle around it."""
    aside = numpy.cross(direction, [0.6, 0.8, 0])
    aside /= numpy.linalg.norm(aside)
    across = numpy.cross(direction, aside)
    turned = numpy.cos(angle) * aside + numpy.sin(angle) * across
    return cosine * numpy.array(direction) + numpy.sqrt(1 - cosine**2) * turned


@pytest.mark.parametrize("light", [(0, 0, 1), (0.6, 0, 0.8), (-0.48, 0.36, 0.8), (0, -0.8, 0.6)], ids=str)
def test_lit_sphere_is_brightest_where_the_light_is(talq, light):
    far = 100000 * numpy.array(light)  # from the eye
    picture = draw(talq, LIT % tuple(far)).astype(int)
    top = numpy.array([40, 30, 0]) + 25 * numpy.array(light)
    seen = EYE + (top - EYE) * EYE[2] / (EYE[2] - top[2])  # in the plane z = 0
    brightness = picture[:, :, 0] * drawn(picture)
    y, x = numpy.nonzero(brightness >= brightness.max() - 1)
    assert numpy.hypot(x.mean() + 0.5 - seen[0], y.mean() + 0.5 - seen[1]) < 2
    # And it falls off with the cosine of the angle to the light: around it, three quarters of the diffuse part are left.
    ambient = 255 * 0.2 * 0.28
    diffuse = brightness.max() - ambient
    assert abs(diffuse - 255 * 0.63) < 3
    checked = 0
    for angle in numpy.radians(range(0, 360, 45)):
        tilted = tilt(light, 0.75, angle)
        point = numpy.array([40, 30, 0]) + 25 * tilted
        if tilted @ (EYE - point) < 40:  # turned away from the eye, or nearly
            continue
        x, y = (EYE + (point - EYE) * EYE[2] / (EYE[2] - point[2]))[:2]
        assert abs(brightness[int(y), int(x)] - ambient - 0.75 * diffuse) < 12
        checked += 1
    assert checked >= 3
