"""The unit tests, built with a changed source."""

import contextlib
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
BUILD = ROOT / "build" / "native-asan"
MODULE = ["binding", "classes", "render", "geometry", "image", "value", "module"]
MODULE_SOURCES = sorted(
    str(path.relative_to(ROOT))
    for folder in MODULE
    for path in (ROOT / folder).rglob("*")
    if path.suffix in (".cpp", ".h")
)
# Seconds of processor time, for tests that a mutant makes run for ever; and of waiting, for those that it makes wait.
TIME_LIMIT, WAITING_LIMIT = 8, 300
# A mutant may look odd, and nobody debugs it; a constant function may ask a switch where nobody needs a constant.
MUTANT_OPTIONS = ["-w", "-g0", "-Wno-invalid-constexpr", "-ferror-limit=0"]
CHOICE = """
#include <cstdlib>
extern "C" bool IsMutant(int number) noexcept {
  static const int chosen = std::atoi(std::getenv("MUTANT"));
  return number == chosen;
}
"""
TEST_OPTIONS = ["--gtest_brief=1", "--gtest_fail_fast"]
# gold takes half of the time of the other linker.
LINK_OPTIONS = ["-fuse-ld=gold", "-Wl,--strip-debug"]
# Tests that take long, and those of the development host and of the tests themselves, which are not asked.
SLOW_TESTS = "PixelLoopsTest*:*EveryPairOfBytes*:ArithmeticTest*:BitsTest*"
NO_TESTS = "Devhost*:Script*:Leftovers*"
SANITIZERS = "allocator_may_return_null=1:hard_rss_limit_mb=4000:detect_leaks=1:symbolize=0"


def is_rebuilt(user, source):
    """Whether what uses a changed source is built again: the module is, and the test that is named after a header."""
    own_test = pathlib.Path(source).stem + "_test"
    return os.path.relpath(user, ROOT) in MODULE_SOURCES or pathlib.Path(user).stem == own_test


def own_suites(source):
    """The suites of tests in the file that is named after a source."""
    path = ROOT / "tests" / "unit" / "module" / f"{pathlib.Path(source).stem}_test.cpp"
    return set(re.findall(r"^TEST(?:_[FP])?\((\w+),", path.read_text(), re.MULTILINE)) if path.exists() else set()


def run(command, **options):
    return subprocess.run(command, cwd=BUILD, capture_output=True, text=True, errors="replace", **options)


