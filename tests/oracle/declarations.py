#!/usr/bin/env python3
"""Compares the declarations that the parser finds in C and C++ headers with those of clang.

For each header it reports: how many of clang's functions, variables, types (classes, structures, unions,
namespaces, enumerations, typedefs, concepts) and macros in active branches, including members, the parser
misses (recall); which declarations of the parser in these branches clang does not have (false; names that a
macro replaces or generates are ignored); and how many rendered prototypes and typedefs clang accepts after
the header as declarations of the same type. Names are qualified; functions and variables are counted, so
every overload must be found.

usage: declarations.py [--list] [--c | --c++] [--jobs N] DUMP_DECLARATIONS [HEADER...]
A header is PATH or PATH|INCLUDED, optionally followed by :OPTION,OPTION for clang. The default is the
installed headers of a built-in list, in both languages unless --c or --c++ selects one. A given header is
compared as C unless --c++ is given. --list prints every difference.

Needs the Debian packages clang-14 and python3-clang-14.
"""

import argparse
import collections
import concurrent.futures
import os
import re
import subprocess
import sys
import tempfile

import clang_headers
from header_lists import c_headers, cxx_headers, find

KINDS = ("function", "variable", "type", "macro")
Found = collections.namedtuple("Found", "kind name first last text phylum")  # lines from 1, name qualified
Row = collections.namedtuple("Row", "wanted missing false rendered refused notes")

# Expected differences: end of the header's path, expression for the names, reason.
EXCEPTIONS = [
    ("/ctype.h", r"_?(is|to)\w+", "declared only by a macro call: __exctype (isalnum);"),
    ("/regex.h", r"re_pattern_buffer\.\w+", "the name is a macro call, __REPB_PREFIX(name), which looks like a function"),
    ("/png.h", r"png_longjmp_ptr", "PNG_CALLBACK(void, *png_longjmp_ptr, (...)) expands to type, name and arguments"),
    ("/event_struct.h", r"event_d?list", "declared only by a macro call: TAILQ_HEAD (event_list, event);"),
    ("/gmpxx.h", r"(__gmp_expr\.)?operator\W+", "declared only by macro calls: __GMP_DECLARE_COMPOUND_OPERATOR(operator+=)"),
]


def parser_declarations(dump, header):
    text = subprocess.run([dump, "model", header], stdout=subprocess.PIPE, check=True).stdout.decode("utf-8", "replace")
    found = []
    for line in text.splitlines():
        collection, name, phylum, first, last, declaration = line.split("\t", 5)
        kind = {"container": "type", "enumeration": "type"}.get(collection, collection)
        kind = "type" if phylum == "4" else kind
        found.append(Found(kind, re.sub(r"\s+", "", name), int(first), int(last), declaration, phylum))
    return found


def counts(names, kind):
    """Functions and variables are counted individually, types and macros once."""
    counter = collections.Counter(names)
    return counter if kind in ("function", "variable") else collections.Counter(set(counter))


def difference(wanted, found, taken, ignored, macros):
    """The missing and the false declarations, as pairs of kind and name."""
    missing, false = [], []
    for kind in KINDS:
        asked = counts((item.name for item in wanted if item.kind == kind), kind)
        all_found = counts((item.name for item in found if item.kind == kind), kind)
        surely = counts((item.name for item in found if item.kind == kind and
                         set(range(item.first, item.last + 1)) <= taken), kind)
        missing += [(kind, name) for name in (asked - all_found).elements()]
        false += [(kind, name) for name in (surely - asked).elements()
                  if name not in ignored and name.rpartition(".")[2] not in macros]
    return missing, false


def excepted(header, pairs, notes):
    """Removes the pairs listed in EXCEPTIONS and adds the reasons to the notes."""
    rest = []
    for kind, name in pairs:
        reasons = [reason for path, known, reason in EXCEPTIONS
                   if header.endswith(path) and re.fullmatch(known, name)]
        notes += ["%s: %s" % (header, reason) for reason in reasons[:1]]
        rest += [] if reasons else [(kind, name)]
    return rest


