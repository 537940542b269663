"""editors/vscode: the package, its commands, problem matchers and snippets."""

import json
import pathlib
import re
import subprocess
import xml.etree.ElementTree
import zipfile

import pytest

import conftest
import vscode

EXTENSION = vscode.ROOT / "editors" / "vscode"
PACKAGE = vscode.read_json(EXTENSION / "package.json")
SNIPPETS = {snippet["prefix"]: snippet for snippet in vscode.read_json(EXTENSION / "snippets" / "talq.json").values()}
OPENS_WINDOW = ["orbit", "window"]
NAMESPACE = "{http://schemas.microsoft.com/developer/vsx-schema/2011}"


def named_files(package):
    """The files that package.json points to."""
    contributes = package["contributes"]
    yield package["main"]
    for kind in ("grammars", "snippets"):
        yield from (entry["path"] for entry in contributes[kind])
    yield from (language["configuration"] for language in contributes["languages"])


def test_package_holds_what_it_names(tmp_path):
    with zipfile.ZipFile(vscode.pack(tmp_path)) as archive:
        assert archive.testzip() is None
        names = archive.namelist()
        package = json.loads(archive.read("extension/package.json"))
        for name in names:
            assert not name.endswith(".json") or json.loads(archive.read(name))
        types = xml.etree.ElementTree.fromstring(archive.read("[Content_Types].xml"))
        manifest = xml.etree.ElementTree.fromstring(archive.read("extension.vsixmanifest"))
        grammar = archive.read("extension/syntaxes/talq.tmLanguage.json").decode()
    assert len(names) == len(set(names))
    assert {f"extension/{name}" for name in named_files(package)} < set(names)
    assert package == PACKAGE | {"version": "5.0.0"}
    assert "@" not in grammar
    assert {pathlib.PurePath(name).suffix for name in names[1:]} == {entry.get("Extension") for entry in types}
    identity = manifest.find(f"{NAMESPACE}Metadata/{NAMESPACE}Identity")
    assert [identity.get(key) for key in ("Id", "Version", "Publisher")] == ["talq", "5.0.0", PACKAGE["publisher"]]
    assert {asset.get("Path") for asset in manifest.iter(f"{NAMESPACE}Asset")} < set(names)


def test_package_is_the_same_each_time(tmp_path):
    (tmp_path / "again").mkdir()
    assert vscode.pack(tmp_path).read_bytes() == vscode.pack(tmp_path / "again").read_bytes()


@pytest.mark.xdist_group("run")
def test_run_packs_it_and_says_how_to_install_it(tmp_path):
    done = conftest.run_captured([vscode.ROOT / "run", "--vscode"], cwd=tmp_path)
    assert done.returncode == 0, done.stderr
    file = pathlib.Path(done.stdout.strip())
    assert f"code --install-extension {file}" in done.stderr
    version = re.search(r"^## ([0-9.]+)", (vscode.ROOT / "CHANGELOG.md").read_text(), re.MULTILINE)[1]
    assert file.name == f"talq-{version}.vsix"
    assert file.read_bytes() == vscode.pack(tmp_path, version).read_bytes()


def activate(script, platform="linux", setting="", definition=""):
    """What the extension does in an editor that shows the script."""
    command = ["node", vscode.ROOT / "tests" / "editors" / "activate.js", EXTENSION, platform, script, setting, definition]
    return json.loads(subprocess.run(command, capture_output=True, text=True, check=True, timeout=60).stdout)


def test_commands_start_tasks():
    script = str(vscode.ROOT / "examples" / "first.talq")
    done = activate(script)
    assert sorted(done["commands"]) == sorted(command["command"] for command in PACKAGE["contributes"]["commands"])
    program, folder = str(vscode.ROOT / "run"), str(vscode.ROOT / "examples")
    assert {task["definition"]["action"]: task["execution"] for task in done["started"]} == {
        "run": {"program": program, "args": [script], "cwd": folder},
        "window": {"program": program, "args": ["--window", script], "cwd": folder},
        "check": {"program": program, "args": ["--check", script], "cwd": folder},
    }
    assert done["offered"] == done["started"] and done["saved"] == 3
    matchers = {f"${matcher['name']}" for matcher in PACKAGE["contributes"]["problemMatchers"]}
    assert {name for task in done["started"] for name in task["matchers"]} == matchers
    actions = PACKAGE["contributes"]["taskDefinitions"][0]["properties"]["action"]["enum"]
    assert [task["definition"]["action"] for task in done["started"]] == actions


def test_commands_ask_for_a_file():
    done = activate("")
    assert len(done["errors"]) == len(done["commands"]) and done["started"] == done["offered"] == []


def test_tasks_of_the_user_name_their_script():
    definition = {"type": "talq", "action": "check", "script": "/scripts/own.talq"}
    task = activate("/elsewhere/x.talq", definition=json.dumps(definition))["resolved"]
    assert task["definition"] == definition and task["execution"]["args"] == ["--check", "/scripts/own.talq"]
    assert "resolved" not in activate("/x.talq", definition=json.dumps(definition | {"action": "fly"}))


