"""Every *.talq file in this folder is a test: it passes when the script ends with exit code 0, with the host's own
arithmetic and with the module's.

A script whose name ends with _window gets a display.
"""

import pathlib

import pytest

SCRIPTS = sorted(pathlib.Path(__file__).parent.glob("*.talq"))


@pytest.mark.parametrize("options", [[], ["--module-arithmetic"]], ids=["own", "module"])
@pytest.mark.parametrize("script", SCRIPTS, ids=[path.stem for path in SCRIPTS])
def test_script(talq, script, options):
    run = talq(script, window=script.stem.endswith("_window"), options=options)
    assert run.exit_code == 0, run.shown()
