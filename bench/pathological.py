"""Inputs that reveal a translator whose cost grows faster than its input."""

from dataclasses import dataclass, field
from typing import Callable

PAGE = "\\split{page}\n\\title Page\n\n"


def encoded(text):
    """UTF-8; a lone surrogate U+DCxx stands for the byte xx."""
    return text.encode("utf-8", "surrogateescape")


@dataclass
class Case:
    """The text before, the unit count times, the middle, the closing count times, and the text after.

    A "#" in the unit is replaced by its number. The count is for the smaller of the two inputs.
    """

    name: str
    count: int
    unit: str
    middle: str = ""
    closing: str = ""
    after: str = "\n"
    before: str = PAGE
    more_files: Callable[[int], dict] = field(default=lambda count: {})

    def files(self, count):
        """Content by file name; "main.dg" is the input and may include the others."""
        units = "".join(self.unit.replace("#", str(i)) for i in range(count)) if "#" in self.unit else self.unit * count
        main = self.before + units + self.middle + self.closing * count + self.after
        return {"main.dg": encoded(main)} | {name: encoded(text) for name, text in self.more_files(count).items()}


def chain(count, begin="", end=""):
    """Files, each of which includes the next."""
    files = {f"{i}.dg": f"{begin}\\include {i + 1}.dg\n{end}" for i in range(count)}
    return files | {f"{count}.dg": "The last.\n"}


def one_part(_count):
    return {"part.dg": "Part.\n", "part.txt": "Part.\n"}


TABLE = PAGE + "\\table{2in,*}\n"
MATRIX = PAGE + "\\matrix{a,b}\n"
CODE = PAGE + "\\code{plain}\n"

