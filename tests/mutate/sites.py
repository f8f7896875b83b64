"""Finds the places of a source where it can be changed, and the text edits that make it changeable."""

import re
from dataclasses import dataclass, field

from clang import cindex
from clang.cindex import CursorKind as K, TypeKind

# The bindings ask for a name that only the library's development package has.
version = re.search(r"libclang-(\d+)", cindex.Config().get_filename())
if version:
    cindex.Config.set_library_file(f"/usr/lib/llvm-{version[1]}/lib/libclang-{version[1]}.so.1")

CONDITION = "condition negated"
BOUNDARY = "comparison changed"
LOGIC = "&& and || exchanged"
ARITHMETIC = "arithmetic changed"
CONSTANT = "constant changed"
BOOLEAN = "bool turned round"
TEXT = "text changed"
DROP = "statement dropped"
SWAP = "statements swapped"
MEMBER = "wrong member"
RETURN = "return changed"
KINDS = (CONDITION, BOUNDARY, LOGIC, ARITHMETIC, CONSTANT, BOOLEAN, TEXT, DROP, SWAP, MEMBER, RETURN)

OPERATIONS = {
    "<": ("less", "<=", BOUNDARY),
    "<=": ("lessEqual", "<", BOUNDARY),
    ">": ("greater", ">=", BOUNDARY),
    ">=": ("greaterEqual", ">", BOUNDARY),
    "==": ("equal", "!=", BOUNDARY),
    "!=": ("notEqual", "==", BOUNDARY),
    "+": ("plus", "-", ARITHMETIC),
    "-": ("minus", "+", ARITHMETIC),
    "*": ("times", "/", ARITHMETIC),
    "/": ("over", "*", ARITHMETIC),
}
ADDABLE_CLASSES = {"QPoint", "QPointF", "QSize"}
FUNCTIONS = {
    K.FUNCTION_DECL, K.CXX_METHOD, K.CONSTRUCTOR, K.DESTRUCTOR, K.FUNCTION_TEMPLATE, K.CONVERSION_FUNCTION,
}
# The language wants constants here.
UNTOUCHED = {K.ENUM_DECL, K.STATIC_ASSERT, K.TYPE_ALIAS_DECL, K.TYPEDEF_DECL, K.USING_DECLARATION}
TEXT_MACROS = {"QStringLiteral", "QByteArrayLiteral"}
SIMPLE_BASE = re.compile(r"^(this|[A-Za-z_]\w*)((\.|->)[A-Za-z_]\w*)*$")


@dataclass
class Mutant:
    file: str
    line: int
    function: str
    kind: str
    place: str  # the line's text; with function and change it tells mutants apart
    change: str
    number: int = -1

    def key(self):
        return " | ".join((self.file, self.function, self.place, self.change))


@dataclass
class Edit:
    """Puts texts around a range, or another text in place of it; @n@ stands for the number of mutant n."""

    start: int
    end: int
    prefix: str = ""
    suffix: str = ""
    replacement: str = None
    mutants: list = field(default_factory=list)


def squeezed(text):
    return " ".join(text.split())


