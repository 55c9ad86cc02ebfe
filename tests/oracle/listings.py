#!/usr/bin/env python3
"""Compares the colours of whole files with the tokens of other lexers.

    tests/oracle/listings.py [--program FILE] [--show N] FILE...

Run by hand. The program writes a page with a listing of each file. The suffix determines the language
(.c .h .cpp .hpp: C, .js: JavaScript, .xml: XML; for others only the text is compared). Without spans and
escapes, the text must equal the file. Each character that is not white space is then assigned to one of four
classes, by its style and by the reference, and the agreements are counted.

The reference for C and C++ is clang's raw tokens (`clang -cc1 -dump-raw-tokens`), for JavaScript and XML
Pygments. Both sides use our tables of keywords.

    class     our styles                                the reference's tokens
    comment   comment, fixme, attention, doc-keyword,   comments
              doc-argument, doc-code
    string    literal                                   strings, characters, numbers, regular expressions
    keyword   keyword                                   words of our table, except in names of directives,
                                                        headers and tags
    other     text, control, operator, function,        everything else, including Pygments' "Preproc" (XML
              markup, attribute, register, unnamed      declarations, instructions and character data) and
              styles (brackets, "<" of tags)            the delimiters of template substitutions

Good inputs: /usr/include/sqlite3.h; the sources of zstd (`apt-get source libzstd`);
/usr/share/mime/packages/freedesktop.org.xml; the bundles of `npm pack lodash react-dom three`.
Needs clang and python3-pygments.

Results: sqlite3.h and 48 sources of zstd, 3,378,489 characters: no differences. 362 C++ headers, 4,642,555: 20 differ,
all in `operator""h` and similar operators, whose suffix has no underscore. lodash, react-dom and three, plain and
minified, 3,034,154: none. freedesktop.org.xml, 1,978,218: 67 differ (99.9966 % agree), default values in its DOCTYPE,
which are literals for us and which Pygments does not analyse. Other possible differences, in invalid or unusual code:

- An unterminated string is a literal up to the end of the line; clang has no token for it.
- `#error don't use 'x'`: after the apostrophe our lexer sees prose, clang a character.
- A comment marker with a backslash and line end inside: its first half is an operator.
- C files also have the raw strings and suffixes of C++.
"""

import argparse
import collections
import html
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
LANGUAGES = {".c": "c", ".h": "c", ".hpp": "c", ".cpp": "c", ".js": "js", ".xml": "xml", ".s": "asm", ".bas": "classic-basic"}
COMMENT_STYLES = {"comment", "fixme", "attention", "doc-keyword", "doc-argument", "doc-code"}
CLASS_OF_STYLE = {"literal": "string", "keyword": "keyword", **{style: "comment" for style in COMMENT_STYLES}}
ELLIPSES = {"\u205e": ("\\vdots",), "\u2026": ("\\hdots", "\\...")}


def our_classes(program, path, language, text):
    """The class of each character of the listing, and whether the listing equals the text."""
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        (folder / "listing").write_bytes(path.read_bytes())
        (folder / "page.dg").write_text("\\split{page}\n\\present{%s} listing\n" % language)
        subprocess.run([program, "-o", folder, "page.dg"], cwd=folder, check=True, stdout=subprocess.DEVNULL)
        page = (folder / "page.htm").read_bytes()
    page = page.decode("utf-8" if b"charset=utf-8" in page.lower() else "latin-1")
    begin = page.index('<pre class="zkt-code">') + len('<pre class="zkt-code">')
    classes = []
    shown = []
    style = "text"
    for tag, piece in re.findall(r"(<[^>]*>)|([^<]+)", page[begin : page.index("</pre>", begin)]):
        if tag:
            name = re.search('zkt-code-([a-z-]+)"', tag)
            style = name[1] if name else "text"
            continue
        for character in html.unescape(piece):
            part = character
            if character in ELLIPSES:
                part = next((mark for mark in ELLIPSES[character] if text.startswith(mark, len(classes))), character)
            shown.append(part)
            classes.extend([CLASS_OF_STYLE.get(style, "other")] * len(part))
    return classes, "".join(shown).rstrip() == text.rstrip()


def our_words(name):
    source = (ROOT / "src/codeedit/word_lists.cpp").read_text()
    return set(re.findall(r'u"([^"]*)"', re.search(r"s_%s\[\] = \{(.*?)\n\};" % name, source, re.S)[1]))


class Names:
    """Recognises names of directives and of headers in angle brackets, which clang's raw tokens do not."""

    def __init__(self):
        self.at_line_start = True
        self.expected = ""  # "name" after the "#" of a directive, "header" where a header name may begin, ">" inside one

    def takes(self, kind, value, starts_line):
        """Processes one token. Returns whether it belongs to such a name."""
        if kind == "unknown" and "\n" in value:
            self.at_line_start, self.expected = True, ""
        if kind in ("unknown", "comment"):
            return False
        directive = kind == "hash" and (starts_line or self.at_line_start)
        self.at_line_start = False
        before, self.expected = self.expected, "name" if directive else ""
        if before == ">" or (before == "header" and kind == "less"):
            self.expected = "" if kind == "greater" else ">"
        elif before == "name" and value in ("include", "include_next", "import", "embed"):
            self.expected = "header"
        elif value.startswith(("__has_include", "__has_embed")) or (before == "has" and kind == "l_paren"):
            self.expected = "header" if before == "has" else "has"
        return before in ("name", ">")