def rendered(found, wanted, taken):
    """The rendered texts of functions and typedefs at namespace level to compile again, each with clang's declaration."""
    places = {}
    for item in wanted:
        places.setdefault((item.kind, item.name), []).append(item)
    texts = []
    for item in found:
        here = [place for place in places.get((item.kind, item.name), []) if item.first <= place.line <= item.first + 20]
        if item.phylum in ("2", "4") and item.first in taken and here and all(place.path is not None for place in here):
            texts.append((item, here[0]))
    return texts


def again_in_c(texts):
    return [item.text + ";" for item, _ in texts]


def again_in_cxx(texts):
    """Each text in a separate nested namespace, with a cast for functions that compiles only if the types agree."""
    lines = []
    for index, (item, place) in enumerate(texts):
        spaces = place.path.split("::")[:-1] + ["tavidoc_%d" % index]
        line = "".join("namespace %s { " % space for space in spaces) + item.text + ";" + " }" * len(spaces)
        name = item.name.rpartition(".")[2] if item.phylum == "2" else ""
        name = re.sub(r"^operator(?=\w)", "operator ", name)
        if name:
            line += " auto *tavidoc_p%d = static_cast<decltype(&::%stavidoc_%d::%s)>(&::%s%s);" % (
                index, place.path, index, name, place.path, name)
        lines.append(line)
    return lines


def refused(include_line, options, texts, language):
    """Clang's messages for the texts that it rejects as declarations after the header, by index."""
    if not texts:
        return {}
    with tempfile.TemporaryDirectory() as folder:
        source = os.path.join(folder, "again." + language.suffix)
        undefined = "\n".join("#undef %s" % name for name in sorted({item.name.rpartition(".")[2] for item, _ in texts})
                              if re.fullmatch(r"\w+", name))
        head = language.head + include_line + "\n" + undefined + "\n"
        lines = again_in_cxx(texts) if language.cplusplus else again_in_c(texts)
        with open(source, "w", encoding="utf-8") as file:
            file.write(head + "\n".join(lines) + "\n")
        _, errors = language.run(["-fsyntax-only", "-ferror-limit=0", *options, source])
    first = head.count("\n") + 1
    bad = {}
    for number, message in re.findall(r"again\.\w+:(\d+):\d+: (?:fatal )?error: (.*)", errors):
        if "deleted function" not in message:  # caused by the cast alone
            bad.setdefault(int(number) - first, message)
    return bad


def check(dump, entry, cplusplus):
    """The row of one header and the lines for --list; None if the header is not installed."""
    path, _, options = entry.partition(":")
    path, _, include = path.partition("|")
    header = find(path)
    if not header:
        return path, None, []
    options = [option for option in options.split(",") if option]
    language = clang_headers.Language(cplusplus)
    include_line = '#include "%s"' % (include or header)
    with tempfile.TemporaryDirectory() as folder:
        source = os.path.join(folder, "main." + language.suffix)
        with open(source, "w") as file:
            file.write(language.head + include_line + "\n")
        wanted, ignored, errors = clang_headers.declarations(header, include_line, options, language)
        macros, every_macro = clang_headers.macros(header, source, options, language)
        taken = clang_headers.taken_lines(header, source, options, language)
    wanted += [clang_headers.Declaration("macro", name, 0, None) for name in macros]
    found = parser_declarations(dump, header)
    return (path, *compare(header, include_line, options, language, wanted, found, taken, ignored, every_macro, errors))


