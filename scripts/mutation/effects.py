"""Which neighbouring statements can change places without any difference."""

import re

from clang.cindex import CursorKind, TypeKind

from .syntax import FUNCTIONS, bare, is_reference, operator_of

# Calls of the system, which cannot see the module's variables but by a pointer that they are given.
SYSTEM = re.compile(r"(gl|glu|wgl)[A-Z]\w+|SetPixelFormat|ChoosePixelFormat|SwapBuffers|GetLastError")
# Calls that only compute.
PURE = re.compile(
    "min|max|abs|sqrtf|bit_cast|size|data|Values|Count|Data|Span|Width|Height|Depth|Truncate|Wrapping(Sum|Difference)"
    r"|At|GetSelectBuffer|GetViewPort|PaddedRow|MaskBytes|FirstWord|AngleOf|TubeAngle|_mm_(?!store)\w+"
)
REFERENCES = (TypeKind.LVALUEREFERENCE, TypeKind.RVALUEREFERENCE)
LEAVING = {CursorKind.RETURN_STMT, CursorKind.BREAK_STMT, CursorKind.CONTINUE_STMT}
ASSIGNING = {CursorKind.COMPOUND_ASSIGNMENT_OPERATOR}


class Effects:
    """What a statement works with: the local variables and the places in memory that it reads and writes."""

    def __init__(self, source, statement):
        self.reads, self.writes, self.objects = set(), set(), set()
        self.calls = self.calls_system = self.leaves = self.reads_memory = self.writes_memory = False
        children = list(statement.get_children())
        values = [list(child.get_children()) for child in children] if statement.kind == CursorKind.DECL_STMT else []
        if len(values) == 1 and values[0] and bare(values[0][-1]).kind == CursorKind.LAMBDA_EXPR:
            self.writes.add(children[0].get_usr())  # what it does, it does where it is called
            return
        for cursor in statement.walk_preorder():
            self.add(source, cursor)
        if self.calls or self.calls_system:
            self.writes |= self.objects

    def add(self, source, cursor):
        kind = cursor.kind
        if kind in LEAVING:
            self.leaves = True
        elif kind == CursorKind.CALL_EXPR and cursor.spelling == "operator=":
            self.assigns(source, cursor)
        elif is_plain_construction(cursor):
            pass
        elif kind in (CursorKind.CALL_EXPR, CursorKind.LAMBDA_EXPR, CursorKind.CXX_NEW_EXPR):
            if SYSTEM.fullmatch(cursor.spelling):
                self.calls_system = True
            else:
                self.calls |= not PURE.fullmatch(cursor.spelling)
        elif kind == CursorKind.VAR_DECL:
            self.writes.add(cursor.get_usr())
        elif kind in (CursorKind.DECL_REF_EXPR, CursorKind.MEMBER_REF_EXPR, CursorKind.ARRAY_SUBSCRIPT_EXPR):
            self.reads.add(place(source, cursor))
            self.reads_memory |= is_memory(cursor)
            if kind == CursorKind.DECL_REF_EXPR and can_be_changed_by_a_call(cursor):
                self.objects.add(place(source, cursor))
        elif is_assignment(source, cursor):
            self.assigns(source, cursor)

    def assigns(self, source, cursor):
        target = next(iter(cursor.get_children()))
        self.writes.add(place(source, target))
        self.writes_memory |= is_memory(target)

    def touches(self, other):
        return bool(self.writes & (other.reads | other.writes))


def is_plain_construction(cursor):
    """Whether an object of the module's is made out of nothing; the host notices the making of its own."""
    made = cursor.referenced
    is_constructor = cursor.kind == CursorKind.CALL_EXPR and made and made.kind == CursorKind.CONSTRUCTOR
    return is_constructor and not list(cursor.get_arguments()) and cursor.spelling not in ("VarRegister", "Variable")


def can_be_changed_by_a_call(cursor):
    """Whether the variable's name may hand over more than its value: objects, arrays, references."""
    kind = cursor.referenced.type.get_canonical() if cursor.referenced else cursor.type.get_canonical()
    target = kind.get_pointee() if kind.kind in REFERENCES else kind
    is_value = kind.kind not in (TypeKind.RECORD, TypeKind.CONSTANTARRAY, *REFERENCES)
    return not is_value and not target.is_const_qualified()


def place(source, cursor):
    """A name for what an expression denotes: that of a local variable, or the text of another place."""
    if cursor.kind == CursorKind.DECL_REF_EXPR and cursor.referenced:
        return cursor.referenced.get_usr()
    return source.of(cursor)


def is_memory(cursor):
    named = cursor.referenced
    if named and named.kind in FUNCTIONS:
        return False
    if cursor.kind != CursorKind.DECL_REF_EXPR:
        return True
    is_local = named and named.kind in (CursorKind.VAR_DECL, CursorKind.PARM_DECL) and not is_reference(named)
    return bool(named) and named.kind != CursorKind.ENUM_CONSTANT_DECL and not is_local


def is_assignment(source, cursor):
    if cursor.kind in ASSIGNING:
        return True
    if cursor.kind == CursorKind.BINARY_OPERATOR:
        return operator_of(source, cursor)[0] == "="
    return cursor.kind == CursorKind.UNARY_OPERATOR and any(sign in source.of(cursor) for sign in ("++", "--", "&"))


def may_exchange(source, first, second):
    """Whether the order of two statements is no matter. Neither changes what the other works with; one makes no call
    and does not leave the function; and where the other does, it works with local variables alone, or the other only
    calls the system."""
    one, other = Effects(source, first), Effects(source, second)
    if one.touches(other) or other.touches(one):
        return False
    return only_computes(one, other) or only_computes(other, one)


def only_computes(one, other):
    if one.calls or one.calls_system or one.leaves:
        return False
    is_local = not one.writes_memory and not one.reads_memory
    return is_local or not (other.calls or other.leaves)


def is_declared_for(source, first, second):
    """Whether the second statement names what the first declares."""
    declared = {cursor.get_usr() for cursor in first.get_children() if first.kind == CursorKind.DECL_STMT}
    return bool(declared & Effects(source, second).reads)
