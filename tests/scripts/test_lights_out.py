"""The game of examples/lights-out.talq: its rules, and how it is played."""

import functools
import itertools
import json
import operator
import re

import numpy
import pytest

import gallery
from camera import orbit_eye, project
from desktop import wait_for

SCRIPT = gallery.EXAMPLES / "lights-out.talq"
RULES = f'include "{gallery.EXAMPLES}/lights-out/rules.talq";\n'

# ---- The rules, as the cube is folded: a face has a normal and cells at -2, 0 and 2 along the other two axes.

AXES = [numpy.array(axis) for axis in ((1, 0, 0), (0, 1, 0), (0, 0, 1))]
NORMALS = [sign * axis for axis in AXES for sign in (-1, 1)]
CELLS = sorted(
    tuple(3 * normal + 2 * a * first + 2 * b * second)
    for normal in NORMALS
    for first, second in [[axis for axis in AXES if not normal @ axis]]
    for a, b in itertools.product((-1, 0, 1), repeat=2)
)


def normal_of(cell):
    return next(normal for normal in NORMALS if normal @ cell == 3)


def switched_by(cell):
    """The cell and the one in each direction of its face, or over the edge."""
    normal = normal_of(cell)
    reached = {cell}
    for way in NORMALS:
        if way @ normal == 0:
            over_the_edge = way @ cell == 2
            reached.add(tuple(cell + way - normal if over_the_edge else cell + 2 * way))
    return reached


def after_clicks(lit, *cells):
    return functools.reduce(operator.xor, map(switched_by, cells), lit)


def starts(talq, seed, *levels):
    """The lit cells of levels that follow each other, as the game with the seed begins them."""
    prints = "".join(f"Print(StartOf({level}));" for level in levels)
    done = talq(RULES + f"SeedRandom({seed}); {prints} Print(cells);")
    assert done.exit_code == 0, done.shown()
    *lit, cells = map(json.loads, done.stdout.splitlines())
    return [{tuple(cell) for cell, is_lit in zip(cells, row) if is_lit} for row in lit]


def test_every_cell_switches_its_four_neighbours(talq):
    done = talq(RULES + "Print(cells); Print(together);")
    cells, together = map(json.loads, done.stdout.splitlines())
    cells = [tuple(cell) for cell in cells]
    assert len(CELLS) == 54 and sorted(cells) == CELLS
    for cell, numbers in zip(cells, together, strict=True):
        assert len(numbers) == 5 and {cells[number] for number in numbers} == switched_by(cell)


def test_clicks_over_an_edge_and_at_a_corner():
    assert switched_by((3, 0, 0)) == {(3, 0, 0), (3, 2, 0), (3, -2, 0), (3, 0, 2), (3, 0, -2)}
    assert switched_by((3, 2, 0)) == {(3, 2, 0), (3, 0, 0), (3, 2, 2), (3, 2, -2), (2, 3, 0)}
    assert switched_by((3, 2, 2)) == {(3, 2, 2), (3, 0, 2), (3, 2, 0), (2, 3, 2), (2, 2, 3)}


@pytest.mark.parametrize("level", [1, 2, 3])
def test_level_is_solved_in_as_many_clicks(talq, level):
    (lit,) = starts(talq, 5, level)
    assert lit and any(not after_clicks(lit, *clicks) for clicks in itertools.combinations(CELLS, level))


def reduced(vector, basis):
    for pivot, row in basis:
        if vector >> pivot & 1:
            vector ^= row
    return vector


def test_all_levels_can_be_solved(talq):
    as_bits = lambda cells: sum(1 << CELLS.index(cell) for cell in cells)
    basis = []
    for cell in CELLS:
        if row := reduced(as_bits(switched_by(cell)), basis):
            basis.append((row.bit_length() - 1, row))
    assert len(basis) < 54  # not whatever is lit can be solved
    levels = [*range(1, 60), 1000]
    lit = starts(talq, 8, *levels)
    assert all(lit) and not any(reduced(as_bits(cells), basis) for cells in lit)
    assert len(set(map(frozenset, lit))) > 50


# ---- As it is played

SIZE = 900, 680
EYE = orbit_eye(numpy.zeros(3), 5.6 / numpy.sin(numpy.radians(35 / 2)), 35, 28)
SEEN = [cell for cell in CELLS if normal_of(cell) @ EYE > 4]  # well enough from the front


