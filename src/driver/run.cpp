#include "driver/run.h"

#include "base/hexception.h"
#include "docgen/doc_gen.h"
#include "driver/output_file.h"
#include "pages/output_queue.h"

#include <QDir>

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// The directory that pages are written to, created with all missing parents. A failure to create
/// it is reported when a page is written.
QString preparedDirectory(const QString &directory)
{
    if (directory.isEmpty())
        return QDir::currentPath();
    QDir().mkpath(directory);
    return directory;
}

/// True when \a fileName ends with ".htm", in lower case.
bool isPage(std::string_view fileName)
{
    constexpr std::string_view suffix = ".htm";
    return fileName.ends_with(suffix);
}

/// Writes the pages of one input. They are written when they come, but reported at the end, because messages about the
/// whole input are printed before the names of its pages.
class PageWriter : public OutputSink
{
public:
    PageWriter(OutputDirectory &directory, bool isVerbose) : m_directory(directory), m_isVerbose(isVerbose) {}

    /// Contents files are for users of the library; the program writes only pages.
    [[nodiscard]] bool takesContents() const override { return false; }

    void take(const OutputFile &file) override
    {
        if (m_failure || !isPage(file.name))
            return;
        if (m_isVerbose)
            m_progress.append("Outputting ").append(m_directory.pathOf(file.name)).append("\n");
        try {
            m_directory.write(file.name, file.parts);
        } catch (const HException &failure) {
            m_failure = failure; // the messages about the rest of the input come first
        }
    }

    /// Prints the names of the pages. Throws the HException of a page that could not be written.
    void finish() const
    {
        std::fwrite(m_progress.data(), 1, m_progress.size(), stdout);
        if (m_failure)
            throw HException(*m_failure);
    }

private:
    OutputDirectory &m_directory;
    bool m_isVerbose;
    std::string m_progress; // the lines that are printed at the end
    std::optional<HException> m_failure;
};

} // namespace

void documentInputs(const Settings &settings)
{
    const QString directory = preparedDirectory(settings.outputDirectory);
    OutputDirectory output(directory);
    DocGen::searchDirectoriesOnce(true); // looking for them takes more system calls than everything else
    for (const QString &argument : settings.inputs) {
        const Path input(argument);
        if (settings.verbose)
            std::fputs(("Processing " + input.text().toStdString() + '\n').c_str(), stdout);
        PageWriter pages(output, settings.verbose);
        DocGen().run(nullptr, 1, input, directory, pages, QString(), {});
        pages.finish();
    }
}

} // namespace tavidoc
