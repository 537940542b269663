"""Opening and closing without an end leaves nothing behind."""

import pathlib

SCRIPT = pathlib.Path(__file__).parent / "parts" / "open_close.talq"
ROUNDS = 10_000


def test_ten_thousand_rounds_leave_no_memory_and_no_handle_behind(talq, assert_nothing_kept, monkeypatch):
    # The driver compiles shaders for each context; to optimise them takes longer than they run.
    monkeypatch.setenv("GALLIVM_PERF", "nopt")
    run = talq(SCRIPT, ROUNDS)
    assert run.exit_code == 0, run.shown()
    grown, handles = map(int, run.stdout.split())
    assert_nothing_kept(grown, handles, openings=ROUNDS)
