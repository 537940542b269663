"""The gallery: its scripts use every drawing method, and draw the pictures that lie beside them."""

import re

import pytest

import conftest
import gallery
from comparison import CHANGES, Difference

# Methods of the renderer that draw nothing: they open and close it, ask, and free.
NOT_DRAWING = {
    *("TOpenGL", "~TOpenGL", "Open", "UseAccelerator", "FreeMDC", "BindMDC"),
    *("EnableDoubleBuff", "SwapBuffers", "DeleteList", "DeleteLists"),
}
# These forms, which take a point, draw the bitmap twice.
NOT_SHOWN = {("DrawBitmap", 2), ("DrawBitmap", 3)}


def is_drawing(name):
    return name not in NOT_DRAWING and not re.match(r"(Get(?!Matrix|DIBits)|Is)[A-Z]", name)


def forms_in(table):
    """Each drawing method's name and number of arguments, from the list of what the module offers."""
    rows = re.findall(r"^ +TOpenGL::(~?\w+)\((.*)\)$", table, re.MULTILINE)
    counts = [(name, 0 if arguments == "void" else arguments.count(",") + 1) for name, arguments in rows]
    return {form for form in counts if is_drawing(form[0])} - NOT_SHOWN


def calls_in(text):
    """The name and the number of arguments of each call of the renderer's methods."""
    for call in re.finditer(r"\bgl->(\w+)\(", text):
        depth, commas, at = 1, 0, call.end()
        while depth:
            depth += {"(": 1, "[": 1, ")": -1, "]": -1}.get(text[at], 0)
            commas += depth == 1 and text[at] == ","
            at += 1
        yield call[1], commas + 1 if text[call.end() : at - 1].strip() else 0


def used_by(name):
    texts = gallery.sources_of(gallery.EXAMPLES / f"{name}.talq")
    return {form for text in texts for form in calls_in(text)}


def test_calls_are_counted_by_their_arguments():
    text = "gl->Flush(); gl->Rotate(new POINT3(0, 1, [2, 3][0]), Angle(x, 2));"
    assert list(calls_in(text)) == [("Flush", 0), ("Rotate", 2)]


def test_some_script_uses_every_drawing_method(talq_options):
    run = talq_options("--list")
    assert run.exit_code == 0, run.shown()
    forms = forms_in(run.stdout)
    assert len(forms) > 90
    assert forms - set.union(*map(used_by, [*gallery.SCRIPTS, *gallery.INTERACTIVE])) == set()


def of_example(name):
    return pytest.param(name, marks=pytest.mark.xdist_group(f"example {name}"))


@pytest.mark.parametrize("name", [of_example(name) for name in gallery.SCRIPTS])
def test_script_draws_its_picture(example, name):
    difference = Difference(example(name).pictures[name], conftest.read_picture(gallery.PICTURES / f"{name}.png"))
    assert difference.is_small(), str(difference)


@pytest.mark.xdist_group("example volume")
def test_program_draws_the_volumes(volume):
    difference = Difference(volume[0].pictures["volume"], conftest.read_picture(gallery.PICTURES / "volume.png"))
    assert difference.is_small(), str(difference)


@pytest.mark.parametrize("change", CHANGES)
@pytest.mark.parametrize("name", gallery.NAMES)
def test_comparison_sees(name, change):
    picture = conftest.read_picture(gallery.PICTURES / f"{name}.png")
    assert Difference(picture, picture).is_small()
    assert not Difference(change(picture), picture).is_small()


# ---- The page that shows the pictures

PAGE = gallery.ROOT / "docs" / "gallery.md"


def test_page_shows_every_picture_once():
    shown = re.findall(r"\]\(\.\./examples/pictures/(.+?)\.png\)", PAGE.read_text())
    assert sorted(shown) == gallery.NAMES == sorted(path.stem for path in gallery.PICTURES.iterdir())


def sections():
    """Of each picture's section: its name, the path of what makes it, and the lines that are quoted."""
    for text in PAGE.read_text().split("\n## In a window\n")[0].split("\n## ")[1:]:
        (name,) = re.findall(r"pictures/(.+?)\.png", text)
        (path,) = re.findall(r"^(?:Script|Program): \[.+\]\((.+)\)\.$", text, re.MULTILINE)
        yield name, (PAGE.parent / path).resolve(), "".join(re.findall(r"```\n(.*?)```", text, re.DOTALL)).splitlines()


@pytest.mark.parametrize("name, path, quoted", [pytest.param(*section, id=section[0]) for section in sections()])
def test_page_quotes_the_script_that_makes_the_picture(name, path, quoted):
    if name == "volume":
        assert path == gallery.ROOT / "tests" / "renderer" / "volume_picture.cpp" and path.exists()
        return
    assert path == gallery.EXAMPLES / f"{name}.talq"
    assert quoted
    lines = {line.split("//")[0].strip() for text in gallery.sources_of(path) for line in text.splitlines()}
    for line in quoted:
        assert line.split("//")[0].strip() in lines


def test_readme_shows_the_first_script():
    assert f"```\n{(gallery.EXAMPLES / 'first.talq').read_text()}```\n" in (gallery.ROOT / "README.md").read_text()
