"""Files that scripts write, and the folders in which they look for what they include."""

import pytest

import conftest

SHARED = 'include "shared.talq";\nPrint(Shared());\n'


def test_writing_makes_the_folder_and_replaces_the_file(talq, tmp_path):
    run = talq(
        'WriteText("a/b/text", "one");\nWriteText("a/b/text", "two");\n'
        'bitmap = new MBmp(2, 2);\nbitmap->Save("a\\\\c\\\\d.PNG");\nbitmap->Save("a/c/d.PNG");\n'
    )
    assert run.exit_code == 0, run.shown()
    assert (tmp_path / "a/b/text").read_text() == "two"
    assert conftest.read_picture(tmp_path / "a/c/d.PNG").shape == (2, 2, 3)
    assert sorted(path.name for path in tmp_path.rglob("*")) == ["a", "b", "c", "d.PNG", "script.talq", "text"]


@pytest.mark.parametrize("path, reason", [("folder", "Permission denied"), ("script.talq/a", "No such file or directory")])
def test_failure_leaves_nothing_behind(talq, tmp_path, path, reason):
    (tmp_path / "folder").mkdir()
    run = talq(f'WriteText("{path}", "one");\n')
    assert run.exit_code == 1 and f"{path} cannot be written: {reason}." in run.stderr, run.shown()
    assert sorted(path.name for path in tmp_path.iterdir()) == ["folder", "script.talq"]


def test_pictures_are_png(talq, tmp_path):
    run = talq('new MBmp(2, 2)->Save("a.jpg");\n')
    message = "a.jpg cannot be written: a picture is saved as PNG, under a name that ends with .png."
    assert run.exit_code == 1 and message in run.stderr, run.shown()
    assert not (tmp_path / "a.jpg").exists()


@pytest.fixture
def unpacked(tmp_path):
    """A folder of any name with the program and the examples' folder, in which a file is shared."""
    folder = tmp_path / "talq é"
    (folder / "examples").mkdir(parents=True)
    for name in ("talq.exe", "Talq.dll"):
        (folder / name).symlink_to(conftest.PROGRAMS / name)
    (folder / "examples" / "shared.talq").write_text('function Shared() { return "examples"; }\n')
    return folder


def run_shared(unpacked):
    script = unpacked.parent / "own.talq"
    script.write_text(SHARED)
    return conftest.run_in_wine(unpacked / "talq.exe", ["--no-module", script], unpacked.parent)


def test_included_file_comes_from_the_examples_beside_the_program(unpacked):
    run = run_shared(unpacked)
    assert (run.exit_code, run.stdout) == (0, "examples\n"), run.shown()


def test_included_file_comes_from_the_folders_of_talq_path(unpacked, monkeypatch):
    (unpacked / "ё").mkdir()
    (unpacked / "ё" / "shared.talq").write_text('function Shared() { return "own"; }\n')
    monkeypatch.setenv("TALQ_PATH", f"nowhere;{unpacked}/ё")
    run = run_shared(unpacked)
    assert (run.exit_code, run.stdout) == (0, "own\n"), run.shown()


def test_message_names_the_folders(unpacked, monkeypatch):
    monkeypatch.setenv("TALQ_PATH", "nowhere")
    (unpacked / "examples" / "shared.talq").unlink()
    run = run_shared(unpacked)
    assert run.exit_code == 1, run.shown()
    line = run.stderr.splitlines()[0]
    assert "own.talq:1:9: syntax error: cannot read the file '" in line and ", nor find it in nowhere, " in line
    assert line.endswith("\\talq é\\examples"), line
