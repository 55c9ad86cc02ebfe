#!/usr/bin/env python3
"""Puts the synopses of a header back into it and compares what clang then reads with what it read before.

The program of the site states every declaration of a header: functions, methods, heads of classes and namespaces,
enumerations, typedefs, aliases, concepts and variables. This script replaces the source text of each of them by its
synopsis, which leaves bodies and initialisers alone, and has clang read the result. A synopsis is accepted when clang
reports no new error and finds the same entities: kind, name, scope, type, access, storage, qualifiers, exception
specification, default arguments, values of enumerators, bases and template parameters. Declarations in branches that
are not active cannot be checked and are not counted. The enumerators in the tables of the pages are compared too.

usage: synopses.py [--list] [--c | --c++] [--jobs N] DUMP_SYNOPSES [HEADER...]
A header is PATH or PATH|INCLUDED, optionally followed by :OPTION,OPTION for clang. The default is the installed headers
of a built-in list. --list prints every synopsis that is not accepted.

Needs the Debian packages clang-14 and python3-clang-14.
"""

import argparse
import bisect
import collections
import concurrent.futures
import json
import os
import re
import subprocess
import sys

import clang_headers
from clang_headers import Kind, cindex
from header_lists import c_headers, cxx_headers, find

Statement = collections.namedtuple("Statement", "name kind begin end synopsis enumerators line")
PARSE = cindex.TranslationUnit.PARSE_SKIP_FUNCTION_BODIES | cindex.TranslationUnit.PARSE_INCOMPLETE
INSIDE = {Kind.NAMESPACE, Kind.LINKAGE_SPEC, Kind.UNEXPOSED_DECL, Kind.ENUM_DECL, Kind.STRUCT_DECL, Kind.CLASS_DECL,
          Kind.UNION_DECL, Kind.CLASS_TEMPLATE, Kind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION, Kind.FUNCTION_TEMPLATE,
          Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.CONVERSION_FUNCTION,
          Kind.FRIEND_DECL, Kind.VAR_DECL, Kind.FIELD_DECL, Kind.TYPEDEF_DECL, Kind.TYPE_ALIAS_DECL,
          Kind.TYPE_ALIAS_TEMPLATE_DECL, Kind.PARM_DECL, Kind.TEMPLATE_TYPE_PARAMETER, Kind.TEMPLATE_NON_TYPE_PARAMETER,
          Kind.TEMPLATE_TEMPLATE_PARAMETER}
PLACE = re.compile(r"(\(?(?:anonymous|unnamed|lambda)[^()]*? at )[^()]*:\d+:\d+(\)?)")


def without_place(text):
    """The spelling of a type without the line of an unnamed one and without the keyword of a named one."""
    return re.sub(r"\b(struct|union|enum|class) (?=\w)", "", PLACE.sub(r"\1\2", text))


def spellings(cursor):
    return " ".join(token.spelling for token in cursor.get_tokens() if token.kind != cindex.TokenKind.COMMENT)


def entity(cursor, depth):
    """What must stay the same of one declaration."""
    facts = [depth, cursor.kind.name, without_place(cursor.spelling), without_place(cursor.type.spelling),
             without_place(cursor.type.get_canonical().spelling), cursor.access_specifier.name,
             cursor.storage_class.name, cursor.is_definition()]
    if cursor.kind in (Kind.CXX_METHOD, Kind.FUNCTION_TEMPLATE, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.CONVERSION_FUNCTION):
        facts += [cursor.is_virtual_method(), cursor.is_pure_virtual_method(), cursor.is_const_method(),
                  cursor.is_static_method(), cursor.is_default_method(), cursor.is_converting_constructor()]
    if cursor.kind in (Kind.CXX_METHOD, Kind.FUNCTION_DECL, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.CONVERSION_FUNCTION):
        facts.append(str(cursor.exception_specification_kind))
        facts.append(cursor.availability.name)
    if cursor.kind == Kind.ENUM_CONSTANT_DECL:
        facts.append(cursor.enum_value)
    if cursor.kind == Kind.ENUM_DECL:
        facts += [cursor.enum_type.spelling, cursor.is_scoped_enum()]
    if cursor.kind == Kind.FIELD_DECL:
        facts += [cursor.is_bitfield() and cursor.get_bitfield_width(), cursor.is_mutable_field()]
    if cursor.kind in (Kind.PARM_DECL, Kind.CXX_BASE_SPECIFIER) or cursor.kind.name.startswith("TEMPLATE_"):
        facts.append(spellings(cursor))
    if cursor.kind == Kind.UNEXPOSED_DECL and cursor.spelling:  # a concept
        facts.append(spellings(cursor))
    return tuple(facts)


