"""Changes of spelling: one constant, operator or call in place of another, or left out. They are found in the text."""

import re

# What stays: comments, texts, preprocessor lines, and assertions for the compiler.
BLANKED = re.compile(r'//[^\n]*|static_assert\([^;]*;|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'|^#[^\n]*', re.MULTILINE)

SWAPS = {
    "==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&",
    "+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "<<": ">>", ">>": "<<", "&": "|", "|": "&", "^": "|",
    "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "|=": "&=", "&=": "|=", "^=": "|=",
}  # fmt: skip
WORDS = {"true": "false", "false": "true", "kOn": "kOff", "kOff": "kOn"}
# A pattern, and what stands in place of its first group.
MUTATIONS = [
    (re.compile(r" (%s) " % "|".join(map(re.escape, sorted(SWAPS, key=len, reverse=True)))), SWAPS.get),
    (re.compile(r"\b(true|false|kOn|kOff)\b"), WORDS.get),
    (re.compile(r"(?<![\w.])(\d+U?|0x[0-9A-Fa-f]+U?)(?![\w.])"), lambda text: f"({text} + 1)"),
    (re.compile(r"(?<![\w.])(\d+\.\d*(?:e[+-]?\d+)?F?)"), lambda text: f"({text} + 1)"),
    (re.compile(r"\b((?:GLU?|PFD|DIB|BI)_[A-Z0-9_]+)\b"), lambda text: f"({text} + 1)"),
    (re.compile(r"(!)(?=[\w(])"), lambda _: ""),
    (re.compile(r"(?<=[(,=] )(-)(?=[\w(])|(?<=\()(-)(?=\w)"), lambda _: ""),
    (re.compile(r"(\+\+)"), lambda _: "--"),
    # A call that stands alone.
    (re.compile(r"(?<=[;{})])(?<!nothrow\))\s+((?:[\w:]+(?:\.|->))*[\w:]+(?:<[^;{}()]*>)?\([^;{}]*\));"), lambda _: ""),
    # A break before "default:" or a closing brace seldom changes anything.
    (re.compile(r"\b(return(?=;)|break(?=;(?!\s*(?:default:|\}))))"), lambda _: ""),
]
# What stands before the size in an array's declaration.
ARRAY = re.compile(r"[\w>] \w+(?:\[\w+\])*\[\Z")


def changes(text):
    """All changes of spelling: begin, end, new text."""
    code = BLANKED.sub(lambda match: re.sub(r"[^\n]", "\x01", match[0]), text)
    found = set()
    for pattern, replacement in MUTATIONS:
        for match in pattern.finditer(code):
            begin, end = match.span(match.lastindex)
            new = replacement(text[begin:end])
            if ARRAY.search(code, 0, begin):
                new = new.replace("+ 1", "- 1")  # one element more would change nothing
            found.add((begin, end, new))
    return sorted(found)
