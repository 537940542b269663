"""The fixtures that run scripts on the built module under Wine."""

import contextlib
import dataclasses
import os
import pathlib
import subprocess
import tempfile

import numpy
import PIL.Image
import pytest

import gallery
from desktop import Desktop, running, window_manager

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAMS = ROOT / "build" / os.environ.get("TALQ_BUILD", "windows-cross")
WINE = "/usr/lib/wine/wine64"
WINE_SERVER = "/usr/lib/wine/wineserver"
TIME_LIMIT = 900  # seconds
CLOSING_LIMIT = 120  # seconds, for Wine, of which it takes some
MEBIBYTE = 1 << 20
# One prefix serves one display, so each worker has its own (scripts/setup).
WINDOW_PREFIX = f"window-{os.environ.get('PYTEST_XDIST_WORKER', 'gw0')}"
MOST_USED = 1024  # bytes of a script's own values, more or fewer than before


@dataclasses.dataclass
class Run:
    exit_code: int
    stdout: str
    stderr: str
    pictures: dict  # arrays of height x width x 3 bytes (red, green, blue), by the file name without .png

    def shown(self):
        return f"exit code {self.exit_code}\n--- stdout\n{self.stdout}\n--- stderr\n{self.stderr}"


def read_picture(path):
    return numpy.asarray(PIL.Image.open(path).convert("RGB"))


def wine_environment(display, prefix=WINDOW_PREFIX):
    """The environment of a Wine program on the X display in the prefix or, with None, headless."""
    environment = {name: value for name, value in os.environ.items() if name != "DISPLAY"}
    environment |= {
        "LC_ALL": "C.UTF-8",
        "WINEPREFIX": str(ROOT / "build" / "wine" / (prefix if display else "headless")),
        "WINEDEBUG": "-all",
        "WINEDLLOVERRIDES": "mscoree=;mshtml=;winedbg.exe=;services.exe=;winemenubuilder.exe=;glu32=n",
    }
    return environment | ({"DISPLAY": display} if display else {})


def start_in_wine(program, arguments, folder, display, stdout, stderr):
    """Starts a program of the Windows build with the arguments in the folder."""
    return subprocess.Popen(
        [WINE, PROGRAMS / program, *arguments],
        cwd=folder,
        env=wine_environment(display),
        stdin=subprocess.DEVNULL,
        stdout=stdout,
        stderr=stderr,
    )


def run_captured(command, text="", **options):
    """Runs a command that may start Wine, with the text as its input; stdout and stderr of what it returns are texts."""
    # Files and not pipes: Wine's desktop keeps what it inherits open after the program has ended.
    with tempfile.TemporaryFile() as stdin, tempfile.TemporaryFile() as stdout, tempfile.TemporaryFile() as stderr:
        stdin.write(text.encode())
        stdin.seek(0)
        done = subprocess.run(command, stdin=stdin, stdout=stdout, stderr=stderr, timeout=TIME_LIMIT, **options)
        done.stdout, done.stderr = read_text(stdout), read_text(stderr)
    return done


def run_in_wine(program, arguments, folder, display=None):
    """Starts it and waits for its end."""
    # Files and not pipes: Wine's desktop keeps what it inherits open after the program has ended.
    with tempfile.TemporaryFile() as stdout, tempfile.TemporaryFile() as stderr:
        started = start_in_wine(program, arguments, folder, display, stdout, stderr)
        try:
            started.wait(TIME_LIMIT)
        finally:
            started.kill()
            started.wait(CLOSING_LIMIT)
        texts = [read_text(stdout), read_text(stderr)]
    return Run(started.returncode, *texts, {path.stem: read_picture(path) for path in pathlib.Path(folder).rglob("*.png")})


@contextlib.contextmanager
def wine_kept_running(display=None, prefix=WINDOW_PREFIX):
    """Lets a program wait for input meanwhile: without any, Wine ends, and the next one waits until it is up again."""
    program = subprocess.Popen(
        [WINE, PROGRAMS / "talq.exe", "--no-module", "-i"],
        env=wine_environment(display, prefix),
        stdin=subprocess.PIPE,
        stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
    )
    try:
        yield
    finally:
        try:
            program.communicate(timeout=CLOSING_LIMIT)  # the end of its input
        finally:
            program.kill()


@pytest.fixture(scope="session", autouse=True)
def headless_wine():
    """Wine without a display runs as long as the tests."""
    with wine_kept_running():
        yield


def run_drawing(script, folder):
    """Runs a script that leaves pictures in the folder's own folder "out", and makes no mistake that OpenGL swallows."""
    (pathlib.Path(folder) / "out").mkdir()
    return run_in_wine("talq.exe", ["--check", script], folder)


def run_example(name, folder):
    """Draws an example of the gallery; the last line that it prints may tell of its scene."""
    return run_drawing(gallery.script_of(name, folder), folder)


