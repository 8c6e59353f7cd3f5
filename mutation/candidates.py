"""Finds the places of a C++ file that can be changed, with the syntax tree of libclang."""

import json
import re
import shlex
from collections.abc import Iterator
from pathlib import Path

from clang import cindex  # type: ignore[import]
from clang.cindex import Cursor, CursorKind  # type: ignore[import]

from mutant import Mutant, Place, Shape

OTHER_OPERATORS = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",), "!=": ("==",),
    "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",), "<<": (">>",), ">>": ("<<",),
    "&": ("|",), "|": ("&",), "^": ("&",), "&&": ("||",), "||": ("&&",),
    "+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "/=": ("*=",), "&=": ("|=",), "|=": ("&=",),
}  # fmt: skip
STEPS = {"++": "--", "--": "++"}
FUNCTIONS = {
    CursorKind.FUNCTION_DECL,
    CursorKind.CXX_METHOD,
    CursorKind.CONSTRUCTOR,
    CursorKind.DESTRUCTOR,
    CursorKind.CONVERSION_FUNCTION,
    CursorKind.FUNCTION_TEMPLATE,
}
LITERALS = {CursorKind.INTEGER_LITERAL, CursorKind.CHARACTER_LITERAL, CursorKind.CXX_BOOL_LITERAL_EXPR}
LOOPS = {CursorKind.WHILE_STMT, CursorKind.DO_STMT, CursorKind.FOR_STMT, CursorKind.CXX_FOR_RANGE_STMT}
# Of these another change makes the same: the literal, or the operator.
NOTHING = {"{}", "nullptr", "true", "false", "0", "std::nullopt"}
NEGATED_BY_OPERATOR = re.compile(r"!|[^&|?]*[^=!<>&|?](==|!=)[^&|?]*$")


def compile_command(build: Path, source: Path) -> list[str]:
    """The words of the command that compiles `source`. Raises `LookupError` if the build knows no such file."""
    for entry in json.loads((build / "compile_commands.json").read_text()):
        if Path(entry["file"]) == source:
            return shlex.split(entry["command"])
    raise LookupError(f"{source} is not compiled in {build}")


