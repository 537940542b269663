"""The texts of examples/text.talq: their characters, their widths, and where they lie."""

import json
import math

import numpy
import pytest

import gallery

WIDTH, HEIGHT = 320, 240
FIELD = 40
EYE = numpy.array([1.0, 2.0, 12.0])
FRAME = f"""
include "{gallery.EXAMPLES}/text.talq";
device = new MDC({WIDTH}, {HEIGHT});
gl = new TOpenGL();
gl->SetViewPort(0, 0, {WIDTH}, {HEIGHT});
gl->SetPerspective({FIELD}, {WIDTH} / {HEIGHT}.0, 1, 100);
gl->SetViewerPos(1, 2, 12, 1, 2, 0, 0, 1, 0);
gl->OpenBitmap(device);
gl->Clear();
fonts = [NewFont(gl, smallFont), NewFont(gl, largeFont)];
"""
SAVE = f'gl->Flush();\nnew MBmp({WIDTH}, {HEIGHT}, gl->GetDIBits(0, 0, {WIDTH}, {HEIGHT}))->Save("frame.png");\n'
of_each_font = pytest.mark.parametrize("font", [0, 1], ids=["small", "large"])


def draw(talq, statements):
    """What the statements print, as JSON, and which pixels they draw, the highest row first."""
    run = talq(FRAME + statements + SAVE)
    assert run.exit_code == 0, run.shown()
    return json.loads(run.stdout or "[]"), run.pictures["frame"].any(axis=2)


def extent(drawn):
    """The first and last column and the first and last row with a pixel."""
    rows, columns = numpy.nonzero(drawn)
    return columns.min(), columns.max(), rows.min(), rows.max()


# 96 texts of one byte each, the last of which is no character, in cells of 32 by 20 pixels, ten in a row.
CELLS = """
for (i = 0; i < 96; i += 1) {
  text = " ";
  text->SetByte(0, 32 + i);
  BEFORE
  WriteInFrame(gl, fonts[FONT], i % 10 * 32, i / 10 * 20 + 20, text);
}
"""


