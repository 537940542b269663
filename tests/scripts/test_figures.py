"""The pictures of the reference: their scripts draw them, and each entry whose effect can be seen shows one."""

import re

import pytest

import conftest
import figures
from comparison import CHANGES, Difference
from test_reference import DOCUMENT, ENTRIES

SHOWN = re.compile(r"^!\[(.*)\]\(pictures/(.+)\.png\)$", re.MULTILINE)
# Methods whose effect no picture shows: they open and close, ask, record, name and free.
WITHOUT_EFFECT = re.compile(
    r"TOpenGL::(~?TOpenGL|Open|OpenBitmap|Close|BindMDC|FreeMDC|UseAccelerator|EnableDoubleBuff|SwapBuffers|Flush)"
    r"|TOpenGL::(Is|Get(?!DIBits))\w+"
    r"|TOpenGL::(GenList|NewList|EndList|DeleteLists?|InitNameStack|(Push|Load|Pop)Name|EndSelection)"
    r"|OglColor::~?\w+|OglMaterial::(~OglMaterial|Get\w+)"
)


def path_of(name):
    return figures.FOLDER / f"{name}.png"


@pytest.mark.parametrize("script", [pytest.param(path, id=path.stem) for path in figures.DRAWN_BY])
def test_script_draws_its_pictures(script, tmp_path):
    names = figures.DRAWN_BY[script]
    run = conftest.run_drawing(script, tmp_path)
    assert run.exit_code == 0, run.shown()
    assert set(run.pictures) == set(names) != set()
    for name in names:
        difference = Difference(run.pictures[name], conftest.read_picture(path_of(name)))
        assert difference.is_small(), f"{name}: {difference}"


@pytest.mark.parametrize("change", CHANGES)
def test_comparison_sees(change):
    for name in figures.NAMES:
        picture = conftest.read_picture(path_of(name))
        assert not Difference(change(picture), picture).is_small(), name


def test_the_reference_shows_every_picture():
    assert len(set(figures.NAMES)) == len(figures.NAMES)
    kept = {path.stem for path in figures.FOLDER.glob("*.png")}
    assert {name for _, name in SHOWN.findall(DOCUMENT)} == set(figures.NAMES) == kept


def test_every_picture_says_what_it_shows():
    assert all(text.strip() for text, _ in SHOWN.findall(DOCUMENT))


def test_each_entry_with_an_effect_shows_a_picture():
    shown = [name for name, _, text in ENTRIES if SHOWN.search(text)]
    assert shown == [name for name, _, _ in ENTRIES if not WITHOUT_EFFECT.fullmatch(name)]
