"""The extension for Visual Studio Code as `./run --vscode` packs it."""

import functools
import json
import pathlib
import subprocess
import tempfile
import zipfile

import conftest

ROOT = pathlib.Path(__file__).resolve().parents[2]


@functools.cache
def lists():
    """What talq lists of the module and of the host."""
    with tempfile.TemporaryDirectory() as folder:
        runs = [conftest.run_in_wine("talq.exe", arguments, folder) for arguments in (["--list"], ["--list", "--no-module"])]
    assert [run.exit_code for run in runs] == [0, 0]
    return "".join(run.stdout for run in runs)


def listed(title):
    """The lines of a group that talq lists."""
    groups = [group.splitlines() for group in lists().split("\n\n")]
    return [line.strip() for group in groups if group[0] == title for line in group[1:]]


def classes():
    return {line.partition("::")[0].strip() for line in lists().splitlines() if line.startswith("  ") and "::" in line}


def functions():
    return {form.partition("(")[0] for form in listed("functions")}


def pack(folder, version="5.0"):
    """The path of the extension, packed into the folder."""
    target = pathlib.Path(folder) / "talq.vsix"
    subprocess.run([ROOT / "scripts" / "pack-vscode", version, target], input=lists(), text=True, check=True)
    return target


def unpack(folder):
    """The folder that holds package.json when the extension is installed."""
    zipfile.ZipFile(pack(folder)).extractall(folder)
    return pathlib.Path(folder) / "extension"


def read_json(path):
    return json.loads(pathlib.Path(path).read_text(encoding="utf-8"))
