#!/usr/bin/env python3
"""Compares what the declaration parser finds in C headers with what clang finds.

For each header: which file-level functions, variables, typedefs, structures, enumerations and
macros clang declares in the branches it takes, which of them the parser has (recall), which
names the parser has in those branches that clang lacks (false; a name that a macro replaces is
left out), and how many of the rendered
prototypes and typedefs clang accepts as declarations after the header.

usage: declarations.py [--list] DUMP_DECLARATIONS [HEADER...]
A header is NAME or NAME:OPTION,OPTION with options for clang; without any the usual ones
that are installed are taken. --list names every difference.
"""

import json
import os
import re
import subprocess
import sys
import tempfile

HEADERS = """zlib.h zconf.h zstd.h zdict.h zstd_errors.h xxhash.h lz4.h lz4hc.h lz4frame.h png.h pngconf.h sqlite3.h
sqlite3ext.h expat.h expat_external.h curl/curl.h curl/easy.h|curl/curl.h curl/multi.h|curl/curl.h
curl/header.h|curl/curl.h curl/urlapi.h|curl/curl.h curl/options.h|curl/curl.h
libxml/tree.h:-I/usr/include/libxml2 libxml/parser.h:-I/usr/include/libxml2 libxml/xpath.h:-I/usr/include/libxml2
libxml/xmlreader.h:-I/usr/include/libxml2 libxml/encoding.h:-I/usr/include/libxml2 libxml/xmlIO.h:-I/usr/include/libxml2
libxml/globals.h:-I/usr/include/libxml2 libxml/relaxng.h:-I/usr/include/libxml2 libxml/HTMLparser.h:-I/usr/include/libxml2
libxml/SAX2.h:-I/usr/include/libxml2 libxml/xmlschemas.h:-I/usr/include/libxml2 libxml/valid.h:-I/usr/include/libxml2
lua5.4/lua.h lua5.4/lauxlib.h lua5.4/luaconf.h lua5.4/lualib.h jansson.h event2/event.h event2/buffer.h
event2/bufferevent.h event2/http.h event2/util.h event2/dns.h event2/rpc.h event2/event_struct.h
SDL2/SDL_video.h SDL2/SDL_events.h SDL2/SDL_audio.h SDL2/SDL_render.h SDL2/SDL_stdinc.h SDL2/SDL_rwops.h
SDL2/SDL_surface.h SDL2/SDL_joystick.h SDL2/SDL_gamecontroller.h SDL2/SDL_pixels.h SDL2/SDL_thread.h SDL2/SDL_syswm.h
stdio.h stdlib.h string.h math.h unistd.h signal.h pthread.h time.h wchar.h sys/socket.h sys/stat.h
netinet/in.h netdb.h dirent.h fcntl.h locale.h regex.h setjmp.h semaphore.h spawn.h search.h obstack.h
argp.h glob.h fts.h ftw.h printf.h poll.h elf.h link.h dlfcn.h errno.h ctype.h grp.h pwd.h inttypes.h""".split()
GLIB = "glib-2.0"
GLIB_OPTIONS = "-I/usr/include/glib-2.0,-I/usr/lib/x86_64-linux-gnu/glib-2.0/include"
KINDS = ("function", "variable", "typedef", "structure", "enumeration", "macro")


def glib_headers():
    folder = "/usr/include/glib-2.0/glib"
    if not os.path.isdir(folder):
        return []
    return ["%s|glib.h:%s" % (os.path.join(folder, name), GLIB_OPTIONS) for name in sorted(os.listdir(folder))
            if name.endswith(".h")]


def find(name):
    for folder in ("", "/usr/include", "/usr/include/x86_64-linux-gnu", "/usr/include/libxml2"):
        path = os.path.join(folder, name)
        if os.path.isfile(path):
            return path
    return None


class Locations:
    """clang names file and line of a location only where they change; this fills them in."""

    def __init__(self):
        self.file = None
        self.line = 0

    def __call__(self, pairs):
        record = dict(pairs)
        if "offset" in record and "col" in record:
            self.file = record.setdefault("file", self.file)
            self.line = record.setdefault("line", self.line)
            self.file, self.line = record["file"], record["line"]
        return record