def extent(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def stripped(cursor):
    """The expression below implicit conversions and the like."""
    while cursor.kind == K.UNEXPOSED_EXPR:
        children = list(cursor.get_children())
        if len(children) != 1 or extent(children[0]) != extent(cursor):
            break
        cursor = children[0]
    return cursor


def is_number(type_):
    kind = type_.get_canonical().kind.value
    return TypeKind.CHAR_U.value <= kind <= TypeKind.LONGDOUBLE.value


def is_addable(cursor):
    type_ = stripped(cursor).type
    name = type_.get_canonical().spelling.replace("const ", "").replace("&", "").strip()
    return is_number(type_) or name in ADDABLE_CLASSES


def is_constexpr(cursor):
    return cursor.kind == K.VAR_DECL and next(cursor.get_tokens()).spelling == "constexpr"


class Finder:
    """Walks one file of a translation unit."""

    def __init__(self, unit, path, name):
        self.path, self.name = path, name
        with open(path, "rb") as source:
            self.data = source.read()
        self.lines = self.data.decode().split("\n")
        self.mutants, self.edits, self.keys = [], [], {}
        self.functions, self.results, self.scopes = [], [], []
        self.shifted, self.wrapped, self.spared, self.macros_taken = {}, set(), set(), set()
        top = [c for c in unit.cursor.get_children() if c.location.file and c.location.file.name == path]
        self.macros = [(*extent(c), c.spelling) for c in top if c.kind == K.MACRO_INSTANTIATION]
        for cursor in top:
            if not cursor.kind.is_preprocessing():
                self.visit(cursor)

    # What is written down of a find.

    def text(self, cursor):
        start, end = cursor if isinstance(cursor, tuple) else extent(cursor)
        return self.data[start:end].decode()

    def note(self, kind, offset, original, changed=None):
        line = self.data.count(b"\n", 0, offset) + 1
        change = squeezed(original) + (f" → {squeezed(changed)}" if changed is not None else "")
        function = self.functions[-1] if self.functions else "-"
        mutant = Mutant(self.name, line, function, kind, squeezed(self.lines[line - 1]), change)
        times = self.keys[mutant.key()] = self.keys.get(mutant.key(), 0) + 1
        if times > 1:
            mutant.change += f" ({times})"
        self.mutants.append(mutant)
        return len(self.mutants) - 1

    def wrap(self, cursor, prefix, suffix, *mutants):
        start, end = cursor if isinstance(cursor, tuple) else extent(cursor)
        self.edits.append(Edit(start, end, prefix, suffix, mutants=list(mutants)))

    def replace(self, cursor, text, *mutants):
        start, end = cursor if isinstance(cursor, tuple) else extent(cursor)
        self.edits.append(Edit(start, end, replacement=text, mutants=list(mutants)))

    # The walk.

    def macro_around(self, cursor):
        start, end = extent(cursor)
        for macro in self.macros:
            if macro[0] <= start and end <= macro[1]:
                return macro
        return None

    def visit(self, cursor):
        if cursor.kind in UNTOUCHED:
            return
        macro = self.macro_around(cursor)
        if macro:
            self.visit_text_macro(macro)
            return
        if cursor.kind in FUNCTIONS:
            self.visit_function(cursor)
            return
        getattr(self, "visit_" + cursor.kind.name.lower(), self.visit_children)(cursor)

    def visit_children(self, cursor):
        for child in cursor.get_children():
            self.visit(child)

    def visit_all(self, cursors):
        for cursor in cursors:
            self.visit(cursor)

    def visit_function(self, cursor):
        # The name as it is called within the file's own class.
        self.functions.append(cursor.spelling.split("<")[0])
        self.results.append(cursor)
        self.scopes.append([])
        self.visit_children(cursor)
        self.scopes.pop()
        self.results.pop()
        self.functions.pop()

    def visit_lambda_expr(self, cursor):
        self.results.append(None)
        self.scopes.append([])
        for child in cursor.get_children():
            # What is captured by name cannot be an expression.
            if child.kind in (K.PARM_DECL, K.COMPOUND_STMT):
                self.visit(child)
        self.scopes.pop()
        self.results.pop()

    def visit_parm_decl(self, cursor):
        if self.scopes and cursor.spelling:
            self.scopes[-1].append(cursor)
        self.visit_children(cursor)

    def visit_var_decl(self, cursor):
        if is_constexpr(cursor):
            self.visit_constant(cursor)
        else:
            self.visit_children(cursor)
        if self.scopes and cursor.spelling:
            self.scopes[-1].append(cursor)

    # Constants with a name: where they are one number, each use is changed alike; others move into a function,
    # so that only those who use them come to their changes.

    def visit_constant(self, cursor):
        start, end = extent(cursor)
        children = [c for c in cursor.get_children() if c.kind.is_expression()]
        if is_number(cursor.type) and cursor.type.get_canonical().kind != TypeKind.BOOL:
            value = squeezed(self.text(children[-1])) if children else ""
            offset = cursor.location.offset
            more = self.note(CONSTANT, offset, value, f"{value} + 1")
            self.note(CONSTANT, offset, value, f"{value} - 1")
            self.shifted[cursor.hash] = more
        elif not self.functions and self.name.endswith(".cpp"):
            semicolon = self.data.index(b";", end) + 1
            name = cursor.spelling
            self.replace((start, start + len("constexpr")), f"static auto &{name}_() {{ static const")
            self.wrap((start, semicolon), "", f" return {name}; }}")
            self.wrapped.add(cursor.hash)
            self.visit_children(cursor)

    # Names.

    def visit_decl_ref_expr(self, cursor):
        declared = cursor.referenced
        if not declared:
            return
        if declared.hash in self.shifted:
            more = self.shifted[declared.hash]
            self.wrap(cursor, f"talvix::shifted(@{more}@, ", ")", more, more + 1)
        elif declared.hash in self.wrapped:
            self.wrap(cursor, "", "_()")
        elif declared.kind == K.ENUM_CONSTANT_DECL:
            self.other_enumerator(cursor, declared)
        elif declared.kind in (K.VAR_DECL, K.PARM_DECL):
            self.other_variable(cursor, declared)

    def other_enumerator(self, cursor, declared):
        siblings = [c for c in declared.semantic_parent.get_children() if c.kind == K.ENUM_CONSTANT_DECL]
        others = [c for c in siblings if c.enum_value != declared.enum_value]
        if not others:
            return
        later = [c for c in others if c.enum_value > declared.enum_value]
        other = (later or others)[0].spelling
        original = self.text(cursor)
        changed = original[: len(original) - len(declared.spelling)] + other
        found = self.note(MEMBER, extent(cursor)[0], original, changed)
        self.replace(cursor, f"(talvix::mutant(@{found}@) ? {changed} : {original})", found)

    def other_variable(self, cursor, declared):
        if self.text(cursor) != declared.spelling:
            return
        if declared.type.get_canonical().kind == TypeKind.BOOL and is_constexpr(declared):
            found = self.note(BOOLEAN, extent(cursor)[0], self.text(cursor), f"!{self.text(cursor)}")
            self.wrap(cursor, f"talvix::flip(@{found}@, ", ")", found)
            return
        known = [c for scope in self.scopes for c in scope]
        kind = declared.type.spelling
        others = [c for c in known if c.type.spelling == kind and c.spelling != declared.spelling]
        if not others or declared.hash not in {c.hash for c in known}:
            return
        other = others[-1].spelling
        found = self.note(MEMBER, extent(cursor)[0], declared.spelling, other)
        self.replace(cursor, f"(talvix::mutant(@{found}@) ? {other} : {declared.spelling})", found)

    def visit_member_ref_expr(self, cursor):
        declared = cursor.referenced
        if not declared or declared.kind != K.FIELD_DECL or not self.other_field(cursor, declared):
            self.visit_children(cursor)

    def other_field(self, cursor, declared):
        fields = [c for c in declared.semantic_parent.get_children() if c.kind == K.FIELD_DECL]
        names = [c.spelling for c in fields if c.type.spelling == declared.type.spelling]
        original = self.text(cursor)
        if len(names) < 2 or not SIMPLE_BASE.match(original) or not original.endswith(declared.spelling):
            return False
        other = names[(names.index(declared.spelling) + 1) % len(names)]
        changed = original[: len(original) - len(declared.spelling)] + other
        found = self.note(MEMBER, extent(cursor)[0], original, changed)
        self.replace(cursor, f"(talvix::mutant(@{found}@) ? {changed} : {original})", found)
        return True

    # Literals.

    def visit_integer_literal(self, cursor):
        original = self.text(cursor)
        offset = extent(cursor)[0]
        if not original[:1].isdigit():
            return
        more = self.note(CONSTANT, offset, original, f"{original} + 1")
        less = self.note(CONSTANT, offset, original, f"{original} - 1")
        self.wrap(cursor, f"talvix::shifted(@{more}@, ", ")", more, less)

    visit_floating_literal = visit_integer_literal

    def visit_cxx_bool_literal_expr(self, cursor):
        original = self.text(cursor)
        if original not in ("true", "false"):
            return
        found = self.note(BOOLEAN, extent(cursor)[0], original, "false" if original == "true" else "true")
        self.wrap(cursor, f"talvix::flip(@{found}@, ", ")", found)

    def visit_string_literal(self, cursor):
        original = self.text(cursor)
        if not original.endswith('"'):
            return
        changed = original[:-1] + '#"'
        found = self.note(TEXT, extent(cursor)[0], original, changed)
        self.replace(cursor, f"(talvix::mutant(@{found}@) ? {changed} : {original})", found)

    def visit_character_literal(self, cursor):
        original = self.text(cursor)
        if not original.startswith("'"):
            return
        found = self.note(TEXT, extent(cursor)[0], original, "'#'")
        self.replace(cursor, f"(talvix::mutant(@{found}@) ? '#' : {original})", found)

    def visit_text_macro(self, macro):
        start, end, name = macro
        if name not in TEXT_MACROS or macro in self.macros_taken:
            return
        self.macros_taken.add(macro)
        original = self.data[start:end].decode()
        last = original.rindex('"')
        changed = original[:last] + "#" + original[last:]
        found = self.note(TEXT, start, original, changed)
        self.replace((start, end), f"(talvix::mutant(@{found}@) ? {changed} : {original})", found)

    # Conditions and operations.

    def condition(self, cursor):
        """A place where only true and false count."""
        bare = stripped(cursor)
        inner = bare
        while inner.kind == K.PAREN_EXPR:
            inner = stripped(next(inner.get_children()))
        if self.operator(inner)[0] in ("&&", "||") or inner.kind == K.CXX_BOOL_LITERAL_EXPR:
            self.visit(cursor)
            return
        # To change == to != would be the same again.
        self.spared.add(inner.hash)
        self.visit(cursor)
        found = self.note(CONDITION, extent(cursor)[0], self.text(cursor), f"!({self.text(cursor)})")
        self.wrap(cursor, f"talvix::flip(@{found}@, ", ")", found)

    def operator(self, cursor):
        """The sign between two operands, with them, of built-in and overloaded operators."""
        children = list(cursor.get_children())
        if cursor.kind == K.CALL_EXPR and cursor.spelling.startswith("operator") and len(children) == 3:
            left, right = children[0], children[2]
        elif cursor.kind == K.BINARY_OPERATOR and len(children) == 2:
            left, right = children
        else:
            return "", None, None
        sign = self.data[extent(left)[1]: extent(right)[0]].decode()
        sign = re.sub(r"//.*|/\*.*?\*/", "", sign).strip()
        return sign, left, right

    def visit_binary_operator(self, cursor):
        sign, left, right = self.operator(cursor)
        if sign in ("&&", "||"):
            self.logic(cursor, sign, left, right)
            return
        operation = OPERATIONS.get(sign)
        if not operation or cursor.hash in self.spared and sign in ("==", "!="):
            self.visit_children(cursor)
            return
        name, changed, kind = operation
        if kind == ARITHMETIC and not (is_addable(left) and is_addable(right)):
            self.visit_children(cursor)
            return
        shown = f"{self.text(left)} {changed} {self.text(right)}"
        found = self.note(kind, extent(left)[0], self.text(cursor), shown)
        self.wrap(cursor, f"talvix::{name}(@{found}@, ", ")", found)
        self.replace((extent(left)[1], extent(right)[0]), ", ", found)
        self.visit(left)
        self.visit(right)

    def visit_call_expr(self, cursor):
        self.visit_binary_operator(cursor)

    def logic(self, cursor, sign, left, right):
        other = "||" if sign == "&&" else "&&"
        shown = f"{self.text(left)} {other} {self.text(right)}"
        found = self.note(LOGIC, extent(cursor)[0], self.text(cursor), shown)
        self.condition(left)
        self.condition(right)
        # Both operands and the whole negated: the other operation, and no operand is run that it would not run.
        self.wrap(left, f"talvix::flip(@{found}@, ", ")", found)
        self.wrap(right, f"talvix::flip(@{found}@, ", ")", found)
        self.wrap(cursor, f"talvix::flip(@{found}@, ", ")", found)

    def visit_unary_operator(self, cursor):
        (operand,) = list(cursor.get_children()) or (None,)
        text = self.text(cursor)
        if operand and text.startswith("!"):
            self.visit(operand)
        elif operand and text[:2] in ("++", "--") and is_number(operand.type):
            name, other = ("increment", "--") if text[:2] == "++" else ("decrement", "++")
            start, end = extent(cursor)
            found = self.note(ARITHMETIC, start, text, other + text[2:])
            self.replace((start, start + 2), f"talvix::{name}(@{found}@, ", found)
            self.wrap((start, end), "", ")", found)
            self.visit(operand)
        elif text.startswith("&"):
            return
        else:
            self.visit_children(cursor)

    def visit_conditional_operator(self, cursor):
        condition, first, second = cursor.get_children()
        self.condition(condition)
        self.visit_all((first, second))

    # Statements.

    def visit_if_stmt(self, cursor):
        children = list(cursor.get_children())
        self.scopes.append([])
        if children[0].kind == K.VAR_DECL:
            variable = children[0]
            shown = f"if ({self.text(variable)})"
            found = self.note(CONDITION, extent(variable)[0], shown, f"if not ({self.text(variable)})")
            self.wrap(variable, "", f"; talvix::flip(@{found}@, {variable.spelling})", found)
            self.visit(variable)
            branches = [c for c in children[1:] if extent(c)[0] > extent(variable)[1]]
        else:
            if children[0].kind == K.DECL_STMT:
                self.visit(children.pop(0))
            self.condition(children[0])
            branches = children[1:]
        for branch in branches:
            self.branch(branch)
        self.scopes.pop()

    def visit_while_stmt(self, cursor):
        condition, body = cursor.get_children()
        self.condition(condition)
        self.branch(body)

    def visit_for_stmt(self, cursor):
        children = list(cursor.get_children())
        self.scopes.append([])
        for child in children[:-1]:
            if child.kind.is_expression() and stripped(child).type.get_canonical().kind == TypeKind.BOOL:
                self.condition(child)
            else:
                self.visit(child)
        self.branch(children[-1])
        self.scopes.pop()

    def visit_cxx_for_range_stmt(self, cursor):
        children = list(cursor.get_children())
        self.scopes.append([])
        for child in children[:-1]:
            if child.kind == K.VAR_DECL:
                self.scopes[-1].append(child)
            else:
                self.visit(child)
        self.branch(children[-1])
        self.scopes.pop()

    def visit_switch_stmt(self, cursor):
        value, body = list(cursor.get_children())[-2:]
        self.visit(value)
        self.visit(body)

    def visit_case_stmt(self, cursor):
        self.branch(list(cursor.get_children())[-1])

    def visit_default_stmt(self, cursor):
        self.branch(list(cursor.get_children())[-1])

    def branch(self, cursor):
        if cursor.kind.is_expression():
            self.statement(cursor)
        else:
            self.visit(cursor)

    def visit_compound_stmt(self, cursor):
        self.scopes.append([])
        run = []
        for child in cursor.get_children():
            if child.kind.is_expression():
                self.statement(child)
                run.append(child)
            else:
                self.swaps(run)
                run = []
                self.visit(child)
        self.swaps(run)
        self.scopes.pop()

    def whole(self, cursor):
        """The range of an expression statement, with its semicolon."""
        start, end = extent(cursor)
        return start, self.data.index(b";", end) + 1

    def statement(self, cursor):
        found = self.note(DROP, extent(cursor)[0], self.text(cursor))
        self.visit(cursor)
        self.wrap(self.whole(cursor), f"{{ if (!talvix::mutant(@{found}@)) ", " }", found)

    def swaps(self, run):
        pairs = [not independent(self, a, b) for a, b in zip(run, run[1:])]
        if not any(pairs):
            return
        found = []
        for swappable, a, b in zip(pairs, run, run[1:]):
            if swappable:
                found.append(self.note(SWAP, extent(a)[0], f"{self.text(a)}; {self.text(b)}",
                                       f"{self.text(b)}; {self.text(a)}"))
        for i, cursor in enumerate(run):
            self.wrap(self.whole(cursor), f"case {i}: ", " break;", *found)
        flags = ", ".join("true" if pair else "false" for pair in pairs)
        start, end = self.whole(run[0])[0], self.whole(run[-1])[1]
        self.wrap((start, end), f"for (const int talvixPlace : talvix::order(@{found[0]}@, {{{flags}}})) "
                  "switch (talvixPlace) { ", " }", *found)

    # Returns: early ones are skipped, values become those of an empty answer.

    def visit_return_stmt(self, cursor):
        function = self.results[-1] if self.results else None
        start, end = extent(cursor)
        whole = (start, self.data.index(b";", end) + 1)
        children = list(cursor.get_children())
        if not function:
            self.returned_bool(children)
            return
        early = self.is_early(cursor, function)
        wraps = []
        if early:
            found = self.note(RETURN, start, self.text(cursor), "go on")
            wraps.append((f"if (!talvix::mutant(@{found}@)) ", found))
        if children:
            kind = function.result_type.get_canonical().kind
            if kind == TypeKind.BOOL:
                self.returned_bool(children)
            else:
                if kind != TypeKind.LVALUEREFERENCE and squeezed(self.text(children[0])) not in EMPTY_VALUES:
                    found = self.note(RETURN, start, self.text(cursor), "return {}")
                    wraps.append((f"if (talvix::mutant(@{found}@)) return {{}}; ", found))
                self.visit_all(children)
        if wraps:
            prefix = "".join(text for text, _ in reversed(wraps))
            self.wrap(whole, "{ " + prefix, " }", *(number for _, number in wraps))

    def returned_bool(self, children):
        if children and stripped(children[0]).type.get_canonical().kind == TypeKind.BOOL:
            self.condition(children[0])
        else:
            self.visit_all(children)

    def is_early(self, cursor, function):
        """Whether the function ends without this return as well."""
        body = [c for c in function.get_children() if c.kind == K.COMPOUND_STMT][-1]
        last = list(body.get_children())[-1]
        if function.result_type.kind == TypeKind.VOID or function.kind in (K.CONSTRUCTOR, K.DESTRUCTOR):
            return True
        return last.kind == K.RETURN_STMT and extent(last) != extent(cursor)


EMPTY_VALUES = {"{}", "nullptr", "0", "false", "QString()"}


def receiver(finder, cursor):
    """What a statement acts upon; nothing for a call of the object itself, which may act upon everything."""
    bare = stripped(cursor)
    text = squeezed(finder.text(cursor))
    if text.startswith(("qDebug", "qCritical")):
        return "log"
    if bare.kind == K.CALL_EXPR and bare.referenced:
        callee = next(iter(bare.get_children()), None)
        is_member = callee is not None and callee.kind == K.MEMBER_REF_EXPR
        base = next(iter(callee.get_children()), None) if is_member else None
        if base is not None and base.kind.is_expression():
            return squeezed(finder.text(base))
        if is_member and bare.referenced.spelling not in ("connect", "disconnect"):
            return None
        return text.split("(", 1)[-1].split(",")[0].rstrip(")")
    return re.split(r"\s*[-+*/]?=", text)[0].strip("+-").removeprefix("delete ")


def independent(finder, a, b):
    """Whether two statements evidently act upon different things, so that their order says nothing."""
    first, second = receiver(finder, a), receiver(finder, b)
    if first is None or second is None:
        return False
    return not (first + "->").startswith(second + "->") and not (second + "->").startswith(first + "->")
