"""talq --check tells of mistakes that OpenGL swallows: the line, the method, and what to do."""

import collections
import pathlib
import re

import pytest

MISTAKES = sorted((pathlib.Path(__file__).parent / "mistakes").glob("*.talq"))
MARK = re.compile(r"  // finds ([A-Z_]+)$")
FINDING = re.compile(r"^(\S+?):(\d+): (\w+::\w+): (.+) \[([A-Z_]+)\](?: \((\d+) times\))?$")


def expected(script):
    """The (line, kind) of each mark in the script, in order."""
    lines = enumerate(script.read_text().splitlines(), 1)
    return [(number, mark[1]) for number, line in lines if (mark := MARK.search(line))]


def found(run):
    """The findings of the run; what else it wrote to standard error are hints and the last line's counts."""
    lines = run.stderr.splitlines()
    findings = [match for line in lines if (match := FINDING.match(line))]
    assert all(line.startswith("  hint: ") or FINDING.match(line) for line in lines[:-1]), run.shown()
    return findings


def checked(talq, script):
    run = talq(script, options=["--check"])
    return run, found(run)


def test_there_is_a_script_for_each_mistake():
    assert len(MISTAKES) >= 40


@pytest.mark.parametrize("script", MISTAKES, ids=lambda script: script.stem)
def test_the_marked_lines_are_reported_and_no_others(talq, script):
    run, findings = checked(talq, script)
    assert run.exit_code == 3 and run.stdout == "", run.shown()
    assert sorted((int(match[2]), match[5]) for match in findings) == sorted(expected(script)), run.shown()
    assert all(match[1].endswith(script.name) for match in findings), run.shown()
    # What to do stands below each.
    assert run.stderr.count("\n  hint: ") == len(findings), run.shown()
    counts = collections.Counter(match[5] for match in findings)
    number = len(findings)
    assert run.stderr.splitlines()[-1].startswith(f"talq: {number} finding{'s' if number != 1 else ''}: "), run.shown()
    assert all(f"{count} {kind}" in run.stderr.splitlines()[-1] for kind, count in counts.items()), run.shown()
