"""NURBS curves and surfaces lie where their control points say; GLU's errors reach the script."""

import numpy
import pytest

from frame import EYE, draw, drawn, script_of

RED = "gl->SetColor(1, 0, 0, 1);\n"
# Pixels a unit. GLU draws chords of up to 50 pixels, so that a large picture is closer to the curve.
SCALE = 10


def basis(knots, i, order, t):
    """The B-spline of this order that starts at knot i."""
    if order == 1:
        last = t == knots[-1] and knots[i] < knots[i + 1] == knots[-1]
        return 1.0 if knots[i] <= t < knots[i + 1] or last else 0.0
    left, right = knots[i + order - 1] - knots[i], knots[i + order] - knots[i + 1]
    value = (t - knots[i]) / left * basis(knots, i, order - 1, t) if left else 0.0
    return value + ((knots[i + order] - t) / right * basis(knots, i + 1, order - 1, t) if right else 0.0)


def weights(knots, count, places=401):
    """The cubic curve's share of each control point at so many places along it."""
    along = numpy.linspace(knots[3], knots[-4], places)
    return numpy.array([[basis(knots, i, 4, t) for i in range(count)] for t in along])


def on_screen(points):
    """x and y in the picture of points (last axis x, y, z)."""
    return SCALE * (EYE + (points - EYE) * EYE[2] / (EYE[2] - points[..., 2:]))[..., :2]


def marked(points):
    """The pixels in which the points lie."""
    mask = numpy.zeros((60 * SCALE, 80 * SCALE), dtype=bool)
    x, y = points.reshape(-1, 2).astype(int).T
    seen = (x >= 0) & (y >= 0) & (x < mask.shape[1]) & (y < mask.shape[0])
    mask[y[seen], x[seen]] = True
    return mask


def grown(mask, margin):
    """The mask and the pixels that are at most the margin away."""
    for axis in (0, 1):
        rows = mask.copy()
        for shift in range(1, margin + 1):
            rows |= numpy.roll(mask, shift, axis) | numpy.roll(mask, -shift, axis)
        mask = rows
    return mask


def assert_is_the_line(picture, points, margin):
    """A line runs along the points: none of it is elsewhere, none is missing."""
    lines = drawn(picture)
    assert lines.any()
    assert not (lines & ~grown(marked(points), margin)).any()
    assert not (marked(points) & ~grown(lines, margin)).any()


def clamped(inner=()):
    return [0, 0, 0, 0, *inner, 1, 1, 1, 1]


@pytest.mark.parametrize("inner", [(), (0.3,), (0.1, 0.2)], ids=str)
def test_plane_curve(talq, inner):
    count = 4 + len(inner)
    xs, ys = [5, 20, 45, 60, 75, 30][:count], [10, 55, 50, 5, 40, 20][:count]
    picture = draw(talq, RED + f"gl->SplineCurve2D({xs}, {ys}, {clamped(inner)});", SCALE)
    controls = numpy.array([xs, ys, [0] * count]).T.astype(float)
    assert_is_the_line(picture, on_screen(weights(clamped(inner), count, 4001) @ controls), 5)


def test_space_curve(talq):
    xs, ys, zs = [5, 20, 60, 75], [10, 50, 50, 10], [-40, 30, 30, 20]
    picture = draw(talq, RED + f"gl->SplineCurve3D({xs}, {ys}, {zs}, {clamped()});", SCALE)
    controls = numpy.array([xs, ys, zs]).T.astype(float)
    assert_is_the_line(picture, on_screen(weights(clamped(), 4, 4001) @ controls), 5)


XS = [10, 30, 50, 70]
ZS = [10, 5, 0, -5, -10]
HEIGHTS = [[8, 14, 4, 8], [16, 22, 12, 16], [24, 30, 20, 24], [36, 40, 30, 34], [50, 58, 45, 52]]
S_KNOTS, T_KNOTS = clamped(), clamped((0.2,))


