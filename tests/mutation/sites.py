"""Finds sites in C++ sources that can be mutated, and writes sources that contain all mutants, selected by number.

Changes are made to the text, at offsets from clang's syntax tree. Code that the compiler evaluates (constexpr functions
and tables, template arguments) and the expansions of macros are not changed.
"""

import collections
import json
import pathlib
import re
import shlex

from clang.cindex import CursorKind, Index, TranslationUnit, TypeKind

BOUNDS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}
# Calls that affect only time or memory: capacity and advice about huge pages.
SAVING_CALLS = {"reserve", "squeeze", "madvise", "preferHugePages", "reserveFor"}
# Functions that consist of such calls and their conditions.
SAVING_FUNCTIONS = {"preferHugePages", "reserveFor"}
STATEMENTS = {CursorKind.COMPOUND_STMT, CursorKind.IF_STMT, CursorKind.FOR_STMT, CursorKind.WHILE_STMT, CursorKind.DO_STMT,
              CursorKind.CXX_FOR_RANGE_STMT, CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT}
CONDITIONAL = {CursorKind.IF_STMT: ("(;", ")"), CursorKind.WHILE_STMT: ("(", ")"), CursorKind.DO_STMT: ("(", ")"),
               CursorKind.FOR_STMT: (";", ";")}
FUNCTIONS = {CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR,
             CursorKind.FUNCTION_TEMPLATE, CursorKind.CONVERSION_FUNCTION, CursorKind.LAMBDA_EXPR}
COMPILED = re.compile(r"\b(constexpr|consteval|constinit|static_assert)\b")
# Macro names are all capitals; their arguments have at most two levels of parentheses.
# What follows the operand of a fold expression, which has to stay a simple expression.
FOLD = re.compile(rb"\s*(&&|\|\|)\s*\.\.\.")
MACRO = re.compile(rb"\b[A-Z][A-Z0-9_]{3,}\b(\(([^()]|\(([^()]|\([^()]*\))*\))*\))?")

# begin, end: offsets in the file; detail: the replacement operator, or None
Site = collections.namedtuple("Site", "file begin end kind detail")


class Source:
    """The bytes of one file; clang's offsets are in bytes."""

    def __init__(self, path):
        self.path = path
        self.bytes = path.read_bytes()
        self.macros = [match.span() for match in MACRO.finditer(self.bytes)]

    def text(self, begin, end):
        return self.bytes[begin:end].decode()

    def before(self, offset):
        return self.bytes[:offset].rstrip()[-1:].decode(errors="replace")

    def after(self, offset):
        return self.bytes[offset:].lstrip()[:1].decode(errors="replace")


class Finder:
    """Collects the sites of one translation unit in the files of sources."""

    def __init__(self, unit, sources):
        self.sources = sources
        self.sites = set()
        for cursor in unit.cursor.get_children():
            source = self.source_of(cursor)
            if source is not None and cursor.kind.is_declaration():
                self.walk(cursor, source)

    def source_of(self, cursor):
        file = cursor.location.file
        return self.sources.get(file.name) if file else None

    def walk(self, root, source):
        """Visits all nodes below root. Not recursive, because expressions nest deeply."""
        pending = [(root, None, None)]
        while pending:
            cursor, parent, function = pending.pop()
            if self.is_compiled(cursor, source):
                continue
            if cursor.kind in FUNCTIONS and cursor.spelling in SAVING_FUNCTIONS:
                continue
            if cursor.kind in FUNCTIONS:
                function = cursor
            children = list(cursor.get_children())
            if function is not None:
                self.visit(cursor, children, parent, function, source)
            pending.extend((child, cursor, function) for child in children)

    def is_compiled(self, cursor, source):
        """Whether cursor is a declaration that the compiler evaluates."""
        if not cursor.kind.is_declaration() or cursor.kind in (CursorKind.NAMESPACE, CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL):
            return False
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        head = source.text(begin, min(end, begin + 200))
        return COMPILED.search(re.split(r"[{=(]", head, maxsplit=1)[0]) is not None

    def add(self, source, begin, end, kind, detail=None):
        if not FOLD.match(source.bytes, end) and not any(first <= begin and end <= last for first, last in source.macros):
            self.sites.add(Site(source.path, begin, end, kind, detail))

    def visit(self, cursor, children, parent, function, source):
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        if cursor.kind in CONDITIONAL:
            self.visit_condition(cursor, children, source)
        elif cursor.kind == CursorKind.CONDITIONAL_OPERATOR:
            self.add(source, children[0].extent.start.offset, children[0].extent.end.offset, "negated")
        elif cursor.kind == CursorKind.BINARY_OPERATOR and len(children) == 2:
            self.visit_operator(begin, end, children, source)
        elif cursor.kind in (CursorKind.RETURN_STMT, CursorKind.CXX_THROW_EXPR):
            if source.after(end) == ";" and self.may_go_on(cursor, function):
                self.add(source, begin, self.statement_end(source, end), "dropped")
        elif parent is not None and parent.kind in STATEMENTS and not self.is_in_head(parent, begin, source):
            self.visit_statement(cursor, begin, end, source)

    @staticmethod
    def is_in_head(parent, begin, source):
        return parent.kind == CursorKind.FOR_STMT and source.before(begin) != ")"

    def visit_condition(self, cursor, children, source):
        head = source.text(cursor.extent.start.offset, cursor.extent.end.offset).split("(")[0]
        if "constexpr" in head:
            return
        left, right = CONDITIONAL[cursor.kind]
        for child in children:
            begin, end = child.extent.start.offset, child.extent.end.offset
            if child.kind.is_expression() and source.before(begin) in left and source.after(end) == right:
                self.add(source, begin, end, "negated")
                return

    def visit_operator(self, begin, end, children, source):
        left, right = (child.extent for child in children)
        operator = source.text(left.end.offset, right.start.offset).strip()
        operand = source.text(right.start.offset, right.end.offset)
        if operator in BOUNDS:
            self.add(source, begin, end, "bound", (left.end.offset, right.start.offset, BOUNDS[operator]))
        elif operator in ("+", "-") and operand == "1":
            self.add(source, right.start.offset, right.end.offset, "off by one")
        elif operator in ("&&", "||"):
            for extent in (left, right):
                self.add(source, extent.start.offset, extent.end.offset, "negated")

    def visit_statement(self, cursor, begin, end, source):
        inner = cursor
        while inner.kind == CursorKind.UNEXPOSED_EXPR and (children := list(inner.get_children())):
            inner = children[0]
        if inner.kind != CursorKind.CALL_EXPR or inner.spelling.startswith("operator") or inner.spelling in SAVING_CALLS:
            return
        if source.after(end) == ";" and source.before(begin) not in ("(", ",", "="):
            self.add(source, begin, self.statement_end(source, end), "dropped")

    @staticmethod
    def statement_end(source, end):
        return source.bytes.index(b";", end) + 1

    @staticmethod
    def may_go_on(cursor, function):
        """Whether control reaches a later return if cursor is removed, or does not need one."""
        if function.kind != CursorKind.LAMBDA_EXPR and function.result_type.kind == TypeKind.VOID:
            return True
        body = [child for child in function.get_children() if child.kind == CursorKind.COMPOUND_STMT]
        statements = list(body[-1].get_children()) if body else []
        last = statements[-1] if statements else None
        if last is None or last.kind != CursorKind.RETURN_STMT:
            return function.kind in (CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR)
        return last.extent.start.offset > cursor.extent.end.offset


