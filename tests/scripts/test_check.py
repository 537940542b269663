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


SCENE = (MISTAKES[0].parent / "parts" / "scene.talq").read_text()
SOUND = SCENE + "gl->Sphere(0, 0, 0, 1);\nPrint(gl->GetDIBits(0, 0, 64, 48)[0]);\n"


def test_a_script_without_a_mistake_runs_as_ever(talq):
    run = talq(SOUND, options=["--check"])
    assert (run.exit_code, run.stdout, run.stderr) == (0, "0\n", ""), run.shown()


def test_findings_of_a_line_are_counted(talq):
    run, findings = checked(talq, SCENE + "for (i = 0; i < 3; i += 1) gl->SetLineWidth(-1);\n")
    assert [match.group(2, 5, 6) for match in findings] == [("9", "GL_ERROR", "3")], run.shown()


def test_an_error_keeps_its_exit_code_and_stands_before_what_was_found(talq):
    run = talq("gl = new TOpenGL();\ngl->Clear();\nFail('over');\n".replace("'", '"'), options=["--check"])
    assert run.exit_code == 1, run.shown()
    assert "error 27 FAILED: over" in run.stderr.splitlines()[0]
    assert run.stderr.endswith("talq: 1 finding: 1 NOT_OPEN\n"), run.shown()


def test_the_systems_error_stays_the_modules(talq):
    # A bitmap's context does not fit a window.
    script = SCENE + 'gl->BindMDC(new MDC(8, 8, "window"));\n'
    plain = talq(script, window=True)
    run = talq(script, window=True, options=["--check"])
    assert plain.exit_code == run.exit_code == 1
    assert "System error #" in plain.stderr and run.stderr.startswith(plain.stderr), run.shown()


@pytest.mark.parametrize("place, counts", [
    ("0, 0, 0", "3 inside the view, none in front of it (too near, or behind the eye), none behind it (too far), none"),
    ("0, 0, 20", "none inside the view, 3 in front of it (too near, or behind the eye), none behind it (too far), none"),
    ("0, 0, -95", "none inside the view, none in front of it (too near, or behind the eye), 3 behind it (too far), none"),
    ("30, 0, 0", "none inside the view, none in front of it (too near, or behind the eye), none behind it (too far), 3"),
])  # fmt: skip
def test_vertices_are_counted_by_where_they_lie(talq, place, counts):
    draw = f"gl->SetColor(0, 0, 0, 1);\ngl->Translate({place});\ngl->Triangles([-1, -1, 0, 1, -1, 0, 0, 1, 0]);\n"
    run, findings = checked(talq, SCENE + draw + "bytes = gl->GetDIBits(0, 0, 64, 48);\n")
    text = "the picture has one colour: since the last Clear 3 vertices were drawn: " + counts + " beside it"
    assert [match.group(4, 5) for match in findings] == [(text, "ONE_COLOR")], run.shown()


def test_statements_of_the_command_line_are_checked(talq_options):
    run = talq_options("--check", "-e", "gl = new TOpenGL(); gl->Clear();")
    assert run.exit_code == 3 and run.stderr.startswith("-e:1: TOpenGL::Clear: did nothing"), run.shown()


@pytest.mark.parametrize("options", [["-i"], ["--list"], ["--no-module", "-e", "Print(1);"]])
def test_what_has_no_script_or_no_module_is_not_checked(talq_options, options):
    run = talq_options("--check", *options)
    assert (run.exit_code, run.stdout) == (2, "") and "--check" in run.stderr, run.shown()
