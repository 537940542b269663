"""Points, lines and polygons cover exactly their pixels."""

import numpy
import pytest

from frame import BACKGROUND, assert_covers, depth_in, draw, drawn, pixel_centres, pixels

RED = "gl->SetColor(1, 0, 0, 1);\n"
FOUR = "[[0, 0, 1], [0, 0, 1], [0, 0, 1], [0, 0, 1]]"
COLOURS = "[255, 255, 255, 255]"  # packed red
RING = "[10, 12, 0,  66, 12, 0,  66, 47, 0,  10, 47, 0]"
ZIGZAG = "[10, 12, 0,  66, 12, 0,  10, 47, 0,  66, 47, 0]"


@pytest.mark.parametrize(
    "statement",
    [
        f"gl->Quads({RING}, {FOUR});",
        f"gl->Polygon({RING}, {FOUR});",
        f"gl->ColorQuads({RING}, {FOUR}, {COLOURS});",
        f"gl->ColorPolygon({RING}, {FOUR}, {COLOURS});",
        f"gl->QuadStrip({ZIGZAG}, {FOUR});",
        f"gl->TriangleStrip({ZIGZAG}, {FOUR});",
        f"gl->TriangleStrip({ZIGZAG});",
        "gl->Triangles([10, 12, 0,  66, 12, 0,  66, 47, 0,  10, 12, 0,  66, 47, 0,  10, 47, 0]);",
    ],
    ids=lambda statement: statement[4 : statement.index("(")],
)
def test_rectangle_covers_exactly_its_pixels(talq, statement):
    picture = draw(talq, RED + statement)
    assert_covers(picture, depth_in([(10, 12), (66, 12), (66, 47), (10, 47)]), (255, 0, 0))


def test_polygon_of_eight_points(talq):
    corners = [(30, 5), (50, 5), (65, 20), (65, 40), (50, 55), (30, 55), (15, 40), (15, 20)]
    points = [[x, y, 0] for x, y in corners]
    picture = draw(talq, RED + f"gl->Polygon({points}, {[[0, 0, 1]] * 8});")
    assert_covers(picture, depth_in(corners), (255, 0, 0))


def test_quads_beside_each_other(talq):
    colours = "[1, 0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1, 0]"
    points = "[5, 5, 0, 30, 5, 0, 30, 20, 0, 5, 20, 0, 30, 5, 0, 60, 5, 0, 60, 20, 0, 30, 20, 0]"
    picture = draw(talq, f"gl->ColorQuads({points}, {points}, {colours});")
    assert (picture[5:20, 5:30] == (255, 0, 0)).all()
    assert (picture[5:20, 30:60] == (0, 255, 0)).all()
    assert drawn(picture).sum() == 15 * 55


def test_faces_of_color_triangles_take_their_own_colours(talq):
    points = "[10, 10, 0, 40, 10, 0, 10, 40, 0, 70, 50, 0, 40, 50, 0, 70, 20, 0]"
    picture = draw(talq, f"gl->ColorTriangles({points}, [0, 0, 1, 0, 0, 1], [0xFF, 0xFF00, 1, 2, 3, 4]);")
    first = depth_in([(10, 10), (40, 10), (10, 40)])
    second = depth_in([(70, 50), (40, 50), (70, 20)])
    assert (picture[first > 0.01] == (255, 0, 0)).all() and (picture[second > 0.01] == (0, 255, 0)).all()
    assert not drawn(picture)[(first < -0.01) & (second < -0.01)].any()


# Two lists of a triangle each, both lit by their materials' emission alone.
GLOWING = """
function Glow(red, green) {
  material = new OglMaterial(0, 0, 0, 1);
  material->SetSpecular(0, 0, 0, 1);
  material->SetEmission(red, green, 0, 1);
  return material;
}
gl->EnableLight(true);
"""
LEFT, RIGHT = [(10, 10), (35, 10), (10, 45)], [(70, 50), (45, 50), (70, 15)]


def flat(corners):
    return [[x, y, 0] for x, y in corners]


def assert_left_red_right_green(picture):
    left, right = depth_in(LEFT), depth_in(RIGHT)
    assert (picture[left > 0.01] == (255, 0, 0)).all() and (picture[right > 0.01] == (0, 255, 0)).all()
    assert not drawn(picture)[(left < -0.01) & (right < -0.01)].any()


