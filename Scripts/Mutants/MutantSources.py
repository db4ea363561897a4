# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""Finds small faults that C++ sources could have, and writes the sources anew with all of these faults in them, each
behind a switch: what Mutants.py runs the tests against.

A fault is found in the syntax tree that libclang gives, so that it is one a compiler accepts:

    a < b        a <= b, a >= b                     a && b      b, a
    a + b        a - b, and the like                !a, -a, ~a  a
    a += b       a -= b, and the like               17          18, and 1, 0, a bool
    if (a)       if (true), if (false)              return a    return {}, true, false, 1
    while (a)    while (false)                      f(a);       nothing; so for assignments, ++ and delete

Nothing is changed where only the compiler looks (constants, template arguments, array sizes, labels of cases), nor
inside the arguments of a macro, whose text may be printed. No line moves: diagnostics say where they come from.
"""

import re
from dataclasses import dataclass, field

from clang import cindex

K = cindex.CursorKind
T = cindex.TypeKind

SWITCH = "LmMutant"
COMPARISONS = {"<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",), "!=": ("==",)}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "<<": ">>", ">>": "<<", "&": "|", "|": "&", "^": "&"}
ASSIGNING = {f"{a}=": f"{b}=" for a, b in ARITHMETIC.items()}
FLOATS = {T.FLOAT, T.DOUBLE, T.LONGDOUBLE}
INTEGERS = {
    T.CHAR_U, T.UCHAR, T.CHAR16, T.CHAR32, T.USHORT, T.UINT, T.ULONG, T.ULONGLONG, T.CHAR_S, T.SCHAR, T.WCHAR,
    T.SHORT, T.INT, T.LONG, T.LONGLONG, T.ENUM,
}  # fmt: skip
FUNCTIONS = {
    K.FUNCTION_DECL, K.CXX_METHOD, K.CONSTRUCTOR, K.DESTRUCTOR, K.CONVERSION_FUNCTION, K.FUNCTION_TEMPLATE,
    K.LAMBDA_EXPR,
}  # fmt: skip
CLASSES = {K.CLASS_DECL, K.STRUCT_DECL, K.CLASS_TEMPLATE, K.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION, K.UNION_DECL}
# What the compiler alone looks at.
UNTOUCHED = {
    K.CXX_UNARY_EXPR, K.STATIC_ASSERT, K.ENUM_CONSTANT_DECL, K.TYPE_ALIAS_DECL, K.TYPE_ALIAS_TEMPLATE_DECL,
    K.TYPEDEF_DECL, K.PARM_DECL, K.TEMPLATE_NON_TYPE_PARAMETER, K.TEMPLATE_TYPE_PARAMETER,
}  # fmt: skip


@dataclass
class Mutant:
    """One fault. What says where it is survives changes elsewhere in the file."""

    path: str
    function: str
    line: int
    before: str
    after: str
    occurrence: int = 1
    number: int = 0

    def key(self):
        return (self.path, self.function, self.before, self.after, self.occurrence)


@dataclass
class Place:
    """A stretch of a file that is written anew, and what it can become."""

    start: int
    end: int
    form: str  # "value", "condition", "statement" or "return"
    function: str
    choices: list = field(default_factory=list)  # (before, after, text to write)


def squeezed(text):
    """The text on one line and without comments."""
    text = re.sub(r'("(?:\\.|[^"\\\n])*")|//[^\n]*|/\*.*?\*/', lambda m: m[1] or " ", text, flags=re.S)
    return re.sub(r"\s+", " ", text).strip()


def header_end(text, start):
    """Where the parenthesis that opens first behind start is closed, and the places of semicolons right inside it."""
    depth, semicolons, index = 0, [], start
    while index < len(text):
        literal = re.compile(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])*\'|//[^\n]*').match(text, index)
        if literal:
            index = literal.end()
            continue
        if text[index] in "([{":
            depth += 1
        elif text[index] in ")]}":
            depth -= 1
            if depth == 0:
                return index, semicolons
        elif text[index] == ";" and depth == 1:
            semicolons.append(index)
        index += 1
    return len(text), semicolons


class SourceFile:
    """A file of the project with the places of it that can be written anew."""

    def __init__(self, path, content):
        self.path = path
        self.text = content.decode("latin-1")  # a byte is a character, as libclang counts
        self.places = {}
        self.macros = set()
        self.functions = []  # (start, end, name)

    def add(self, start, end, form, function, before, after, text):
        place = self.places.setdefault((start, end, form), Place(start, end, form, function))
        choice = (squeezed(before), squeezed(after), squeezed(text))
        if choice[0] != choice[1] and choice not in place.choices:
            place.choices.append(choice)

    def crosses_macro(self, start, end):
        """Whether part of it is written by a macro, or handed to one."""
        return any(
            first < end and start < last and not (start <= first and last <= end and (start, end) != (first, last))
            for first, last in self.macros
        )

    def mutants(self):
        """All of them in the order of the text."""
        found, seen = [], {}
        for place in self.ordered():
            line = self.text.count("\n", 0, place.start) + 1
            for before, after, _ in place.choices:
                kind = (place.function, before, after)
                seen[kind] = seen.get(kind, 0) + 1
                found.append(Mutant(self.path, place.function, line, *kind[1:], seen[kind]))
        return found

    def ordered(self):
        depth = {"return": 0, "statement": 1, "condition": 2, "value": 3}
        return sorted(self.places.values(), key=lambda p: (p.start, -p.end, depth[p.form]))

    def rewritten(self, mutants, dropped):
        """The text with the mutants behind their switches, but those dropped."""
        numbers = iter(mutants)
        numbered = []
        for place in self.ordered():
            choices = [(next(numbers), text) for _, _, text in place.choices]
            numbered.append((place, [(m.number, text) for m, text in choices if m.key() not in dropped]))
        pieces, self.index = [], 0

        def write(start, end):
            """What stands from start to end, with the places inside it."""
            out, at = [], start
            while self.index < len(numbered) and numbered[self.index][0].start < end:
                place, choices = numbered[self.index]
                self.index += 1
                out.append(self.text[at : place.start])
                out.append(switched(place.form, choices, write(place.start, place.end)))
                at = place.end
            out.append(self.text[at:end])
            return "".join(out)

        pieces.append(write(0, len(self.text)))
        return "".join(pieces)


def switched(form, choices, inner):
    """inner, or one of the choices when its number is the chosen one."""
    if not choices:
        return inner
    if form == "return":
        return "".join(f"if ({SWITCH}({n})) {text}; else " for n, text in choices) + inner
    chosen = "".join(f"{SWITCH}({n}) ? ({text}) : " for n, text in choices)
    if form == "statement":
        return f"({chosen}static_cast<void>({inner}))"
    if form == "condition":
        return f"({chosen}static_cast<bool>({inner}))"
    return f"({chosen}({inner}))"


class Finder:
    """Walks the syntax trees of sources and notes what can be changed in the files that are asked for."""

    def __init__(self, root, wanted):
        self.root = root
        self.wanted = wanted  # path from the root -> bool
        self.files = {}

    def read(self, path, arguments, unsaved=None):
        """Reads a source and all that it includes. False when the compiler finds an error in it."""
        options = cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
        unit = cindex.Index.create().parse(path, arguments, unsaved, options)
        errors = [d for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
        fresh, stale = {}, set(self.files)
        for cursor in unit.cursor.get_children():
            source = self.file_of(cursor, fresh, stale)
            if source is None:
                continue
            if cursor.kind == K.MACRO_INSTANTIATION:
                source.macros.add((cursor.extent.start.offset, cursor.extent.end.offset))
        for cursor in unit.cursor.get_children():
            source = self.file_of(cursor, fresh, stale)
            if source is not None and cursor.kind not in (K.MACRO_INSTANTIATION, K.MACRO_DEFINITION):
                self.source, self.text, self.above = source, source.text, []
                self.walk(cursor, "", None)
        for source in fresh.values():
            self.add_macro_statements(source)
        self.files.update(fresh)
        return [f"{d.location.file}:{d.location.line}: {d.spelling}" for d in errors]

    def file_of(self, cursor, fresh, stale):
        """The wanted file that a cursor stands in. One that an earlier source included has been walked already."""
        if cursor.location.file is None:
            return None
        name = cursor.location.file.name
        if not name.startswith(self.root + "/"):
            return None
        path = name[len(self.root) + 1 :]
        if path in stale or not self.wanted(path):
            return None
        if path not in fresh:
            with open(name, "rb") as stream:
                fresh[path] = SourceFile(path, stream.read())
        return fresh[path]

    # -- what the tree holds

    def span(self, cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def text_of(self, cursor):
        start, end = self.span(cursor)
        return self.text[start:end]

    def add(self, cursor, form, after, text=None, before=None):
        start, end = self.span(cursor)
        if start >= end or self.source.crosses_macro(start, end):
            return
        before = before or self.text[start:end]
        self.source.add(start, end, form, self.function, before, after, text or after)

    def walk(self, cursor, function, result):
        """Notes what can be changed in cursor and below. result is what a return statement here returns."""
        kind = cursor.kind
        if kind in UNTOUCHED or self.is_constant(cursor):
            return
        if kind in CLASSES or (kind in FUNCTIONS and kind != K.LAMBDA_EXPR):
            name = cursor.spelling or "(unnamed)"
            function = f"{function}::{name}" if function else name
        if kind in FUNCTIONS:
            result = None if kind == K.LAMBDA_EXPR else cursor.result_type
            self.source.functions.append((*self.span(cursor), function))
        self.function, self.result = function, result
        if kind in HANDLERS:
            HANDLERS[kind](self, cursor)
        children = list(cursor.get_children())[1 if kind == K.CASE_STMT else 0 :]
        if kind == K.RETURN_STMT and children:
            self.returned(cursor, children[0])
        if kind in (K.COMPOUND_STMT, K.CASE_STMT, K.DEFAULT_STMT):
            for child in children:
                self.statement(child)
        self.above.append(cursor)
        for child in children:
            self.walk(child, function, result)
        self.above.pop()

    @property
    def parent(self):
        return self.above[-1] if self.above else None

    def is_constant(self, cursor):
        """Whether the compiler computes it, or needs it as it is."""
        kind, parent = cursor.kind, self.parent
        if kind in (K.VAR_DECL, K.FIELD_DECL):
            head = self.text_of(cursor)
            words = set(re.findall(r"\w+", head.split("=")[0]))
            if "constexpr" in words or (kind == K.FIELD_DECL and cursor.is_bitfield()):
                return True
            is_static = kind == K.VAR_DECL and (
                cursor.storage_class == cindex.StorageClass.STATIC or parent is None or parent.kind == K.NAMESPACE
            )
            only_literals = "(" not in head and not re.search(r"[=({].*\b(?!true|false|nullptr)[A-Za-z]{2,}", head, re.S)
            return is_static or ("const" in words and only_literals)
        if parent is not None and parent.kind in (K.VAR_DECL, K.FIELD_DECL) and kind.is_expression():
            # The size of an array.
            start = cursor.extent.start.offset
            before = self.text[parent.extent.start.offset : start]
            return before.rstrip().endswith("[") and "=" not in before and "{" not in before
        return False

    def binary(self, cursor):
        children = list(cursor.get_children())
        if len(children) != 2:
            return
        left, right = children
        first, last = self.text_of(left), self.text_of(right)
        operator = squeezed(self.text[left.extent.end.offset : right.extent.start.offset])
        self.operator(cursor, operator, left, first, last)

    def overloaded(self, cursor):
        """An operator of a class: of comparisons the opposite, for it need not have the others."""
        name = cursor.spelling
        match = re.fullmatch(r"operator(==|!=|<|>|<=|>=)", name)
        children = list(cursor.get_children())
        if match and len(children) == 3 and not self.is_condition(cursor):
            self.add(cursor, "value", f"!({self.text_of(cursor)})")

    def operator(self, cursor, operator, left, first, last):
        if operator in ("&&", "||"):
            form = "condition"
            self.add(cursor, form, first, f"static_cast<bool>({first})")
            self.add(cursor, form, last, f"static_cast<bool>({last})")
        elif operator in COMPARISONS:
            for other in COMPARISONS[operator]:
                # A condition that is turned round is noticed where it is held true or false.
                if len(other) + len(operator) == 3 and other[0] == operator[0] or not self.is_condition(cursor):
                    self.add(cursor, "value", f"{first} {other} {last}")
        elif operator in ARITHMETIC and self.is_number(left):
            self.add(cursor, "value", f"{first} {ARITHMETIC[operator]} {last}")
        elif operator in ASSIGNING and self.is_number(left):
            self.add(cursor, "value", f"{first} {ASSIGNING[operator]} {last}")

    def is_number(self, cursor):
        kind = cursor.type.get_canonical().kind
        return kind in INTEGERS or kind in FLOATS or kind in (T.POINTER, T.BOOL, T.DEPENDENT, T.INVALID, T.UNEXPOSED)

    def is_condition(self, cursor):
        """Whether it is held true and false as a whole anyway."""
        for parent in reversed(self.above):
            if parent.kind == K.BINARY_OPERATOR:
                children = list(parent.get_children())
                between = self.text[children[0].extent.end.offset : children[-1].extent.start.offset]
                return squeezed(between) in ("&&", "||")
            if parent.kind == K.CONDITIONAL_OPERATOR:
                return next(parent.get_children()).extent.start.offset <= cursor.extent.start.offset < next(
                    parent.get_children()
                ).extent.end.offset
            if parent.kind == K.RETURN_STMT:
                return self.result is not None and self.is_truth(self.result)
            if parent.kind not in (K.PAREN_EXPR, K.UNEXPOSED_EXPR):
                return parent.kind in (K.IF_STMT, K.WHILE_STMT, K.DO_STMT, K.FOR_STMT)
        return False

    def is_truth(self, kind):
        return kind.get_canonical().kind == T.BOOL or kind.spelling == "Boolean"

    def unary(self, cursor):
        text = self.text_of(cursor)
        operand = next(cursor.get_children(), None)
        if operand is None:
            return
        inner = self.text_of(operand)
        if text.startswith(("++", "--")):
            if self.parent.kind != K.FOR_STMT:
                self.add(cursor, "value", ("--" if text[0] == "+" else "++") + inner)
        elif text.endswith(("++", "--")):
            if self.parent.kind != K.FOR_STMT:
                self.add(cursor, "value", inner + ("--" if text[-1] == "+" else "++"))
        elif text[:1] == "!" and not self.is_condition(cursor):
            self.add(cursor, "condition", inner, f"static_cast<bool>({inner})")
        elif text[:1] in "-~":
            self.add(cursor, "value", inner)

    def conditional(self, cursor):
        self.forced(next(cursor.get_children()), ("true", "false"))

    def forced(self, condition, values):
        text = self.text_of(condition)
        if text not in ("true", "false"):
            for value in values:
                self.add(condition, "condition", value)

    def branch(self, cursor):
        """The condition of an if or while."""
        start = cursor.extent.start.offset
        if re.match(r"if\s+constexpr", self.text[start:]):
            return
        close, _ = header_end(self.text, start)
        inside = [c for c in cursor.get_children() if c.extent.start.offset < close]
        if not inside or not inside[-1].kind.is_expression():
            return
        if any(c.kind == K.VAR_DECL and c.extent.end.offset >= inside[-1].extent.start.offset for c in inside):
            return
        self.forced(inside[-1], ("false",) if cursor.kind == K.WHILE_STMT else ("true", "false"))

    def repeated(self, cursor):
        """The condition of a for or do."""
        start = cursor.extent.start.offset
        if cursor.kind == K.DO_STMT:
            self.forced(list(cursor.get_children())[-1], ("false",))
            return
        _, semicolons = header_end(self.text, start)
        if len(semicolons) == 2:
            for child in cursor.get_children():
                if semicolons[0] < child.extent.start.offset < semicolons[1]:
                    self.forced(child, ("false",))

    def literal(self, cursor):
        text = self.text_of(cursor)
        match = re.match(r"(0[xX][0-9a-fA-F]+|[0-9]+)([uUlL]*)$", text)
        end = cursor.extent.end.offset
        if self.parent is not None and self.parent.kind != K.BINARY_OPERATOR and self.text[end : end + 1] == ">":
            return  # the argument of a template
        if not match:
            return
        value = int(match[1], 0 if match[1][:2].lower() == "0x" else 10)
        self.add(cursor, "value", f"{value + 1}{match[2]}")
        if value == 1:
            self.add(cursor, "value", f"0{match[2]}")

    def floating(self, cursor):
        if re.match(r"[0-9.]", self.text_of(cursor)):
            self.add(cursor, "value", f"{self.text_of(cursor)} + 1", f"({self.text_of(cursor)} + 1)")

    def boolean(self, cursor):
        text = self.text_of(cursor)
        if text in ("true", "false"):
            self.add(cursor, "value", "false" if text == "true" else "true")

    def character(self, cursor):
        if re.match(r"(u|U|L)?'(\\.|[^'\\])'$", self.text_of(cursor)):
            self.add(cursor, "value", f"{self.text_of(cursor)} + 1", f"static_cast<decltype({self.text_of(cursor)})>({self.text_of(cursor)} + 1)")

    def statement(self, cursor):
        """A call or an assignment that could be missing."""
        if not cursor.kind.is_expression():
            return
        text = self.text_of(cursor)
        if re.match(r"static_cast<void>\(\w+\)$", text) or re.match(r"[\w:]+$", text):
            return
        self.add(cursor, "statement", "(nothing)", "static_cast<void>(0)", before=text + ";")

    def returned(self, cursor, value):
        """Other results than that of a return statement."""
        text = self.text_of(value)
        result = self.result or value.type
        kind = result.get_canonical().kind
        if kind in (T.LVALUEREFERENCE, T.RVALUEREFERENCE, T.VOID) or text in ("{}", "true", "false", "nullptr"):
            return
        if re.fullmatch(r"\w+\(\)", text) and value.type.spelling.split("::")[-1] == text[:-2]:
            return  # an object without content already
        if self.is_truth(result):
            others = ["true", "false"]
        elif kind in INTEGERS or kind in FLOATS:
            if re.match(r"[0-9.]+$", text):
                return
            one = f"static_cast<std::remove_reference_t<decltype({text})>>(1)"
            others = [one] if text == "noErr" else ["{}"]
        else:
            others = ["{}"]
        for other in others:
            shown = re.sub(r"static_cast<std::.*>\(1\)", "1", other)
            # What a function object returns is guessed from all of its return statements alike, and some classes
            # are made of nothing only when they are named.
            is_named = other == "{}" and not text.startswith("{") and (self.result is None or kind == T.RECORD)
            written = f"LmMutantNothing<std::decay_t<decltype({text})>>()" if is_named else other
            self.add(cursor, "return", f"return {shown};", f"return {written}", before=f"return {text};")

    def add_macro_statements(self, source):
        """A statement that is the call of a macro could be missing."""
        self.source, self.text = source, source.text
        for start, end in sorted(source.macros):
            text = source.text[start:end]
            after = source.text[end:]
            if not re.match(r"\s*;", after) or not re.match(r"(LM_|Lm)\w+\(", text):
                continue
            if not re.search(r"[;{}]\s*$", re.sub(r"//[^\n]*", "", source.text[:start])):
                continue
            function = self.function_at(source, start)
            source.add(start, end, "statement", function, text + ";", "(nothing)", "static_cast<void>(0)")

    def function_at(self, source, offset):
        inside = [f for f in source.functions if f[0] <= offset < f[1]]
        return max(inside)[2] if inside else ""


HANDLERS = {
    K.BINARY_OPERATOR: Finder.binary,
    K.COMPOUND_ASSIGNMENT_OPERATOR: Finder.binary,
    K.CALL_EXPR: Finder.overloaded,
    K.UNARY_OPERATOR: Finder.unary,
    K.CONDITIONAL_OPERATOR: Finder.conditional,
    K.IF_STMT: Finder.branch,
    K.WHILE_STMT: Finder.branch,
    K.FOR_STMT: Finder.repeated,
    K.DO_STMT: Finder.repeated,
    K.INTEGER_LITERAL: Finder.literal,
    K.FLOATING_LITERAL: Finder.floating,
    K.CXX_BOOL_LITERAL_EXPR: Finder.boolean,
    K.CHARACTER_LITERAL: Finder.character,
}
