"""editors/vscode: the editor's own engine gives the words of a script the scopes that the language says."""

import json
import os
import pathlib
import shutil
import subprocess

import pytest

import conftest
import vscode

pytestmark = pytest.mark.xdist_group("vscode")
SETUP = vscode.ROOT / "tests" / "editors"
EXAMPLES = sorted((vscode.ROOT / "examples").rglob("*.talq"))
SCOPES_OF_WORDS = {
    "keyword.control.conditional": ["if", "else"],
    "keyword.control.loop": ["while", "for", "break", "continue"],
    "keyword.control.flow": ["return"],
    "keyword.control.exception": ["try", "catch"],
    "keyword.control.import": ["include"],
    "keyword.operator.new": ["new"],
    "storage.type.function": ["function"],
    "storage.type.param": ["param"],
    "constant.language.boolean": ["true", "false"],
}
SCOPES_OF_SIGNS = {
    "punctuation.accessor": ["->", "."],
    "keyword.operator.assignment": ["=", "+=", "-=", "*=", "/="],
    "keyword.operator.comparison": ["==", "!=", "<", "<=", ">", ">="],
    "keyword.operator.logical": ["&&", "||", "!"],
    "keyword.operator.bitwise": ["<<", ">>", "&", "|", "^", "~"],
    "keyword.operator.arithmetic": ["+", "-", "*", "/", "%"],
    "punctuation.separator.comma": [","],
    "punctuation.terminator.statement": [";"],
    "punctuation.section.parens": ["(", ")"],
    "punctuation.section.brackets": ["[", "]"],
    "punctuation.section.block": ["{", "}"],
}
SCOPE_OF = {word: scope for table in (SCOPES_OF_WORDS, SCOPES_OF_SIGNS) for scope, words in table.items() for word in words}


@pytest.fixture(scope="module")
def node_modules():
    """The engine, in build/; installed again only when the list of packages has changed."""
    folder = vscode.ROOT / "build" / "editor-tests"
    folder.mkdir(parents=True, exist_ok=True)
    installed = folder / "installed.json"
    lock = SETUP / "package-lock.json"
    if not installed.exists() or installed.read_bytes() != lock.read_bytes():
        for name in ("package.json", "package-lock.json"):
            shutil.copy(SETUP / name, folder)
        npm = subprocess.run(["npm", "ci", "--no-audit", "--no-fund", "--ignore-scripts"], cwd=folder, capture_output=True, text=True)
        assert npm.returncode == 0, f"npm could not install the editor's engine:\n{npm.stderr}"
        shutil.copy(lock, installed)
    return folder / "node_modules"


@pytest.fixture(scope="module")
def scopes_of(node_modules, tmp_path_factory):
    """scopes_of(*paths): for each script a list of the scopes of each character, without the language's name."""
    grammar = vscode.unpack(tmp_path_factory.mktemp("extension")) / "syntaxes" / "talq.tmLanguage.json"

    def run(*paths):
        command = ["node", SETUP / "tokenize.js", node_modules, grammar, *paths]
        output = subprocess.run(command, capture_output=True, text=True, check=True, timeout=300).stdout
        return [characters_of(lines) for lines in json.loads(output)]

    return run


def characters_of(lines):
    """The scopes of each character of a script, with the ends of its lines."""
    scopes = []
    for line in lines:
        for start, end, names in line:
            scopes += [[name.removesuffix(".talq") for name in names[1:]]] * (end - start)
        scopes.append([])
    return scopes


@pytest.fixture
def runs_of(scopes_of, tmp_path):
    """runs_of(text): the runs of one innermost scope, as (text, scope); blanks are left out."""

    def run(text):
        script = tmp_path / "script.talq"
        script.write_text(text, encoding="utf-8")
        names = [scopes[-1] if scopes else "" for scopes in scopes_of(script)[0]]
        starts = [i for i in range(len(text)) if i == 0 or names[i] != names[i - 1] or text[i - 1] == "\n"]
        runs = [(text[start:end].strip(), names[start]) for start, end in zip(starts, starts[1:] + [len(text)])]
        return [run for run in runs if run[0]]

    return run


