#!/usr/bin/env python3
"""Checks that comments before functions of real headers appear on the pages of these functions.

Inserts a numbered documentation comment before each function and prototype that universal-ctags finds in a
header, and runs tavidoc on the copy. The number must be on the page of that name (or, for overloads, be
reported as replaced there). A number on another page is misplaced, a number on no page is lost. Lost numbers
are classified by reason where possible; the rest is listed for review.

usage: documented_functions.py [--jobs N] [--sample N] [--after-macros] [--all] TAVIDOC [HEADER | DIRECTORY]...
The default is all of /usr/include. --sample selects N headers at random (seed 1). --after-macros inserts the
comments after macros that are alone on their lines, not before them. --all also lists the classified ones.

Needs the Debian package universal-ctags.
"""

import argparse
import bisect
import collections
import concurrent.futures
import functools
import hashlib
import html
import os
import random
import re
import shutil
import subprocess
import tempfile

from instrument import DIRECTIVE, blanked, body_offset, ctags, group_end, instrumented, is_outside, member, tags

SUFFIXES = (".h", ".hpp", ".hh", ".hxx")
BATCH = 100  # headers per ctags process
Result = collections.namedtuple("Result", "verdict path tag detail")
# Reasons visible in the text between the first token of a declaration and its name.
HEADS = (
    ("explicit instantiation", re.compile(r"^(?:extern\s+)?template\s+[^<\s]")),
    ("ctags: a statement", re.compile(r"^(?:return|else|do|new|delete|goto|throw|case|static_assert|_Static_assert)\b")),
    ("the comment is inside the declaration", re.compile(r"^[,)>=]")))
MACRO = r"(?:[A-Z][A-Z0-9_]|__)\w*"
CALLS = re.compile(r"(?:%s(?:\s*\([^()]*\))?\s*)*" % MACRO)
OPEN_CALL = re.compile(r"\b%s\s*\([^()]*$" % MACRO)
SCOPE = re.compile(r"\b(?:namespace|class|struct|union|extern)\b|\bNAMESPACE\b|_BEGIN\b")


def headers_of(places):
    found = set()
    for place in places:
        if os.path.isfile(place):
            found.add(place)
        for folder, _, names in os.walk(place):
            found |= {os.path.realpath(os.path.join(folder, name)) for name in names if name.endswith(SUFFIXES)}
    contents = {}
    for path in sorted(path for path in found if os.path.isfile(path)):
        with open(path, "rb") as file:
            contents.setdefault(hashlib.sha1(file.read()).digest(), path)  # skip copies
    return sorted(contents.values())


def numbers_on_pages(folder, output, lines):
    """For each number, the names of the pages that have it, or had it before another page replaced them."""
    pages = collections.defaultdict(set)
    for name in os.listdir(folder):
        with open(os.path.join(folder, name), encoding="latin-1") as file:
            text = file.read()
        title = re.search(r"<title[^>]*>(.*?)</title>", text, re.S)
        title = re.sub(r"\s+", "", html.unescape(title.group(1))) if title else ""
        if title.startswith("<"):
            continue  # the page of the header
        body = text[text.find("<body"):]
        for number in re.findall(r"<p>(\d+)</p>", body):
            pages[int(number)].add(title)
    for newer, title, older in re.findall(r":(\d+): the page of (.*) replaces the one documented on line (\d+)", output):
        for line in (newer, older):
            if int(line) in lines:
                pages[lines[int(line)]].add(re.sub(r"\s+", "", title))
    return pages


def run(tavidoc, text, path, folder):
    """Runs tavidoc on the text. Returns the folder of the pages and the messages."""
    name = os.path.basename(path).partition(".")[0] + ".h"  # tavidoc ignores other suffixes
    source, pages = os.path.join(folder, name), os.path.join(folder, "pages")
    with open(source, "w", encoding="latin-1", newline="") as file:
        file.write(text)
    shutil.rmtree(pages, ignore_errors=True)
    os.mkdir(pages)
    try:
        done = subprocess.run([tavidoc, "-o", pages, source], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=300)
    except subprocess.TimeoutExpired:
        return pages, "no end within five minutes", -1
    finally:
        os.remove(source)
    return pages, done.stdout.decode("utf-8", "replace"), done.returncode


