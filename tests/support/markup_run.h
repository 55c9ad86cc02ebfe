#pragma once

#include "docgen/doc_gen.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <string>
#include <string_view>

using namespace tavidoc;

/// What a run of the generator made of a document.
struct MarkupRun
{
    std::string pages;    ///< "NAME.htm: BODY\n" for every page, without its frame
    std::string messages; ///< the lines on the standard output, files without their directory
    std::string contents; ///< the contents record
};

/// How a test runs the generator; the defaults are those of the command line.
struct MarkupOptions
{
    int split = 1;
    int baseHeadingLevel = 0;
    QString format = {};
    MacroContext *macros = nullptr;
};

inline void writeFile(const QString &name, std::string_view text)
{
    QFile file(name);
    if (file.open(QIODevice::WriteOnly))
        file.write(text.data(), static_cast<qsizetype>(text.size()));
}

/// The body of a framed page; the whole of any other text.
inline std::string bodyOf(std::string_view page)
{
    constexpr std::string_view begin = "<body>\n";
    constexpr std::string_view end = "</body>\n</html>\n";
    const std::size_t from = page.find(begin);
    if (from == std::string_view::npos || !page.ends_with(end))
        return std::string(page);
    page.remove_suffix(end.size());
    return std::string(page.substr(from + begin.size()));
}

/// Runs the generator on the file \a name in \a directory.
inline MarkupRun runFile(const QTemporaryDir &directory, const QString &name, const MarkupOptions &options = {})
{
    MarkupRun run;
    OutputRecords records;
    DocGen generator;
    generator.setBaseHeadingLevel(options.baseHeadingLevel);
    const std::string prefix = directory.path().toStdString() + "/";
    generator.setMessageSink([&](const Message &message) {
        std::string text = formatted(message);
        for (std::size_t at = text.find(prefix); at != std::string::npos; at = text.find(prefix))
            text.erase(at, prefix.size());
        run.messages += text;
    });
    const QString output = directory.filePath(QStringLiteral("out"));
    generator.run(options.macros, options.split, Path(directory.filePath(name)), output, records, options.format, {});
    for (const OutputRecord &record : records) {
        const std::string file = record.fileName.mid(output.size() + 1).toStdString();
        if (file.ends_with(".htm"))
            run.pages += file + ": " + bodyOf(record.text.toStdString()) + "\n";
        else
            run.contents = record.text.toStdString();
    }
    return run;
}

/// Runs the generator on a document with the text \a source.
inline MarkupRun runMarkup(std::string_view source, const MarkupOptions &options = {})
{
    const QTemporaryDir directory;
    writeFile(directory.filePath(QStringLiteral("doc.dg")), source);
    return runFile(directory, QStringLiteral("doc.dg"), options);
}
