"""Which sources scripts/lint joins to a unit: those that say nothing of each other's private names.

A private name is one that a source declares for itself: in an unnamed namespace, by `using` or as a macro. Where no
source of a unit knows the private names of another, each means in the unit what it means alone.
"""

import functools
import re

UNIT_SIZE = 25
COMMENT_OR_TEXT = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.DOTALL)
OWN_HEADER = re.compile(r'^#include ".*', re.MULTILINE)
UNNAMED = re.compile(r"^namespace \{$(.*?)^\}  // namespace$", re.MULTILINE | re.DOTALL)
# In an unnamed namespace: what begins in the first column, as clang-format leaves it.
DECLARED = re.compile(
    r"^(?:enum class|class|struct|enum|union) (\w+)|^\w[\w:<>,&* \[\]]*?[ &*](\w+)(?=[\[({=;]| =)", re.MULTILINE
)
# Elsewhere: macros and what their uses name, what `using` brings in, other names of a namespace, C functions, main.
BROUGHT = re.compile(
    r"^#define (\w+)|^[A-Z]\w*\((\w+)|^using (?:[\w:]+::)?(\w+)(?: =[^;]*)?;|^namespace (\w+) ="
    r'|^(?:extern "C" .*?|int )\b(\w+)\(',
    re.MULTILINE,
)


# Types that everybody names, where a macro's use looks as if it declared them.
TYPES = {"int", "float", "void", "Variable"}


@functools.cache
def words(source):
    return set(re.findall(r"[A-Za-z_]\w*", COMMENT_OR_TEXT.sub(" ", source.read_text())))


@functools.cache
def private_names(source):
    text = source.read_text()
    names = BROUGHT.findall(text)
    for block in UNNAMED.findall(text):
        names += DECLARED.findall(COMMENT_OR_TEXT.sub(" ", block))
    return {name for match in names for name in match if name} - TYPES


def speak_of_each_other(one, other):
    return bool(private_names(one) & words(other) or private_names(other) & words(one))


def join(sources):
    """The sources as lists, the units."""
    units = []
    for source in sources:
        for unit in units:
            if len(unit) < UNIT_SIZE and not any(speak_of_each_other(source, other) for other in unit):
                unit.append(source)
                break
        else:
            units.append([source])
    return units


def text_of(unit):
    """The sources, one behind the other; the project's headers come first, so that none sees a source's names."""
    texts = [source.read_text() for source in unit]
    headers = sorted({line for text in texts for line in OWN_HEADER.findall(text)})
    return "\n".join(headers) + "".join(f'\n#line 1 "{source}"\n{text}' for source, text in zip(unit, texts))