def tokens_of(paths):
    """What the language reads: for each script its tokens as (start, end, kind), by characters."""
    run = conftest.run_in_wine("print_tokens.exe", paths, vscode.ROOT)
    assert run.exit_code == 0, run.shown()
    files = []
    for path, lines in zip(paths, run.stdout.split("file\n")[1:], strict=True):
        content = path.read_bytes()
        tokens = [line.split(" ") for line in lines.splitlines()]
        assert len(tokens) > 10, path
        files.append([(*(len(content[: int(place)].decode()) for place in places), kind) for *places, kind in tokens])
    return files


def list_of_parameters(kinds):
    """Whether each token is a name that `param` or a function's head lists."""
    end = None
    for i, kind in enumerate(kinds):
        if kind == "param":
            end = ";"
        elif kind == "function":
            end = ")"
        elif kind == end:
            end = None
        yield end is not None and kind == "name" and kinds[i - 1] != "function"


def expected_scopes(text, tokens):
    """The scope of each token: what stands beside a name says what it is."""
    words = [text[start:end] for start, end, _ in tokens]
    kinds = [kind for *_, kind in tokens]
    for i, is_parameter in enumerate(list_of_parameters(kinds)):
        before = kinds[i - 1] if i > 0 else ""
        is_called = kinds[i + 1 : i + 2] == ["("]
        if kinds[i] == "integer":
            yield "constant.numeric.integer." + ("hexadecimal" if words[i][:2] in ("0x", "0X") else "decimal")
        elif kinds[i] == "real":
            yield "constant.numeric.float"
        elif kinds[i] == "text":
            yield "string.quoted.double"
        elif kinds[i] != "name":
            yield SCOPE_OF[kinds[i]]
        elif before in ("->", "."):
            yield "entity.name.function.method" if is_called else "variable.other.property"
        elif before == "function":
            yield "entity.name.function.definition"
        elif is_parameter:
            yield "variable.parameter"
        elif words[i] in vscode.classes():
            yield "support.class"
        elif before == "new":
            yield "entity.name.type.class"
        elif is_called:
            yield "support.function" if words[i] in vscode.functions() else "entity.name.function.call"
        else:
            yield "variable.other"


def place_of(path, text, at):
    return f"{path}:{text.count(chr(10), 0, at) + 1}"


def test_every_token_of_the_examples_has_the_scope_of_its_kind(scopes_of):
    seen = set()
    for path, scopes, tokens in zip(EXAMPLES, scopes_of(*EXAMPLES), tokens_of(EXAMPLES), strict=True):
        text = path.read_text(encoding="utf-8")
        for (start, end, kind), expected in zip(tokens, expected_scopes(text, tokens), strict=True):
            for character in scopes[start:end]:
                found = character[:1] if kind == "text" else character[-1:]
                assert found == [expected], f"{place_of(path, text, start)}: {text[start:end]} is {character}"
            seen.add(expected)
    # Those besides are tried by hand below.
    known = {*SCOPE_OF.values(), "constant.numeric.float", "string.quoted.double", "variable.parameter", "support.class",
             "support.function", "entity.name.function.method", "variable.other.property"}  # fmt: skip
    assert known - seen <= {"keyword.control.exception"}


def test_all_else_in_the_examples_is_blank_or_a_comment(scopes_of):
    for path, scopes, tokens in zip(EXAMPLES, scopes_of(*EXAMPLES), tokens_of(EXAMPLES), strict=True):
        text = path.read_text(encoding="utf-8")
        ends = [0] + [end for _, end, _ in tokens]
        starts = [start for start, *_ in tokens] + [len(text)]
        for gap in zip(ends, starts):
            for at in range(*gap):
                is_comment = any(scope.startswith("comment.") for scope in scopes[at])
                is_plain_blank = text[at].isspace() and scopes[at] == []
                assert is_comment or is_plain_blank, f"{place_of(path, text, at)}: {text[at]} is {scopes[at]}"


def test_keywords_are_those_of_the_language(runs_of):
    keywords = vscode.listed("keywords")
    assert sorted(keywords) == sorted(word for words in SCOPES_OF_WORDS.values() for word in words)
    runs = runs_of("\n".join(f"{word} ;\n{word}s ;" for word in keywords))
    assert runs[::4] == [(word, SCOPE_OF[word]) for word in keywords]
    assert runs[2::4] == [(f"{word}s", "variable.other") for word in keywords]