def run_volume(folder):
    """Draws the volumes; the program leaves a picture of another form."""
    run = run_in_wine("volume_picture.exe", [], folder)
    if run.exit_code == 0:
        run.pictures["volume"] = read_picture(pathlib.Path(folder) / "volume.ppm")
    return run


def run_gallery(name, folder):
    """Draws a picture of the gallery, whatever makes it."""
    return run_volume(folder) if name == "volume" else run_example(name, folder)


def read_text(file):
    file.seek(0)
    return file.read().decode().replace("\r\n", "\n")


@contextlib.contextmanager
def virtual_display(prefix=WINDOW_PREFIX):
    """A virtual X display with a window manager, and Wine running for it in the prefix."""
    read_end, write_end = os.pipe()
    options = ["-screen", "0", "1024x768x24", "+extension", "GLX", "-nolisten", "tcp"]
    with running(["Xvfb", "-displayfd", str(write_end), *options], pass_fds=[write_end]):
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            number = pipe.readline().strip()
        assert number, "Xvfb did not start"
        try:
            with window_manager(f":{number}"), wine_kept_running(f":{number}", prefix):
                yield f":{number}"
        finally:
            # Wine's desktop closes before its display does.
            subprocess.run([WINE_SERVER, "-w"], env=wine_environment(f":{number}", prefix), timeout=CLOSING_LIMIT)


@pytest.fixture(scope="session")
def display():
    """A virtual X display that lives as long as the tests."""
    with virtual_display() as name:
        yield name


@pytest.fixture
def talq(request, tmp_path):
    """talq(script, *arguments, window=False, options=()): runs a script, given as text or as a path, in a folder of
    its own."""

    def run(script, *arguments, window=False, options=()):
        if isinstance(script, str):
            path = tmp_path / "script.talq"
            path.write_text(script, encoding="utf-8")
        else:
            path = script
        display = request.getfixturevalue("display") if window else None
        return run_in_wine("talq.exe", [*options, path, *map(str, arguments)], tmp_path, display)

    return run


def desktop_in(folder, display):
    """Where scripts with windows run in the folder under a user's input: desktop.py says how to use it."""

    def start(arguments, stdout, stderr):
        return start_in_wine("talq.exe", arguments, folder, display, stdout, stderr)

    return Desktop(display, folder, start)


@pytest.fixture
def desktop(display, tmp_path):
    """Scripts run there in a folder of their own."""
    return desktop_in(tmp_path, display)


@pytest.fixture
def talq_options(tmp_path):
    """talq_options(*arguments): runs talq.exe with the arguments as they are, in a folder of its own."""
    return lambda *arguments: run_in_wine("talq.exe", arguments, tmp_path)


@pytest.fixture(scope="session")
def example(tmp_path_factory):
    """example(name): the run of an example of the gallery, made once. Tests of one example are in one xdist group,
    "example" and its name."""
    runs = {}

    def run(name):
        if name not in runs:
            runs[name] = run_example(name, tmp_path_factory.mktemp(name))
        assert runs[name].exit_code == 0, runs[name].shown()
        return runs[name]

    return run


@pytest.fixture(scope="session")
def volume(tmp_path_factory):
    """The run that draws the volumes, and the folder in which it left them, in the xdist group "example volume"."""
    folder = tmp_path_factory.mktemp("volume")
    run = run_volume(folder)
    assert run.exit_code == 0, run.shown()
    return run, folder


@pytest.fixture
def run_program(tmp_path):
    """run_program(program, *arguments): runs another program of the Windows build, in a folder of its own."""
    return lambda program, *arguments: run_in_wine(program, map(str, arguments), tmp_path)


@pytest.fixture
def assert_nothing_kept(run_program):
    """assert_nothing_kept(run): a script went well, and what it has lost is not the module's. It printed by how many
    bytes the process has grown, and what is in use of its heaps; and by how many handles, over how many openings."""

    def check(run):
        assert run.exit_code == 0, run.shown()
        grown, used, handles, openings = map(int, run.stdout.split())
        # Wine's driver keeps some 200 bytes of each context that was current, outside the heaps.
        driver = int(run_program("driver_growth.exe", openings).stdout)
        print(f"grown by {grown} bytes, the driver alone by {driver}; in use {used} bytes more")
        assert handles == 0
        assert used < MOST_USED, used
        assert grown - driver < MEBIBYTE, (grown, driver)

    return check


LONGEST = ["test_package.py", "test_open_close.py"]


# Before the workers' own hook, which reads the groups.
@pytest.hookimpl(tryfirst=True)
def pytest_collection_modifyitems(items):
    """The longest come first, so that no worker is left with one when the others have ended."""
    items.sort(key=lambda item: LONGEST.index(item.path.name) if item.path.name in LONGEST else len(LONGEST))
