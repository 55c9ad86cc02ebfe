#!/usr/bin/env python3
"""Documents every declaration of installed headers by script and checks the site that is built from them.

Puts a comment before each line on which a declaration begins, as dump_declarations reports it, unless that would be inside
another declaration. The comment has a number and a name that is declared there. Then, on the pages of the site,
  - every number must be on the page of one of its names, and on no other page,
  - every row of a table of members must have the text of the declaration that it links to,
  - every declaration that clang finds and whose comment is not lost must have a page of its name; that of a
    specialisation also has its arguments.

usage: site_pages.py [--keep DIRECTORY] [--no-clang] TAVIDOC_SITE DUMP_DECLARATIONS [PACKAGE]...
The default is all packages below. --keep names an empty directory for the headers and the site.

Needs the Debian packages clang-14, python3-clang-14 and those of the headers.
"""

import argparse
import collections
import html
import os
import re
import subprocess
import sys
import tempfile

QT = "/usr/include/x86_64-linux-gnu/qt6"
# root: of the headers; include: what a source includes, for the path below the root
Package = collections.namedtuple("Package", "root include options")
PACKAGES = {
    "fmt": Package("/usr/include/fmt", "fmt/%s", []),
    "nlohmann-json": Package("/usr/include/nlohmann", "nlohmann/%s", []),
    "yaml-cpp": Package("/usr/include/yaml-cpp", "yaml-cpp/%s", []),
    "re2": Package("/usr/include/re2", "re2/%s", []),
    "qt-core": Package(QT + "/QtCore", "QtCore/%s", ["-fPIC", "-I" + QT, "-I" + QT + "/QtCore"])}
NUMBER = re.compile(r"N(\d+)N")
ROW = re.compile(r'<tr><td><code>[^<]*<a href="([^"#]+)[^"]*">.*?</td><td>(.*?)</td></tr>', re.S)


def normal(name):
    """A qualified name in the form in which names are compared."""
    return re.sub(r"\s+", "", name).replace("::", ".")


def without_arguments(name):
    """A normal name without the template arguments of specialisations, and without unnamed unions and namespaces."""
    if re.search(r"operator(<|>|->)", name):
        return name
    while (shorter := re.sub(r"<[^<>]*>", "", name)) != name:
        name = shorter
    return re.sub(r"(?<!operator)\([^()]*\)\.", "", name)


def declared_lines(dump, header):
    """For each line on which declarations begin, counted from 1, their qualified names."""
    model = subprocess.run([dump, "all", header], stdout=subprocess.PIPE, check=True).stdout.decode("utf-8", "replace")
    lines = collections.defaultdict(list)
    for row in model.splitlines():
        fields = row.split("\t")
        lines[int(fields[3])].append(fields[1])
    return lines


def is_inside(line, before):
    """Whether a comment before the line would be inside another declaration, or be replaced by a comment on the line."""
    return before.endswith("\\") or re.match(r"\s*(\{|/\*)", line) or re.match(r"\s*template\s*<.*>\s*$", before)


def documented(header, lines, numbers, uncommented):
    """The text of the header with a comment before each of the lines. Enters the names of each comment in numbers, and in
    uncommented those of declarations that may have none: a comment is that of the first declaration on its line."""
    with open(header, encoding="latin-1", newline="") as file:
        text = file.read().split("\n")
    result = []
    for number, line in enumerate(text, 1):
        names = lines.get(number)
        has_comment = names and not is_inside(line, text[number - 2] if number > 1 else "")
        uncommented.update(without_arguments(normal(name)) for name in names or [] if not has_comment or len(names) > 1)
        if has_comment:
            numbers.append((header, number, [name.replace(".hpp)", ".h)") for name in names]))
            name = re.sub(r"([^\w\s.])", r"\\\1", names[0])
            result.append("/*!\n * \\brief N%dN \\tt{%s}\n *\n * \\synopsis\n */" % (len(numbers) - 1, name))
        result.append(line)
    return "\n".join(result)


def headers_of(root):
    for folder, folders, names in os.walk(root):
        folders.sort()
        for name in sorted(names):
            if name.endswith((".h", ".hpp")):
                yield os.path.relpath(os.path.join(folder, name), root)


def write_copies(package, dump, folder, numbers):
    """Writes documented copies of the headers of a package and a project file. Returns for the relative name of each header
    the names of its declarations without a comment."""
    headers = {header: set() for header in headers_of(package.root)}
    with open(os.path.join(folder, "site.toml"), "w", encoding="utf-8") as project:
        project.write("title = %s\n[check]\nunused-page = \"off\"\n" % repr(os.path.basename(folder)))
        for header, uncommented in headers.items():
            source = os.path.join(package.root, header)
            copy = os.path.join(folder, "include", os.path.splitext(header)[0] + ".h")
            os.makedirs(os.path.dirname(copy), exist_ok=True)
            with open(copy, "w", encoding="latin-1", newline="") as file:
                file.write(documented(source, declared_lines(dump, source), numbers, uncommented))
            below = os.path.splitext(header)[0]
            project.write('[[input]]\nfiles = ["include/%s.h"]\nfolder = "%s"\n' % (below, below))
    return headers