def surface(reverse=True):
    """The control points, rows first; the script's last row comes first."""
    rows = [[(x, height, z) for x, height in zip(XS, heights)] for heights, z in zip(HEIGHTS, ZS)]
    return numpy.array(rows[::-1] if reverse else rows, dtype=float)


def points_of(controls, t_weights):
    return on_screen(numpy.einsum("tr,si,rix->tsx", t_weights, weights(S_KNOTS, 4, 1001), controls))


def outline():
    points = points_of(surface(), weights(T_KNOTS, 5, 1001))
    return numpy.concatenate([points[0], points[-1], points[:, 0], points[:, -1]])


def seam(controls):
    """The curve where the two patches meet."""
    return points_of(controls, numpy.array([[basis(T_KNOTS, i, 4, 0.2) for i in range(5)]]))[0]


SURFACE = f"gl->SplineSurface({XS}, {ZS}, {HEIGHTS}, {S_KNOTS}, {T_KNOTS});"


@pytest.mark.parametrize(
    "statement",
    [SURFACE, f"gl->SplineSurface({XS}, {ZS}, {HEIGHTS}, {[[0, 0, 1]] * 20}, {S_KNOTS}, {T_KNOTS});"],
    ids=["computed normals", "given normals"],
)
def test_surface_has_its_points_on_it(talq, statement):
    surface_pixels = drawn(draw(talq, RED + statement, SCALE))
    points = marked(points_of(surface(), weights(T_KNOTS, 5, 1001)))
    assert not (surface_pixels & ~grown(points, 4)).any()
    assert not (points & ~surface_pixels & ~grown(marked(outline()), 4)).any()


def test_wired_surface_shows_the_patches_with_the_last_row_first(talq):
    lines = drawn(draw(talq, RED + "gl->EnableWired(true);\n" + SURFACE, SCALE))
    assert not (marked(seam(surface())) & ~grown(lines, 4)).any()
    assert not lines[marked(seam(surface(reverse=False))[100:-100])].any()
    assert not (lines & ~grown(marked(numpy.concatenate([outline(), seam(surface())])), 4)).any()


def test_wired_polygons_show_more_lines_than_patches(talq):
    patches = drawn(draw(talq, RED + "gl->EnableWired(true);\n" + SURFACE, SCALE))
    polygons = drawn(draw(talq, RED + "gl->EnableWired(true);\ngl->SetOutlinePatch(false);\n" + SURFACE, SCALE))
    filled = drawn(draw(talq, RED + SURFACE, SCALE))
    assert 2 * patches.sum() < polygons.sum() < filled.sum() / 2


ERROR = """
try {
  %s
  Fail("nothing was raised");
} catch (code, text) {
  Print(ErrorName(code));
  Print(text);
}
"""


@pytest.mark.parametrize(
    "statement, text",
    [
        ("gl->SplineCurve3D([5, 40, 75], [10, 50, 10], [0, 0, 0], [0, 0, 0, 1, 2, 2, 2]);", "too few knots"),
        ("gl->SplineCurve2D([5, 20, 60, 75], [1, 2, 3, 4], [0, 0, 0, 0, 0, 0, 0, 0]);", "valid knot range is empty"),
        ("gl->SplineCurve2D([5, 20, 60, 75], [1, 2, 3, 4], [0, 0, 0, 3, 9, 8, 7, 6]);", "decreasing knot sequence"),
        (SURFACE.replace("0.2", "2"), "decreasing knot sequence"),
    ],
    ids=["too few", "empty", "decreasing", "surface"],
)
def test_glu_errors_can_be_caught(talq, statement, text):
    run = talq(script_of(ERROR % statement))
    assert run.exit_code == 0, run.shown()
    lines = run.stdout.splitlines()
    assert lines[0] == "OGL_NURBS_ERROR"
    assert text in lines[1], lines
