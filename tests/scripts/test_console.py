"""The prompt in a terminal: Ctrl+C and Tab, as a user types them."""

import contextlib
import os
import pty
import re
import select
import signal
import time

import pytest

import conftest

CONSOLE_LIMIT = 120  # seconds
CTRL_C = "\x03"
LEFT = "\x1b[D"


class Terminal:
    """A program in a terminal of its own."""

    def __init__(self, command, environment):
        self.shown = b""
        self.exit_code = None
        self.process, self.handle = pty.fork()
        if self.process == 0:
            os.execve(command[0], list(map(str, command)), environment)

    def text(self):
        """What it has shown; a step to the right is a blank."""
        text = re.sub(r"\x1b\[\d*C", " ", self.shown.decode(errors="replace"))
        return re.sub(r"\x1b\[[?\d;]*[A-Za-z]", "", text).replace("\r", "")

    def read(self):
        """What comes within half a second; false when nothing does."""
        if not select.select([self.handle], [], [], 0.5)[0]:
            return False
        with contextlib.suppress(OSError):  # its other end is closed
            self.shown += os.read(self.handle, 4096)
        return True

    def enter(self, keys, shown):
        """Types, and waits until the text is shown behind what was shown before. Wine asks for keys, and no longer for
        whole lines, a moment after it has shown the prompt."""
        while self.read():
            pass
        start = len(self.text())
        os.write(self.handle, keys.encode())
        self.wait_for(shown, start)

    def wait_for(self, shown, start=0):
        end = time.monotonic() + CONSOLE_LIMIT
        while shown not in self.text()[start:]:
            self.read()
            assert time.monotonic() < end, f"{shown!r} is not shown:\n{self.text()}"

    def wait_for_end(self):
        end = time.monotonic() + CONSOLE_LIMIT
        while self.exit_code is None and time.monotonic() < end:
            self.read()
            ended, status = os.waitpid(self.process, os.WNOHANG)
            if ended:
                self.exit_code = os.waitstatus_to_exitcode(status)
        assert self.exit_code is not None, self.text()


@contextlib.contextmanager
def terminal(*command, environment=None):
    shown = Terminal(command, (environment or conftest.wine_environment(None)) | {"TERM": "xterm"})
    try:
        shown.wait_for("talq> ")
        yield shown
    finally:
        if shown.exit_code is None:
            os.kill(shown.process, signal.SIGKILL)
            os.waitpid(shown.process, 0)
        os.close(shown.handle)


@pytest.fixture
def prompt():
    with terminal(conftest.WINE, conftest.PROGRAMS / "talq.exe", "-i") as shown:
        yield shown


def leave(prompt):
    os.write(prompt.handle, b"exit\r")
    prompt.wait_for_end()
    assert prompt.exit_code == 0, prompt.text()


def test_ctrl_c_drops_the_line(prompt):
    prompt.enter("x = 5\r", "talq> ")
    prompt.enter("Fail(1", "Fail(1")
    prompt.enter(CTRL_C, "\ntalq> ")
    prompt.enter("x + 1\r", "\n6\ntalq> ")
    prompt.enter("[1,\r", "\n  ... ")
    prompt.enter(CTRL_C, "\ntalq> ")
    prompt.enter(CTRL_C, "\ntalq> ")
    prompt.enter("x + 2\r", "\n7\ntalq> ")
    leave(prompt)
    assert "error" not in prompt.text()


def test_ctrl_c_ends_a_statement_that_runs(prompt):
    prompt.enter("while (1) {}\r", "{}\n")
    time.sleep(1)
    os.write(prompt.handle, CTRL_C.encode())
    prompt.wait_for_end()
    assert prompt.text().count("talq> ") == 1


def test_tab_completes_a_name(prompt):
    prompt.enter("device = new MD\t", "new MDC")
    prompt.enter("(8, 6)\r", "talq> ")
    prompt.enter("device->GetW\t", "GetWidth")
    prompt.enter("()\r", "\n8\ntalq> ")
    prompt.enter("dev\t", "device")
    prompt.enter("->IsO\t()\r", "\n1\ntalq> ")
    prompt.enter('"a\tb"\r', "\na b\ntalq> ")
    leave(prompt)


def test_tab_completes_within_a_line(prompt):
    prompt.enter(f"Len + 1{LEFT * 4}\t", "gth + 1")
    prompt.enter(f"{LEFT * 4}(\"abc\")\r", "\n4\ntalq> ")
    leave(prompt)


def test_tab_shows_the_choices_and_goes_on(prompt):
    prompt.enter("m = new Matrix(2, 3)\r", "talq> ")
    prompt.enter("m->Get\t", "\nGetColumns  GetRows\ntalq> m->Get")
    prompt.enter("R\t", "Rows")
    prompt.enter("()\r", "\n2\ntalq> ")
    leave(prompt)


@pytest.mark.xdist_group("run")
def test_run_opens_such_a_prompt():
    with terminal(conftest.ROOT / "run", "--no-module", "-i", environment=dict(os.environ)) as prompt:
        prompt.enter("1 + xyz", "xyz")
        prompt.enter(CTRL_C, "\ntalq> ")
        prompt.enter('Subst\t("abc", 1, 1)\r', "\nb\ntalq> ")
        leave(prompt)
