#include "tests/support/markup_run.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace tavidoc;

TEST(Sentence, PhrasesKnowWhereASentenceBegins)
{
    struct Sentence
    {
        const char *before; // what precedes the phrase
        bool begins;
    };
    const QTemporaryDir directory;
    writeFile(directory.filePath(QStringLiteral("keys.xml")),
              "<keyscheme><item name='Sentence'><key>F9</key></item></keyscheme>");
    for (const Sentence &row : {
             Sentence{"", true},
             Sentence{"a\n\n", true},
             Sentence{"\\item ", true},
             Sentence{"\\synopsis ", true},
             Sentence{"\\item a\\show{b}", true},
             Sentence{"\\b{} \\i{a} ", false},
             Sentence{"\\b{\\dq{\\tt{", true},
             Sentence{"Note. ", true},
             Sentence{"Note!\n", true},
             Sentence{"Note?<>", true},
             Sentence{"Note.\\br", true},
             Sentence{"Note.", false},
             Sentence{"Note: ", false},
             Sentence{"Note, (", false},
             Sentence{"\\b{Note.} ", true},
             Sentence{"\\b{Note} ", false},
             Sentence{"\\b{Note.}", false},
             Sentence{"\\b{Note. ", true},
             Sentence{"Note. \\b{\\i{", true},
             Sentence{"(Done.) ", true},
             Sentence{"(Done.)", false},
             Sentence{"(e.g. \\xref{a}{it}) ", false},
             Sentence{"[\\dq{\\q{\\xref{a}{Done?}}}] ", true},
             Sentence{"\"Done.\" ", true},
             Sentence{"\\\"Done.\\' ", true},
             Sentence{"\xE2\x80\x9C"
                      "Done.\xE2\x80\x9D ",
                      true},
             Sentence{"\xE2\x80\x98"
                      "Done.\xE2\x80\x99)\xC2\xA0",
                      true},
             Sentence{"Done. \\dq{", true},
             Sentence{"a > b. ", true},
             Sentence{"Done.> ", false},
             Sentence{"\\img{a.png} ", false},
             Sentence{"Done. \\img{a.png} ", false},
         }) {
        const std::string before = row.before;
        const std::string closing(
            static_cast<std::size_t>(std::ranges::count(before, '{') - std::ranges::count(before, '}')), '}');
        writeFile(directory.filePath(QStringLiteral("doc.dg")),
                  "\\split p\n" + before + "\\choosing{Sentence}" + closing);
        const std::string pages = runFile(directory, QStringLiteral("doc.dg")).pages;
        EXPECT_NE(pages.find(row.begins ? "Pressing <b>F9" : "pressing <b>F9"), std::string::npos) << before << "\n"
                                                                                                   << pages;
    }
}
