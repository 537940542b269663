"""The script ./run, one call at a time: each looks whether something is to be built."""

import pytest

import conftest

ROOT = conftest.ROOT
pytestmark = pytest.mark.xdist_group("run")


def run_project(*arguments, cwd, text=""):
    return conftest.run_captured([ROOT / "run", *arguments], text, cwd=cwd)


def test_run_hands_over_arguments_paths_and_exit_code(tmp_path):
    (tmp_path / "own.talq").write_text('param a, b;\nPrint(b, a);\nFail("enough");\n')
    done = run_project("own.talq", "x y", "z", cwd=tmp_path)
    assert done.returncode == 1
    assert done.stdout == "z x y\n"
    assert "own.talq:3:" in done.stderr and "enough" in done.stderr


def test_messages_name_the_command_for_help_that_the_user_has(tmp_path):
    done = run_project("--nothing", cwd=tmp_path)
    assert done.returncode == 2
    assert done.stderr == f"talq: unknown option --nothing; {ROOT}/run --talq-help shows what there is\n"
    statements = "d = new MDC(8, 8); gl = new TOpenGL(); gl->OpenBitmap(d); gl->SetLineWidth(0);"
    done = run_project("--check", "-e", statements, cwd=tmp_path)
    assert done.returncode == 3
    assert f"{ROOT}/run --talq-help shows its entry\n" in done.stderr, done.stderr


def test_run_opens_a_prompt(tmp_path):
    entered = [
        "device = new MDC(8, 8); gl = new TOpenGL();",
        "gl->OpenBitmap(device)",
        "gl->SetViewPort(0,",
        "  0, 8, 8)",
        "gl->IsOpen()",
        "gl->EndSelection()",
        "gl->GetViewPort()",
        "exit",
        "Print(1)",
    ]
    done = run_project("-i", cwd=tmp_path, text="\n".join(entered) + "\n")
    assert done.returncode == 0, done.stderr
    lines = done.stdout.split("\n")
    assert lines[0] == "TALQ Support DLL v5.0 |TALQ version:5.03.04.a"
    assert lines[1] == "help shows what can be entered, exit leaves."
    assert lines[2:] == [
        "talq> talq> RECT(0, 0, 8, 8)",
        "talq>   ... talq> 1",
        "talq> talq> [0, 8, 0, 8]",
        "talq> ",
    ]
    assert "prompt:1:5: error 1005 OGL_NO_SELECTION_MODE" in done.stderr


def test_prompt_ends_with_its_input(tmp_path):
    done = run_project("--no-module", "-i", cwd=tmp_path, text="6 * 7")
    assert done.returncode == 0, done.stderr
    assert done.stdout.startswith("No module is loaded.\n") and done.stdout.endswith("talq> 42\ntalq> \n")


def test_run_names_a_missing_script(tmp_path):
    done = run_project("nowhere.talq", cwd=tmp_path)
    assert done.returncode != 0
    assert done.stderr == "error: there is no script nowhere.talq\n"


def test_run_draws_an_example_from_any_folder(tmp_path):
    done = run_project(ROOT / "examples" / "first.talq", cwd=tmp_path)
    assert done.returncode == 0, done.stderr
    assert [path.name for path in (tmp_path / "out").iterdir()] == ["first.png"]


def test_run_works_through_a_link(tmp_path):
    (tmp_path / "talq").symlink_to(ROOT / "run")
    done = conftest.run_captured([tmp_path / "talq", "--no-module", "-e", "Print(6 * 7);"], cwd=tmp_path)
    assert (done.returncode, done.stdout) == (0, "42\n"), done.stderr


@pytest.mark.parametrize("name", ["test", "package", "bench", "check-host"])
def test_other_commands_work_through_a_link(tmp_path, name):
    (tmp_path / name).symlink_to(ROOT / name)
    done = conftest.run_captured([tmp_path / name, "--help"], cwd=tmp_path)
    assert done.returncode == 0 and done.stdout.startswith(f"usage: ./{name}"), done.stderr


def test_copied_example_finds_what_examples_share(tmp_path):
    (tmp_path / "own.talq").write_text('include "picture.talq";\nPrint(Cross([1, 0, 0], [0, 1, 0]));\n')
    done = run_project("own.talq", cwd=tmp_path)
    assert (done.returncode, done.stdout) == (0, "[0, 0, 1]\n"), done.stderr


def test_run_help_says_how_to_use_it(tmp_path):
    done = run_project("--help", cwd=tmp_path)
    assert done.returncode == 0
    assert "--window" in done.stdout and "--gallery" in done.stdout and "examples/bunny.talq" in done.stdout