class Candidates:
    """Collects all mutants of one file.

    `text` is the file with a character a byte, and with `inline` for `constexpr` at functions: what asks for the number
    of the mutant cannot be evaluated by the compiler.
    """

    def __init__(self, source: Path, command: list[str]) -> None:
        self.text = source.read_bytes().decode("latin-1")
        self.mutants: list[Mutant] = []
        self._source = source
        self._bool_result = False
        flags = [word for word in command if re.match(r"-(I|isystem|D|std)", word)]
        flags += ["-isystem" + path for before, path in zip(command, command[1:]) if before == "-isystem"]
        options = cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
        unit = cindex.Index.create().parse(str(source), [*flags, "-x", "c++"], options=options)
        broken = [str(fault) for fault in unit.diagnostics if fault.severity >= cindex.Diagnostic.Error]
        if broken:
            raise ValueError(f"clang cannot read {source}: {broken[0]}")
        self._macros = [self._range(c) for c in self._own(unit.cursor) if c.kind == CursorKind.MACRO_INSTANTIATION]
        for cursor in self._own(unit.cursor):
            self._find_functions(cursor)
        self.mutants = list(dict.fromkeys(self.mutants))

    def _own(self, cursor: Cursor) -> Iterator[Cursor]:
        for child in cursor.get_children():
            file = child.extent.start.file
            if file is not None and Path(file.name) == self._source:
                yield child

    @staticmethod
    def _range(cursor: Cursor) -> tuple[int, int]:
        return cursor.extent.start.offset, cursor.extent.end.offset

    def _source_of(self, cursor: Cursor) -> str:
        start, end = self._range(cursor)
        return self.text[start:end]

    def _find_functions(self, cursor: Cursor) -> None:
        if cursor.kind not in FUNCTIONS:
            if not cursor.kind.is_expression():
                for child in self._own(cursor):
                    self._find_functions(child)
            return
        if not cursor.is_definition():
            return
        start, _ = self._range(cursor)
        before_body, constexpr, rest = self.text[start:].partition("constexpr ")
        if constexpr and "{" not in before_body:
            self.text = self.text[:start] + before_body + "inline    " + rest
        self._bool_result = cursor.result_type.kind == cindex.TypeKind.BOOL
        for child in self._own(cursor):
            if child.kind.is_expression() or child.kind == CursorKind.COMPOUND_STMT:
                self._visit(child)

    def _visit(self, cursor: Cursor) -> None:
        start, end = self._range(cursor)
        if any(first <= start < behind for first, behind in self._macros):
            return
        if cursor.kind == CursorKind.STATIC_ASSERT or self._is_constant_declaration(cursor):
            return
        children = list(self._own(cursor))
        if cursor.kind.is_expression():
            self._change_expression(cursor, children)
        self._change_condition(cursor, children)
        for statement in self._statements(cursor, children):
            self._remove(statement)
        if cursor.kind == CursorKind.CASE_STMT:
            children = children[1:]
        was_bool = self._bool_result
        if cursor.kind == CursorKind.LAMBDA_EXPR:
            self._bool_result = False
        for child in children:
            if not child.kind.is_reference():
                self._visit(child)
        self._bool_result = was_bool

    def _is_constant_declaration(self, cursor: Cursor) -> bool:
        return cursor.kind == CursorKind.DECL_STMT and "constexpr " in self._source_of(cursor).partition("=")[0]

    def _add(self, place: Place, replacement: str, what: str) -> None:
        line = self.text.count("\n", 0, place.start) + 1
        self.mutants.append(Mutant(place, replacement, line, what))

    def _change_expression(self, cursor: Cursor, children: list[Cursor]) -> None:
        start, end = self._range(cursor)
        text = self.text[start:end]
        place = Place(start, end, Shape.EXPRESSION)
        if len(children) in (2, 3):
            lhs, rhs = children[0], children[-1]
            lhs_end, rhs_start = self._range(lhs)[1], self._range(rhs)[0]
            written = self.text[lhs_end:rhs_start].strip() if lhs_end < rhs_start else ""
            for other in OTHER_OPERATORS.get(written, ()):
                # A changed operator binds as the one that was there.
                replacement = f"({self.text[start:lhs_end]}) {other} ({self.text[rhs_start:end]})"
                self._add(place, replacement, f"`{one_line(text)}`: `{written}` to `{other}`")
        if cursor.kind == CursorKind.UNARY_OPERATOR or cursor.spelling.startswith("operator"):
            self._change_unary(place, text)
        if cursor.kind in LITERALS:
            for other in self._other_literals(text):
                self._add(place, other, f"`{text}` to `{other}`")
        if cursor.kind == CursorKind.CONDITIONAL_OPERATOR:
            self._change_truth(Place(*self._range(children[0]), Shape.EXPRESSION))

    def _change_unary(self, place: Place, text: str) -> None:
        if text.startswith("!"):
            self._add(place, "!" + text, f"`{one_line(text)}` without `!`")
        elif text.startswith("-") and not text.startswith("--"):
            self._add(place, text[1:], f"`{one_line(text)}` without `-`")
        for step, other in STEPS.items():
            if text.startswith(step):
                self._add(place, other + text[2:], f"`{one_line(text)}` to `{other}`")
            elif text.endswith(step):
                self._add(place, text[:-2] + other, f"`{one_line(text)}` to `{other}`")

    @staticmethod
    def _other_literals(text: str) -> tuple[str, ...]:
        if text in ("true", "false"):
            return ("false" if text == "true" else "true",)
        if text.startswith("'"):
            return (f"static_cast<char>({text} + 1)",)
        return ("1",) if text == "0" else (f"({text} + 1)", f"({text} - 1)")

    def _change_condition(self, cursor: Cursor, children: list[Cursor]) -> None:
        if cursor.kind == CursorKind.IF_STMT and children:
            condition = children[0]
            if condition.kind == CursorKind.VAR_DECL:
                place = Place(*self._range(condition), Shape.DECLARATION)
                self._change_truth(place, f"static_cast<bool>({condition.spelling})")
            else:
                self._change_truth(Place(*self._range(condition), Shape.EXPRESSION))
        elif cursor.kind in LOOPS:
            for child in children:
                if child.kind.is_expression() and self._is_loop_condition(cursor, child):
                    text = one_line(self._source_of(child))
                    # Always true would run into the limits of time, and be called killed without having been seen.
                    self._add(Place(*self._range(child), Shape.EXPRESSION), "false", f"`{text}` never holds")

    def _is_loop_condition(self, loop: Cursor, child: Cursor) -> bool:
        start, end = self._range(child)
        before = self.text[loop.extent.start.offset : start].rstrip()
        if loop.kind == CursorKind.FOR_STMT:
            return before.endswith(";") and self.text[end:].lstrip().startswith(";")
        return loop.kind != CursorKind.CXX_FOR_RANGE_STMT and before.endswith(("while (", "while("))

    def _change_truth(self, place: Place, condition: str = "") -> None:
        text = condition or self.text[place.start : place.end]
        shown = one_line(self.text[place.start : place.end])
        if not NEGATED_BY_OPERATOR.match(text):
            self._add(place, f"!({text})", f"`{shown}` negated")
        self._add(place, "true", f"`{shown}` always holds")
        self._add(place, "false", f"`{shown}` never holds")

    def _statements(self, cursor: Cursor, children: list[Cursor]) -> Iterator[Cursor]:
        kind = cursor.kind
        if kind == CursorKind.COMPOUND_STMT:
            yield from children
        elif kind == CursorKind.IF_STMT:
            yield from children[2 if children[0].kind == CursorKind.VAR_DECL else 1 :]
        elif kind in (CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT):
            yield from children[-1:]
        elif kind == CursorKind.DO_STMT:
            yield from children[:1]
        elif kind in LOOPS:
            yield from children[-1:]

    def _remove(self, statement: Cursor) -> None:
        start, end = self._range(statement)
        behind = re.compile(r"\s*;").match(self.text, end)
        if not behind:
            return
        place = Place(start, behind.end(), Shape.STATEMENT)
        text = self.text[start:end]
        if statement.kind == CursorKind.RETURN_STMT and text.removeprefix("return").strip():
            answer = text.removeprefix("return").strip()
            if answer not in NOTHING:
                self._add(place, "return {};", f"`{one_line(text)}` to `return {{}}`")
            if self._bool_result and answer not in ("true", "false"):
                self._add(place, "return true;", f"`{one_line(text)}` to `return true`")
        elif statement.kind.is_expression() or statement.kind in (
            CursorKind.BREAK_STMT,
            CursorKind.CONTINUE_STMT,
            CursorKind.RETURN_STMT,
        ):
            self._add(place, "", f"`{one_line(text)}` removed")


def one_line(text: str) -> str:
    """`text` without breaks of lines, and not longer than a message may be."""
    text = " ".join(text.split())
    return text if len(text) <= 90 else text[:87] + "..."