class Reading:
    """The entities and errors that clang finds in a header."""

    def __init__(self, header, text, include_line, options, language, wants_places=False):
        source = "main." + language.suffix
        unit = cindex.Index.create().parse(source, language.options + ["-w", "-ferror-limit=0"] + options,
                                           [(source, language.head + include_line + "\n"), (header, text)], PARSE)
        self.entities, self.places, self.enumerators = [], set(), {}
        real = os.path.realpath(header)
        here = {}
        stack = [(unit.cursor, 0)]
        while stack:
            cursor, depth = stack.pop()
            children = []
            for child in cursor.get_children():
                file = child.location.file
                name = file.name if file else None
                if name not in here:
                    here[name] = name is not None and os.path.realpath(name) == real
                if depth > 0 or here[name]:
                    children.append(child)
            if depth > 0:
                self.entities.append(entity(cursor, depth))
                if wants_places:
                    self.places.add(cursor.extent.start.offset)
                    self.places.add(cursor.location.offset)
                    if cursor.kind == Kind.ENUM_DECL:
                        self.enumerators[cursor.extent.start.offset] = [
                            child.spelling for child in children if child.kind == Kind.ENUM_CONSTANT_DECL]
            if depth == 0 or cursor.kind in INSIDE:
                declares = cursor.kind in (Kind.TYPEDEF_DECL, Kind.VAR_DECL, Kind.FIELD_DECL)
                stack += [(child, depth + 1) for child in reversed(children)
                          if not (declares and child.kind in clang_headers.TAGS) and (child.kind.is_declaration() or child.kind == Kind.CXX_BASE_SPECIFIER or child.kind.is_attribute())]
        self.errors = collections.Counter(message.spelling for message in unit.diagnostics
                                          if message.severity >= cindex.Diagnostic.Error)

    def same_as(self, other):
        return self.entities == other.entities and not (self.errors - other.errors)


def statements(dump, header):
    text = subprocess.run([dump, header], stdout=subprocess.PIPE, check=True).stdout
    return [Statement(item["name"], item["kind"], item["begin"], item["end"], item["synopsis"], item["enumerators"],
                      item["line"]) for item in json.loads(text) if item["kind"] != "macro"]


