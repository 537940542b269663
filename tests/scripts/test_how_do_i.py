"""docs/how-do-i.md: each answer runs without a finding of --check, and does something that can be seen."""

import pathlib
import re

import pytest

import conftest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = (ROOT / "docs" / "how-do-i.md").read_text()
# The title, the script and the text of each answer.
ANSWERS = re.findall(r"^## ([^\n]+)\n\n```talq\n(.*?)^```\n\n(.*?)\s*(?=^## |\Z)", PAGE, re.MULTILINE | re.DOTALL)
BEGINNING = re.search(r"^```talq\n(.*?)^```$", PAGE[: PAGE.index("\n## ")], re.MULTILINE | re.DOTALL)[1]
SAVED = 'gl->Flush();\nnew MBmp(320, 240, device->GetDIBits())->Save("end.png");\n'


def is_in_a_window(answer):
    return "->Pump(" in answer[1]


def script_of(answer):
    return BEGINNING + answer[1].replace("path/to", str(ROOT))


def cases(answers):
    return pytest.mark.parametrize("answer", [pytest.param(answer, id=answer[0]) for answer in answers])


def test_there_are_twenty_answers_and_each_links_to_more():
    assert [title for title, _, _ in ANSWERS] == re.findall(r"^## (.+)$", PAGE, re.MULTILINE)
    assert len(ANSWERS) >= 20
    assert all(re.search(r"\]\(\S+\)", text) for _, _, text in ANSWERS)


@pytest.fixture(scope="module")
def run_text(tmp_path_factory):
    """run_text(text): runs a script's text under --check, without a finding."""
    def run(text):
        folder = tmp_path_factory.mktemp("answer")
        (folder / "answer.talq").write_text(text)
        done = conftest.run_in_wine("talq.exe", ["--check", "answer.talq"], folder)
        assert (done.exit_code, done.stderr) == (0, ""), done.shown()
        return done

    return run


@pytest.fixture(scope="module")
def plain_scene(run_text):
    return run_text(BEGINNING + "DrawScene(gl);\n" + SAVED).pictures["end"]


@cases([answer for answer in ANSWERS if not is_in_a_window(answer)])
def test_an_answer_prints_saves_or_draws_something(run_text, plain_scene, answer):
    run = run_text(script_of(answer))
    if run.stdout or run.pictures:
        return
    picture = run_text(script_of(answer) + SAVED).pictures["end"]
    assert picture.any() and (picture != plain_scene).any()


@cases([answer for answer in ANSWERS if is_in_a_window(answer)])
def test_an_answer_shows_its_window_until_it_is_closed(desktop, answer):
    with desktop.start(script_of(answer), options=["--check"]) as window:
        window.wait_until(lambda picture: picture.any())
        window.resize(400, 240)
        window.key("p")
        window.close()
    assert (window.exit_code, window.stderr) == (0, ""), window.shown()
    assert ("shown.png" in answer[1]) == (desktop.folder / "shown.png").exists()
