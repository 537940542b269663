"""The picture of examples/bunny.talq, checked by facts computed from the mesh and the script's camera and light."""

import json

import numpy
import pytest

import gallery

MODEL = gallery.EXAMPLES / "models" / "bunny.obj"

# The picture is made once.
pytestmark = pytest.mark.xdist_group("example bunny")


class Scene:
    """The projected mesh: where each corner lies in the picture, how far away, and how much it faces the light."""

    def __init__(self, values):
        eye, centre, (field, self.width, self.height), light = map(numpy.array, values)
        self.width, self.height = int(self.width), int(self.height)
        vertices, self.faces = read_obj(MODEL)
        forward = unit(centre - eye)
        side = unit(numpy.cross(forward, [0, 1, 0]))
        up = numpy.cross(side, forward)
        to_eye = numpy.array([side, up, -forward]).T  # the eye looks along -z
        seen, light = (vertices - eye) @ to_eye, (light - eye) @ to_eye
        self.depth = -seen[:, 2]
        scale = self.height / 2 / numpy.tan(numpy.radians(field) / 2)  # pixels of a unit length at depth 1
        self.x = self.width / 2 + scale * seen[:, 0] / self.depth
        self.y = self.height / 2 - scale * seen[:, 1] / self.depth
        corners = seen[self.faces]
        face_normals = numpy.cross(corners[:, 1] - corners[:, 0], corners[:, 2] - corners[:, 0])
        normals = numpy.zeros_like(seen)
        for corner in range(3):
            numpy.add.at(normals, self.faces[:, corner], face_normals)
        self.facing = numpy.sum(unit(normals) * unit(light - seen), axis=1)
        self.nearest = self.rasterise()

    def rasterise(self):
        """The distance to the mesh at each pixel's centre; infinite where no ray hits it."""
        nearest = numpy.full((self.height, self.width), numpy.inf)
        for a, b, c in self.faces:
            xs, ys = self.x[[a, b, c]], self.y[[a, b, c]]
            left, right = int(xs.min()), int(xs.max()) + 1
            top, bottom = int(ys.min()), int(ys.max()) + 1
            x, y = numpy.meshgrid(numpy.arange(left, right) + 0.5, numpy.arange(top, bottom) + 0.5)
            area = cross(xs[1] - xs[0], ys[1] - ys[0], xs[2] - xs[0], ys[2] - ys[0])
            if area == 0:
                continue
            v = cross(x - xs[0], y - ys[0], xs[2] - xs[0], ys[2] - ys[0]) / area
            w = cross(xs[1] - xs[0], ys[1] - ys[0], x - xs[0], y - ys[0]) / area
            hit = (v >= 0) & (w >= 0) & (v + w <= 1)
            distance = 1 / ((1 - v - w) / self.depth[a] + v / self.depth[b] + w / self.depth[c])
            part = nearest[top:bottom, left:right]
            part[hit] = numpy.minimum(part[hit], distance[hit])
        return nearest


def read_obj(path):
    rows = [line.split() for line in path.read_text().splitlines()]
    vertices = numpy.array([row[1:] for row in rows if row[0] == "v"], dtype=float)
    faces = numpy.array([row[1:] for row in rows if row[0] == "f"], dtype=int) - 1
    return vertices, faces


def unit(vectors):
    return vectors / numpy.linalg.norm(vectors, axis=-1, keepdims=True)


def cross(ax, ay, bx, by):
    return ax * by - ay * bx


def grown(mask):
    """The mask and the pixels next to it."""
    padded = numpy.pad(mask, 1)
    rows, columns = mask.shape
    return numpy.any([padded[dy : dy + rows, dx : dx + columns] for dy in range(3) for dx in range(3)], axis=0)


@pytest.fixture(scope="module")
def scene_and_picture(example):
    run = example("bunny")
    return Scene(json.loads(run.stdout.splitlines()[-1])), run.pictures["bunny"].astype(int)


def is_bunny(picture):
    """Only the bunny is warm: floor, shadow and backdrop are bluer than they are red."""
    return picture[:, :, 0] > picture[:, :, 2]


def test_size(scene_and_picture):
    scene, picture = scene_and_picture
    assert picture.shape == (scene.height, scene.width, 3)
    assert scene.width >= 800 and scene.height >= 600


def test_bunny_is_where_rays_hit_the_mesh(scene_and_picture):
    scene, picture = scene_and_picture
    warm = is_bunny(picture)
    hit = numpy.isfinite(scene.nearest)
    assert hit.mean() > 0.1
    # One pixel beside the outline is left to the rasteriser.
    assert not warm[~grown(hit)].any()
    assert warm[~grown(~hit)].all()


def test_silhouette_is_where_the_mesh_projects_to(scene_and_picture):
    scene, picture = scene_and_picture
    rows, columns = numpy.nonzero(is_bunny(picture))
    found = [columns.min(), columns.max() + 1, rows.min(), rows.max() + 1]
    expected = [scene.x.min(), scene.x.max(), scene.y.min(), scene.y.max()]
    assert numpy.abs(numpy.subtract(found, expected)).max() <= 2


def test_casts_a_shadow_away_from_the_light(scene_and_picture):
    scene, picture = scene_and_picture
    hit = numpy.isfinite(scene.nearest)
    floor = ~grown(hit)
    floor[: scene.height * 7 // 10] = False
    dark = floor & (picture.sum(axis=2) < 120)
    middle = (scene.x.min() + scene.x.max()) / 2
    # The light is on the left.
    assert 5000 < dark.sum() < floor.sum() / 3
    assert numpy.nonzero(dark)[1].mean() > middle


def test_has_more_than_a_thousand_colours(scene_and_picture):
    _, picture = scene_and_picture
    assert len(gallery.colors_in(picture)) > 1000


def test_is_brighter_towards_the_light(scene_and_picture):
    scene, picture = scene_and_picture
    x, y = scene.x.astype(int), scene.y.astype(int)
    seen = scene.depth < scene.nearest[y, x] * 1.005
    facing, brightness = scene.facing[seen], picture.sum(axis=2)[y[seen], x[seen]]
    lit, turned_away = brightness[facing > 0.7], brightness[facing < 0]
    assert len(lit) > 100 and len(turned_away) > 20
    assert lit.mean() > 2 * turned_away.mean()
    assert numpy.corrcoef(facing, brightness)[0, 1] > 0.8