def closing_brace(text, brace):
    """The offset after the brace that matches the one at brace."""
    nesting = 0
    for match in re.compile(r'"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'|//[^\n]*|/\*.*?\*/|[{}]', re.S).finditer(text, brace):
        nesting += (match.group() == "{") - (match.group() == "}")
        if nesting == 0:
            return match.end()
    return len(text)


class Replacement:
    """The synopses of the declarators of one declaration, in place of its source text."""

    def __init__(self, group, text):
        self.group = group
        first = min(group, key=lambda item: item.end)
        self.begin = group[0].begin
        self.end = max(item.end for item in group)
        pieces = []
        for item in group:
            piece = item.synopsis
            if item is first and len(group) > 1 and "(Anonymous)" in item.name and "{" in group[1].synopsis:
                continue  # the declarator states it
            if len(group) > 1 and item is first and not piece.endswith(";") and text[item.end:item.end + 1] == "{":
                piece += text[item.end:closing_brace(text, item.end)] + ";"
            pieces.append(piece)
        self.text = "\n".join(pieces)
        if self.text.endswith(";"):
            self.text = self.text[:-1]
        if text[self.end:self.end + 1].isalnum() or text[self.end:self.end + 1] == "{":
            self.text += " "
        self.text += "\n" if self.text.rsplit("\n", 1)[-1].startswith("#") else ""
        self.text += "\n" * (text.count("\n", self.begin, self.end) - self.text.count("\n"))  # for __LINE__


def replaced(text, replacements):
    parts, at = [], 0
    for item in sorted(replacements, key=lambda item: (item.begin, -item.end)):
        if item.begin < at:
            continue  # inside a structure that is stated with its members
        parts += [text[at:item.begin], item.text]
        at = item.end
    return "".join(parts) + text[at:]


def refused(candidates, is_same):
    """The replacements without which the header stays the same."""
    if is_same(candidates):
        return []
    if len(candidates) == 1:
        return candidates
    half = len(candidates) // 2
    found = refused(candidates[:half], is_same) + refused(candidates[half:], is_same)
    return found or candidates  # only wrong together


def compare(dump, entry, cplusplus):
    where, _, options = entry.partition(":")
    path, _, included = where.partition("|")
    header = find(path)
    if header is None:
        return entry, None
    options = [option for option in options.split(",") if option]
    language = clang_headers.Language(cplusplus)
    include_line = "#include <%s>" % (included or (path if not path.startswith("/") else header)) \
        if not path.startswith("/") or included else '#include "%s"' % header
    with open(header, "rb") as file:
        text = file.read().decode("utf-8", "replace").replace("\r\n", "\n")
    original = Reading(header, text, include_line, options, language, True)
    byte_at = (lambda at: at) if text.isascii() else (lambda at: len(text[:at].encode()))
    places = sorted(original.places)
    found = [item for item in statements(dump, header)]
    active, wrong = [], []
    for item in found:
        if item.begin < 0:
            continue
        begin, end = byte_at(item.begin), byte_at(item.end)
        at = bisect.bisect_left(places, begin)
        if at < len(places) and places[at] < max(end, begin + 1):
            active.append(item)
            names = original.enumerators.get(begin)
            if item.kind == "enum" and names is not None and "\n#" not in item.synopsis and \
                    names != [row[0] for row in item.enumerators]:
                wrong.append((item, "enumerators: %s" % [row[0] for row in item.enumerators]))
    lost = [item for item in found if item.begin < 0]
    groups = collections.defaultdict(list)
    for item in active:
        groups[item.begin].append(item)
    def order(item):  # a type before its declarators, and these as they are in the text
        name = re.escape(item.name.rpartition(".")[2])
        word = re.compile(r"(?<!\w)%s(?!\w)" % name).search(text, item.begin)
        return item.kind in ("variable", "typedef", "function"), item.end, word.start() if word else item.end

    candidates = [Replacement(sorted(group, key=order), text) for begin, group in sorted(groups.items())]
    is_same = lambda chosen: Reading(header, replaced(text, chosen), include_line, options, language).same_as(original)
    for item in refused(candidates, is_same) if candidates else []:
        wrong += [(statement, "") for statement in item.group]
    # What is inside another replacement is compared on its own.
    return entry, (collections.Counter(item.kind for item in active), wrong, lost, dict(original.errors))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--c", action="store_true")
    parser.add_argument("--c++", action="store_true", dest="cplusplus")
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("dump")
    parser.add_argument("headers", nargs="*")
    arguments = parser.parse_args()
    if arguments.headers:
        work = [(header, arguments.cplusplus) for header in arguments.headers]
    else:
        work = [] if arguments.cplusplus else [(header, False) for header in c_headers()]
        work += [] if arguments.c else [(header, True) for header in cxx_headers()]
    kinds, total, bad, headers = collections.Counter(), 0, 0, 0
    with concurrent.futures.ProcessPoolExecutor(arguments.jobs) as pool:
        jobs = [pool.submit(compare, arguments.dump, *item) for item in work]
        for job in jobs:
            entry, result = job.result()
            if result is None:
                continue
            counted, wrong, lost, errors = result
            headers += 1
            kinds += counted
            total += sum(counted.values())
            bad += len(wrong)
            print("%-60s %6d stated %4d refused%s%s" % (entry.split(":")[0], sum(counted.values()), len(wrong),
                  " %d not in the text" % len(lost) if lost else "", " (%d errors)" % len(errors) if errors else ""), flush=True)
            if arguments.list:
                for item, note in wrong:
                    print("    line %d: %s %s %s\n        %s" % (item.line, item.kind, item.name, note,
                                                                item.synopsis.replace("\n", "\n        ")))
                for item in lost:
                    print("    line %d: %s %s: not in the text\n        %s" % (item.line, item.kind, item.name, item.synopsis))
    print("%d headers, %d stated, %d refused: %.3f %% accepted" % (headers, total, bad, 100 * (total - bad) / max(total, 1)))
    print(", ".join("%d %s" % (count, kind) for kind, count in kinds.most_common()))
    return 1 if total == 0 or (total - bad) / total < 0.995 else 0


if __name__ == "__main__":
    sys.exit(main())
