"""Opening and closing without an end leaves nothing behind."""

import pathlib

SCRIPT = pathlib.Path(__file__).parent / "parts" / "open_close.talq"
ROUNDS = 10_000
MEBIBYTE = 1 << 20


def test_ten_thousand_rounds_leave_no_memory_and_no_handle_behind(talq, run_program):
    run = talq(SCRIPT, ROUNDS)
    assert run.exit_code == 0, run.shown()
    grown, handles = map(int, run.stdout.split())
    assert handles == 0
    # Wine's driver keeps some 200 bytes of each context that was current; that much is not the module's.
    driver = int(run_program("driver_growth.exe", ROUNDS).stdout)
    assert grown - driver < MEBIBYTE, (grown, driver)
