"""Changes of meaning: what someone who looked away could have written instead. They are found in the syntax tree.

Each operator takes a source and yields (begin, end, new text). What is known to change nothing is not yielded; the
rules for it stand in docs/mutants.md, each with its name.
"""

import math
import re

from clang.cindex import CursorKind, TypeKind

from .effects import is_declared_for, may_exchange
from .syntax import FUNCTIONS, bare, is_floating, operator_of, type_of

SCALARS = re.compile(r"(unsigned |signed )?(char|short|int|long|long long|float|double)|.*\*")


# ---- Statements


def blocks(source):
    """The lists of statements: each with the function that it lies in."""
    for cursor, parents in source.nodes():
        if cursor.kind == CursorKind.COMPOUND_STMT:
            function = next((parent for parent in reversed(parents) if parent.kind in FUNCTIONS), None)
            yield list(cursor.get_children()), function


CASES = {CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT}


def exchanged_statements(source):
    """Two neighbouring statements, the second first: a check behind what it guards, calls in another order."""
    for statements, _ in blocks(source):
        for first, second in zip(statements, statements[1:]):
            if {first.kind, second.kind} & CASES:
                continue  # of a switch, in any order
            if may_exchange(source, first, second) or is_declared_for(source, first, second):
                continue
            yield exchanged(source, source.statement_span(first), source.statement_span(second))


def exchanged(source, first, second):
    (begin, first_end), (second_begin, end) = first, second
    text = source.text
    return begin, end, text[second_begin:end] + text[first_end:second_begin] + text[begin:first_end]


def dropped_returns(source):
    """A check whose early return has a value, left out."""
    for statements, _ in blocks(source):
        for statement in statements[:-1]:
            if statement.kind == CursorKind.IF_STMT and re.search(r"\breturn [^;]+;", source.of(statement) + ";"):
                yield (*source.statement_span(statement), ";")


# Last statements before which a return would change nothing, or no more than their loss does.
ENDINGS = {CursorKind.CALL_EXPR, CursorKind.RETURN_STMT, *CASES}


def added_returns(source):
    """A return before the last statement of a block, where that is more than a call."""
    for statements, function in blocks(source):
        returns_nothing = function and function.result_type.kind == TypeKind.VOID
        if len(statements) > 1 and returns_nothing and statements[-1].kind not in ENDINGS:
            begin = source.span(statements[-1])[0]
            yield begin, begin, "return; "


def kept_initialisations(source):
    """A local variable that is initialised at the first call alone."""
    for statements, function in blocks(source):
        if not function or "constexpr" in source.of(function).split("{")[0]:
            continue
        for statement in statements:
            if statement.kind != CursorKind.DECL_STMT:
                continue
            for variable in statement.get_children():
                if variable.kind == CursorKind.VAR_DECL and may_be_kept(source, variable):
                    begin = source.span(statement)[0]
                    yield begin, begin, "static "


def may_be_kept(source, variable):
    text = source.of(variable)
    if re.match(r"(static|constexpr)\b", text) or not re.search(r"[={(]", text):
        return False
    is_constant = variable.type.is_const_qualified() and not any(
        cursor.kind in (CursorKind.DECL_REF_EXPR, CursorKind.MEMBER_REF_EXPR, CursorKind.CALL_EXPR)
        for cursor in variable.walk_preorder()
    )
    return not is_constant


# ---- Names


def siblings(source):
    """A variable, parameter or field in place of another of its type: of those in scope, or of those of the class, the
    next."""
    for top in source.top():
        yield from siblings_below(source, top, [])


def siblings_below(source, cursor, scope):
    if cursor.kind in FUNCTIONS or cursor.kind in (CursorKind.COMPOUND_STMT, CursorKind.FOR_STMT, CursorKind.IF_STMT):
        scope = list(scope)
    for child in cursor.get_children():
        yield from siblings_below(source, child, scope)
    if cursor.kind in (CursorKind.VAR_DECL, CursorKind.PARM_DECL) and cursor.spelling:
        scope.append(cursor)
    named = cursor.referenced
    if cursor.kind == CursorKind.DECL_REF_EXPR and named and named in scope:
        yield from renamed(source, cursor, named, scope)
    elif cursor.kind == CursorKind.MEMBER_REF_EXPR and named and named.kind == CursorKind.FIELD_DECL:
        fields = [field for field in named.semantic_parent.get_children() if field.kind == CursorKind.FIELD_DECL]
        yield from renamed(source, cursor, named, fields)


