"""The tables that examples/plot.talq reads, and its ticks."""

import csv
import json
import math
import re

import numpy
import pytest

import gallery
from desktop import wait_for

PLOT = gallery.EXAMPLES / "plot"
SUN = PLOT / "sun.csv"

GOOD = "# A title\n# more\n\nday/hour/height,0, 1.5 ,2e1\r\n-1,1,2,3\n  # between\n2.5,-4,.5,6.\n"


def read_table(talq, tmp_path, text):
    """Reads the text as a table, and prints it."""
    (tmp_path / "table.csv").write_bytes(text.encode())
    return talq(f'include "{PLOT}/table.talq";\nPrint(ReadTable("table.csv"));')


def test_table_is_read_from_what_editors_write(talq, tmp_path):
    run = read_table(talq, tmp_path, GOOD)
    assert run.exit_code == 0, run.shown()
    values = "[[1, 2, 3], [-4, 0.5, 6]]"
    assert run.stdout == f"[A title, [day, hour, height], [-1, 2.5], [0, 1.5, 20], {values}]\n"


@pytest.mark.parametrize(
    "old, new, message",
    [
        ("day/hour/height", "height", 'table.csv:4: the first cell, "height", does not name rows, columns and values'),
        ("1.5", "x", 'table.csv:4: cell 3, "x", is not a number'),
        ("2e1", "1.5", "table.csv:4: 1.5 follows 1.5"),
        ("-1,1,2,3", "-1,1,2", "table.csv:5: there are 3 cells, not 4"),
        ("-1,1,2,3", "-1,1,2,3,", "table.csv:5: there are 5 cells, not 4"),
        ("-1,1,2,3", "-1,1,,3", 'table.csv:5: cell 3, "", is not a number'),
        (".5,6.", ".5,1e31", "table.csv:7: cell 4, 1e31, is beyond 1e30"),
        ("2.5,-4", "-2,-4", "table.csv:7: -2 follows -1"),
        ("2.5,-4,.5,6.\n", "", "table.csv: the table has fewer than two rows or columns of values"),
    ],
)
def test_bad_table_is_told_with_its_line(talq, tmp_path, old, new, message):
    assert GOOD.count(old) == 1
    run = read_table(talq, tmp_path, GOOD.replace(old, new))
    assert run.exit_code == 1 and message in run.stderr, run.shown()


def test_numbers_are_told_from_other_texts(talq):
    numbers = ["0", "-1", "+2.50", ".5", "5.", "1e3", "1E-3", "-2.5e+10"]
    others = ["", "-", ".", "e5", "1e", "1e+", "1.2.3", "1 2", "0x10", "1,5", "--1", "12a", "nan", "-."]
    run = talq(
        f'include "{PLOT}/table.talq";\ntexts = {json.dumps(numbers + others)};\n'
        "for (i = 0; i < Length(texts); i += 1) Print(IsNumber(texts[i]));"
    )
    assert run.stdout.split() == ["1"] * len(numbers) + ["0"] * len(others), run.shown()


RANGES = [(0, 24), (1, 365), (-63.4, 63.4), (0.0021, 0.0084), (99.5, 100.5)]
RANGES += [(-3e7, 9e6), (-8e-6, 1e-6), (7, 7), (0, 0), (0, 8)]


@pytest.mark.parametrize("is_widened", [0, 1], ids=["as it is", "widened"])
def test_ticks_are_few_round_numbers_within_the_axis(talq, is_widened):
    run = talq(
        f'include "{PLOT}/axes.talq";\nranges = {json.dumps(RANGES)};\n'
        + f"""for (i = 0; i < Length(ranges); i += 1) {{
          axis = NewAxis("", ranges[i][0] * 1.0, ranges[i][1] * 1.0, 2.0, {is_widened});
          ticks = TicksOf(axis);
          texts = [];
          for (k = 0; k < Length(ticks); k += 1) texts->Add(TickText(axis, ticks[k]));
          Print([axis[1], axis[2], axis[4], Along(axis, axis[1]), Along(axis, axis[2]), ticks, texts]);
        }}"""
    )
    assert run.exit_code == 0, run.shown()
    for (first, last), line in zip(RANGES, run.stdout.splitlines(), strict=True):
        low, high, step, start, end, ticks, texts = json.loads(line)
        assert low <= first <= last <= high and (start, end) == pytest.approx((-1, 1))
        if is_widened:
            assert (ticks[0], ticks[-1]) == pytest.approx((low, high), abs=step * 1e-6)
        elif first < last:
            assert (low, high) == (first, last)
        assert min(abs(step / 10.0**power / factor - 1) for power in range(-9, 9) for factor in (1, 2, 5)) < 1e-9
        assert 2 <= len(ticks) <= 10
        assert numpy.diff(ticks) == pytest.approx(step)
        assert ticks[0] / step == pytest.approx(round(ticks[0] / step), abs=1e-6)
        # No tick is missing at either end.
        assert low - step * 1e-3 <= ticks[0] < low + step * 1.001
        assert high - step * 1.001 < ticks[-1] <= high + step * 1e-3
        assert len(set(texts)) == len(texts)
        assert [float(text) for text in texts] == pytest.approx(ticks, abs=step * 1e-3)


def sun_table():
    (names, *hours), *lines = list(csv.reader(line for line in SUN.open() if not line.startswith("#")))
    assert names == "day of the year/solar time (hours)/elevation (degrees)"
    return [float(hour) for hour in hours], {int(day): list(map(float, values)) for day, *values in lines}


def test_table_of_the_sun_is_what_its_formula_gives():
    hours, days = sun_table()
    assert hours == list(range(25)) and list(days) == list(range(1, 366, 7))
    sin, cos, radians = math.sin, math.cos, math.radians
    for day, values in days.items():
        declination = radians(-23.44 * cos(radians(360 / 365 * (day + 10))))
        for hour, value in zip(hours, values):
            sine = sin(radians(50)) * sin(declination)
            sine += cos(radians(50)) * cos(declination) * cos(radians(15 * (hour - 12)))
            assert value == pytest.approx(math.degrees(math.asin(sine)), abs=0.05001)


def test_chart_is_turned_in_a_window_until_escape(desktop, tmp_path):
    (tmp_path / "table.csv").write_text(GOOD)
    red = lambda picture: (picture[:, :, 0] > picture[:, :, 2] + 80).sum()
    with desktop.start(PLOT.parent / "plot.talq", "table.csv") as window:
        first = window.wait_until(lambda picture: red(picture) > 1000)
        wait_for(lambda: re.fullmatch(r"A title - \d+ frames a second", window.title()), "the count of frames")
        window.drag([(400, 300), (500, 320)])
        window.wait_until(lambda picture: (picture != first).any(axis=2).mean() > 0.1)
        # The title of the chart stays in the upper left corner.
        window.resize(500, 350)
        window.wait_until(lambda picture: (picture[28:42, 28:70].min(axis=2) < 100).sum() > 50)
        window.key("Escape")
    assert window.exit_code == 0, window.shown()
