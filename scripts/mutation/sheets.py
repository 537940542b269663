"""Many changes of a source in one text, each behind a switch, so that they are compiled together.

A change becomes (IsMutant(7) ? (changed) : (original)) around the smallest expression that holds it, or a choice
between statements; a sheet holds changes that do not overlap. What no expression holds, or the compiler refuses in this
form (a constant, a declaration), is built by itself.
"""

import bisect
import re

from clang.cindex import CursorKind

SWITCH = 'extern "C" bool IsMutant(int number) noexcept;'
STATEMENTS = {"statements exchanged", "early return dropped"}
NUMBER = "@"
UNFIT = {CursorKind.INIT_LIST_EXPR, CursorKind.LAMBDA_EXPR, CursorKind.UNEXPOSED_EXPR, CursorKind.PACK_EXPANSION_EXPR}


class Expressions:
    """Finds the smallest expression or block that holds a place."""

    def __init__(self, source):
        self.text = source.text
        nodes = [cursor for cursor, _ in source.nodes()]
        self.expressions = [source.span(cursor) for cursor in nodes if is_switchable(cursor)]
        self.declarations = [source.span(cursor)[0] for cursor in nodes if cursor.kind == CursorKind.DECL_STMT]

    def around(self, begin, end):
        """The span of the smallest expression that holds a place, or None."""
        holding = [span for span in self.expressions if span[0] <= begin and end <= span[1]]
        return min(holding, key=lambda span: span[1] - span[0], default=None)


def is_switchable(cursor):
    return cursor.kind.is_expression() and cursor.kind not in UNFIT


def switched(expressions, change):
    """The change behind its switch, as (begin, end, text), or None when it has to be built by itself. In place of its
    number stands NUMBER."""
    text, switch = expressions.text, f"IsMutant({NUMBER})"
    begin, end, new = change.begin, change.end, change.new
    if change.operator == "initialisation kept":
        return None
    if change.operator == "early return added":
        return begin, end, f"if ({switch}) return; "
    if change.operator in STATEMENTS:
        if any(begin <= declaration < end for declaration in expressions.declarations):
            return None
        return begin, end, f"if ({switch}) {{ {new} }} else {{ {text[begin:end]} }}"
    if text[begin:end] in ("return", "break"):
        return begin, end, f"if ({switch}) {{}} else {text[begin:end]}"
    if not new and text[end : end + 1] == ";":
        return begin, end, f"({switch} ? void() : static_cast<void>({text[begin:end]}))"
    span = expressions.around(begin, end)
    if not span:
        return None
    original, changed = text[slice(*span)], text[span[0] : begin] + new + text[end : span[1]]
    if change.operator == "other guard":
        original, changed = f"static_cast<bool>({original})", f"static_cast<bool>({changed})"
    return *span, f"({switch} ? ({changed}) : ({original}))"


class Sheet:
    """A text of the source with its changes, which have the numbers 1, 2, ... in the order of their places."""

    def __init__(self, text, switches):
        pieces, self.begins, self.ends, at, length = [SWITCH], [], [], 0, len(SWITCH)
        for number, (begin, end, new) in enumerate(switches, 1):
            new = new.replace(NUMBER, str(number))
            pieces += [text[at:begin], new]
            self.begins.append(length + begin - at)
            self.ends.append(self.begins[-1] + len(new))
            length, at = self.ends[-1], end
        self.text = "".join(pieces) + text[at:]

    def refused(self, messages, path):
        """The places of the changes that the compiler's messages name."""
        lines = [0]
        lines.extend(match.end() for match in re.finditer("\n", self.text))
        found = set()
        for line, column in re.findall(rf"^{re.escape(str(path))}:(\d+):(\d+): ", messages, re.MULTILINE):
            offset = lines[int(line) - 1] + int(column) - 1
            place = bisect.bisect_right(self.begins, offset) - 1
            if place >= 0 and offset < self.ends[place]:
                found.add(place)
        return found


def arranged(expressions, changes):
    """The changes with their switches in lists that fit on a sheet each, and those that have to be built by
    themselves."""
    sheets, alone = [], []
    for change in changes:
        switch = switched(expressions, change)
        if not switch:
            alone.append(change)
            continue
        fitting = (sheet for sheet in sheets if all(switch[1] <= begin or end <= switch[0] for (begin, end, _), _ in sheet))
        sheet = next(fitting, None)
        if sheet is None:
            sheets.append(sheet := [])
        sheet.append((switch, change))
    return [sorted(sheet) for sheet in sheets], alone
