"""A frame in which x and y of points at z = 0 are pixels from the lower left corner, and where its pixels' centres lie.

A pixel belongs to a shape when its centre lies in it. Pixels whose centres lie within a small margin of an edge are not
asked for.
"""

import numpy

WIDTH, HEIGHT = 80, 60
EYE = numpy.array([40.0, 30.0, 100.0])
FRAME = """
width = 80 * SCALE;
height = 60 * SCALE;
device = new MDC(width, height);
gl = new TOpenGL();
gl->SetViewPort(0, 0, width, height);
gl->SetViewerPos(40, 30, 100, 40, 30, 0, 0, 1, 0);
gl->SetClipping(-4, 4, -3, 3, 10, 200);
gl->SetClearColor(0.2, 0.4, 0.6);
gl->OpenBitmap(device);
gl->Clear();
STATEMENTS
gl->Flush();
picture = new MBmp(width, height, gl->GetDIBits(0, 0, width, height));
picture->Save("frame.png");
"""
BACKGROUND = (51, 102, 153)


def script_of(statements, scale=1):
    return FRAME.replace("SCALE", str(scale)).replace("STATEMENTS", statements)


def draw(talq, statements, scale=1):
    """The picture of the statements, bottom up: its pixel (x, y) is [y, x]; with a scale, that many pixels a unit."""
    run = talq(script_of(statements, scale))
    assert run.exit_code == 0, run.shown()
    return run.pictures["frame"][::-1]


def drawn(picture):
    """Where the picture is not the background."""
    return (picture != BACKGROUND).any(axis=2)


def pixel_centres():
    """x and y of each pixel's centre."""
    return numpy.meshgrid(numpy.arange(WIDTH) + 0.5, numpy.arange(HEIGHT) + 0.5)


def depth_in(corners):
    """How deep each pixel's centre lies in the convex polygon (negative: outside); corners counter-clockwise."""
    x, y = pixel_centres()
    depth = numpy.full(x.shape, numpy.inf)
    for (ax, ay), (bx, by) in zip(corners, corners[1:] + corners[:1]):
        depth = numpy.minimum(depth, ((bx - ax) * (y - ay) - (by - ay) * (x - ax)) / numpy.hypot(bx - ax, by - ay))
    return depth


def assert_covers(picture, depth, colour, margin=0.01):
    """Exactly the pixels of positive depth have the colour (None: any but the background), the others do not."""
    assert (depth > margin).any()
    inside, outside = picture[depth > margin], picture[depth < -margin]
    assert (inside == colour).all() if colour is not None else (inside != BACKGROUND).any(axis=1).all()
    assert (outside == BACKGROUND).all()


def pixels(picture):
    """The set of (x, y) that are not the background."""
    return {(int(x), int(y)) for y, x in numpy.argwhere(drawn(picture))}
