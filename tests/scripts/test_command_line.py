"""The program talq: options, exit codes, and messages that say what is wrong and where."""

import pytest


def assert_located(run, place, message, line, column):
    """The run failed with `file:line:column: message`, the source line, and a caret under its column."""
    assert run.exit_code == 1, run.shown()
    shown = run.stderr.splitlines()
    assert shown[0].endswith(f"{place}:{column}: {message}"), run.shown()
    assert shown[1].endswith(line), run.shown()
    indent = len(shown[1]) - len(line)
    assert shown[2].index("^") == indent + column - 1, run.shown()


def test_help_names_every_option(talq_options):
    run = talq_options("--help")
    assert run.exit_code == 0, run.shown()
    options = ["-e ", "-i ", "--list", "--probe", "--module ", "--no-module", "--module-arithmetic", "--trace-gl", "--help NAME"]
    for option in options:
        assert option in run.stdout


def test_list_shows_version_methods_and_errors(talq_options):
    run = talq_options("--list")
    assert run.exit_code == 0, run.shown()
    lines = [line.strip() for line in run.stdout.splitlines()]
    assert lines[0] == "TALQ Support DLL v5.0 |TALQ version:5.03.04.a"
    assert "TOpenGL::SetViewPort(number, number, number, number)" in lines
    assert any("OGL_NO_DC" in line and "The Device Context is not Open" in line for line in lines)


def test_statements_of_the_command_line_run(talq_options):
    run = talq_options("-e", "param a; Print(a, 6 * 7);", "answer:")
    assert (run.exit_code, run.stdout, run.stderr) == (0, "answer: 42\n", ""), run.shown()


@pytest.mark.parametrize(
    "arguments, message",
    [
        (["--no-such-option"], "unknown option --no-such-option"),
        ([], "no script is given"),
        (["-e"], "-e needs statements"),
        (["-i", "x"], "-i takes no script"),
        (["--module"], "--module needs a path"),
    ],
)
def test_bad_command_line_ends_with_2(talq_options, arguments, message):
    run = talq_options(*arguments)
    assert run.exit_code == 2, run.shown()
    assert message in run.stderr and len(run.stderr.splitlines()) == 1


@pytest.mark.parametrize(
    "expression, own, module",
    [
        ("byte(12) | byte(10)", "14", "12"),
        ("byte(12) & byte(10)", "8", "12"),
        ("byte(12) ^ byte(10)", "6", "0"),
        ("byte(200) + byte(100)", "44", "44"),
        ("12 | byte(10)", "14", "14"),
        ("7.5 % 2.0", "1.5", "1.5"),
    ],
)
def test_two_numbers_of_one_type_are_computed_by_the_module_if_asked_for(talq_options, expression, own, module):
    statement = f"Print({expression});"
    for options, expected in ([], own), (["--module-arithmetic"], module):
        run = talq_options(*options, "-e", statement)
        assert (run.exit_code, run.stdout) == (0, expected + "\n"), run.shown()


def test_division_by_zero_of_the_modules_arithmetic_is_located(talq):
    run = talq("a = 1;\nb = a / 0;\n", options=["--module-arithmetic"])
    assert_located(run, "script.talq:2", "error 10 DIVISION_BY_ZERO: Division by zero.", "b = a / 0;", column=7)


def test_module_arithmetic_needs_the_exports(talq_options):
    run = talq_options("--no-module", "--module-arithmetic", "-e", "Print(1);")
    assert run.exit_code == 2, run.shown()
    assert "--module-arithmetic and --no-module exclude each other" in run.stderr


def test_missing_script(talq_options):
    run = talq_options("nowhere.talq")
    assert run.exit_code == 1, run.shown()
    assert run.stderr == "talq: cannot read the script nowhere.talq\n"


