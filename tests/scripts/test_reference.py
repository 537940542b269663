"""docs/reference.md against the built DLL: it has every signature once, its examples run, and `talq --help` shows it."""

import pathlib
import re
import subprocess

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
DOCUMENT = (ROOT / "docs" / "reference.md").read_text()
# Heading, fenced block and text of each entry.
ENTRY = re.compile(r"^### (\S+)\n\n```\n(.*?)\n```\n\n(.*?)\s*(?=^##|\Z)", re.MULTILINE | re.DOTALL)
ENTRIES = ENTRY.findall(DOCUMENT)
PICTURE = re.compile(r"^!\[.+\]\(.+\)\n\n", re.MULTILINE)
EXAMPLE = re.compile(r"\n\nExample: `(.+)`\Z")


def entry_of(name):
    return next(entry for entry in ENTRIES if entry[0] == name)


def shown(entry):
    """The entry as `talq --help` prints it: a terminal shows no pictures."""
    return PICTURE.sub("", "\n\n".join(entry)) + "\n"


def test_each_heading_is_an_entry():
    assert [name for name, _, _ in ENTRIES] == re.findall(r"^### (.*)$", DOCUMENT, re.MULTILINE)
    assert len({name for name, _, _ in ENTRIES}) == len(ENTRIES)


def test_each_form_has_its_call_and_its_signature():
    for name, block, _ in ENTRIES:
        lines = block.split("\n")
        assert len(lines) % 2 == 0, name
        for call, signature in zip(lines[::2], lines[1::2]):
            assert signature.startswith(f"    {name}("), (name, signature)
            method = name.split("::")[1]
            # color * number; new OglColor(...); ~OglColor()
            written = f" {method} " if not re.search(r"\w", method) else f"{method}("
            assert call == call.strip() and written in call, (name, call)


def test_signatures_are_those_of_the_built_module(talq_options):
    run = talq_options("--list")
    assert run.exit_code == 0, run.shown()
    table = sorted(re.findall(r"^  (\w+::.*\))$", run.stdout, re.MULTILINE))
    assert table
    documented = sorted(line[4:] for _, block, _ in ENTRIES for line in block.split("\n")[1::2])
    assert documented == table


def test_each_entry_says_something_and_ends_with_an_example():
    for name, _, text in ENTRIES:
        assert EXAMPLE.search(text) and not text.startswith("Example:"), name


def test_examples_run_one_after_another_without_a_mistake(talq):
    names = re.search(r"^```talq\n(.*?)^```$", DOCUMENT[: DOCUMENT.index("\n## ")], re.MULTILINE | re.DOTALL)
    statements = [EXAMPLE.search(text).group(1) for _, _, text in ENTRIES]
    script = names.group(1) + "\n".join([*statements, 'Print("the last example has run");']) + "\n"
    run = talq(script, options=["--check"])
    assert run.exit_code == 0, run.shown()
    assert run.stdout.endswith("the last example has run\n") and run.stderr == "", run.shown()


@pytest.mark.parametrize("name", ["TOpenGL::SetViewPort", "OglColor::*=", "OglMaterial::~OglMaterial"])
def test_help_shows_an_entry_by_its_whole_name(talq_options, name):
    run = talq_options("--help", name)
    assert (run.exit_code, run.stdout, run.stderr) == (0, shown(entry_of(name)), ""), run.shown()


def test_help_shows_the_entry_of_a_method_that_one_class_has(talq_options):
    run = talq_options("--help", "Sphere")
    assert (run.exit_code, run.stdout) == (0, shown(entry_of("TOpenGL::Sphere"))), run.shown()


def test_help_shows_all_entries_of_a_method_that_several_classes_have(talq_options):
    entries = [entry for entry in ENTRIES if entry[0].endswith("::SetColor")]
    assert len(entries) == 3
    run = talq_options("--help", "SetColor")
    assert (run.exit_code, run.stdout) == (0, "\n".join(map(shown, entries))), run.shown()


def test_help_lists_the_calls_of_a_class_by_group(talq_options):
    run = talq_options("--help", "TOpenGL")
    assert run.exit_code == 0, run.shown()
    paragraphs = [paragraph.split("\n") for paragraph in run.stdout.rstrip("\n").split("\n\n")]
    assert paragraphs[0] == ["TOpenGL"]
    titles = re.findall(r"^## (.*)$", DOCUMENT, re.MULTILINE)
    assert [title for title in titles if [title] in [lines[:1] for lines in paragraphs]] == [
        lines[0] for lines in paragraphs[1:]
    ]
    calls = [line for name, block, _ in ENTRIES if name.startswith("TOpenGL::") for line in block.split("\n")[::2]]
    assert [line.strip() for lines in paragraphs[1:] for line in lines[1:]] == calls


def test_help_on_an_unknown_name_suggests_near_ones(talq_options):
    for name, near in [("TOpenGL::SetViewport", "TOpenGL::SetViewPort"), ("shpere", "Sphere"), ("topengl", "TOpenGL")]:
        run = talq_options("--help", name)
        assert (run.exit_code, run.stdout) == (2, ""), run.shown()
        assert run.stderr == f"talq: the reference has no entry '{name}'; did you mean {near}?\n"


def test_run_hands_the_name_over(tmp_path):
    done = subprocess.run([ROOT / "run", "--talq-help", "Torus"], cwd=tmp_path, capture_output=True, text=True)
    assert (done.returncode, done.stdout) == (0, shown(entry_of("TOpenGL::Torus")))
