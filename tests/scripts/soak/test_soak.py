"""Long runs: every *.talq file in this folder ends with exit code 0 and keeps nothing. ./test --soak runs them."""

import pathlib

import pytest

SCRIPTS = sorted(pathlib.Path(__file__).parent.glob("*.talq"))


@pytest.mark.parametrize("script", SCRIPTS, ids=[path.stem for path in SCRIPTS])
def test_soak(talq, assert_nothing_kept, script):
    run = talq(script)
    assert run.exit_code == 0, run.shown()
    grown, handles, openings = map(int, run.stdout.split())
    assert_nothing_kept(grown, handles, openings)
