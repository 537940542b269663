"""./package: what the zip holds, that it runs where it is unpacked, and that it is made of the sources alone."""

import pathlib
import re
import subprocess
import zipfile

import pytest

import conftest

pytestmark = pytest.mark.xdist_group("run")
ROOT = conftest.ROOT
TOP = "talq-opengl-" + re.search(r"^## ([0-9.]+)", (ROOT / "CHANGELOG.md").read_text(), re.MULTILINE)[1]


def package(root, folder):
    """The zip of the project in that folder."""
    done = conftest.run_captured([root / "package"], cwd=folder)
    assert done.returncode == 0, done.stderr
    return pathlib.Path(done.stdout.strip())


@pytest.fixture(scope="module")
def zip_file(tmp_path_factory):
    file = package(ROOT, tmp_path_factory.mktemp("elsewhere"))
    assert file == ROOT / "dist" / f"{TOP}.zip"
    return file


@pytest.fixture(scope="module")
def unpacked(zip_file, tmp_path_factory):
    """The package where a path has blanks and letters of several languages."""
    folder = tmp_path_factory.mktemp("unpacked") / "my talq é картина"
    with zipfile.ZipFile(zip_file) as archive:
        assert archive.testzip() is None
        archive.extractall(folder)
    return folder / TOP


def test_zip_holds_programs_examples_documents_and_editors(unpacked):
    files = {path.relative_to(unpacked).as_posix() for path in unpacked.rglob("*") if path.is_file()}
    site = ROOT / "build" / "site"
    pages = {f"docs/{path.relative_to(site).as_posix()}" for path in site.rglob("*") if path.is_file()}
    examples = {path.relative_to(ROOT).as_posix() for path in (ROOT / "examples").rglob("*") if path.is_file()}
    assert files == {
        "talq.exe", "Talq.dll", "TalqOpenGL.dll", "glu32.dll", "README.txt", "docs/third-party.md",
        "editors/talq.vsix", "editors/vim/ftdetect/talq.vim", "editors/vim/syntax/talq.vim",
        *(pages - {"docs/.buildinfo"}), *(name for name in examples if not name.startswith("examples/pictures/")),
    }  # fmt: skip
    assert "My picture is black" in (unpacked / "docs" / "index.html").read_text(encoding="utf-8")
    with zipfile.ZipFile(unpacked / "editors" / "talq.vsix") as archive:
        assert "extension/package.json" in archive.namelist()


def test_readme_shows_the_version_and_names_what_is_there(unpacked):
    readme = (unpacked / "README.txt").read_text(encoding="utf-8")
    assert readme.splitlines()[0] == f"Talq OpenGL {TOP.rpartition('-')[2]}"
    scripts = re.findall(r"talq\.exe (examples\\\S+)", readme)
    assert len(scripts) == 2
    for name in [*scripts, *re.findall(r"^    (\w+\\)", readme, re.MULTILINE)]:
        assert (unpacked / name.replace("\\", "/")).exists(), name


def test_unpacked_program_draws_an_example(unpacked):
    run = conftest.run_in_wine(unpacked / "talq.exe", ["examples\\first.talq"], unpacked)
    assert run.exit_code == 0, run.shown()
    drawn = run.pictures["first"].astype(int)
    shown = conftest.read_picture(ROOT / "examples" / "pictures" / "first.png").astype(int)
    assert drawn.shape == shown.shape and abs(drawn - shown).mean() < 0.4


def test_unpacked_program_runs_a_script_from_elsewhere(unpacked, tmp_path):
    script = tmp_path / "ё é.talq"
    script.write_text('include "picture.talq";\ncross = Cross([1, 0, 0], [0, 1, 0]);\nPrint("é", cross);\n')
    run = conftest.run_in_wine(unpacked / "talq.exe", [script], tmp_path)
    assert (run.exit_code, run.stdout) == (0, "é [0, 0, 1]\n"), run.shown()


def copy_sources(other):
    """Makes the folder's sources those of the project; those that are so already keep their time."""
    listed = subprocess.run(
        ["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=ROOT, capture_output=True, check=True
    ).stdout
    names = {name for name in listed.decode().rstrip("\0").split("\0") if (ROOT / name).is_file()}
    for path in other.rglob("*"):
        name = path.relative_to(other).as_posix()
        if path.is_file() and name.split("/")[0] not in ("build", "dist") and name not in names:
            path.unlink()
    for name in names:
        if not (other / name).exists() or (other / name).read_bytes() != (ROOT / name).read_bytes():
            (other / name).parent.mkdir(parents=True, exist_ok=True)
            (other / name).write_bytes((ROOT / name).read_bytes())
        (other / name).chmod((ROOT / name).stat().st_mode)


def test_the_same_sources_make_the_same_bytes_in_another_folder(zip_file, tmp_path):
    """What has changed is built there too. GLU, which takes a minute, is taken over."""
    other = ROOT / "build" / "another-folder" / "talq"
    copy_sources(other)
    for name in ("glu32", "wine"):
        (other / "build").mkdir(exist_ok=True)
        if not (other / "build" / name).exists():
            (other / "build" / name).symlink_to(ROOT / "build" / name)
    assert package(other, tmp_path).read_bytes() == zip_file.read_bytes()


def test_package_refuses_what_it_does_not_know(tmp_path):
    done = conftest.run_captured([ROOT / "package", "--fast"], cwd=tmp_path)
    assert done.returncode == 1 and done.stderr == "error: unknown option --fast; see ./package --help\n"


def notices():
    """(package, notice) for each notice of third-party.md."""
    text = (ROOT / "docs" / "third-party.md").read_text(encoding="utf-8")
    return re.findall(r"From Debian's `([^`]+)`:\n\n```\n(.*?)\n```\n", text, re.DOTALL)


def words(text):
    return " ".join(word for word in text.split() if word != ".")


@pytest.mark.parametrize("name, notice", notices(), ids=lambda text: text.split("\n")[0][:40])
def test_notices_are_those_of_the_packages(name, notice):
    assert len(notice) > 150
    assert words(notice) in words(pathlib.Path(f"/usr/share/doc/{name}/copyright").read_text(encoding="utf-8"))


def test_each_part_has_its_notice():
    assert sorted({name for name, _ in notices()}) == [
        "furo", "gcc-mingw-w64-x86-64-win32", "libc++-19-dev", "libglu1-mesa-dev", "libstb-dev",
        "mingw-w64-x86-64-dev", "sphinx-common",
    ]  # fmt: skip
