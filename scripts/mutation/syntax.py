"""The syntax tree of a source, as clang makes it, with the text of its parts."""

import re

from clang.cindex import CursorKind, Index, TypeKind

FLOATING = {TypeKind.FLOAT, TypeKind.DOUBLE}
FUNCTIONS = {
    CursorKind.FUNCTION_DECL,
    CursorKind.FUNCTION_TEMPLATE,
    CursorKind.CXX_METHOD,
    CursorKind.CONSTRUCTOR,
    CursorKind.DESTRUCTOR,
    CursorKind.CONVERSION_FUNCTION,
    CursorKind.LAMBDA_EXPR,
}
# What clang puts around an expression without a word of its own in the text, and parentheses.
WRAPPERS = {CursorKind.UNEXPOSED_EXPR, CursorKind.PAREN_EXPR}


class Source:
    """A source of the project; offsets are into its text."""

    def __init__(self, path, text, options):
        assert text.isascii(), path  # clang counts bytes
        self.path, self.text = str(path), text
        # The unit has to outlive its cursors.
        self.unit = Index.create().parse(self.path, args=["-x", "c++", *options], unsaved_files=[(self.path, text)])
        serious = [str(found) for found in self.unit.diagnostics if found.severity >= 3]
        assert not serious, serious

    def span(self, cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def of(self, cursor):
        begin, end = self.span(cursor)
        return self.text[begin:end]

    def top(self):
        """What the source itself declares."""
        for cursor in self.unit.cursor.get_children():
            if cursor.location.file and cursor.location.file.name == self.path:
                yield cursor

    def nodes(self):
        """Every part of the source with the parts that it lies in, the outermost first."""
        for cursor in self.top():
            yield from self.below(cursor, ())

    def below(self, cursor, parents):
        yield cursor, parents
        for child in cursor.get_children():
            yield from self.below(child, (*parents, cursor))

    def statement_span(self, cursor):
        """The span of a statement with its semicolon."""
        begin, end = self.span(cursor)
        semicolon = re.compile(r"\s*;").match(self.text, end)
        if self.text[end - 1] != ";" and semicolon:
            end = semicolon.end()
        return begin, end


def bare(cursor):
    """The expression inside parentheses and conversions that the text does not show."""
    while cursor.kind in WRAPPERS:
        children = list(cursor.get_children())
        if len(children) != 1:
            break
        cursor = children[0]
    return cursor


def type_of(cursor):
    """The type without const and references."""
    kind = cursor.type.get_canonical().get_pointee() if is_reference(cursor) else cursor.type.get_canonical()
    return re.sub(r"^const ", "", kind.spelling)


def is_reference(cursor):
    return cursor.type.get_canonical().kind in (TypeKind.LVALUEREFERENCE, TypeKind.RVALUEREFERENCE)


def is_floating(cursor):
    return cursor.type.get_canonical().kind in FLOATING


def operator_of(source, cursor):
    """The operator of a binary expression and where it stands."""
    left, right = cursor.get_children()
    end, begin = source.span(left)[1], source.span(right)[0]
    return source.text[end:begin].strip(), left, right
