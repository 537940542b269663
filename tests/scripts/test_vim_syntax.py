"""editors/vim: Vim itself gives the words of a script their groups."""

import json
import os
import pathlib
import subprocess

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
DUMP = """
let groups = []
for g:line in range(1, line('$'))
  call add(groups, map(range(1, len(getline(g:line))), {_, column -> synIDattr(synID(g:line, column, 1), 'name')}))
endfor
call writefile([&filetype, json_encode(groups)], 'groups')
qall!
"""


@pytest.fixture
def groups_of(tmp_path):
    """groups_of(text): for each line of the script, its runs of one group as (text, group); blanks are left out."""

    def run(text):
        (tmp_path / "script.talq").write_text(text)
        (tmp_path / "dump.vim").write_text(DUMP)
        options = ["--cmd", f"set runtimepath^={ROOT}/editors/vim", "-c", "syntax on", "-c", "edit script.talq"]
        # As for a new user: nothing of this machine's settings.
        subprocess.run(
            ["vim", "-es", "-N", "-u", "NONE", "-i", "NONE", *options, "-S", "dump.vim"],
            cwd=tmp_path,
            env={"PATH": os.environ["PATH"], "HOME": str(tmp_path), "LC_ALL": "C.UTF-8"},
            stdin=subprocess.DEVNULL,
            check=True,
            timeout=60,
        )
        filetype, groups = (tmp_path / "groups").read_text().splitlines()
        assert filetype == "talq"
        return [list(runs_of(*line)) for line in zip(text.splitlines(), json.loads(groups))]

    return run


def runs_of(line, groups):
    start = 0
    for end in range(1, len(line) + 1):
        if end < len(line) and groups[end] == groups[start]:
            continue
        if line[start:end].strip():
            yield line[start:end].strip(), groups[start].removeprefix("talq")
        start = end


@pytest.fixture
def listed(talq_options):
    """listed(): the lines of each group that talq lists, of the host and of the module, by the group's title."""

    def lists():
        runs = [talq_options("--list"), talq_options("--list", "--no-module")]
        assert [run.exit_code for run in runs] == [0, 0]
        groups = [group.splitlines() for run in runs for group in run.stdout.split("\n\n")[1:]]
        return {title: [line.strip() for line in lines] for title, *lines in groups}

    return lists


def test_keywords_are_those_of_the_language(groups_of, listed):
    keywords = listed()["keywords"]
    assert len(keywords) == 15
    groups = {runs[0][1] for runs in groups_of("\n".join(keywords))}
    assert groups == {
        "Conditional", "Repeat", "Statement", "Exception", "Keyword", "Include", "Operator", "Boolean",
    }  # fmt: skip


def test_classes_are_those_of_the_host_and_the_module(groups_of, listed):
    classes = sorted(set(listed()) - {"functions", "keywords", "errors"})
    assert {"TOpenGL", "POINT3", "MDC"} < set(classes)
    assert groups_of("\n".join(classes)) == [[(name, "Class")] for name in classes]


def test_functions_are_those_of_the_language_and_the_host(groups_of, listed):
    functions = sorted({form.partition("(")[0] for form in listed()["functions"]})
    assert {"Print", "sin", "ReadObj", "TranslationMatrix"} < set(functions)
    lines = groups_of("\n".join(f"{name} (1)\n{name}" for name in functions))
    assert lines[::2] == [[(name, "Function"), ("(", ""), ("1", "Number"), (")", "")] for name in functions]
    assert all(group != "Function" for runs in lines[1::2] for _, group in runs)


def test_numbers(groups_of):
    numbers = [("12", "Number"), ("0xFf", "Number"), ("1.5", "Float"), (".5", "Float"), ("2e-3", "Float"),
               ("1.5E+10", "Float")]  # fmt: skip
    assert groups_of("\n".join(text for text, _ in numbers)) == [[number] for number in numbers]
    assert groups_of("x1 = a2b;") == [[("x1 = a2b;", "")]]


def test_texts_and_their_escapes(groups_of):
    assert groups_of(r'"a\n\x41 // \"b"' + "\n" + r'"\q"') == [
        [('"a', "String"), (r"\n\x41", "Escape"), ("//", "String"), (r"\"", "Escape"), ('b"', "String")],
        [('"', "String"), (r"\q", "BadEscape"), ('"', "String")],
    ]
    assert groups_of('"a\nif') == [[('"a', "")], [("if", "Conditional")]]


def test_comments(groups_of):
    assert groups_of('a // if "x" TODO 1\n/* new\nwhile */ if') == [
        [("a", ""), ('// if "x"', "Comment"), ("TODO", "Todo"), ("1", "Comment")],
        [("/* new", "Comment")],
        [("while */", "Comment"), ("if", "Conditional")],
    ]


def test_methods_and_definitions(groups_of):
    assert groups_of("function Draw(gl) {\n  gl->Sphere(mesh.min, gl.Find(2));\n}") == [
        [("function", "Keyword"), ("Draw", "Definition"), ("(gl) {", "")],
        [("gl->", ""), ("Sphere", "Method"), ("(mesh.min, gl.", ""), ("Find", "Method"), ("(", ""), ("2", "Number"),
         ("));", "")],
        [("}", "")],
    ]  # fmt: skip


def test_examples_hold_nothing_that_is_marked_as_wrong(groups_of):
    for path in (ROOT / "examples").rglob("*.talq"):
        groups = {group for runs in groups_of(path.read_text()) for _, group in runs}
        assert "Number" in groups and "BadEscape" not in groups, path