def test_indexed_lists_take_their_materials(talq):
    normals = [[0, 0, 1]] * 3
    assert_left_red_right_green(
        draw(
            talq,
            GLOWING + f"gl->TrianglesEx([{flat(LEFT)}, {flat(RIGHT)}], [{normals}, {normals}], [0, 1, -1, 2, 7], "
            "[Glow(1, 0), Glow(0, 1)]);",
        )
    )


def test_indexed_meshes_take_their_materials(talq, tmp_path):
    for name, corners in (("left", LEFT), ("right", RIGHT)):
        vertices = "".join(f"v {x} {y} 0\n" for x, y in corners)
        (tmp_path / f"{name}.obj").write_text(vertices + "f 1 2 3\n")
    assert_left_red_right_green(
        draw(
            talq,
            GLOWING + 'gl->TrianglesExFB([ReadObj("left.obj"), ReadObj("right.obj")], [1, 0, -1, 2], '
            "[Glow(1, 0), Glow(0, 1)]);",
        )
    )


def test_points_cover_the_pixels_that_they_lie_in(talq):
    picture = draw(talq, RED + "gl->SetPoints([10.5, 20.5, 0, 70.5, 3.5, 0, 0.5, 59.5, 0]);")
    assert pixels(picture) == {(10, 20), (70, 3), (0, 59)}
    assert tuple(picture[20, 10]) == (255, 0, 0)


def test_large_points_are_squares_and_smooth_ones_round(talq):
    statements = RED + "gl->SetPointSize(9);\n%sgl->SetPoints([40.5, 30.5, 0]);"
    square = {(x, y) for x in range(36, 45) for y in range(26, 35)}
    assert pixels(draw(talq, statements % "")) == square
    smooth = pixels(draw(talq, statements % "gl->EnableBlend(true);\ngl->EnableSmoothPoint(true);\n"))
    assert smooth < square and (36, 26) not in smooth and (36, 30) in smooth and (40, 34) in smooth


def test_lines_are_one_pixel_wide(talq):
    # The last pixel of a line belongs to whatever goes on from there.
    picture = draw(talq, RED + "gl->Lines([10.5, 20.5, 0, 30.5, 20.5, 0, 50.5, 5.5, 0, 50.5, 45.5, 0, 1, 1, 0]);")
    sure = {(x, 20) for x in range(10, 30)} | {(50, y) for y in range(5, 45)}
    assert sure <= pixels(picture) <= sure | {(30, 20), (50, 45)}


def test_line_strip_goes_on(talq):
    picture = draw(talq, RED + "gl->LineStrip([10.5, 10.5, 0, 40.5, 10.5, 0, 40.5, 40.5, 0]);")
    sure = {(x, 10) for x in range(10, 40)} | {(40, y) for y in range(10, 40)}
    assert sure <= pixels(picture) <= sure | {(40, 40)}


def test_lines_have_their_colours(talq):
    points = "[10.5, 20.5, 0, 30.5, 20.5, 0, 10.5, 40.5, 0, 30.5, 40.5, 0]"
    picture = draw(talq, f"gl->ColorLines({points}, [0xFF, 0xFF, 0xFF00, 0xFF00]);")
    assert (picture[20, 10:30] == (255, 0, 0)).all() and (picture[40, 10:30] == (0, 255, 0)).all()
    assert (draw(talq, f"gl->ColorLines({points}, [1, 0, 0]);") == BACKGROUND).all()


def test_wide_lines(talq):
    picture = draw(talq, RED + "gl->SetLineWidth(3);\ngl->Lines([10.5, 20.5, 0, 30.5, 20.5, 0]);")
    sure = {(x, y) for x in range(10, 30) for y in (19, 20, 21)}
    assert sure <= pixels(picture) <= sure | {(30, y) for y in (19, 20, 21)}


@pytest.mark.parametrize(
    "statement",
    [f"gl->Quads({RING}, {FOUR});", f"gl->ColorPolygon({RING}, {FOUR}, {COLOURS});"],
    ids=["quads", "polygon"],
)
def test_wired_draws_outlines_only(talq, statement):
    picture = draw(talq, RED + "gl->EnableWired(true);\n" + statement)
    depth = depth_in([(10, 12), (66, 12), (66, 47), (10, 47)])
    x, y = pixel_centres()
    assert not drawn(picture)[numpy.abs(depth) > 1].any()
    for edge in (numpy.abs(x - 10), numpy.abs(x - 66), numpy.abs(y - 12), numpy.abs(y - 47)):
        # Along each edge, every row or column has a pixel of it.
        along = drawn(picture) & (edge <= 1)
        assert max((along.any(axis=axis)).sum() for axis in (0, 1)) >= 34
