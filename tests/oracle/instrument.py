"""Inserts a numbered documentation comment before each function that universal-ctags finds in a header."""

import collections
import json
import re
import subprocess

COMMENT = "/*!\n * \\brief %d\n */\n"
DIRECTIVE = "\x01"  # fills directives in a blanked text

# start: offset of the first token, -1 if the name is not in the code; name: without white space
Tag = collections.namedtuple("Tag", "name line start name_at scope number")

TOKENS = re.compile(r"""//(?:[^\n\\]|\\.|\\\n)*|/\*.*?(?:\*/|\Z)
    |R"(?P<raw>[^()\\\s]{0,16})\(.*?\)(?P=raw)"|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Za-z])'(?:\\.|[^'\\\n])*'
    |^[ \t]*\#(?:[^\n\\/]|\\.|\\\n|/(?!\*)|/\*.*?\*/)*""", re.X | re.S | re.M)
LABEL = re.compile(r"\b(?:public|protected|private|signals|slots|Q_SIGNALS|Q_SLOTS)\b[\w \t]*:(?!:)\s*")
LONE_MACRO = re.compile(r"([A-Z_][A-Z0-9_]*)[ \t]*(\((?:[^()\n]|\([^()\n]*\))*\))?[ \t]*\n(\s*)")
STATEMENT_MACRO = re.compile(r"BEGIN|END|DECLS|OBJECT|GADGET|NAMESPACE|^QML_|^Q_")


def ctags(headers):
    """The functions and prototypes that ctags finds, by header."""
    listed = subprocess.run(
        ["ctags", "--languages=C,C++", "--kinds-C++=fp", "--kinds-C=fp", "--fields=+neSZK", "--output-format=json",
         "--sort=no", "-o", "-", "-L", "-"],
        input="\n".join(headers).encode(), stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True).stdout
    found = {header: [] for header in headers}
    for line in listed.decode("utf-8", "replace").splitlines():
        record = json.loads(line)
        if record["_type"] == "tag":
            found[record["path"]].append(record)
    return found


def blanked(text):
    """The text with comments and literals replaced by spaces and directives by DIRECTIVE; lines keep their places."""
    def blank(match):
        piece = match.group()
        filler = DIRECTIVE if piece.lstrip().startswith("#") else " "
        if piece[0] in "\"'R":
            return '"' + re.sub(r"[^\n]", " ", piece[1:-1]) + '"'
        return re.sub(r"[^\n]", filler, piece)
    return TOKENS.sub(blank, text)


def name_offset(code, begin, end, name):
    """The offset of the name on its line, -1 if it is only in comments or directives."""
    pattern = r"\b%s\b" % re.escape(name)
    if re.match(r"operator\b", name):
        pattern = r"\boperator\b"
    elif name.startswith("~"):
        pattern = r"~\s*" + re.escape(name[1:])
    called = re.compile(pattern + r"(?=\s*\()").search(code, begin, end + 99)  # the "(" may be on the next line
    found = called if called and called.start() < end else re.compile(pattern).search(code, begin, end)
    return found.start() if found else -1


def declaration_start(code, at):
    """The offset of the first token of the declaration whose name is at the offset."""
    begin = max(code.rfind(mark, 0, at) for mark in (";", "{", "}", DIRECTIVE)) + 1
    for label in LABEL.finditer(code, begin, at):
        begin = label.end()
    begin += len(code[begin:at]) - len(code[begin:at].lstrip())
    return begin


def after_macros(code, begin, at, always):
    """The start of a declaration after macros that are alone on their lines."""
    while True:
        macro = LONE_MACRO.match(code, begin, at)
        statement = macro and ("\n" in macro.group(3) or STATEMENT_MACRO.search(macro.group(1)))
        if not macro or not (statement or always):
            return begin
        begin = macro.end()


def group_end(code, at):
    """The offset after the group whose opener is at the offset."""
    depth = 0
    for mark in re.compile(r"[(){}]").finditer(code, at):
        depth += 1 if mark.group() in "({" else -1
        if depth == 0:
            return mark.end()
    return len(code)


def body_offset(code, name_at):
    """The offset of the brace of the body of the function whose name is at the offset, -1 for a prototype."""
    at = code.find("(", name_at)
    if at < 0:
        return -1
    at = group_end(code, at)
    found = re.compile(r"[;{}:(]").search(code, at)
    while found and found.group() in ":(":
        at = group_end(code, found.start()) if found.group() == "(" else found.end()
        initialiser = re.compile(r"\s*,?\s*[\w:]+(?:<[^;{}()]*>)?\s*([({])").match(code, at)
        while initialiser and found.group() == ":" and code[at:at + 1] != ":":
            at = group_end(code, initialiser.start(1))
            initialiser = re.compile(r"\s*(?:\.\.\.)?\s*,\s*[\w:]+(?:<[^;{}()]*>)?\s*([({])").match(code, at)
        found = re.compile(r"[;{}(]" if found.group() == ":" else r"[;{}:(]").search(code, at)
    return found.start() if found and found.group() == "{" else -1


def tags(code, records, always):
    """The tags in the order of their declarations; tags of one declaration share its number."""
    lines = [0] + [match.end() for match in re.finditer(r"\n", code)] + [len(code)]
    result, numbers = [], {}
    for record in records:
        line = min(record["line"], len(lines) - 1)
        name = re.sub(r"<.*$", "", record["name"]) if not record["name"].startswith("operator") else record["name"]
        name = re.sub(r"\s+", "", name)
        at = name_offset(code, lines[line - 1], lines[line], re.sub(r"<[^<]*$", "", record["name"]))
        start = after_macros(code, declaration_start(code, at), at, always) if at >= 0 else -1
        number = numbers.setdefault(start, len(numbers) + 1) if at >= 0 else 0
        result.append(Tag(name, line, start, at, record.get("scope", ""), number))
    return left_to_definitions(code, result)


def is_outside(code, tag):
    """Whether a member is defined outside its class."""
    return tag.start >= 0 and code[tag.start:tag.name_at].rstrip().endswith("::")


def member(tag):
    """Class and name, without namespaces and template arguments."""
    return re.sub(r"<.*$", "", tag.scope).rpartition("::")[2], tag.name


def left_to_definitions(code, found):
    """Gives number 0, no comment, to members in a class that are also defined outside it."""
    outside = {member(tag) for tag in found if is_outside(code, tag)}
    return [tag._replace(number=0) if member(tag) in outside and not is_outside(code, tag) else tag for tag in found]


def joined_head(text, code, start, name_at):
    """The head of a function, joined to one line if the body would otherwise be too far from the comment."""
    body = body_offset(code, name_at)
    head = code[start:body]
    if body < 0 or head.count("\n") < 2 or DIRECTIVE in head or "//" in text[start:body]:
        return ""
    return text[start:body].replace("\r", " ").replace("\n", " ")


def instrumented(text, code, found):
    """The text with a comment before each tag's declaration, and the lines of the comments, from 1, by number."""
    pieces, last, line, lines = [], 0, 1, {}
    text = text.replace("/*!", "/* ")  # disables the header's own documentation comments
    places = {tag.number: (tag.start, tag.number, tag.name_at) for tag in reversed(found) if tag.number}
    for start, number, name_at in sorted(places.values()):
        piece = text[last:start]
        line += piece.count("\n")
        lines[line] = number
        head = joined_head(text, code, start, name_at)
        pieces += [piece, COMMENT % number, head]
        line += COMMENT.count("\n")
        last = start + len(head)
    return "".join(pieces) + text[last:], lines
