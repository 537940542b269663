"""Bitmaps in the frame, and the frame read back, pixel by pixel."""

import pathlib

import numpy
import PIL.Image
import pytest

SHARED = pathlib.Path(__file__).parent / "parts" / "frame.talq"

# Model coordinates are pixels from the lower left corner.
SCRIPT = """
include "{shared}";
device = new MDC({width}, {height});
gl = new TOpenGL();
OpenPixelFrame(gl, device);
{statements}
gl->Flush();
picture = new MBmp({width}, {height}, gl->GetDIBits(0, 0, {width}, {height}));
picture->Save("frame.png");
"""


@pytest.fixture
def draw(talq):
    """draw(width, height, statements): the pictures that the statements leave, and the frame, each top row first."""

    def run(width, height, statements):
        script = SCRIPT.format(shared=SHARED, width=width, height=height, statements=statements)
        run = talq(script)
        assert run.exit_code == 0, run.shown()
        return run.pictures

    return run


@pytest.fixture
def noise(tmp_path):
    """noise(name, width, height): random pixels, which the script finds as NAME.png."""

    def make(name, width, height):
        pixels = numpy.random.default_rng(width + height + len(name)).integers(0, 256, (height, width, 3), numpy.uint8)
        PIL.Image.fromarray(pixels).save(tmp_path / f"{name}.png")
        return pixels

    return make


def framed(pixels, width, height, left, bottom):
    """The pixels on black, their lower left corner at the place."""
    frame = numpy.zeros((height, width, 3), numpy.uint8)
    rows, columns, _ = pixels.shape
    frame[height - bottom - rows : height - bottom, left : left + columns] = pixels
    return frame


def test_drawn_bitmap_comes_back_unchanged(draw, noise):
    pixels = noise("image", 61, 37)
    pictures = draw(80, 60, 'gl->DrawBitmap(7, 11, 0, new MBmp("image.png"));')
    assert (pictures["frame"] == framed(pixels, 80, 60, 7, 11)).all()


def test_bitmap_larger_than_a_tile_has_no_seams(draw, noise):
    pixels = noise("image", 300, 700)
    pictures = draw(320, 720, 'gl->DrawBitmap(12, 9, 0, new MBmp("image.png"));')
    assert (pictures["frame"] == framed(pixels, 320, 720, 12, 9)).all()


def test_scale_is_the_size_of_a_pixel(draw, noise):
    pixels = noise("image", 270, 40).repeat(2, axis=0).repeat(2, axis=1)
    pictures = draw(560, 100, 'gl->DrawBitmap(4, 6, 0, 2, new MBmp("image.png"));')
    assert (pictures["frame"] == framed(pixels, 560, 100, 4, 6)).all()


def test_bitmap_at_a_point_is_drawn_there(draw, noise):
    pixels = noise("image", 31, 17)
    pictures = draw(80, 60, 'gl->DrawBitmap(new POINT3(7, 11, 0), new MBmp("image.png"));')
    assert (pictures["frame"] == framed(pixels, 80, 60, 7, 11)).all()


def test_bitmap_is_hidden_by_what_is_nearer(draw, noise):
    pixels = noise("image", 61, 37)
    pictures = draw(
        80, 60, 'gl->Triangles(Rectangle(0, 0, 40, 60, 5));\ngl->DrawBitmap(7, 11, 0, new MBmp("image.png"));'
    )
    picture = pictures["frame"]
    # The nearer rectangle reaches a little over its 40 pixels, for the eye is at a finite distance.
    assert (picture[:, :40] == 255).all()
    assert (picture[:, 45:] == framed(pixels, 80, 60, 7, 11)[:, 45:]).all()


def test_current_colour_tints_an_unlit_bitmap(draw, noise):
    pixels = noise("image", 61, 37)
    pictures = draw(80, 60, 'gl->SetColor(1, 0, 0.5, 1);\ngl->DrawBitmap(7, 11, 0, new MBmp("image.png"));')
    expected = framed(pixels, 80, 60, 7, 11) * numpy.array([1, 0, 0.5])
    assert numpy.abs(pictures["frame"] - expected).max() <= 1


def test_put_bitmap_comes_back_unchanged(draw, noise):
    pixels = noise("image", 61, 37)
    pictures = draw(80, 60, 'gl->PutBitmap(7, 11, 0, new MBmp("image.png"));')
    assert (pictures["frame"] == framed(pixels, 80, 60, 7, 11)).all()


@pytest.mark.parametrize("point", ["3, 5, 0", "new POINT3(3, 5, 0)"], ids=["numbers", "point"])
def test_bits_land_on_their_pixels(draw, point):
    width, height = 21, 9
    bits = numpy.random.default_rng(5).integers(0, 2, (height, width), numpy.uint8)
    padded = numpy.zeros((height, 32), numpy.uint8)
    padded[:, :width] = bits
    text = "".join(f"\\x{byte:02x}" for byte in numpy.packbits(padded, axis=1).ravel())
    # The colour of the bits is the current one when the position is set.
    pictures = draw(40, 20, f'gl->SetColor(0, 1, 0, 1);\ngl->Put2bBitmap({point}, {width}, {height}, "{text}");')
    expected = numpy.zeros((height, width, 3), numpy.uint8)
    expected[bits[::-1] == 1] = (0, 255, 0)
    assert (pictures["frame"] == framed(expected, 40, 20, 3, 5)).all()


def test_blend_of_two_frames_is_the_formula(draw, noise):
    before, frame = noise("before", 64, 40), noise("frame", 64, 40)
    factors = [0, 1, 0.25, 0.7, -1, 2.5]
    statements = """
        function Blend(gl, factor, path) {
          gl->PutBitmap(0, 0, 0, new MBmp("before.png"));
          bytes = new String(64 * 40 * 3);
          Assert(gl->GetDIBitsMixture(0, 0, 64, 40, bytes, 0));
          gl->PutBitmap(0, 0, 0, new MBmp("frame.png"));
          Assert(gl->GetDIBitsMixture(0, 0, 64, 40, bytes, factor));
          picture = new MBmp(64, 40, bytes);
          picture->Save(path);
        }
        """ + "".join(f'Blend(gl, {factor}, "blend{i}.png");\n' for i, factor in enumerate(factors))
    pictures = draw(64, 40, statements)
    for i, factor in enumerate(factors):
        weight = numpy.float32(factor)
        rest = numpy.float64(numpy.float32(1) - weight)
        total = (before.astype(numpy.float32) * weight).astype(numpy.float64) + frame * rest
        expected = numpy.trunc(total).astype(numpy.int64).astype(numpy.uint8)
        # A String's first row is the top one, a bitmap's the lowest.
        assert (pictures[f"blend{i}"][::-1] == expected).all(), factor


def test_bitmap_fades_into_the_fog(draw, noise):
    pixels = noise("image", 61, 37)
    statements = """
        gl->SetFogColor(0, 0, 1);
        gl->SetFogLinearMode();
        gl->EnableFog(true);
        gl->DrawBitmap(7, 11, 0, new MBmp("image.png"));
        """
    picture = draw(80, 60, statements)["frame"]
    # Fog reaches from the near plane at 10 to the far one at 300; the bitmap is 100 away.
    clear = (300 - 100) / (300 - 10)
    expected = clear * framed(pixels, 80, 60, 7, 11) + framed(numpy.full_like(pixels, (0, 0, 1)), 80, 60, 7, 11) * 255 * (
        1 - clear
    )
    assert numpy.abs(picture - expected).max() <= 2
