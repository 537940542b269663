"""The programs that use the renderer itself, for what no script reaches."""

import numpy
import pytest

# The volumes are drawn once, so their tests go to one worker.
pytestmark = pytest.mark.xdist_group("example volume")


def test_bits_advance_the_raster_position_by_their_width(run_program):
    run = run_program("raster_position.exe")
    assert run.exit_code == 0, run.shown()
    assert run.stdout == "8: 8 0\n0: 0 0\n13: 13 0\n"


def test_the_runtime_knows_the_classes_of_native_objects(run_program):
    run = run_program("native_type.exe")
    assert run.exit_code == 0, run.shown()
    assert run.stdout.splitlines() == [
        "OGLColor: OGLColor 1, OGLMaterialColor 0, OGLFog 0, TOpenGL 0",
        "OGLMaterialColor: OGLColor 1, OGLMaterialColor 1, OGLFog 0, TOpenGL 0",
        "OGLFog: OGLColor 1, OGLMaterialColor 0, OGLFog 1, TOpenGL 0",
        "TOpenGL: OGLColor 0, OGLMaterialColor 0, OGLFog 0, TOpenGL 1",
    ]


class Cloud:
    """The visible voxels of a drawn volume, where they lie in the picture, and their colours."""

    def __init__(self, folder, words, picture, view):
        name, left, turn, tilt, mode, threshold = words
        width, height, self.point_size, field, distance, side = view
        voxels = numpy.frombuffer((folder / f"{name}.voxels").read_bytes(), numpy.uint8).astype(int)
        opacities = numpy.frombuffer((folder / f"{name}.opacities").read_bytes(), numpy.uint8)
        if int(mode) == 1:
            self.opacity = opacities[voxels]
        else:
            self.colors = voxels.reshape(-1, 3)
            self.opacity = opacities[self.colors.sum(axis=1) // 3].copy()
            steps = numpy.abs(numpy.diff(self.colors, axis=1))
            self.opacity[(steps < int(threshold)).all(axis=1)] = 0
        z, y, x = numpy.indices((side, side, side)).reshape(3, -1) - side / 2
        a, b = numpy.radians([float(turn), float(tilt)])
        x, z = x * numpy.cos(a) + z * numpy.sin(a), z * numpy.cos(a) - x * numpy.sin(a)
        y, z = y * numpy.cos(b) - z * numpy.sin(b), y * numpy.sin(b) + z * numpy.cos(b)
        self.depth = distance - z
        scale = height / 2 / numpy.tan(numpy.radians(field) / 2) / self.depth
        self.x = width / 4 + x * scale
        self.y = height / 2 - y * scale
        self.picture = picture[:, int(left) : int(left) + width // 2].astype(int)

    def near(self, margin, visible):
        """Which pixels' centres lie within half a point and the margin of such a voxel, along x and y."""
        reach = self.point_size / 2 + margin
        rows, columns, _ = self.picture.shape
        # Each voxel's square of pixels, summed up from its four corners.
        corners = numpy.zeros((rows + 1, columns + 1), int)
        left = numpy.clip(numpy.ceil(self.x[visible] - reach - 0.5).astype(int), 0, columns)
        right = numpy.clip(numpy.floor(self.x[visible] + reach + 0.5).astype(int), 0, columns)
        top = numpy.clip(numpy.ceil(self.y[visible] - reach - 0.5).astype(int), 0, rows)
        bottom = numpy.clip(numpy.floor(self.y[visible] + reach + 0.5).astype(int), 0, rows)
        for row, column, sign in (top, left, 1), (top, right, -1), (bottom, left, -1), (bottom, right, 1):
            numpy.add.at(corners, (row, column), sign)
        return corners.cumsum(axis=0).cumsum(axis=1)[:rows, :columns] > 0


@pytest.fixture(scope="module")
def clouds(volume):
    run, folder = volume
    view, *volumes = [line.split() for line in run.stdout.splitlines()]
    view = [int(word) for word in view]
    return {words[0]: Cloud(folder, words, run.pictures["volume"], view) for words in volumes}


@pytest.mark.parametrize("name", ["head", "molecule"])
def test_voxels_are_where_they_project_to(clouds, name):
    cloud = clouds[name]
    drawn = (cloud.picture != cloud.picture[0, 0]).any(axis=2)
    assert 0.1 < drawn.mean() < 0.6
    # A pixel is left to the rasteriser on either side, and the faintest points may not change a colour.
    assert not drawn[~cloud.near(1, cloud.opacity > 0)].any()
    assert drawn[cloud.near(-1, cloud.opacity >= 40)].all()


def test_near_grey_haze_around_the_molecule_is_not_drawn(clouds):
    cloud = clouds["molecule"]
    assert (cloud.opacity == 0).mean() > 0.8
    # The haze itself would be visible, were it not near grey.
    assert (cloud.colors[0] == (58, 60, 57)).all()


def test_points_blend_in_the_order_of_the_walk(clouds):
    """The picture is what comes out when the visible voxels are laid one over the other in the volume's order."""
    cloud = clouds["molecule"]
    half = cloud.point_size // 2
    blended = numpy.broadcast_to(cloud.picture[0, 0], cloud.picture.shape).astype(float).copy()
    nearest = numpy.full(blended.shape[:2], numpy.inf)
    visible = numpy.flatnonzero(cloud.opacity)
    columns, rows = numpy.rint(cloud.x[visible]).astype(int), numpy.rint(cloud.y[visible]).astype(int)
    shares = cloud.opacity[visible] / 255
    colors = cloud.colors[visible][:, ::-1].astype(float)
    for column, row, depth, share, color in zip(columns, rows, cloud.depth[visible], shares, colors):
        place = slice(row - half, row + half), slice(column - half, column + half)
        passes = depth <= nearest[place]
        nearest[place][passes] = depth
        blended[place][passes] += share * (color - blended[place][passes])
    difference = numpy.abs(blended - cloud.picture)
    assert difference.mean() < 1
    assert (difference.max(axis=2) > 24).mean() < 0.01