CASES = [
    # Plain text
    Case("one line of plain text", 500_000, "plain text"),
    Case("one word per line", 500_000, "word\n"),
    Case("paragraphs", 100_000, "Paragraph.\n\n"),
    Case("only line ends", 500_000, "\n"),
    Case("only CR LF", 500_000, "\r\n"),
    Case("only lone CR", 500_000, "\r"),
    Case("lines of spaces", 50_000, " " * 20 + "\n"),
    Case("one line of spaces", 500_000, " "),
    Case("alternating spaces and words", 200_000, "        x"),
    Case("text before the first page", 100_000, "Lost.\n\n", before=""),
    Case("no-break pairs <>", 300_000, "<>"),
    Case("only <", 500_000, "<"),
    Case("middle dots", 300_000, "·"),
    Case("characters outside the pages' encoding", 100_000, "…"),
    Case("characters outside the basic plane", 100_000, "\U0001f600"),
    Case("bytes that are not UTF-8", 300_000, "\udcff"),
    Case("null bytes", 500_000, "\0"),

    # Escapes, names and braces
    Case("only backslashes", 500_000, "\\"),
    Case("backslash and space", 300_000, "\\ "),
    Case("dashes and ellipses", 100_000, "\\-\\--\\..."),
    Case("escaped braces", 300_000, "\\{"),
    Case("symbols", 100_000, "\\le "),
    Case("only {", 1_000_000, "{"),
    Case("only }", 1_000_000, "}"),
    Case("braces in an argument", 300_000, "{", before=PAGE + "\\b{", closing="}", after="}\n"),
    Case("unclosed braces in an argument", 500_000, "{", before=PAGE + "\\b{"),
    Case("one long command name", 1_000_000, "a", before=PAGE + "\\"),
    Case("unknown commands on a line", 50_000, "\\unknown "),
    Case("unknown commands, one per line", 50_000, "\\unknown\n"),
    Case("unknown commands with arguments", 50_000, "\\unknown{\\b{x}} "),
    Case("different unknown commands", 50_000, "\\unknown# "),

    # Styles
    Case("styles side by side", 100_000, "\\b{x} "),
    Case("styles nested and closed", 50_000, "\\b{", middle="x", closing="}"),
    Case("styles nested, never closed", 50_000, "\\b{"),
    Case("styles never closed, one per line", 50_000, "\\b{x\n"),
    Case("styles never closed, one per paragraph", 50_000, "\\b{x\n\n"),
    Case("styles nested in bold and italic", 50_000, "\\b{\\i{", middle="x", closing="}}"),
    Case("styles nested, half closed", 50_000, "\\b{\\tt{", middle="x", closing="}"),
    Case("styles nested with a block command within", 20_000, "\\b{\\item x ", closing="}"),
    Case("missing arguments", 50_000, "\\b \\xref \\sub "),
    Case("quotes nested and closed", 50_000, "\\dq{", middle="x", closing="}"),
    Case("labels nested", 50_000, "\\item{", middle="x", closing="}"),
    Case("keyboard input nested", 50_000, "\\input{", middle="x", closing="}"),

    # Lists and sections
    Case("list items", 50_000, "\\item x\n"),
    Case("list items on a line", 50_000, "\\item "),
    Case("list items with labels", 50_000, "\\item{label} x\n"),
    Case("steps", 50_000, "\\step x\n"),
    Case("terms and their items", 50_000, "\\term t\n\\item x\n"),
    Case("lists of one item", 50_000, "\\item x\n\n"),
    Case("parameters", 50_000, "\\param{x} y\n"),
    Case("sections", 50_000, "\\section Text\n"),
    Case("headings by tag", 50_000, "\\h2 Text\n"),
    Case("one long heading", 500_000, "&", before=PAGE + "\\section "),
    Case("reference sections", 50_000, "\\note x\n\n"),
    Case("brief descriptions", 50_000, "\\brief Text\n"),
    Case("brief descriptions on a line", 50_000, "\\brief{Text}"),
    Case("sections on a line", 50_000, "\\section{Text}"),
    Case("parameters on a line", 50_000, "\\param{x}"),
    Case("synopses", 50_000, "\\synopsis\nint f(void);\n\n"),
    Case("synopses on a line", 50_000, "\\synopsis "),
    Case("a synopsis that never ends", 100_000, "int f(void);\n", before=PAGE + "\\synopsis\n"),
    Case("a synopsis full of styles", 50_000, "\\b{x}\n", before=PAGE + "\\synopsis\n"),
    Case("a synopsis with blocks in it", 50_000, "x \\item y\n", before=PAGE + "\\synopsis\n"),
    Case("discarded remarks", 100_000, "\\rem x\n"),
    Case("paragraph styles", 50_000, "\\style{q}x\n\n"),
    Case("raw HTML", 50_000, "\\html{<hr/>}"),
    Case("raw HTML never closed", 50_000, "\\html{<hr/>"),
    Case("line numbers", 50_000, "\\line{7}"),
    Case("line numbers with errors", 50_000, "\\line{7}\\unknown\n"),

    # Tables and matrices
    Case("bars in a row", 50_000, "|", before=TABLE),
    Case("bars in a heading row", 50_000, "||", before=TABLE),
    Case("cells in a row", 50_000, " cell |", before=TABLE),
    Case("rows", 50_000, "| a | b\n", before=TABLE),
    Case("heading rows", 50_000, "|| a || b\n", before=TABLE),
    Case("group rows", 50_000, "||- Group\n", before=TABLE),
    Case("lines in a cell", 100_000, "line\n\n", before=TABLE + "| "),
    Case("bars in styles in cells", 50_000, "| \\b{|}\n", before=TABLE),
    Case("tables of one cell", 20_000, "\\table{*}\n| x\n\\endtable\n"),
    Case("tables never closed", 20_000, "\\table{*}\n| x\n"),
    Case("columns of a table", 5_000, "1in,", before=PAGE + "\\table{", after="*}\n| x\n\\endtable\n"),
    Case("columns with invalid widths", 5_000, "x,", before=PAGE + "\\table{", after="*}\n| x\n\\endtable\n"),
    Case("columns of a matrix", 5_000, "a,", before=PAGE + "\\matrix{", after="b}\n| x\n\\endmatrix\n"),
    Case("bars in a matrix", 50_000, "|", before=MATRIX),
    Case("group rows never closed", 50_000, "||- \\b{x\n", before=TABLE),
    Case("spaces before the bars of rows", 50_000, "a\n" + " " * 20 + "\n |", before=TABLE),
    Case("rows of a matrix", 50_000, "| a | b\n", before=MATRIX),
    Case("ends of tables that are not open", 50_000, "\\endtable "),

    # Listings
    Case("a listing never closed", 100_000, "int x;\n", before=CODE),
    Case("a listing of backslashes", 300_000, "\\", before=CODE),
    Case("a listing of commands", 100_000, "\\b{x}\n", before=CODE),
    Case("a listing that ends in blank lines", 300_000, "\n", before=CODE + "x\n", after="\\endcode\n"),
    Case("a listing of characters to escape", 300_000, "&", before=CODE),
    Case("listings", 20_000, "\\code{plain}\nint x;\n\\endcode\n"),
    Case("listings on a line", 20_000, "\\code{plain}x\\endcode "),
    Case("listings of an unknown language", 20_000, "\\code{x#}\nint x;\n\\endcode\n"),
    Case("presented files", 2_000, "\\present{plain} part.txt\n", more_files=one_part),
    Case("missing presented files", 10_000, "\\present missing.c\n"),

    # Pages, links and contents
    Case("tiny pages", 50_000, "\\split{p#}\nText.\n"),
    Case("tiny pages with titles", 10_000, "\\split{p#}\n\\title Page #\n\nText.\n"),
    Case("pages of one name", 10_000, "\\split{p}\nText.\n"),
    Case("empty pages", 50_000, "\\split{p#}\n"),
    Case("pages outside the output directory", 20_000, "\\split{../p}\nText.\n"),
    Case("titles", 50_000, "\\title Title #\n"),
    Case("one long title", 500_000, "&", before="\\split{p}\n\\title ", after="\n\nText.\n"),
    Case("links", 50_000, "\\xref{Page}\n"),
    Case("links to nowhere", 50_000, "\\xref{Nowhere #}\n"),
    Case("external links with captions", 50_000, "\\xref{http://x.example}{here}\n"),
    Case("links never closed", 50_000, "\\xref{"),
    Case("links never closed, one per line", 50_000, "\\xref{x\n"),
    Case("links with a caption never closed", 50_000, "\\xref{x}{y "),
    Case("images", 50_000, "\\img{x.png}"),
    Case("groups of contents", 50_000, "\\begin Group\n"),
    Case("groups of contents, closed", 50_000, "\\begin Group\n", closing="\\end\n"),
    Case("ends of groups that are not open", 50_000, "\\end\n"),
    Case("ends of groups below open levels", 5_000, "\\contents down\n\\split{p#}\n", closing="\\end\n"),
    Case("levels of contents", 5_000, "\\contents down\n\\split{p#}\nText.\n"),
    Case("levels without pages", 50_000, "\\contents down\n", closing="\\contents up\n"),
    Case("levels down followed by one page", 50_000, "\\contents down\n", after="\\split{q}\nText.\n\\contents top\n"),
    Case("raw contents", 50_000, "\\rawcontent <x/>\n"),
    Case("pages written elsewhere", 50_000, "\\include elsewhere\n"),
    Case("members of one group", 20_000, "\\ingroup One\n"),
    Case("members of many groups", 20_000, "\\ingroup Group #\n"),
    Case("an order of many groups", 20_000, "Group #, ", before=PAGE + "\\grouporder "),

    # The reader
    Case("only %", 2_000_000, "%"),
    Case("comment lines", 500_000, "%\n"),
    Case("comment lines with errors between them", 50_000, "%\n\\unknown\n"),
    Case("directives side by side", 100_000, "@arm\n@end\n"),
    Case("directives nested", 100_000, "@arm\n", closing="@end\n"),
    Case("directives nested, never closed", 100_000, "@arm\n"),
    Case("directives nested in a dropped part", 100_000, "@avr\n", closing="@else\n@end\n"),
    Case("branches of one condition", 100_000, "@else\nText.\n", before=PAGE + "@arm\n"),
    Case("surplus ends", 200_000, "@end\n"),
    Case("unknown directives", 200_000, "@x\n"),
    Case("definitions", 50_000, "@def NAME# value\n"),
    Case("a definition of many lines", 100_000, "more \\\n", before="@def NAME value \\\n"),
    Case("uses of a definition", 100_000, "@(NAME)\n", before=PAGE + "@def NAME value\n"),
    Case("includes of one file", 5_000, "\\include part.dg\n", more_files=one_part),
    Case("includes of missing files", 5_000, "\\include missing#.dg\n"),
    Case("includes with one error each", 5_000, "\\include wrong.dg\n",
         more_files=lambda _count: {"wrong.dg": "Text.\n\\unknown\n"}),
    Case("includes within includes", 2_500, "", after="\\include 0.dg\n", more_files=chain),
    Case("includes within includes and conditions", 2_500, "", after="\\include 0.dg\n",
         more_files=lambda count: chain(count, "@arm\n", "@end\n")),
]
