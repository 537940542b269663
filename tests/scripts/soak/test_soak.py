"""Long runs: every *.talq file in this folder ends with exit code 0 and keeps nothing. ./test --soak runs them."""

import pathlib

import pytest

SCRIPTS = sorted(pathlib.Path(__file__).parent.glob("*.talq"))


@pytest.mark.parametrize("script", SCRIPTS, ids=[path.stem for path in SCRIPTS])
def test_soak(talq, assert_nothing_kept, script):
    assert_nothing_kept(talq(script))