def place_of(cell):
    """Pixels of the top of a cell's pillow, in the view that Home brings back."""
    x, y, _ = project([cell + 0.34 * normal_of(cell)], EYE, [0, 0, 0], [35, *SIZE])
    return int(x[0]), int(y[0])


def colour_of(picture, cell):
    x, y = place_of(cell)
    return picture[y - 2 : y + 3, x - 2 : x + 3].reshape(-1, 3).mean(axis=0)


def shows(lit):
    """The condition that exactly these of the cells that are seen are lit; a lamp on its way is neither."""

    def condition(picture):
        red, _, blue = numpy.array([colour_of(picture, cell) for cell in SEEN]).T
        is_lit = [cell in lit for cell in SEEN]
        return (is_lit == (red > 240)).all() and (is_lit != (red < 100)).all() and (red > blue + 50)[is_lit].all()

    return condition


def test_three_faces_are_seen():
    assert len(SEEN) == 27


def test_clicks_switch_cells_and_r_restarts(desktop, talq):
    (lit,) = starts(talq, 3, 4)
    middle, edge, corner = (0, 0, 3), (3, 2, 0), (2, 3, 2)
    with desktop.start(SCRIPT, 4, 3) as window:
        window.wait_until(shows(lit))
        window.click(*place_of(middle))
        window.wait_until(shows(after_clicks(lit, middle)))
        window.click(*place_of(edge))
        window.wait_until(shows(after_clicks(lit, middle, edge)))
        window.click(*place_of(corner))
        window.wait_until(shows(after_clicks(lit, middle, edge, corner)))
        window.click(*place_of(middle))
        window.wait_until(shows(after_clicks(lit, edge, corner)))
        for again in (edge, corner):
            window.key("r")
            window.wait_until(shows(lit))
            window.click(*place_of(again))
            window.wait_until(shows(after_clicks(lit, again)))
        window.close()
    assert window.exit_code == 0, window.shown()


def test_drag_turns_the_cube_and_clicks_nothing(desktop, talq):
    first, second = starts(talq, 3, 4, 4)
    with desktop.start(SCRIPT, 4, 3) as window:
        before = window.wait_until(shows(first))
        x, y = place_of((0, 0, 3))
        window.drag([(x, y), (x + 100, y + 10), (x + 200, y + 20)])
        window.wait_until(lambda picture: (abs(picture.astype(int) - before).max(axis=2) > 30).mean() > 0.1)
        window.key("Home")
        window.wait_until(shows(first))
        window.key("n")  # another start
        window.wait_until(shows(second))
        wait_for(lambda: re.fullmatch(r"Lights out - \d+ frames a second", window.title()), "the count of frames")
        window.key("Escape")
    assert window.exit_code == 0, window.shown()


def test_solved_cube_is_celebrated_and_the_next_level_follows(desktop, talq):
    first, second = starts(talq, 9, 1, 2)
    (solution,) = [cell for cell in SEEN if switched_by(cell) == first]
    with desktop.start(SCRIPT, 1, 9) as window:
        before = window.wait_until(shows(first))
        beside = (0, 3, 0)
        window.click(*place_of(beside))  # solves nothing
        window.wait_until(shows(after_clicks(first, beside)))
        window.click(*place_of(beside))
        window.wait_until(shows(first))
        window.click(*place_of(solution))
        # No lamp is blue, and the words of praise stand in the middle above the cube.
        is_blue = lambda picture: (picture[:, :, 2] > 200) & (picture[:, :, 0] < 120)
        is_praised = lambda picture: (picture[45:62, 350:550].min(axis=2) > 180).any()
        assert is_blue(before).sum() == 0 and not is_praised(before)
        window.wait_until(lambda picture: is_praised(picture) and is_blue(picture).sum() > 5000)
        window.wait_until(lambda picture: not is_praised(picture))
        window.key("Home")  # the cube has turned
        window.wait_until(shows(second))
        window.close()
    assert window.exit_code == 0, window.shown()


def test_without_a_display_the_hint_says_what_to_do(talq):
    done = talq(SCRIPT)
    assert done.exit_code == 1
    assert "hint: scripts with windows run with ./run --window" in done.stderr