def renamed(source, cursor, named, others):
    alike = [other for other in others if type_of(other) == type_of(named)]
    end = source.span(cursor)[1]
    begin = end - len(named.spelling)
    if len(alike) < 2 or source.text[begin:end] != named.spelling:
        return
    place = next(number for number, other in enumerate(alike) if other == named)
    yield begin, end, alike[(place + 1) % len(alike)].spelling


def exchanged_arguments(source):
    """Two neighbouring arguments of one type, or elements of a list."""
    for cursor, _ in source.nodes():
        if cursor.kind == CursorKind.CALL_EXPR:
            if cursor.spelling in SYMMETRIC or cursor.spelling.startswith("operator"):
                continue
            arguments = list(cursor.get_arguments())
        elif cursor.kind == CursorKind.INIT_LIST_EXPR:
            arguments = [child for child in cursor.get_children() if SCALARS.fullmatch(type_of(child))]
        else:
            continue
        for first, second in zip(arguments, arguments[1:]):
            if type_of(bare(first)) == type_of(bare(second)) and source.of(first) != source.of(second):
                yield exchanged(source, source.span(first), source.span(second))


# Functions of two arguments that are as good the other way round.
SYMMETRIC = {"min", "max", "swap", "calloc", "WrappingSum", "WrappingProduct", "_mm_or_si128"}


# ---- Guards

GUARDS = {"renderContext": "renderContext", "deviceContext": "deviceContext", "CanDraw": "CanDraw()"}


def other_guards(source):
    """Another question to the renderer's state, or none."""
    for cursor, parents in source.nodes():
        guard = GUARDS.get(cursor.spelling)
        if not guard or source.of(cursor) != guard or cursor.kind not in (
            CursorKind.MEMBER_REF_EXPR,
            CursorKind.CALL_EXPR,
        ):
            continue
        if is_asked(source, cursor, parents):
            for other in [*GUARDS.values(), "true"]:
                if other != guard:
                    yield (*source.span(cursor), other)


def is_asked(source, cursor, parents):
    """Whether the text of the expression stands for a truth value."""
    if cursor.type.kind == TypeKind.BOOL:
        return True
    span = source.span(cursor)
    same = [parent for parent in parents if source.span(parent) == span]
    return any(parent.type.kind == TypeKind.BOOL for parent in same)


# ---- Arithmetic


def terms(source):
    """The binary arithmetic expressions: each with its operator, operands and the parts it lies in."""
    for cursor, parents in source.nodes():
        if cursor.kind == CursorKind.BINARY_OPERATOR:
            operator, left, right = operator_of(source, cursor)
            if operator in ("+", "-", "*", "/"):
                yield cursor, operator, left, right, parents


def other_associations(source):
    """A product, quotient or sum whose operations come in another order, and a product with a reciprocal."""
    for cursor, operator, left, right, _ in terms(source):
        inner = bare(left)
        floating = is_floating(cursor)
        if inner.kind == CursorKind.BINARY_OPERATOR:
            inner_operator, a, b = operator_of(source, inner)
            regrouped = REGROUPED.get(inner_operator + operator)
            is_halved = operator == "/" and right.kind == CursorKind.FLOATING_LITERAL and is_power_of_two(source.of(right))
            if regrouped and not is_halved and (floating or {inner_operator, operator} == {"*", "/"}):
                texts = {"a": source.of(a), "b": source.of(b), "c": source.of(right)}
                yield (*source.span(cursor), regrouped.format(**texts))
        divisor = source.of(right)
        if floating and operator == "/" and right.kind == CursorKind.FLOATING_LITERAL and not is_power_of_two(divisor):
            one = "1.0F" if divisor.endswith("F") else "1.0"
            yield (*source.span(cursor), f"{source.of(left)} * ({one} / {divisor})")