def check(tavidoc, path, records, always, folder):
    with open(path, encoding="latin-1", newline="") as file:
        text = file.read()
    code = blanked(text)
    found = tags(code, records, always)
    copy, lines = instrumented(text, code, found)
    pages, output, status = run(tavidoc, copy, path, folder)
    if status:
        return [Result("tavidoc failed", path, tag, output[-200:]) for tag in found]
    numbers = numbers_on_pages(pages, output, lines)
    results, first_names = [], {}
    for tag in found:
        first_names.setdefault(tag.number, tag)
        names = numbers.get(tag.number, ())
        if tag.name in names and tag.number:
            results.append(Result("found", path, tag, ""))
            continue
        shares = first_names[tag.number] is not tag
        verdict = reason(text, code, tag, shares) or outside(text, code, tag, found) or replaced(code, tag, found) or ("misplaced" if names else "lost")
        if names and other_word(code, tag, names):
            verdict = "ctags: another word of the declaration"
        results.append(Result(verdict, path, tag, " ".join(sorted(names)[:3])))
    return results


@functools.lru_cache(1)
def braces(code):
    """The offsets of all braces, and for each whether one that is not a scope's is open after it."""
    offsets, inside, stack, last = [-1], [False], [], 0
    for mark in re.finditer(r"[;{}]", code):
        if mark.group() == "{":
            head = code[last:mark.start()].rstrip(DIRECTIVE + " \n")
            stack.append((bool(SCOPE.search(head)) and not head.endswith(")")) and not inside[-1])
        elif mark.group() == "}" and stack:
            stack.pop()
        if mark.group() != ";":
            offsets.append(mark.start())
            inside.append(bool(stack) and not stack[-1])
        last = mark.end()
    return offsets, inside


def in_body(code, at):
    """Whether a brace other than that of a namespace, class or linkage specification is open at the offset."""
    offsets, inside = braces(code)
    return inside[bisect.bisect_left(offsets, at) - 1]


def reason(text, code, tag, shares):
    """The reason why a tag cannot be checked, or None."""
    if tag.start < 0:
        return "ctags: in a directive or comment"
    if not tag.number:
        return "defined outside its class as well"
    if shares:
        return "shares its declaration with another"
    head = code[tag.start:tag.name_at]
    for verdict, pattern in HEADS:
        if pattern.search(head):
            return verdict
    if is_macro_statement(code, tag):
        return "ctags: macro call as a statement"
    if OPEN_CALL.search(head):
        return "ctags: inside the arguments of a macro call"
    if is_cut(code, tag.start):
        return "a directive inside the declaration"
    if "/*" in text[tag.start:tag.name_at]:
        return "another comment inside the declaration's head"
    return reason_of_body(text, code, tag)


def is_macro_statement(code, tag):
    """Whether the tag is a macro call without a type before it, perhaps on a line after other calls."""
    head = re.sub(r"^template\s*<.*>", "", code[tag.start:tag.name_at].strip(), flags=re.S)
    starts_line = not code[code.rfind("\n", 0, tag.name_at) + 1:tag.name_at].strip()
    macro = re.fullmatch(MACRO if starts_line else r"[A-Z_][A-Z0-9_]*", tag.name)
    return macro and not tag.scope.endswith(tag.name) and (not head or (starts_line and CALLS.fullmatch(head)))


def is_cut(code, start):
    """Whether a directive before the offset is inside a declaration."""
    before = code[max(0, start - 9999):start].rstrip()
    plain = before.replace(DIRECTIVE, " ").rstrip()
    return before.endswith(DIRECTIVE) and bool(re.search(r"[^;{}:)\s]$|__attribute__\s*\(\([^;]*\)\)$", plain))


def reason_of_body(text, code, tag):
    body = body_offset(code, tag.name_at)
    whole = DIRECTIVE not in code[tag.start:body] and "//" not in text[tag.start:body]  # its lines were joined
    if body >= 0 and code.count("\n", tag.start, body) >= 2 and not whole:
        return "the body begins too far from the comment"
    arguments = code.find("(", tag.name_at)
    if tag.start == tag.name_at or code[tag.start:tag.start + 8] == "template":
        if re.match(r"\s*(?:noexcept\s*)?->", code[group_end(code, arguments):][:40]) and "auto" not in code[tag.start:tag.name_at]:
            return "a deduction guide"
    if in_body(code, tag.start):
        return "ctags: inside a function's body, enumeration or initialiser"
    return None


