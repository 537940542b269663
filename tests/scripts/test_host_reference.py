"""docs/host-reference.md against the host: all that scripts have without a module, once; its examples run."""

import re

import pytest

from test_reference import DOCUMENT as MODULE_DOCUMENT
from test_reference import ENTRY, EXAMPLE, ROOT, shown

DOCUMENT = (ROOT / "docs" / "host-reference.md").read_text()
ENTRIES = ENTRY.findall(DOCUMENT)


def errors_of(document):
    """Number, name, text, meaning and, where there is one, hint of each row of the table of errors."""
    rows = re.findall(r"^\| (\d+) \| `(\w+)` \| (.*?) \| (.*?) \|(?: (.+))? \|$", document, re.MULTILINE)
    assert rows
    return rows


MODULE_ERRORS = errors_of(MODULE_DOCUMENT)
ERRORS = errors_of(DOCUMENT)


def signatures():
    return [line[4:] for _, block, _ in ENTRIES for line in block.split("\n")[1::2]]


def shown_as_the_hosts(name):
    """The entry as `talq --help` prints it, with whose it is behind its name."""
    entry = next(entry for entry in ENTRIES if entry[0] == name)
    return shown((f"{name} (development host)", *entry[1:]))


def test_each_heading_is_an_entry():
    names = [name for name, _, _ in ENTRIES]
    assert names == re.findall(r"^### (.*)$", DOCUMENT, re.MULTILINE)
    assert len(set(names)) == len(names)


def test_entries_are_what_the_host_lists(talq_options):
    run = talq_options("--list", "--no-module")
    assert run.exit_code == 0, run.shown()
    assert sorted(re.findall(r"^  (.+)$", run.stdout, re.MULTILINE)) == sorted(signatures())


def test_each_entry_stands_under_its_signatures():
    for name, block, text in ENTRIES:
        lines = block.split("\n")
        assert len(lines) % 2 == 0, name
        assert all(line == f"    {name}" or line.startswith(f"    {name}(") for line in lines[1::2]), name
        assert EXAMPLE.search(text) and not text.startswith("Example:"), name


def test_examples_run_one_after_another(talq, tmp_path):
    (tmp_path / "part.talq").write_text("partIsThere = true;\n")
    names = re.search(r"^```talq\n(.*?)^```$", DOCUMENT[: DOCUMENT.index("\n## ")], re.MULTILINE | re.DOTALL)[1]
    examples = {name: EXAMPLE.search(text).group(1) for name, _, text in ENTRIES}
    first = examples.pop("param")
    script = "\n".join([first, names, *examples.values(), 'Print(partIsThere, "the last example has run");', ""])
    run = talq(script, window=True)
    assert (run.exit_code, run.stderr) == (0, ""), run.shown()
    assert run.stdout.endswith("1 the last example has run\n"), run.shown()


@pytest.mark.parametrize("name", ["MDC::Pump", "Matrix::*", "Print", "sin", "include", "Mesh::Mesh"])
def test_help_shows_an_entry(talq_options, name):
    run = talq_options("--help", name)
    assert (run.exit_code, run.stdout, run.stderr) == (0, shown_as_the_hosts(name), ""), run.shown()


def test_help_lists_the_calls_of_a_class_by_group(talq_options):
    run = talq_options("--help", "MDC")
    calls = [line for name, block, _ in ENTRIES if name.startswith("MDC::") for line in block.split("\n")[::2]]
    assert run.exit_code == 0 and re.findall(r"^  (.+)$", run.stdout, re.MULTILINE) == calls
    assert re.findall(r"^(\S.+)$", run.stdout, re.MULTILINE) == ["MDC (development host)", "Class MDC", "Windows"]


def test_help_shows_every_error(talq, talq_options):
    assert len(ERRORS) == 9 and len(MODULE_ERRORS) == 9
    every = ERRORS + MODULE_ERRORS
    codes = talq("".join(f"Print({code}, ErrorName({code}));\n" for code, *_ in every))
    assert codes.stdout.splitlines() == [f"{code} {name}" for code, name, *_ in every], codes.shown()
    marked = [(row, " (development host)") for row in ERRORS] + [(row, "") for row in MODULE_ERRORS]
    for (code, name, text, meaning, hint), mark in marked:
        run = talq_options("--help", name)
        hint = f"\nhint: {hint}\n" if hint else ""
        assert run.stdout == f"{name}{mark}\n\nerror {code}: {text}\n\n{meaning}\n{hint}", run.shown()


def test_help_shows_what_a_check_finds(talq_options):
    run = talq_options("--help", "NOT_BOUND")
    assert run.stdout.startswith("NOT_BOUND\n\nfound by --check: the method did nothing\n"), run.shown()


def test_help_shows_all_that_has_the_name(talq_options):
    run = talq_options("--help", "GetDIBits")
    assert re.findall(r"^\w+::GetDIBits(?: \(development host\))?$", run.stdout, re.MULTILINE) == [
        "TOpenGL::GetDIBits",
        "MDC::GetDIBits (development host)",
        "MBmp::GetDIBits (development host)",
    ]
