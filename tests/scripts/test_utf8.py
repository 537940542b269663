"""Texts in any language: the development host takes and gives UTF-8 everywhere."""

import contextlib
import os
import pty
import select
import subprocess
import time

import PIL.Image
import pytest

import conftest

RUN = conftest.PROGRAMS.parents[1] / "run"
WORD = "schön картина"
CONSOLE_LIMIT = 120  # seconds


def assert_printed(run, text):
    assert (run.exit_code, run.stdout, run.stderr) == (0, text, ""), run.shown()


def test_statements_and_arguments_are_utf8(talq_options):
    run = talq_options("-e", 'param a; Print("é", Length("é"), a, Length(a), a == "жё");', "жё")
    assert_printed(run, "é 2 жё 4 1\n")


@pytest.mark.parametrize("argument", ["", "a b", '"', 'a"b c', "\\", "a b\\", '\\"', "*", "?", "'", "жё \\\\ \""])
def test_arguments_arrive_as_they_are(talq_options, argument):
    assert_printed(talq_options("-e", 'param a, b; Print("[" + a + "]", b);', argument, "end"), f"[{argument}] end\n")


def test_script_and_what_it_includes(talq, tmp_path):
    folder = tmp_path / WORD
    (folder / "части").mkdir(parents=True)
    (folder / "части" / "é.talq").write_text('function Word() { return "é"; }\n', encoding="utf-8")
    script = folder / f"{WORD}.talq"
    script.write_text('include "части/é.talq";\nPrint(Word(), Beside("ж"));\n', encoding="utf-8")
    run = talq(script)
    assert run.exit_code == 0, run.shown()
    assert run.stdout.startswith("é ") and run.stdout.endswith(f"{WORD}/ж\n"), run.shown()


def test_texts_and_their_files(talq, tmp_path):
    (tmp_path / f"{WORD}.txt").write_text("é ж\n", encoding="utf-8")
    run = talq(f'text = ReadText("{WORD}.txt");\nWriteText("ё é.txt", text + "ё");\nPrint(Length(text), text);\n')
    assert_printed(run, "6 é ж\n\n")
    assert (tmp_path / "ё é.txt").read_bytes() == "é ж\nё".encode()


def test_pictures_and_meshes(talq, tmp_path):
    PIL.Image.new("RGB", (3, 2), (1, 2, 3)).save(tmp_path / f"{WORD}.png")
    (tmp_path / f"{WORD}.obj").write_text("v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n")
    run = talq(
        f'bitmap = new MBmp("{WORD}.png");\nbitmap->Save("é ж.png");\nbitmap->Load("é ж.png");\n'
        f'Print(bitmap->GetWidth(), bitmap->GetHeight(), Length(ReadObj("{WORD}.obj").points));\n'
    )
    assert_printed(run, "3 2 9\n")
    assert run.pictures["é ж"].tolist() == [[[1, 2, 3]] * 3] * 2


@pytest.mark.parametrize(
    "statement, file",
    [
        ('ReadText("ж é.txt");', "ж é.txt"),
        ('WriteText("é ё.talq/x.txt", "");', "é ё.talq/x.txt"),
        ('new MBmp("ж é.png");', "ж é.png"),
        ('ReadObj("ж é.obj");', "ж é.obj"),
    ],
)
def test_message_names_the_file(talq, tmp_path, statement, file):
    script = tmp_path / "é ё.talq"
    script.write_text(f"a = {statement}\n" if statement[0] in "Rn" else statement, encoding="utf-8")
    run = talq(script)
    assert run.exit_code == 1, run.shown()
    shown = run.stderr.splitlines()
    assert "é ё.talq:1:" in shown[0] and f"{file} cannot be " in shown[0] and statement in shown[1], run.shown()


def test_missing_script_and_module_are_named(talq_options):
    assert talq_options("ж é.talq").stderr == "talq: cannot read the script ж é.talq\n"
    run = talq_options("--module", "ж é.dll", "-e", "Print(1);")
    assert run.exit_code == 1 and run.stderr.startswith("talq: ж é.dll cannot be loaded: "), run.shown()


