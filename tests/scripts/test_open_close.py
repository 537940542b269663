"""Opening and closing without an end leaves nothing behind."""

import pathlib

SCRIPT = pathlib.Path(__file__).parent / "parts" / "open_close.talq"
ROUNDS = 1_200


def test_rounds_leave_no_memory_and_no_handle_behind(talq, assert_nothing_kept, monkeypatch):
    # The driver compiles shaders for each context; to optimise them takes longer than they run.
    monkeypatch.setenv("GALLIVM_PERF", "nopt")
    assert_nothing_kept(talq(SCRIPT, ROUNDS))


def test_what_is_kept_shows_in_the_heaps(talq):
    run = talq("""
        kept = [];
        used = HeapUse();
        for (i = 0; i < 100; i += 1) kept->Add(new OglColor(1, 0, 0, 1.0));
        Print(HeapUse() - used);
    """)
    assert run.exit_code == 0 and int(run.stdout) > 100 * 32, run.shown()