def test_syntax_error_is_shown_with_line_and_caret(talq):
    run = talq("a = 1;\n  b = (a + ;\n")
    assert_located(run, "script.talq:2", "syntax error: expected a value, found ';'", "  b = (a + ;", column=12)


def test_error_of_the_host_is_shown_with_line_and_caret(talq):
    run = talq("a = 1;\nb = a / 0;\n")
    assert_located(run, "script.talq:2", "error 10 DIVISION_BY_ZERO: Division by zero.", "b = a / 0;", column=7)


def test_error_of_the_module_is_shown_with_code_name_and_text(talq):
    run = talq("gl = new TOpenGL();\ngl->BindMDC(new MDC(8, 8));\n")
    assert run.exit_code == 1, run.shown()
    assert "script.talq:2:" in run.stderr, run.shown()
    assert "error 1001 OGL_NO_DC" in run.stderr and "The Device Context is not Open" in run.stderr, run.shown()
    assert "hint: the MDC has to be open; for BindMDC, the renderer too: gl->Open(device) or " in run.stderr


@pytest.mark.parametrize(
    "statement, column, hint",
    [
        ('gl->SetViewPort("wide");', 7, "TOpenGL::SetViewPort takes (left, top, right, bottom)"),
        ("gl->SetViewport(0, 0, 8, 8);", 7, "did you mean TOpenGL::SetViewPort?"),
        ("gl->EndSelection();", 7, "BeginSelection comes before EndSelection"),
        ("g1->Clear();", 3, None),
    ],
)
def test_hint_stands_below_the_caret(talq, statement, column, hint):
    run = talq(f"gl = new TOpenGL();\n  {statement}\n")
    assert run.exit_code == 1, run.shown()
    shown = run.stderr.splitlines()
    assert f"script.talq:2:{column}: " in shown[0] and shown[2] == " " * (column + 1) + "^", run.shown()
    assert shown[3:] == ([f"  hint: {hint}"] if hint else []), run.shown()


def test_module_that_is_not_there(talq_options):
    run = talq_options("--module", "nowhere.dll", "-e", "Print(1);")
    assert run.exit_code == 1, run.shown()
    assert "nowhere.dll cannot be loaded" in run.stderr and run.stdout == ""


@pytest.mark.parametrize("library", ["talq.exe", "glu32.dll"])
def test_library_that_is_no_module(talq_options, library):
    run = talq_options("--module", library, "-e", "Print(1);")
    assert run.exit_code == 1, run.shown()
    assert f"{library} is a library, but not a Talq module" in run.stderr and run.stdout == ""


def test_file_that_is_no_library(talq_options, tmp_path):
    (tmp_path / "text.dll").write_text("no library")
    run = talq_options("--module", "./text.dll", "-e", "Print(1);")
    assert run.exit_code == 1, run.shown()
    assert "text.dll cannot be loaded" in run.stderr and run.stdout == ""


@pytest.mark.parametrize(
    "content, line",
    [
        ("v 1 2\nv 1 2 3\nv 1 2 4\nf 1 2 3\n", 1),
        ("v 1 2 3\nv 1 2 x\nv 1 2 4\nf 1 2 3\n", 2),
        ("v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 9\n", 4),
        ("v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 0\n", 4),
        ("v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2\n", 4),
    ],
    ids=["short vertex", "no number", "index past the end", "index 0", "short face"],
)
def test_broken_mesh_is_named_with_its_line(talq, tmp_path, content, line):
    (tmp_path / "broken.obj").write_text(content)
    run = talq('mesh = ReadObj("broken.obj");\n')
    assert run.exit_code == 1, run.shown()
    assert "script.talq:1:" in run.stderr, run.shown()
    assert f"broken.obj is not a proper OBJ file: line {line}:" in run.stderr, run.shown()


def test_missing_mesh(talq):
    run = talq('mesh = ReadObj("nowhere.obj");\n')
    assert run.exit_code == 1, run.shown()
    assert "nowhere.obj" in run.stderr, run.shown()