def cells(drawn):
    return [drawn[i // 10 * 20 : i // 10 * 20 + 20, i % 10 * 32 : i % 10 * 32 + 32] for i in range(96)]


@of_each_font
def test_all_characters_and_the_box_look_different(talq, font):
    _, drawn = draw(talq, CELLS.replace("FONT", str(font)).replace("BEFORE", ""))
    assert not cells(drawn)[0].any()  # the blank
    assert len({cell.tobytes() for cell in cells(drawn)}) == 96


@of_each_font
def test_width_of_each_character_is_by_how_much_it_moves_the_next_one(talq, font):
    # An H at a distance of 3 hairlines: from its left edge alone to that behind the character.
    widths, drawn = draw(
        talq,
        "widths = [];\n"
        + CELLS.replace("BEFORE", 'widths->Add(TextWidth(fonts[FONT], text)); text += "H";').replace("FONT", str(font))
        + f'widths->Add(TextWidth(fonts[{font}], "H"));\nPrint(widths);',
    )
    *widths, width_of_h = widths
    assert min(widths) > 1 and max(widths) + width_of_h <= 32
    first_of_h, last_of_h = extent(cells(drawn)[0])[:2]  # behind the blank
    for width, cell in zip(widths, cells(drawn)):
        assert extent(cell)[1] == last_of_h - widths[0] + width
        # Nothing of the character lies in the H, whose stem is as it is alone.
        rows = slice(*(extent(cells(drawn)[0])[2:] + numpy.array([0, 1])))
        assert cell[rows, first_of_h - widths[0] + width].all()


@of_each_font
def test_width_of_a_text_is_that_of_its_characters(talq, font):
    text = "Depth: 12.5 m {~}"
    widths, drawn = draw(
        talq,
        f"""
        font = fonts[{font}];
        WriteInFrame(gl, font, 20, 100, "{text}H");
        WriteInFrame(gl, font, 20 + TextWidth(font, "{text}"), 130, "H");
        sum = 0;
        for (i = 0; i < {len(text)}; i += 1) sum += TextWidth(font, Substring("{text}", i, 1));
        Print([TextWidth(font, "{text}"), sum, TextWidth(font, "")]);
        """,
    )
    assert widths[0] == widths[1] and widths[2] == 0
    assert extent(drawn[70:100])[1] == extent(drawn[100:130])[1]


# The box: 6 columns behind one that is empty, from the top down to the line on which letters stand.
def box_at(left, bottom, height, descent):
    expected = numpy.zeros((HEIGHT, WIDTH), bool)
    expected[bottom - height : bottom - descent, left + 1 : left + 7] = True
    expected[bottom - height + 1 : bottom - descent - 1, left + 2 : left + 6] = False
    return expected


SIZES = "Print([[FontHeight(fonts[0]), FontDescent(fonts[0])], [FontHeight(fonts[1]), FontDescent(fonts[1])]]);\n"


@of_each_font
@pytest.mark.parametrize("text", [r"\xC3\xA9", r"\xE2\x82\xAC", r"\xF0\x9F\x98\x80", r"\n", r"\x7F"])
def test_unknown_character_is_one_box_where_the_frame_says(talq, font, text):
    sizes, drawn = draw(talq, SIZES + f'WriteInFrame(gl, fonts[{font}], 37, 91, "{text}");\n')
    assert (drawn == box_at(37, 91, *sizes[font])).all()


def test_text_touches_the_corners_of_the_frame(talq):
    sizes, drawn = draw(talq, SIZES + f"""
        WriteInFrame(gl, fonts[0], 0, FontHeight(fonts[0]), "\\n");
        WriteInFrame(gl, fonts[0], {WIDTH} - 8, {HEIGHT}, "\\n");
        """)
    height, descent = sizes[0]
    assert (drawn == box_at(0, height, height, descent) | box_at(WIDTH - 8, HEIGHT, height, descent)).all()


def test_text_in_the_frame_hides_the_scene_and_keeps_its_transform(talq):
    triangle = "gl->Triangles([-9, -9, 0, 9, -9, 0, 0, 0, 0]);"  # its tip lies in the middle of the picture
    run = talq(
        FRAME
        + f"""
        gl->Translate(1, 2, 9);
        gl->SetColor(0, 0, 1, 1);
        {triangle}
        gl->SetColor(1, 0, 0, 1);
        WriteInFrame(gl, fonts[1], 150, 180, "\\n");
        gl->SetPerspective({FIELD}, {WIDTH} / {HEIGHT}.0, 1, 100);
        gl->Translate(0, 0, 0.5);
        gl->SetColor(0, 1, 0, 1);
        {triangle}
        """
        + SIZES
        + SAVE
    )
    assert run.exit_code == 0, run.shown()
    picture = run.pictures["frame"]
    assert ((picture == (255, 0, 0)).all(axis=2) == box_at(150, 180, *json.loads(run.stdout)[1])).all()
    assert tuple(picture[122, 160]) == (0, 255, 0) and not picture[118, 160].any()
    assert not (picture == (0, 0, 255)).all(axis=2).any()


def pixel_of(point):
    """Column and row, from the upper left corner, of the pixel in which the point of the scene lies."""
    x, y, z = point - EYE
    scale = HEIGHT / 2 / numpy.tan(numpy.radians(FIELD) / 2) / -z
    return math.floor(WIDTH / 2 + x * scale), math.floor(HEIGHT / 2 - y * scale)


@pytest.mark.parametrize("point", [(0.3, 1.2, 0), (3.1, -0.7, -8), (-1.9, 3.3, 2.5)])
def test_text_lies_at_its_point_of_the_scene(talq, point):
    # Half of the way comes from the model matrix.
    half = ", ".join(str(value / 2) for value in point)
    sizes, drawn = draw(talq, SIZES + f"""
        gl->Translate({half});
        WriteAt(gl, fonts[0], {FIELD}, new POINT3({half}), 5, -3, "\\n");
        """)
    column, row = pixel_of(numpy.array(point))
    assert (drawn == box_at(column + 5, row + 1 + 3, *sizes[0])).all()


def test_pixel_of_a_point_is_known(talq):
    points = [(0.3, 1.2, 0), (3.1, -0.7, -8), (-1.9, 3.3, 2.5), (9.1, 7.3, 4)]  # the last one lies outside of the frame
    statements = "".join(f"places->Add(PlaceInFrame(gl, {FIELD}, new POINT3{point}));\n" for point in points)
    places, _ = draw(talq, f"places = [];\n{statements}Print(places);\n")
    for point, (column, row, distance) in zip(points, places, strict=True):
        assert (column, row) == pixel_of(numpy.array(point)) and distance == pytest.approx(12 - point[2])


@pytest.mark.parametrize("z, is_hidden", [(-1, True), (1, False)])
def test_nearer_things_hide_a_text_of_the_scene(talq, z, is_hidden):
    _, drawn = draw(talq, f"""
        gl->SetColor(0, 0, 0, 1);
        gl->Triangles([-9, -9, 0, 9, -9, 0, 0, 9, 0]);
        gl->SetColor(1, 1, 1, 1);
        WriteAt(gl, fonts[0], {FIELD}, new POINT3(1, 2, {z}), 0, 0, "H");
        """)
    assert drawn.any() != is_hidden


@pytest.mark.parametrize("z", [12, 20])
def test_text_at_the_eye_or_behind_it_is_not_written(talq, z):
    _, drawn = draw(talq, f'WriteAt(gl, fonts[0], {FIELD}, new POINT3(1, 2, {z}), 0, 0, "H");\n')
    assert not drawn.any()
