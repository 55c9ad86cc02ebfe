#include "fuzz/scratch.h"

#include "fuzz/promise.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

void writeFile(const QString &name, std::string_view bytes)
{
    QFile file(name);
    promise(file.open(QIODevice::WriteOnly), "the scratch directory can be written");
    file.write(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

struct Directory
{
    Directory()
    {
        promise(directory.isValid() && QDir::setCurrent(directory.path()), "a scratch directory can be created");
        writeFile(u"part.dg"_s, "\\title Part\nA part with \\b{text}.\n@arm\nfor arm\n@end");
        writeFile(u"code.c"_s, "int main(void) /* \\... */\n{\n    return 'a';\n}\n");
        writeFile(u"text.txt"_s, "<text> & $(LICENSE)\n");
        writeFile(u"menus.xml"_s,
                  "<definemenubar><definemenu caption=\"Fi&amp;le\"><item name=\"Open\"/><menu caption=\"In &lt;\">"
                  "<item name=\"Save\"/></menu></definemenu></definemenubar>");
        writeFile(u"messages.xml"_s,
                  "<messagescheme><item name=\"Open\"><text>Open</text><tip>Opens &amp; more</tip></item>"
                  "<item name=\"Save\"><text>Save $(WENDRIX_NAME)</text></item></messagescheme>");
        writeFile(u"keys.xml"_s, "<keyscheme><item name=\"Save\"><key>Ctrl+S</key></item></keyscheme>");
        writeFile(u"properties.xml"_s,
                  "<properties><property name=\"p\" caption=\"P&lt;\" type=\"t\">d</property></properties>");
    }
    ~Directory() { QDir::setCurrent(u"/"_s); }

    /// In memory if possible, because a target writes thousands of files per second.
    static QString nameTemplate()
    {
        const QString memory = u"/dev/shm"_s;
        return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + u"/tavidoc-XXXXXX"_s;
    }

    QTemporaryDir directory{nameTemplate()};
};

} // namespace

QString Scratch::write(const QString &name, std::string_view bytes)
{
    static const Directory directory;
    writeFile(name, bytes);
    return name;
}