def compare(header, include_line, options, language, wanted, found, taken, ignored, macros, errors):
    notes, listing = [], []
    if errors:  # the comparison would be meaningless
        return None, ["  clang: " + error for error in errors]
    missing, false = (excepted(header, pairs, notes) for pairs in difference(wanted, found, taken, ignored, macros))
    texts = rendered(found, wanted, taken)
    bad = refused(include_line, options, texts, language)
    listing += differences("missing", missing, unmatched(wanted, found), header)
    listing += differences("false", false, {(item.kind, item.name): item.first for item in found}, header)
    for index, message in sorted(bad.items()):
        item = texts[index][0] if 0 <= index < len(texts) else None
        listing.append("  refused %s (line %d) | %s" % (item.text, item.first, message) if item else "  refused: " + message)
    total = sum(sum(counts((item.name for item in wanted if item.kind == kind), kind).values()) for kind in KINDS)
    return Row(total, len(missing), len(false), len(texts), len(bad), notes), listing


def unmatched(wanted, found):
    """For each kind and name, the line of clang's declaration; preferably one where the parser finds none."""
    lines = {}
    for item in found:
        lines.setdefault((item.kind, item.name), set()).update(range(item.first, item.last + 1))
    result = {(item.kind, item.name): item.line for item in wanted}
    result.update({(item.kind, item.name): item.line for item in wanted
                   if item.line not in lines.get((item.kind, item.name), ())})
    return result


def differences(title, pairs, lines, header):
    """A line for each kind and name, with a line number of its declaration."""
    with open(header, encoding="utf-8", errors="replace") as file:
        source = [""] + file.read().split("\n")
    types = [name + "." for kind, name in pairs if kind == "type" and not name.endswith(clang_headers.ANONYMOUS)]
    for index, (kind, name) in enumerate(pairs):  # members of listed types are only counted
        scopes = [scope for scope in types if name.startswith(scope)]
        pairs[index] = ("member of " + scopes[0][:-1], "") if scopes else (kind, name)
    result = []
    for pair, count in sorted(collections.Counter(pairs).items()):
        line = lines.get(pair, 0)
        text = "  %s %s %s" % (title, *pair) + (" %d times" % count if count > 1 else "")
        result.append(text + (" | %d: %s" % (line, source[line].strip()) if line else ""))
    return result


def report(name, row):
    recall = 100.0 * (row.wanted - row.missing) / row.wanted if row.wanted else 100
    print("%-52s %7d %8d %7.2f%% %6d %9d %8d" %
          (name[-52:], row.wanted, row.missing, recall, row.false, row.rendered, row.refused))


def table(title, entries, arguments, cplusplus):
    """Prints the rows of the headers. Returns their sum and whether clang failed to compile a header."""
    print("%-52s %7s %8s %8s %6s %9s %8s" % (title, "wanted", "missing", "recall", "false", "rendered", "refused"))
    rows, broken = [], False
    with concurrent.futures.ProcessPoolExecutor(arguments.jobs) as pool:
        for path, row, listing in pool.map(check, *zip(*[(arguments.dump, entry, cplusplus) for entry in entries])):
            if not row:
                print("%-52s %s" % (path, "\n".join(listing) or "not installed"))
                broken = broken or bool(listing)
                continue
            rows.append(row)
            report(path, row)
            if arguments.list and listing:
                print("\n".join(listing))
    total = Row(*[sum(values) for values in zip(*[row[:-1] for row in rows])], [note for row in rows for note in row.notes])
    report("all %s" % title, total)
    if total.notes:
        print("Exceptions:")
        for note, count in collections.Counter(total.notes).items():
            print("%5d  %s" % (count, note))
    return total, broken


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--c", action="store_true")
    parser.add_argument("--c++", dest="cxx", action="store_true")
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("dump")
    parser.add_argument("headers", nargs="*")
    arguments = parser.parse_args()
    good = True
    if not arguments.cxx or arguments.c:
        total, broken = table("C", arguments.headers or c_headers(), arguments, False)
        good = good and not (broken or total.missing or total.false or total.refused)
    if arguments.cxx or not (arguments.c or arguments.headers):
        total, broken = table("C++", arguments.headers or cxx_headers(), arguments, True)
        good = good and not (broken or total.false) and total.missing <= 0.005 * total.wanted
    sys.exit(0 if good else 1)


if __name__ == "__main__":
    main()
