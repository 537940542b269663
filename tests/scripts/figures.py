"""The pictures of the reference: which scripts of docs/pictures draw them."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = ROOT / "docs" / "pictures"
FIGURE = re.compile(r'^Figure\("(.+?)", \w+\);$', re.MULTILINE)

# The names of the pictures that each script draws; figure.talq is included by all.
DRAWN_BY = {path: FIGURE.findall(path.read_text()) for path in sorted(FOLDER.glob("*.talq")) if path.stem != "figure"}
NAMES = sorted(name for names in DRAWN_BY.values() for name in names)
