// Reads a help file of Qt back through Qt's help library: prints the pages of a keyword, and a page itself.
// usage: read_help FILE.qch KEYWORD
#include <QCoreApplication>
#include <QFileInfo>
#include <QHelpEngineCore>
#include <QHelpLink>
#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: read_help FILE.qch KEYWORD\n", stderr);
        return 2;
    }
    const QTemporaryDir directory;
    QHelpEngineCore engine(directory.filePath(QStringLiteral("collection.qhc")));
    engine.setReadOnly(false);
    engine.setUsesFilterEngine(true);
    if (!engine.setupData() || !engine.registerDocumentation(QFileInfo(arguments[1]).absoluteFilePath())) {
        std::fprintf(stderr, "%s\n", qPrintable(engine.error()));
        return 1;
    }
    const QList<QHelpLink> links = engine.documentsForKeyword(arguments[2]);
    for (const QHelpLink &link : links)
        std::printf("%s\n", qPrintable(link.url.toString()));
    if (links.isEmpty())
        return 1;
    const QByteArray page = engine.fileData(links.constFirst().url);
    return std::fwrite(page.constData(), 1, static_cast<std::size_t>(page.size()), stdout) > 0 ? 0 : 1;
}