REGROUPED = {
    "**": "{a} * ({b} * {c})",
    "*/": "{a} * ({b} / {c})",
    "/*": "({a} * {c}) / {b}",
    "//": "{a} / ({b} * {c})",
    "++": "{a} + ({b} + {c})",
    "+-": "{a} + ({b} - {c})",
    "-+": "{a} - ({b} - {c})",
    "--": "{a} - ({b} + {c})",
}


def is_power_of_two(literal):
    return math.frexp(abs(float(literal.rstrip("F"))))[0] == 0.5


def other_precisions(source):
    """A float expression of several operations in double precision, and an operation of doubles rounded to float."""
    for cursor, parents in source.nodes():
        if not is_operation(source, cursor) or not is_floating(cursor):
            continue
        kind = cursor.type.get_canonical().kind
        if kind == TypeKind.DOUBLE and becomes_float(parents):
            continue
        if kind == TypeKind.DOUBLE:
            yield (*source.span(cursor), f"static_cast<double>(static_cast<float>({source.of(cursor)}))")
        elif not any(is_operation(source, parent) and is_floating(parent) for parent in parents):
            if count_operations(source, cursor) > 1:
                yield (*source.span(cursor), f"static_cast<float>({widened(source, cursor)})")
    yield from wider_variables(source)


def becomes_float(parents):
    """Whether an expression in these parts is rounded to float as it is."""
    outer = next((parent for parent in reversed(parents) if parent.kind != CursorKind.PAREN_EXPR), None)
    return outer is not None and outer.type.get_canonical().kind == TypeKind.FLOAT


def wider_variables(source):
    """A local variable of a float expression, in double precision."""
    for cursor, _ in source.nodes():
        if cursor.kind != CursorKind.VAR_DECL or cursor.type.get_canonical().kind != TypeKind.FLOAT:
            continue
        values = [child for child in cursor.get_children() if count_operations(source, bare(child))]
        if values:
            begin, end = source.span(cursor)
            value_begin, value_end = source.span(values[0])
            head = re.sub(r"\bfloat\b", "double", source.text[begin:value_begin])
            yield begin, end, head + widened(source, bare(values[0])) + source.text[value_end:end]


def is_operation(source, cursor):
    if cursor.kind == CursorKind.CALL_EXPR:
        return cursor.spelling == "sqrtf"
    return cursor.kind == CursorKind.BINARY_OPERATOR and operator_of(source, cursor)[0] in ("+", "-", "*", "/")


def count_operations(source, cursor):
    """How many operations of floats make the expression, one in the other, that are rounded."""
    cursor = bare(cursor)
    if not is_operation(source, cursor) or not is_floating(cursor):
        return 0
    operands = list(cursor.get_arguments() if cursor.kind == CursorKind.CALL_EXPR else cursor.get_children())
    is_exact = cursor.kind == CursorKind.BINARY_OPERATOR and operator_of(source, cursor)[0] in ("*", "/")
    is_exact = is_exact and operands[1].kind == CursorKind.FLOATING_LITERAL and is_power_of_two(source.of(operands[1]))
    return (not is_exact) + sum(count_operations(source, operand) for operand in operands)


def widened(source, cursor):
    """The text of a float expression with every operation in double precision."""
    inner = bare(cursor)
    if not is_operation(source, inner) or not is_floating(inner):
        return f"static_cast<double>({source.of(cursor)})"
    if inner.kind == CursorKind.CALL_EXPR:
        return f"sqrt({widened(source, next(iter(inner.get_arguments())))})"
    operator, left, right = operator_of(source, inner)
    return f"({widened(source, left)} {operator} {widened(source, right)})"


OPERATORS = {
    "statements exchanged": exchanged_statements,
    "early return dropped": dropped_returns,
    "early return added": added_returns,
    "initialisation kept": kept_initialisations,
    "sibling": siblings,
    "arguments exchanged": exchanged_arguments,
    "other guard": other_guards,
    "other association": other_associations,
    "other precision": other_precisions,
}


def changes(source):
    """All changes of meaning: (begin, end, new text), each with the name of its operator."""
    found = {}
    for name, operator in OPERATORS.items():
        for change in operator(source):
            found.setdefault(change, name)
    return found