class Units:
    """The translation units of the C++ sources among paths, from the compilation database."""

    def __init__(self, database, paths):
        rows = {row["file"]: row for row in json.loads(pathlib.Path(database).read_text())}
        self.paths = [str(path) for path in paths]
        self.rows = [rows[path] for path in self.paths if path in rows]
        self.options = compiler_options(self.rows[0]["command"])
        self.headers = str(pathlib.Path(database).with_name("system_headers.pch"))

    def read_headers(self):
        """Parses the system headers of all units once, because they make up most of each unit."""
        includes = set()
        for path in self.paths:
            includes.update(re.findall(r"^#include <.*>$", pathlib.Path(path).read_text(), re.MULTILINE))
        text = "\n".join(sorted(includes)) + "\n"
        unit = Index.create().parse("all.h", args=["-x", "c++-header", *self.options], unsaved_files=[("all.h", text)],
                                    options=TranslationUnit.PARSE_INCOMPLETE)
        unit.save(self.headers)

    def sites(self, row):
        sources = {path: Source(pathlib.Path(path)) for path in self.paths}
        unit = Index.create(excludeDecls=True).parse(row["file"], args=["-include-pch", self.headers, *self.options])
        # Errors without a location concern clang's own precompiled header.
        errors = [str(error) for error in unit.diagnostics if error.severity >= 3 and error.location.file]
        if errors:
            raise RuntimeError("clang does not understand %s:\n%s" % (row["file"], "\n".join(errors[:5])))
        return Finder(unit, sources).sites


def compiler_options(command):
    """The options of command that affect the meaning of a source."""
    words = shlex.split(command)
    options = [word for word in words if word.startswith(("-D", "-I", "-std"))]
    for option, value in zip(words, words[1:]):
        if option == "-isystem":
            options += [option, value]
    return options


def render(source, sites, begin, end, numbers):
    """The text from begin to end with its mutants. The sites are sorted by offset, outer before inner."""
    parts, at, index = [], begin, 0
    while index < len(sites):
        site = sites[index]
        after = index + 1
        while after < len(sites) and sites[after].begin < site.end:
            after += 1
        parts.append(source.text(at, site.begin))
        inner = render(source, sites[index + 1:after], site.begin, site.end, numbers)
        parts.append(switched(source, site, inner, numbers[site]))
        at, index = site.end, after
    parts.append(source.text(at, end))
    return "".join(parts)


def switched(source, site, inner, number):
    """Code that evaluates to inner, the text of site, or to the change if mutant number is active."""
    if site.kind == "negated":
        return "(tavidocMutant(%d) != static_cast<bool>(%s))" % (number, inner)
    if site.kind == "bound":
        return "(tavidocMutant(%d) ? (%s) : (%s))" % (number, changed(source, site), inner)
    if site.kind == "off by one":
        return "(tavidocMutant(%d) ? 0 : 1)" % number
    return "{ if (!tavidocMutant(%d)) { %s } }" % (number, inner)


def changed(source, site):
    """The text that replaces site if its mutant is active."""
    text = source.text(site.begin, site.end)
    if site.kind == "negated":
        return "!(%s)" % text
    if site.kind == "bound":
        left, right, operator = site.detail
        return "%s %s %s" % (source.text(site.begin, left), operator, source.text(right, site.end))
    return "0" if site.kind == "off by one" else ";"


def describe(source, site):
    """The line, and the affected lines before and after the change, each joined to one line."""
    first = source.bytes.rfind(b"\n", 0, site.begin) + 1
    last = source.bytes.find(b"\n", site.end)
    before = source.text(first, last)
    after = source.text(first, site.begin) + changed(source, site) + source.text(site.end, last)
    line = source.bytes.count(b"\n", 0, site.begin) + 1
    return line, " ".join(before.split()), " ".join(after.split())


def place_order(site):
    """Sort key: outer sites first; at the same place, the site whose replacement contains the other."""
    return (str(site.file), site.begin, -site.end, ("negated", "dropped", "bound", "off by one").index(site.kind))