def other_word(code, tag, names):
    """Whether ctags mistook a macro or a type for the name, and the page has the correct name."""
    rest, head = code[tag.name_at:tag.name_at + 400], code[tag.start:tag.name_at]
    call = r"%s\s*\(" % re.escape(tag.name)
    for name in map(re.escape, names):
        patterns = (call + r"\s*%s\s*\)\s*\((?!\s*\w+\s*\)\s*\()" % name,  # type(name)(arguments)
                    call + r"[\w\s:]*\*\s*%s\s*\)\s*\(" % name,  # type (*name)(arguments)
                    call + r"[^();]*\)[\s\w*&]*\b%s\b" % name)  # MACRO(argument) name
        if any(re.match(pattern, rest) for pattern in patterns):
            return True
        if head.count("(") > head.count(")") and re.search(r"\b%s\b" % name, rest):
            return True  # decltype(word(...)) name
        if re.fullmatch(r"[A-Z_][A-Z0-9_]*", tag.name) and re.search(r"(?<![\w~])%s\b" % name, head):
            return True  # name MACRO(argument)
    return False


def outside(text, code, tag, found):
    """The reason why a member defined outside its class has no page: the class is elsewhere or has a comment, or None."""
    if not is_outside(code, tag):
        return None
    inside = [other for other in found if member(other) == member(tag) and not other.number]
    if not inside:
        return "defined outside its class, class not in this header"
    before = [re.sub(r"(?:\b[A-Z_][A-Z0-9_]*\s*)+$", "", text[max(0, other.start - 999):other.start]) for other in inside]
    if any(head.rstrip().endswith("*/") for head in before):
        return "defined outside its class, documented in the class"
    before = [other for other in found if member(other) == member(tag) and other.number and other.start < tag.start]
    if before and re.match(r"template\s*<\s*>", code[tag.start:tag.name_at]):
        return "a specialisation of a member, documented at another"
    return None


def replaced(code, tag, found):
    """A reason if a later virtual method of the same name in the class replaces the method, otherwise None."""
    later = [other for other in found if other.scope == tag.scope and other.name == tag.name and other.start > tag.start]
    if tag.scope and any(re.search(r"\bvirtual\b", code[other.start:other.name_at]) for other in later):
        return "replaced by a virtual function of the same name"
    return None


def batch(tavidoc, headers, always):
    found = ctags(headers)
    with tempfile.TemporaryDirectory(dir="/dev/shm") as folder:
        results = []
        for path in headers:
            if found[path]:
                results += check(tavidoc, path, found[path], always, folder)
        return results


def source_line(path, number):
    with open(path, encoding="latin-1") as file:
        lines = file.read().split("\n")
    return lines[number - 1].strip() if number <= len(lines) else ""


def listing(results, verdicts):
    for verdict in verdicts:
        print("\n%s" % verdict)
        for result in results:
            if result.verdict == verdict:
                page = " on the page of " + result.detail if result.detail else ""
                print("  %s:%d: %s%s | %s" % (result.path, result.tag.line, result.tag.name, page,
                                              source_line(result.path, result.tag.line)))


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--sample", type=int)
    parser.add_argument("--after-macros", action="store_true")
    parser.add_argument("--all", action="store_true")
    parser.add_argument("tavidoc")
    parser.add_argument("places", nargs="*", default=["/usr/include"])
    arguments = parser.parse_args()
    headers = headers_of(arguments.places or ["/usr/include"])
    if arguments.sample and arguments.sample < len(headers):
        headers = random.Random(1).sample(headers, arguments.sample)
    batches = [headers[at:at + BATCH] for at in range(0, len(headers), BATCH)]
    results = []
    with concurrent.futures.ProcessPoolExecutor(arguments.jobs) as pool:
        for part in pool.map(batch, *zip(*[(arguments.tavidoc, part, arguments.after_macros) for part in batches])):
            results += part
    verdicts = collections.Counter(result.verdict for result in results)
    open_ones = [verdict for verdict in ("tavidoc failed", "misplaced", "lost") if verdicts[verdict]]
    others = [verdict for verdict in verdicts if verdict not in open_ones + ["found"]]
    listing(results, open_ones + (others if arguments.all else []))
    print("\n%d headers" % len(headers))
    for verdict, count in verdicts.most_common():
        print("%9d  %s" % (count, verdict))


if __name__ == "__main__":
    main()