def test_classes_and_functions_are_those_of_the_host_and_the_module(runs_of):
    classes, functions = sorted(vscode.classes()), sorted(vscode.functions())
    assert {"TOpenGL", "POINT3", "MDC", "Vector"} < set(classes) and "" not in classes
    runs = runs_of("\n".join(f"new {name}" for name in classes))
    assert runs == [run for name in classes for run in (("new", "keyword.operator.new"), (name, "support.class"))]
    assert {"Print", "sin", "ReadObj"} < set(functions)
    runs = runs_of("\n".join(f"{name} ()\n{name};" for name in functions))
    assert runs[::4] == [(name, "support.function") for name in functions]
    assert runs[2::4] == [(name, "variable.other") for name in functions]
    assert runs_of("new Hare(") == [
        ("new", "keyword.operator.new"), ("Hare", "entity.name.type.class"), ("(", "punctuation.section.parens"),
    ]  # fmt: skip


@pytest.mark.parametrize("text", ["12", "0", "007"])
def test_integers(runs_of, text):
    assert runs_of(text) == [(text, "constant.numeric.integer.decimal")]


def test_hexadecimal_integers(runs_of):
    assert runs_of("0xFf") == [("0xFf", "constant.numeric.integer.hexadecimal")]


@pytest.mark.parametrize("text", ["1.5", ".5", "2e-3", "1.5E+10", "0.25e3"])
def test_floats(runs_of, text):
    assert runs_of(text) == [(text, "constant.numeric.float")]


@pytest.mark.parametrize("text", ["12a", "0x", "0xG", "1e", "1.5x", "1.5e+", ".5_"])
def test_numbers_that_the_language_refuses(runs_of, text):
    assert runs_of(text)[0][1] == "invalid.illegal.number"


def test_numbers_beside_names_and_dots(runs_of):
    assert runs_of("x1.y")[0] == ("x1", "variable.other")
    assert runs_of("1.x") == [
        ("1", "constant.numeric.integer.decimal"), (".", "punctuation.accessor"), ("x", "variable.other.property"),
    ]  # fmt: skip


def test_texts_and_their_escapes(runs_of):
    begin = ('"', "punctuation.definition.string.begin")
    end = ('"', "punctuation.definition.string.end")
    assert runs_of(r'"a\n\x41 // \"b"') == [
        begin, ("a", "string.quoted.double"), (r"\n\x41", "constant.character.escape"), ("//", "string.quoted.double"),
        (r"\"", "constant.character.escape"), ("b", "string.quoted.double"), end,
    ]  # fmt: skip
    assert runs_of(r'"\q\x4"')[1] == (r"\q\x", "invalid.illegal.escape")
    assert runs_of('"a\nif') == [begin, ("a", "string.quoted.double"), ("if", "keyword.control.conditional")]


def test_comments_do_not_nest(runs_of):
    mark = "punctuation.definition.comment"
    assert runs_of('a // if "x"\n/* new /* \nwhile */ if */') == [
        ("a", "variable.other"), ("//", mark), ('if "x"', "comment.line.double-slash"),
        ("/*", mark), ("new /*", "comment.block"), ("while", "comment.block"), ("*/", mark),
        ("if", "keyword.control.conditional"), ("*/", "keyword.operator.arithmetic"),
    ]  # fmt: skip


def test_members_also_behind_the_end_of_a_line(runs_of):
    parens = "punctuation.section.parens"
    assert runs_of("gl-> // new\nSphere (mesh.min)") == [
        ("gl", "variable.other"), ("->", "punctuation.accessor"), ("//", "punctuation.definition.comment"),
        ("new", "comment.line.double-slash"), ("Sphere", "entity.name.function.method"), ("(", parens),
        ("mesh", "variable.other"), (".", "punctuation.accessor"), ("min", "variable.other.property"), (")", parens),
    ]  # fmt: skip


def test_what_the_language_does_not_know_is_marked(runs_of):
    assert runs_of("i++")[1] == ("++", "invalid.illegal.operator")
    assert runs_of("a @ é") == [
        ("a", "variable.other"), ("@", "invalid.illegal.character"), ("é", "invalid.illegal.character"),
    ]  # fmt: skip
