#include "markup/command_table.h"
#include "markup/markup_cursor.h"
#include "tests/support/golden.h"
#include "tests/support/markup_run.h"

#include <gtest/gtest.h>

#include <set>

using namespace tavidoc;

namespace {

constexpr std::string_view s_contentsOfOnePage = "<contents>\n<content url=\"p.htm\">\n</content>\n</contents>";

/// What a document becomes whose page "p" begins before \a markup, the first line of which is
/// line 1: the page, other pages after their names, the contents unless they are those of one
/// page, and the messages. An action "Open" has the key F9.
std::string outputOf(std::string_view markup)
{
    const QTemporaryDir directory;
    writeFile(directory.filePath(QStringLiteral("keys.xml")),
              "<keyscheme><item name='Open'><key>F9</key></item></keyscheme>");
    writeFile(directory.filePath(QStringLiteral("doc.dg")), "\\split{p}\\line{0}\n" + std::string(markup));
    const MarkupRun run = runFile(directory, QStringLiteral("doc.dg"));
    std::string output = QString::fromLatin1(run.pages).toStdString();
    if (output.starts_with("p.htm: "))
        output.erase(0, 7);
    if (run.contents != s_contentsOfOnePage)
        output += run.contents + "\n";
    return output + run.messages;
}

std::string goldenFile(const std::string &subject)
{
    return TAVIDOC_SOURCE_DIR "/tests/markup/golden/" + subject + ".txt";
}

const char *const s_subjects[] = {"text",     "styles", "lists", "sections", "tables",
                                  "listings", "links",  "pages", "lookups"};

class Golden : public testing::TestWithParam<const char *>
{
};

} // namespace

TEST_P(Golden, MarkupBecomesWhatTheFileShows)
{
    checkGoldenFile(goldenFile(GetParam()), outputOf);
}

INSTANTIATE_TEST_SUITE_P(Markup, Golden, testing::ValuesIn(s_subjects), [](const auto &row) { return row.param; });

TEST(GoldenFiles, HaveAnExampleOfEveryCommand)
{
    std::set<std::string, std::less<>> names;
    for (const char *const subject : s_subjects) {
        std::ifstream stream(goldenFile(subject));
        const std::string text{std::istreambuf_iterator<char>(stream), {}};
        for (const GoldenExample &example : goldenExamples(text)) {
            MarkupCursor cursor(example.input);
            for (std::size_t at = 0; (at = example.input.find('\\', at)) != std::string::npos; at = cursor.offset()) {
                cursor.moveTo(at);
                names.emplace(cursor.takeCommandName());
            }
        }
    }
    for (const Command &command : CommandTable::rows())
        EXPECT_TRUE(names.contains(command.name)) << "\\" << command.name;
}
