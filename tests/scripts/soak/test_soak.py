"""Long runs: every *.talq file in this folder passes when it ends with exit code 0. ./test --soak runs them."""

import pathlib

import pytest

SCRIPTS = sorted(pathlib.Path(__file__).parent.glob("*.talq"))


@pytest.mark.parametrize("script", SCRIPTS, ids=[path.stem for path in SCRIPTS])
def test_soak(talq, script):
    run = talq(script)
    print(run.stdout)
    assert run.exit_code == 0, run.shown()
