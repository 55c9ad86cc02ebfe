#include "pages/page_encoding.h"
#include "tests/site/body_difference.h"
#include "tests/support/script_run.h"

#include <gtest/gtest.h>

#include <string>

using namespace tavidoc;

namespace {

std::string contentsOf(const QString &name)
{
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll().toStdString();
}

/// The text after \a opening and before the last \a closing.
std::string between(const std::string &text, std::string_view opening, std::string_view closing)
{
    const std::size_t begin = text.find(opening);
    const std::size_t end = text.rfind(closing);
    if (begin == text.npos || end == text.npos || end < begin + opening.size()) {
        ADD_FAILURE() << "no " << opening << " in " << text.substr(0, 200);
        return {};
    }
    return text.substr(begin + opening.size(), end - begin - opening.size());
}

/// The body of a page of tavidoc, in ASCII.
std::string plainBody(const QString &file)
{
    QByteArray ascii;
    appendAscii(ascii, QString::fromLatin1(QByteArray::fromStdString(contentsOf(file))).toStdString());
    return between(ascii.toStdString(), "<body>\n", "</body>\n</html>\n");
}

/// The body of a page of the site, without the title that it shows for a page without a heading.
std::string siteBodyOf(const QString &file)
{
    std::string body = between(contentsOf(file), "<main id=\"main\">\n", "\n</main>\n");
    if (body.starts_with("<h1 class=\"title\">"))
        body.erase(0, body.find('\n') + 1);
    return body;
}

} // namespace

/// Whatever the site adds to a page of markup, the bytes that tavidoc writes are still there, in order.
TEST(ManualBodies, AreThoseOfTavidocWithInsertionsAndRelocations)
{
    const QTemporaryDir directory;
    const ScriptResult result =
        runScript(directory, QStringLiteral("here=$PWD\n"
                                            "'" TAVIDOC_SITE_PROGRAM "' build '" TAVIDOC_SOURCE_DIR
                                            "/docs/manual/site.toml' -o site --quiet\n"
                                            "cd '" TAVIDOC_SOURCE_DIR "/docs/manual'\n"
                                            "\"$tavidoc\" -o \"$here/out\" manual.dg"));
    const QDir plain(directory.filePath(QStringLiteral("out")));
    const QStringList pages = plain.entryList({QStringLiteral("*.htm")}, QDir::Files, QDir::Name);
    ASSERT_GT(pages.size(), 20) << result.error.toStdString();
    std::size_t added = 0;
    std::size_t namesLinked = 0;
    for (const QString &page : pages) {
        const QString rendered = directory.filePath(QStringLiteral("site/")) + page;
        const std::string original = plainBody(plain.filePath(page));
        namesLinked += siteBodyOf(rendered).find("<a class=\"name\" ") != std::string::npos ? 1 : 0;
        EXPECT_EQ(BodyDifference(original, siteBodyOf(rendered)).find(), "") << page.toStdString();
        const std::size_t growth = contentsOf(rendered).size() - contentsOf(plain.filePath(page)).size();
        EXPECT_LE(growth, 9'000U) << page.toStdString();
        added += growth;
    }
    EXPECT_LE(added / static_cast<std::size_t>(pages.size()), 4'000U);
    EXPECT_GT(namesLinked, 0U);
}

/// The page of a mistake: an error is marked, steps go on, and the text between stays as it is.
TEST(ManualBodies, OfFaultyMarkupKeepTheirBytesToo)
{
    const QTemporaryDir directory;
    writeText(directory, QStringLiteral("a.dg"),
              "\\split{a}\n\\title A\n\\h1 A \xE2\x80\xA6\n\n\\bold{x} \\xref{nowhere} \xE6\xB0\xB4\n\n\\step "
              "One\n\\code{python}\n"
              "if 'a' < \"b\": pass # c\n\\endcode\n\\step Two\n\n\\html{<table><tr><td>raw <b 'x>}\n");
    runScript(directory,
              QStringLiteral("'" TAVIDOC_SITE_PROGRAM "' build a.dg -o site --quiet; \"$tavidoc\" -o out a.dg"));
    const std::string body = siteBodyOf(directory.filePath(QStringLiteral("site/a.htm")));
    EXPECT_EQ(BodyDifference(plainBody(directory.filePath(QStringLiteral("out/a.htm"))), body).find(), "");
    for (const char *mark : {"<strong class=\"error\">***ERROR*** \\bold{x}</strong>", "<ol start=\"2\">",
                             "<span class=\"zkt-code-keyword\">if</span>", "class=\"dead\""})
        EXPECT_NE(body.find(mark), body.npos) << mark << "\n" << body;
}