def pages_of(folder):
    """The pages below the folder: by path, their titles and the HTML of their texts."""
    for directory, _, names in os.walk(folder):
        for name in names:
            if not name.endswith(".htm"):
                continue
            path = os.path.join(directory, name)
            with open(path, encoding="ascii") as file:
                text = file.read()
            title = html.unescape(re.search(r"<title>(.*?)(?: - [^<]*)?</title>", text, re.S).group(1))
            main = re.search(r'<main id="main">(.*)</main>', text, re.S)
            yield path, title, main.group(1) if main else ""


def check_site(folder, numbers, complain):
    """Checks the pages of a site. Returns the names that have pages, by directory."""
    titles, texts = {}, {}
    for path, title, text in pages_of(folder):
        titles[path], texts[path] = title, text
    seen = collections.defaultdict(set)
    for path, text in texts.items():
        if titles[path].startswith("<"):
            continue  # the page of a header
        own = re.sub(r'<table class="members">.*?</table>', "", text, flags=re.S)
        for number in map(int, NUMBER.findall(own)):
            header, line, names = numbers[number]
            seen[number].add(path)
            if normal(titles[path]) not in map(normal, names):
                complain("%s:%d: the comment of %s is on the page of %s" % (header, line, " ".join(names), titles[path]))
        for table in re.findall(r'<table class="members">.*?</table>', text, re.S):
            for target, row in ROW.findall(table):
                linked = os.path.normpath(os.path.join(os.path.dirname(path), html.unescape(target)))
                found = NUMBER.search(row)
                if linked not in titles:
                    complain("%s: a row leads to %s, which does not exist" % (path, target))
                elif not found or normal(titles[linked]) not in map(normal, numbers[int(found.group(1))][2]):
                    complain("%s: the row of %s has the text %s" % (path, titles[linked], row[:80]))
    return titles, seen


def clang_names(package, header):
    """The qualified names of the declarations that clang finds in a header; empty when it cannot read it."""
    from clang_headers import Language, declarations
    found, ignored, errors = declarations(os.path.join(package.root, header), "#include <%s>" % package.include % header,
                                          package.options, Language(True))
    return {normal(item.name) for item in found if item.name not in ignored} if not errors else set()


def check_package(name, arguments, folder):
    package, numbers, complaints = PACKAGES[name], [], []
    os.makedirs(folder, exist_ok=True)
    headers = write_copies(package, arguments.dump, folder, numbers)
    done = subprocess.run([arguments.site, "build", "site.toml", "-o", "out", "--quiet"], cwd=folder,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    findings = done.stdout.decode("utf-8", "replace")
    if done.returncode not in (0, 1):
        sys.exit("%s: %s" % (name, findings))
    titles, seen = check_site(os.path.join(folder, "out"), numbers, complaints.append)
    lost = [numbers[number] for number in range(len(numbers)) if not seen[number]]
    complaints += ["%s:%d: no page has the comment of %s" % (header, line, " ".join(names)) for header, line, names in lost]
    unknown = 0
    if not arguments.no_clang:
        for header, uncommented in headers.items():
            below = os.path.join(folder, "out", os.path.splitext(header)[0]) + os.sep
            pages = {without_arguments(normal(title)) for path, title in titles.items() if path.startswith(below)}
            wanted = {without_arguments(name) for name in clang_names(package, header)}
            unknown += not wanted
            wanted -= pages | uncommented
            complaints += ["%s: clang finds %s, which has no page" % (header, name) for name in sorted(wanted)]
    print("%s: %d headers (%d that clang cannot read alone), %d comments, %d pages, %d on no page, %d complaints, "
          "%d findings" % (name, len(headers), unknown, len(numbers), len(titles), len(lost), len(complaints),
                           sum(" error: " in line or " warning: " in line for line in findings.splitlines())))
    for complaint in complaints:
        print("  " + complaint)
    return findings


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--keep")
    parser.add_argument("--no-clang", action="store_true")
    parser.add_argument("site", metavar="TAVIDOC_SITE", type=os.path.abspath)
    parser.add_argument("dump", metavar="DUMP_DECLARATIONS", type=os.path.abspath)
    parser.add_argument("packages", metavar="PACKAGE", nargs="*", choices=[[], *PACKAGES])
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as temporary:
        for name in arguments.packages or PACKAGES:
            folder = os.path.join(arguments.keep or temporary, name)
            findings = check_package(name, arguments, folder)
            with open(os.path.join(folder, "findings.txt"), "w", encoding="utf-8") as file:
                file.write(findings)


if __name__ == "__main__":
    main()