def place(node):
    """The file in which the name is spelled, or None when a macro makes the name."""
    location = node.get("loc", {})
    if "expansionLoc" in location:
        spelling = location["spellingLoc"]
        if "scratch space" in (spelling.get("file") or ""):
            return None
        if not location["expansionLoc"].get("isMacroArgExpansion"):
            return None
        location = spelling
    return location.get("file")


def clang_declarations(source, header, options):
    text = subprocess.run(["clang", "-xc", "-std=gnu17", "-w", "-fsyntax-only", "-Xclang", "-ast-dump=json", *options, source],
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    tree = json.loads(text, object_pairs_hook=Locations())
    found = {kind: set() for kind in KINDS}
    renamed = set()  # tags of structures and enumerations that a typedef gives another name
    kinds = {"FunctionDecl": "function", "VarDecl": "variable", "TypedefDecl": "typedef"}
    for node in tree.get("inner", []):
        name = node.get("name")
        if not name or node.get("isImplicit") or place(node) != header:
            continue
        kind = node["kind"]
        if kind in kinds:
            found[kinds[kind]].add(name)
            owner = node["inner"][0].get("ownedTagDecl", {}) if kind == "TypedefDecl" and node.get("inner") else {}
            if owner.get("name"):
                renamed.add(owner["name"])
        elif kind == "RecordDecl" and node.get("completeDefinition"):
            found["structure"].add(name)
        elif kind == "EnumDecl" and node.get("inner"):
            found["enumeration"].add(name)
    found["structure"] -= renamed
    found["enumeration"] -= renamed
    return found, renamed


def clang_macros(source, header, options):
    text = subprocess.run(["clang", "-xc", "-std=gnu17", "-w", "-E", "-dD", *options, source],
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout.decode("utf-8", "replace")
    names, current = set(), None
    for line in text.splitlines():
        marker = re.match(r'# \d+ "(.*?)"', line)
        if marker:
            current = marker.group(1)
        elif current == header:
            macro = re.match(r"#\s*define\s+(\w+)", line)
            if macro:
                names.add(macro.group(1))
    return names


def logical_lines(text):
    """Pairs of a line's number, from 1, and the lines joined to it by backslashes."""
    lines = text.split("\n")
    at = 0
    while at < len(lines):
        end = at
        while lines[end].rstrip().endswith("\\") and end + 1 < len(lines):
            end += 1
        yield at + 1, lines[at:end + 1]
        at = end + 1


def comment_after(text, comment):
    """Whether a block comment is open after the text when one was, or was not, open before it."""
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


def taken_lines(header, include, options):
    """The lines of the header that are in branches that clang takes."""
    text = open(header, encoding="utf-8", errors="replace").read()
    marked, regions, comment, waits = [], [], False, False
    for number, lines in logical_lines(text):
        marked += lines
        conditional = not comment and re.match(r"\s*#\s*(if|ifdef|ifndef|elif|else|endif)\b", lines[0])
        comment = comment_after("\n".join(lines), comment)
        waits = bool(conditional) or waits
        if waits and not comment:  # a comment that the directive opens may run on
            waits = False
            regions.append(number + len(lines))
            marked.append("#pragma tavidoc_region %d" % (len(regions)))
    with tempfile.TemporaryDirectory() as folder:
        overlay = os.path.join(folder, "overlay.yaml")
        copy = os.path.join(folder, "copy.h")
        open(copy, "w", encoding="utf-8").write("\n".join(marked))
        json.dump({"version": 0, "use-external-names": False, "roots": [
            {"name": os.path.dirname(header), "type": "directory", "contents": [
                {"name": os.path.basename(header), "type": "file", "external-contents": copy}]}]}, open(overlay, "w"))
        output = subprocess.run(["clang", "-xc", "-std=gnu17", "-w", "-E", "-ivfsoverlay", overlay, *options, include],
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout.decode("utf-8", "replace")
    taken = {int(number) for number in re.findall(r"#pragma tavidoc_region (\d+)", output)}
    total = text.count("\n") + 1
    result = set(range(1, (regions[0] if regions else total + 1)))
    for index, start in enumerate(regions, 1):
        if index in taken:
            result |= set(range(start, regions[index] if index < len(regions) else total + 1))
    return result


def parser_declarations(dump, header):
    text = subprocess.run([dump, "model", header], stdout=subprocess.PIPE, check=True).stdout.decode("utf-8", "replace")
    found = {kind: {} for kind in KINDS}
    texts = []
    for line in text.splitlines():
        collection, name, phylum, first, last, declaration = line.split("\t", 5)
        if "." in name or name == "(Anonymous)":
            continue
        kind = {"container": "structure", "variable": "typedef" if phylum == "4" else "variable"}.get(collection, collection)
        found[kind].setdefault(name, []).append({int(first), int(last)})
        if kind in ("function", "typedef"):
            texts.append((kind, name, int(first), declaration))
    return found, texts


def accepted(include_line, options, texts):
    """The texts that clang accepts as declarations after the header."""
    with tempfile.TemporaryDirectory() as folder:
        source = os.path.join(folder, "again.c")
        names = "\n".join("#undef %s" % name for name in sorted({name for _, name, _, _ in texts}))
        head = include_line + "\n" + names + "\n"
        open(source, "w", encoding="utf-8").write(head + "".join(text + ";\n" for _, _, _, text in texts))
        errors = subprocess.run(["clang", "-xc", "-std=gnu17", "-w", "-fsyntax-only", "-ferror-limit=0", *options, source],
                                stdout=subprocess.DEVNULL, stderr=subprocess.PIPE).stderr.decode("utf-8", "replace")
    first = head.count("\n") + 1
    bad = {}
    for number, message in re.findall(r"again\.c:(\d+):\d+: (?:fatal )?error: (.*)", errors):
        bad.setdefault(int(number) - first, message)
    return bad


def check(dump, header, include, options, listing):
    include_line = '#define _GNU_SOURCE 1\n#include "%s"' % include
    with tempfile.TemporaryDirectory() as folder:
        source = os.path.join(folder, "main.c")
        open(source, "w").write(include_line + "\n")
        wanted, renamed = clang_declarations(source, header, options)
        wanted["macro"] = clang_macros(source, header, options)
        taken = taken_lines(header, source, options)
    found, texts = parser_declarations(dump, header)
    types = wanted["typedef"] | wanted["structure"] | wanted["enumeration"] | renamed
    have = {kind: set(found[kind]) for kind in KINDS}
    have_types = have["typedef"] | have["structure"] | have["enumeration"]
    missing, false = [], []
    for kind in KINDS:
        type_kind = kind in ("typedef", "structure", "enumeration")
        for name in wanted[kind] - (have_types if type_kind else have[kind]):
            missing.append((kind, name))
        for name in have[kind] - (types if type_kind else wanted[kind]):
            if name not in wanted["macro"] and any(lines <= taken for lines in found[kind][name]):
                false.append((kind, name))
    total = sum(len(wanted[kind]) for kind in KINDS)
    again = [text for text in texts if text[1] in wanted[text[0]] and text[2] in taken]
    bad = accepted(include_line, options, again)
    if listing:
        for kind, name in sorted(missing):
            print("  missing %s %s" % (kind, name))
        for kind, name in sorted(false):
            print("  false %s %s" % (kind, name))
        for index, message in sorted(bad.items()):
            print("  refused %s | %s" % (again[index][3] if 0 <= index < len(again) else index, message))
    return total, len(missing), len(false), len(again), len(bad)


def main():
    arguments = sys.argv[1:]
    listing = "--list" in arguments
    arguments = [argument for argument in arguments if argument != "--list"]
    if not arguments:
        sys.exit(__doc__)
    dump = arguments[0]
    sums = [0] * 5
    print("%-44s %7s %8s %7s %6s %9s %8s" % ("header", "wanted", "missing", "recall", "false", "rendered", "refused"))
    for entry in arguments[1:] or HEADERS + glib_headers():
        path, _, options = entry.partition(":")
        path, _, include = path.partition("|")
        header = find(path)
        if not header:
            print("%-44s not installed" % path)
            continue
        row = check(dump, header, include or header, options.split(",") if options else [], listing)
        sums = [a + b for a, b in zip(sums, row)]
        report(path, row)
    report("all", sums)
    sys.exit(1 if sums[2] or sums[1] > 0.01 * sums[0] or sums[4] > 0.02 * sums[3] else 0)


def report(name, row):
    total, missing, false, rendered, refused = row
    print("%-44s %7d %8d %6.2f%% %6d %9d %8d" %
          (name[-44:], total, missing, 100.0 * (total - missing) / total if total else 100, false, rendered, refused))


main()