def clang_classes(path, text):
    """Classes by clang's raw tokens, which cover the file without gaps."""
    language = "c++" if path.suffix in (".cpp", ".hpp") else "c"
    command = ["clang", "-cc1", "-dump-raw-tokens", "-x", language, "-std=" + ("gnu++20" if language == "c++" else "gnu17")]
    dump = subprocess.run(command + [path], capture_output=True).stderr.decode("utf-8", "replace")
    data = text.encode("utf-8")
    line_starts = [0] + [match.end() for match in re.finditer(b"\n", data)]
    tokens = []
    at = 0
    for location in re.finditer(r"\tLoc=<[^>\n]*:(\d+):(\d+)>\n", dump):
        kind = dump[at : location.start()].split(" ", 1)[0]
        tokens.append((kind, line_starts[int(location[1]) - 1] + int(location[2]) - 1, "[StartOfLine]" in dump[at : location.start()]))
        at = location.end()
    words = our_words("c")
    of_bytes = ["other"] * len(data)
    names = Names()
    for index, (kind, begin, starts_line) in enumerate(tokens):
        end = tokens[index + 1][1] if index + 1 < len(tokens) else len(data)
        begin += len(re.match(rb"(\\[ \t]*\n)*", data[begin:end])[0])  # clang includes preceding line joins in a token
        value = data[begin:end].decode("utf-8", "replace")
        named = names.takes(kind, value, starts_line)
        if named:
            continue
        if kind == "comment":
            of_bytes[begin:end] = ["comment"] * (end - begin)
        elif "literal" in kind or "constant" in kind:
            of_bytes[begin:end] = ["string"] * (end - begin)
        elif kind == "raw_identifier" and value in words:
            of_bytes[begin:end] = ["keyword"] * (end - begin)
    classes = []
    at = 0
    for character in text:
        classes.append(of_bytes[at])
        at += len(character.encode("utf-8"))
    return classes


def pygments_classes(path, text):
    from pygments.lexers import JavascriptLexer, XmlLexer
    from pygments.token import Comment, Literal, Name, Keyword, Operator

    words = our_words("javaScript") if path.suffix == ".js" else set()
    lexer = JavascriptLexer() if path.suffix == ".js" else XmlLexer()
    classes = ["other"] * len(text)
    for at, kind, value in lexer.get_tokens_unprocessed(text):
        name = "other"
        if kind in Comment and not (path.suffix == ".xml" and kind in Comment.Preproc):
            name = "comment"
        elif kind in Literal and kind not in Literal.String.Interpol:
            name = "string"
        elif value in words and (kind in Name or kind in Keyword or kind in Operator):
            name = "keyword"
        classes[at : at + len(value)] = [name] * len(value)
    return classes


def differences(ours, theirs, text):
    """The runs of characters whose classes differ: (our class, theirs, offset, length)."""
    runs = []
    for at, (one, other) in enumerate(zip(ours, theirs)):
        if one == other or text[at].isspace():
            continue
        if runs and runs[-1][:2] == (one, other) and not text[runs[-1][2] + runs[-1][3] : at].strip():
            runs[-1] = (one, other, runs[-1][2], at + 1 - runs[-1][2])
        else:
            runs.append((one, other, at, 1))
    return runs


def check(program, path, shown):
    """Prints the result of one file and its differences. Returns whether it passed."""
    text = path.read_bytes()
    try:
        text = text.decode("utf-8")
    except UnicodeDecodeError:
        text = text.decode("latin-1")
    text = text.replace("\r\n", "\n").removeprefix("\ufeff")
    language = LANGUAGES.get(path.suffix, "c")
    ours, survives = our_classes(program, path, language, text)
    if not survives:
        print(f"{path.name}: the text has changed")
        return False
    if language not in ("c", "js", "xml"):
        print(f"{path.name:34} {len(text):9} characters, the text is unchanged")
        return True
    theirs = clang_classes(path, text) if language == "c" else pygments_classes(path, text)
    runs = differences(ours, theirs, text)
    total = sum(not character.isspace() for character in text)
    wrong = sum(len("".join(text[at : at + length].split())) for _, _, at, length in runs)
    agreement = 100 * (total - wrong) / max(total, 1)
    counts = collections.Counter(name for name, character in zip(theirs, text) if not character.isspace())
    shares = ", ".join(f"{100 * counts[name] / max(total, 1):.0f} % {name}" for name in ("comment", "string", "keyword"))
    print(f"{path.name:34} {total:9} characters ({shares}), {wrong} differ: {agreement:.4f} % agree")
    for kind, number in collections.Counter(run[:2] for run in runs).most_common():
        print(f"    {number} times {kind[0]} instead of {kind[1]}")
        for run in [run for run in runs if run[:2] == kind][:shown]:
            line = text.count("\n", 0, run[2]) + 1
            before = text[text.rfind("\n", 0, run[2]) + 1 : run[2]][-40:]
            print(f"        line {line}: {before!r} >>> {text[run[2] : run[2] + min(run[3], 60)]!r}")
    return agreement >= 99.9


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--program", default=ROOT / "build/tavidoc", type=pathlib.Path)
    parser.add_argument("--show", type=int, default=2, help="differences to show per kind (%(default)s)")
    parser.add_argument("files", nargs="+", type=pathlib.Path)
    arguments = parser.parse_args()
    results = [check(arguments.program.resolve(), path, arguments.show) for path in arguments.files]
    sys.exit(0 if all(results) else 1)


if __name__ == "__main__":
    main()