class Workshop:
    """The unit tests as they are, and how to build them with another text in place of one source."""

    def __init__(self):
        subprocess.run(["cmake", "--preset", "native-asan"], cwd=ROOT, capture_output=True, check=True)
        if run(["ninja", "unit_tests"]).returncode != 0:
            sys.exit("error: the unit tests do not build")
        commands = run(["ninja", "-t", "commands", "unit_tests"], check=True).stdout.splitlines()
        self.link = shlex.split(commands[-1].removeprefix(": && ").removesuffix(" && :")) + LINK_OPTIONS
        self.compile = {}
        for command in map(shlex.split, commands):
            if command[-2] == "-c":
                self.compile[command[command.index("-o") + 1]] = command
        command = self.compile["CMakeFiles/module_part.dir/module/method_table.cpp.o"]
        self.flags = command[: command.index("-MD")]
        deps = run(["ninja", "-t", "deps"], check=True).stdout
        self.suites = {source: own_suites(source) for source in MODULE_SOURCES}
        self.users = {source: [] for source in MODULE_SOURCES}
        for entry in deps.split("\n\n"):
            name, _, paths = entry.partition(":")
            if name not in self.compile:
                continue
            for path in paths.splitlines()[1:]:
                source = os.path.relpath(path.strip(), ROOT)
                if source in self.users and is_rebuilt(self.compile[name][-1], source):
                    self.users[source].append(name)
        self.add_switch()
        header = "render/topengl.h"
        if self.outcome(header, (ROOT / header).read_text()) != "left out":
            sys.exit("error: the unit tests do not pass as they are")

    def add_switch(self):
        """Links the tests with what tells a sheet's changes which of them is chosen."""
        self.switch = tempfile.TemporaryDirectory()
        source, object_file = f"{self.switch.name}/switch.cpp", f"{self.switch.name}/switch.o"
        pathlib.Path(source).write_text(CHOICE)
        run([self.flags[0], "-O1", "-c", source, "-o", object_file], check=True)
        self.link.append(object_file)

    def reading_options(self):
        """What clang has to know to read a source of the module by itself."""
        return [flag for flag in self.flags[1:] if flag.startswith(("-I", "-D", "-std"))] + [
            part for flag, folder in zip(self.flags, self.flags[1:]) if flag == "-isystem" for part in (flag, folder)
        ]

    @contextlib.contextmanager
    def built(self, source, text):
        """The tests with this text in the source's place: a path, or None where the compiler refuses it, with its
        messages, and the path of the text."""
        with tempfile.TemporaryDirectory() as folder:
            # Includes are written from the project's root, so that the changed header is found first.
            mutant = pathlib.Path(folder, source)
            mutant.parent.mkdir(parents=True)
            mutant.write_text(text)
            users = self.users[source]
            objects = [f"{folder}/{number}.o" for number in range(len(users))]
            commands = []
            for name, object_file in zip(users, objects):
                compiler, *options, path = self.compile[name]
                if os.path.relpath(path, ROOT) == source:
                    path = mutant
                options[options.index("-o") + 1] = object_file
                commands.append([compiler, f"-I{folder}", *options, *MUTANT_OPTIONS, path])
            tests = f"{folder}/unit_tests"
            # They come first, so that their inline functions are taken everywhere.
            linker, *rest = [part for part in self.link if part not in users]
            link = [linker, *objects, *rest]
            link[link.index("-o") + 1] = tests
            for command in [*commands, link]:
                done = run(command)
                if done.returncode != 0:
                    yield None, done.stderr, mutant
                    return
            yield tests, "", mutant

    def notices(self, tests, source, number=0):
        """Whether the unit tests notice the chosen mutant of the source: first its own and those that noticed another
        one of it, then the others, the slow ones last."""
        environment = {**os.environ, "ASAN_OPTIONS": SANITIZERS, "UBSAN_OPTIONS": "symbolize=0"}
        environment |= {"TEST_TMPDIR": os.path.dirname(tests), "MUTANT": str(number)}
        first = ":".join(f"*{suite}.*" for suite in sorted(self.suites[source])) or "none"
        later = f"{SLOW_TESTS}:{NO_TESTS}"
        for chosen in (f"{first}-{NO_TESTS}", f"-{first}:{later}", f"{SLOW_TESTS}-{first}"):
            command = ["prlimit", f"--cpu={TIME_LIMIT}", tests, *TEST_OPTIONS, f"--gtest_filter={chosen}"]
            try:
                done = run(command, env=environment, timeout=WAITING_LIMIT)
            except subprocess.TimeoutExpired:
                return True
            if done.returncode != 0:
                self.suites[source] |= set(re.findall(r"^\[  FAILED  \] ([\w/]+)\.", done.stdout, re.MULTILINE))
                return True
        return False

    def outcome(self, source, text):
        """What becomes of the tests with this text in the source's place: "killed", "survived", or, for what this
        compiler does not take or does not look at, "refused" and "left out"."""
        with self.built(source, text) as (tests, _, mutant):
            if not tests:
                return "refused"
            if self.notices(tests, source):
                return "killed"
            return "survived" if self.compiled_text(mutant) != self.compiled_text(ROOT / source) else "left out"

    def outcomes(self, source, sheet):
        """The same for the changes of a sheet, which has to be what the source is as long as none is chosen: a list, or
        None and the places of the changes that the compiler refuses behind a switch."""
        with self.built(source, sheet.text) as (tests, messages, path):
            if not tests:
                return None, sheet.refused(messages, path)
            if self.notices(tests, source):
                return None, set()
            numbers = range(1, len(sheet.begins) + 1)
            return ["killed" if self.notices(tests, source, number) else "survived" for number in numbers], set()

    def compiled_text(self, path):
        """What the compiler sees of a source: nothing of what stands there for other compilers alone."""
        compiler, *options = self.flags
        return run([compiler, "-E", "-P", *options, *MUTANT_OPTIONS, "-x", "c++", path], check=True).stdout