def test_program_and_module_in_a_folder_of_any_name(tmp_path):
    folder = tmp_path / WORD
    folder.mkdir()
    for name in ("talq.exe", "Talq.dll", "TalqOpenGL.dll", "glu32.dll"):
        (folder / name).symlink_to(conftest.PROGRAMS / name)
    assert_printed(conftest.run_in_wine(folder / "talq.exe", ["-e", "Print(1);"], tmp_path), "1\n")


@pytest.mark.parametrize("escape", [r"\xED\xA0\x80", r"\xC3", r"\x80", r"\xFF\xFE", r"\xC0\xAF"])
def test_file_name_that_is_no_utf8_is_not_found(talq, escape):
    """An unpaired surrogate, a character cut off, stray bytes, a separator in too many bytes."""
    run = talq(f'try {{ ReadText("{escape}"); }} catch (code, text) {{ Print(code, ErrorName(code), Length("{escape}")); }}\n')
    assert_printed(run, f"23 FILE {len(escape) // 4}\n")


def run_project(*arguments, cwd, text="", **variables):
    environment = {name: value for name, value in os.environ.items() if name != "LANG" and not name.startswith("LC_")}
    return conftest.run_captured([RUN, *arguments], text, cwd=cwd, env=environment | variables)


@pytest.mark.xdist_group("run")
@pytest.mark.parametrize("locale", [{}, {"LANG": "C"}, {"LC_ALL": "POSIX"}, {"LANG": "en_US.ISO-8859-1"}], ids=str)
def test_run_takes_utf8_in_every_locale(tmp_path, locale):
    script = tmp_path / f"{WORD}.talq"
    script.write_text('param a;\nPrint(a, Length(a));\nWriteText("ё.txt", a);\n', encoding="utf-8")
    done = run_project(script.name, "é", cwd=tmp_path, **locale)
    assert (done.returncode, done.stdout, done.stderr) == (0, "é 2\n", "")
    assert (tmp_path / "ё.txt").read_text(encoding="utf-8") == "é"


@pytest.mark.xdist_group("run")
def test_prompt_takes_utf8_from_a_pipe(tmp_path):
    done = run_project("--no-module", "-i", cwd=tmp_path, text='Length("éж")\nPrint("ё é")\n')
    assert done.stdout.split("\n")[2:] == ["talq> 4", "talq> ё é", "talq> ", ""]


def in_console(arguments, lines=()):
    """What talq shows in a console in which the lines are entered, one whenever it prompts."""
    parent, child = pty.openpty()
    program = subprocess.Popen(
        [conftest.WINE, conftest.PROGRAMS / "talq.exe", "--no-module", *arguments],
        env=conftest.wine_environment(None) | {"TERM": "xterm"},
        stdin=child,
        stdout=child,
        stderr=child,
        start_new_session=True,
    )
    os.close(child)
    try:
        shown = console_text(program, parent, lines)
    finally:
        program.kill()
        program.wait(conftest.CLOSING_LIMIT)
        os.close(parent)
    return program.returncode, shown.decode()


def console_text(program, console, lines):
    """What it shows until its end, the lines entered."""
    shown, waiting = b"", list(lines)
    end = time.monotonic() + CONSOLE_LIMIT
    while time.monotonic() < end:
        has_ended = program.poll() is not None
        if select.select([console], [], [], 0.5)[0]:
            with contextlib.suppress(OSError):  # its other end is closed
                shown += os.read(console, 4096)
                continue
        if has_ended:
            return shown
        if waiting and shown.count(b"talq>") > len(lines) - len(waiting):
            os.write(console, waiting.pop(0).encode() + b"\r")
    raise AssertionError(f"talq has not ended within {CONSOLE_LIMIT} s; shown until then: {shown}")


def test_console_shows_utf8():
    exit_code, shown = in_console(["-e", 'Print("ё", Length("éжё"));\nFail("ж é");'])
    assert exit_code == 1
    assert "ё 6\r" in shown and "FAILED: ж é\r" in shown


def test_prompt_in_a_console_takes_utf8():
    exit_code, shown = in_console(["-i"], ['Length("éжё")', 'Print("ж" + "é")', "exit"])
    assert exit_code == 0
    assert "6\r" in shown and "жé\r" in shown
