"""Reads a header with clang: declarations with qualified names, macros, and the lines in active branches.

Needs the Debian packages clang-14 and python3-clang-14.
"""

import collections
import ctypes
import functools
import json
import os
import re
import subprocess
import sys
import tempfile

try:
    sys.path.append("/usr/lib/python3/dist-packages")  # for interpreters other than Debian's
    from clang import cindex
    from clang.cindex import CursorKind as Kind, TypeKind
except ImportError:
    sys.exit("The Debian package python3-clang-14 is missing.")

ANONYMOUS = "(Anonymous)"
KINDS = {
    Kind.FUNCTION_DECL: "function", Kind.FUNCTION_TEMPLATE: "function", Kind.CXX_METHOD: "function",
    Kind.CONSTRUCTOR: "function", Kind.DESTRUCTOR: "function", Kind.CONVERSION_FUNCTION: "function",
    Kind.VAR_DECL: "variable", Kind.FIELD_DECL: "variable", Kind.TYPEDEF_DECL: "type",
    Kind.STRUCT_DECL: "type", Kind.CLASS_DECL: "type", Kind.UNION_DECL: "type", Kind.CLASS_TEMPLATE: "type",
    Kind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION: "type", Kind.NAMESPACE: "type", Kind.ENUM_DECL: "type"}
TAGS = (Kind.STRUCT_DECL, Kind.CLASS_DECL, Kind.UNION_DECL, Kind.ENUM_DECL)
TEMPLATES = (Kind.CLASS_TEMPLATE, Kind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION, Kind.FUNCTION_TEMPLATE)

# line: counted from 1; path: the enclosing namespaces, each with "::", None for members and templates
Declaration = collections.namedtuple("Declaration", "kind name line path")