def test_program_is_the_nearest_one_or_what_the_setting_names(tmp_path):
    script = tmp_path / "unpacked" / "examples" / "own.talq"
    script.parent.mkdir(parents=True)
    (tmp_path / "unpacked" / "talq.exe").touch()
    (tmp_path / "unpacked" / "run").touch()  # of something else: there is no development host beside it

    def programs(*arguments):
        return {task["execution"]["program"] for task in activate(str(script), *arguments)["started"]}

    assert programs("linux") == {"talq"}
    assert programs("win32") == {str(tmp_path / "unpacked" / "talq.exe")}
    assert programs("win32", "C:\\other\\talq.exe") == {"C:\\other\\talq.exe"}
    assert [task["execution"]["args"] for task in activate(str(script), "win32")["started"]][1] == [str(script)]


def problems(text):
    """What the editor makes of the lines of a program: (matcher, file, line, column or None, message)."""
    for line in text.splitlines():
        for matcher in PACKAGE["contributes"]["problemMatchers"]:
            pattern = matcher["pattern"]
            if match := re.fullmatch(pattern["regexp"], line):
                yield (matcher["name"], *(match[pattern[name]] for name in ("file", "line", "column", "message")))


def test_errors_become_problems(talq, tmp_path):
    script = tmp_path / "script.talq"
    run = talq("function Half(x) {\n  return x / 0;\n}\nPrint(1);\nHalf(1);\n")
    message = "error 10 DIVISION_BY_ZERO: Division by zero."
    assert list(problems(run.stderr)) == [("talq", str(script), "2", "12", message)], run.shown()
    run = talq("a = (1 + ;\n")
    message = "syntax error: expected a value, found ';'"
    assert list(problems(run.stderr)) == [("talq", str(script), "1", "10", message)], run.shown()
    (tmp_path / "part.talq").write_text("\nb = ;\n")
    run = talq('include "part.talq";\n')
    assert [problem[1:4] for problem in problems(run.stderr)] == [(str(tmp_path / "part.talq"), "2", "5")], run.shown()
    run = talq("gl = new TOpenGL();\ngl->SetViewport(0, 0, 1, 1);\n")
    assert [problem[2:4] for problem in problems(run.stderr)] == [("2", "5")], run.shown()


def test_findings_become_problems(talq):
    run = talq("gl = new TOpenGL();\ngl->Sphere(0, 0, 0, 1);\ngl->Clear();\n", options=["--check"])
    found = list(problems(run.stderr))
    assert [problem[0] for problem in found] == ["talq-check"] * 2, run.shown()
    assert [problem[2:4] for problem in found] == [("2", None), ("3", None)], run.shown()
    assert found[0][4] == "TOpenGL::Sphere: did nothing: the renderer is not open [NOT_OPEN]"


def test_paths_of_findings_may_have_blanks_and_drives():
    text = "TOpenGL::SetPerspective: the near plane is not in front of the viewer [GL_ERROR]"
    assert list(problems(f"/a b/file.talq:12: {text}\n")) == [("talq-check", "/a b/file.talq", "12", None, text)]
    assert list(problems(f"C:\\a\\file.talq:12:3: {text}\n")) == [("talq-check", "C:\\a\\file.talq", "12", "3", text)]


def test_other_lines_are_no_problems(talq):
    run = talq('function Outer() {\n  Fail("1");\n}\nPrint("at 12:30: tea");\nOuter();\n')
    assert "called from" in run.stderr and "tea" in run.stdout
    assert [problem[-1] for problem in problems(run.stdout + run.stderr)] == ["error 27 FAILED: 1"]


def filled(snippet):
    """The script that a snippet leaves when its user goes on to the next place each time."""
    body = "\n".join(snippet["body"])
    texts = dict(re.findall(r"\$\{(\d):([^}]*)\}", body))
    body = re.sub(r"\$\{\d:([^}]*)\}", r"\1", body)
    return re.sub(r"\$(\d)", lambda match: texts.get(match[1], ""), body)


@pytest.mark.parametrize("prefix", sorted(set(SNIPPETS) - set(OPENS_WINDOW)))
def test_snippet_runs(talq, tmp_path, prefix):
    script = filled(SNIPPETS[prefix])
    assert "$" not in script
    run = talq(script)
    assert run.exit_code == 0, script + run.shown()
    if prefix == "picture":
        assert run.pictures["picture"].std() > 20


@pytest.mark.parametrize("prefix", OPENS_WINDOW)
def test_snippet_opens_a_window(desktop, monkeypatch, prefix):
    monkeypatch.setenv("TALQ_PATH", str(vscode.ROOT / "examples"))
    with desktop.start(filled(SNIPPETS[prefix])) as window:
        window.wait_until(lambda picture: picture.std() > 20)
        window.key("Escape")
    assert window.exit_code == 0, window.shown()


def test_readme_names_the_snippets():
    readme = (EXTENSION / "README.md").read_text(encoding="utf-8")
    line = re.search(r"Snippets: (.*)\.", readme)[1]
    assert sorted(re.findall(r"`(\w+)`", line)) == sorted(SNIPPETS)
