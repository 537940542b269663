"""The gallery: which pictures it has, and how each is made."""

import pathlib
import re

import numpy

ROOT = pathlib.Path(__file__).resolve().parents[2]
EXAMPLES = ROOT / "examples"
PICTURES = EXAMPLES / "pictures"

# Scripts that leave a picture of their own name; the others are included by these.
SCRIPTS = sorted(path.stem for path in EXAMPLES.glob("*.talq") if f'"out/{path.stem}.png"' in path.read_text())
# Scripts that show a window until their user ends them.
INTERACTIVE = sorted(
    path.stem for path in EXAMPLES.glob("*.talq") if "->Pump(" in re.sub(r"//.*", "", path.read_text())
)
# Volumes are drawn by a program: no script can make one.
NAMES = sorted([*SCRIPTS, "volume"])

# What tests ask of a scene, printed by the script language behind the example's last line: the camera, then more.
SCENES = {
    "bunny": "Print([eye, centre, [fieldOfView, width, height], light]);",
    "picking": """
places = [];
for (i = 0; i < rows * columns; i += 1) places->Add(Place(i / columns, i % columns));
Print([eye, centre, [fieldOfView, width, height], rectangle, [columns, radius], places]);
""",
    "solar-system": """
Print([eye, centre, [fieldOfView, width, height], [sunRadius, planets[5][1], planets[5][2], planets[5][3]]]);
""",
}


def script_of(name, folder):
    """The example's script; where tests ask something of its scene, one in the folder that draws it and prints that."""
    if name not in SCENES:
        return EXAMPLES / f"{name}.talq"
    script = pathlib.Path(folder) / "scene.talq"
    script.write_text(f'include "{EXAMPLES / name}.talq";\n{SCENES[name]}')
    return script


def sources_of(script):
    """The script's text and those of all that it includes, without comments."""
    pending, texts = [script], {}
    while pending:
        path = pending.pop()
        if path not in texts:
            texts[path] = re.sub(r"//.*", "", path.read_text())
            pending += [(path.parent / name).resolve() for name in re.findall(r'include "([^"]+)"', texts[path])]
    return texts.values()


def colors_in(picture):
    """The colours of the picture's pixels, each once, as one number."""
    return numpy.unique(picture.astype(int) @ [1 << 16, 1 << 8, 1])
