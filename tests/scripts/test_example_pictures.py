"""The examples still draw the pictures that lie beside them."""

import pathlib
import shutil

import numpy
import pytest

from conftest import read_picture

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"


@pytest.mark.parametrize("name", ["primitives", "solids", "nurbs", "utah-teapot", "billboards", "motion-blur"])
def test_picture(run_talq_in, tmp_path, name):
    shutil.copytree(EXAMPLES, tmp_path / "examples", ignore=shutil.ignore_patterns("pictures"))
    (tmp_path / "out").mkdir()
    run = run_talq_in(tmp_path, f"examples/{name}.talq")
    assert run.exit_code == 0, run.shown()
    expected = read_picture(EXAMPLES / "pictures" / f"{name}.png").astype(int)
    difference = numpy.abs(run.pictures[name].astype(int) - expected).max(axis=2)
    # Another driver may round colours and edges differently, not draw something else.
    assert difference.mean() < 1
    assert (difference > 40).mean() < 0.005