class Language:
    """The options of clang for C or C++ headers."""

    def __init__(self, cplusplus):
        self.cplusplus = cplusplus
        self.suffix = "cpp" if cplusplus else "c"
        self.options = ["-xc++", "-std=c++20"] if cplusplus else ["-xc", "-std=gnu17"]
        self.head = "" if cplusplus else "#define _GNU_SOURCE 1\n"

    def run(self, arguments):
        done = subprocess.run(["clang-14", *self.options, "-w", *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        return done.stdout.decode("utf-8", "replace"), done.stderr.decode("utf-8", "replace")


def flattened(name):
    """A name without white space and, except for operators, without template arguments."""
    name = re.sub(r"\s+", "", name)
    return name if name.startswith("operator") else re.sub(r"<.*$", "", name)


def before_arguments(text):
    """The text up to the first "(" outside template arguments."""
    angles = 0
    for at, character in enumerate(text):
        angles += (character == "<") - (character == ">")
        if character == "(" and angles == 0:
            return text[:at]
    return text


def file_position(location):
    """File, offset and line of a token; for a macro argument, those in the call."""
    file, line, column, offset = cindex.c_object_p(), ctypes.c_uint(), ctypes.c_uint(), ctypes.c_uint()
    cindex.conf.lib.clang_getSpellingLocation(location, *[ctypes.byref(value) for value in (file, line, column, offset)])
    return (cindex.File(file).name if file else None), offset.value, line.value


class Collector:
    """Collects the declarations of a translation unit that are in one header."""

    def __init__(self, header, text, language):
        self.header = os.path.realpath(header)
        self.text = text
        self.language = language
        self.real = functools.lru_cache(None)(os.path.realpath)
        self.found = []
        self.ignored = set()  # qualified names of macros used as names, and of the names that they generate

    def is_here(self, cursor):
        file = cursor.location.file
        return file is not None and self.real(file.name) == self.header

    def visit(self, cursor, scope="", template=False):
        """Collects direct declarations of the cursor; the scope is a qualified name with a final full stop."""
        children = [child for child in cursor.get_children() if self.is_here(child)]
        renamed = self.renamed(children)
        for child in children:
            if child.kind == Kind.FRIEND_DECL:
                self.friend(child, scope)
            elif child.kind in (Kind.UNEXPOSED_DECL, Kind.LINKAGE_SPEC):
                self.unexposed(child, scope, template)
            elif child.kind in KINDS:
                self.declare(child, scope, template, renamed)

    @staticmethod
    def renamed(children):
        """The names that typedefs give to the structures and enumerations defined in them."""
        names = {}
        for child in children:
            if child.kind != Kind.TYPEDEF_DECL or child.underlying_typedef_type.kind == TypeKind.POINTER:
                continue
            for owned in child.get_children():
                if owned.kind in TAGS and owned.is_definition():
                    names.setdefault(owned.hash, flattened(child.spelling))
        return names

    def friend(self, cursor, scope):
        """A friend function belongs to the namespace around the class; a friend class declares nothing."""
        outer, around = scope[:-1], cursor.semantic_parent
        while around is not None and KINDS.get(around.kind) == "type" and around.kind != Kind.NAMESPACE:
            outer, around = outer.rpartition(".")[0], around.semantic_parent
        for child in cursor.get_children():
            qualified = self.text[:child.location.offset].rstrip().endswith(b"::")  # declared elsewhere
            if KINDS.get(child.kind) == "function" and not qualified:
                self.add("function", child, outer + "." if outer else "", True)

    def unexposed(self, cursor, scope, template):
        """Linkage specifications, concepts and variable templates, which have no separate cursor kind."""
        if not cursor.spelling:
            self.visit(cursor, scope, template)
        elif not cursor.spelling.startswith("<"):
            head = self.text[cursor.extent.start.offset:file_position(cursor.location)[1]]
            if b"template" in head and cursor.semantic_parent == cursor.lexical_parent:
                self.add("type" if re.search(rb"\bconcept\s+$", head) else "variable", cursor, scope, True)

    def declare(self, cursor, scope, template, renamed):
        kind = KINDS[cursor.kind]
        if kind == "type" and cursor.kind not in (Kind.TYPEDEF_DECL, Kind.NAMESPACE) and not cursor.is_definition():
            return
        if kind != "type" and self.language.cplusplus and cursor.semantic_parent != cursor.lexical_parent:
            return  # a definition outside its class
        template = template or cursor.kind in TEMPLATES or self.is_specialisation(cursor)
        name = self.add(kind, cursor, scope, template, renamed.get(cursor.hash))
        if not name and cursor.kind == Kind.NAMESPACE:  # opened by a macro
            self.visit(cursor, scope, template)
        if name and kind == "type" and cursor.kind not in (Kind.TYPEDEF_DECL, Kind.ENUM_DECL):
            self.visit(cursor, name + ".", template)

    def is_specialisation(self, cursor):
        return self.text[cursor.extent.start.offset:][:8] == b"template"

    def add(self, kind, cursor, scope, template, given=None):
        """Adds a declaration whose name appears in the header. Returns its qualified name."""
        line = self.line_of_name(cursor, scope)
        if line is None:
            return None
        if cursor.kind == Kind.NAMESPACE and re.search(rb"::\s*(inline\s*)?$", self.text[:cursor.location.offset][-99:]):
            return scope[:-1]  # clang names "namespace a::b" a
        name = scope + self.qualifier(cursor) + (given or self.name(cursor))
        if kind == "function" and b"virtual" in self.text[cursor.extent.start.offset:cursor.location.offset]:
            self.drop_replaced(name)
        self.found.append(Declaration(kind, name, line, None if template else self.path(cursor)))
        return name

    def drop_replaced(self, name):
        """A virtual function replaces an earlier one of the same name in the class."""
        earlier = [item for item in self.found if item.kind == "function" and item.name == name]
        if earlier:
            self.found.remove(earlier[-1])

    @staticmethod
    def path(cursor):
        """The namespaces around a declaration, each with "::"; None inside a class."""
        path, cursor = "", cursor.semantic_parent
        while cursor and cursor.kind != Kind.TRANSLATION_UNIT:
            if cursor.kind == Kind.NAMESPACE and cursor.spelling:
                path = cursor.spelling + "::" + path
            elif cursor.spelling or cursor.kind == Kind.NAMESPACE:
                return None
            cursor = cursor.semantic_parent
        return path

    def qualifier(self, cursor):
        """The qualification of a class that is defined outside its enclosing class."""
        if KINDS.get(cursor.kind) != "type" or cursor.semantic_parent == cursor.lexical_parent:
            return ""
        before = re.search(rb"(\w+\s*::\s*)+$", self.text[:cursor.location.offset][-200:])
        return re.sub(r"\s+", "", before.group().decode()) if before else ""

    def name(self, cursor):
        if cursor.kind == Kind.NAMESPACE and not cursor.spelling:
            return "(%s)" % os.path.basename(self.header)
        if re.match(r"operator\s*(?!new|delete|co_await)\w", cursor.spelling):  # a conversion, possibly a template
            offset = file_position(cursor.location)[1]
            return flattened(before_arguments(self.text[offset:offset + 400].decode("utf-8", "replace")))
        return flattened(cursor.spelling) or ANONYMOUS

    def line_of_name(self, cursor, scope):
        """The line of the name if it appears in the header, otherwise None."""
        file, offset, line = file_position(cursor.location)
        if not file or self.real(file) != self.header:
            return None
        argument = offset != cursor.location.offset
        if not cursor.spelling:
            return line if re.match(rb"struct\b|union\b|enum\b|class\b|namespace\b|\{", self.text[offset:offset + 9]) else None
        word = re.match(r"~?\s*\w+", self.text[offset:offset + 400].decode("utf-8", "replace"))
        spelled = flattened(word.group()) if word else ""
        name = flattened(cursor.spelling)
        if spelled == "operator" and name.startswith("operator"):
            return line
        if spelled != name or (argument and self.language.cplusplus):
            call = re.match(rb"\w+\s*\(([^()]*)\)", self.text[offset:offset + 400])
            words = re.findall(r"\w+", call.group(1).decode("utf-8", "replace")) if call else []
            self.ignored |= {scope + word for word in [spelled, name] + words}
            return None
        return line


def declarations(header, include_line, options, language):
    """The declarations of a header, the names to ignore, and clang's errors."""
    source = "main." + language.suffix
    unit = cindex.Index.create().parse(source, language.options + ["-w"] + options,
                                       [(source, language.head + include_line + "\n")])
    with open(header, "rb") as file:
        collector = Collector(header, file.read(), language)
    collector.visit(unit.cursor)
    errors = [str(message) for message in unit.diagnostics if message.severity >= cindex.Diagnostic.Error]
    return collector.found, collector.ignored, errors


def macros(header, source, options, language):
    """The names of the macros that the header defines, and of all macros."""
    text, _ = language.run(["-E", "-dD", *options, source])
    names, every, current = set(), set(), None
    for marker, macro in re.findall(r'^#(?: \d+ "(.*?)"|\s*define\s+(\w+))', text, re.MULTILINE):
        if marker:
            current = marker
        if macro:
            every.add(macro)
        if macro and current == header:
            names.add(macro)
    return names, every


def logical_lines(text):
    """Logical lines, joined at backslashes, each with the number of its first line, counted from 1."""
    lines = text.split("\n")
    at = 0
    while at < len(lines):
        end = at
        while lines[end].rstrip().endswith("\\") and end + 1 < len(lines):
            end += 1
        yield at + 1, lines[at:end + 1]
        at = end + 1


def comment_after(text, comment):
    """Whether a block comment is open after the text, given whether one was open before it."""
    at = 0
    while True:
        if comment:
            at = text.find("*/", at) + 2
            if at == 1:
                return True
        found = re.compile(r'"(?:\\.|[^"\\])*"|//[^\n]*|/\*').search(text, at)
        if not found:
            return False
        at, comment = found.end(), found.group() == "/*"


def marked_regions(text):
    """The text with a numbered pragma after each conditional, and the lines before the pragmas."""
    marked, regions, comment, waits = [], [], False, False
    for number, lines in logical_lines(text):
        marked += lines
        conditional = not comment and re.match(r"\s*#\s*(if|ifdef|ifndef|elif|else|endif)\b", lines[0])
        comment = comment_after("\n".join(lines), comment)
        waits = bool(conditional) or waits
        if waits and not comment:  # a comment that begins on the directive may span lines
            waits = False
            regions.append(number + len(lines))
            marked.append("#pragma tavidoc_region %d" % len(regions))
    return "\n".join(marked), regions


def taken_lines(header, source, options, language):
    """The lines of the header in active branches."""
    with open(header, encoding="utf-8", errors="replace") as file:
        text = file.read()
    marked, regions = marked_regions(text)
    with tempfile.TemporaryDirectory() as folder:
        overlay, copy = os.path.join(folder, "overlay.yaml"), os.path.join(folder, "copy.h")
        with open(copy, "w", encoding="utf-8") as file:
            file.write(marked)
        with open(overlay, "w", encoding="utf-8") as file:
            json.dump({"version": 0, "use-external-names": False, "roots": [
                {"name": os.path.dirname(header), "type": "directory", "contents": [
                    {"name": os.path.basename(header), "type": "file", "external-contents": copy}]}]}, file)
        output, _ = language.run(["-E", "-ivfsoverlay", overlay, *options, source])
    taken = {int(number) for number in re.findall(r"#pragma tavidoc_region (\d+)", output)}
    total = text.count("\n") + 1
    result = set(range(1, regions[0] if regions else total + 1))
    for index, start in enumerate(regions, 1):
        if index in taken:
            result |= set(range(start, regions[index] if index < len(regions) else total + 1))
    return result
