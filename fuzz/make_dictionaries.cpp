// Writes the dictionary of each fuzz target from the tables that the library itself uses.

#include "codeedit/languages.h"
#include "codeedit/word_lists.h"
#include "markup/command_table.h"
#include "pages/icon_table.h"
#include "reading/conditions.h"
#include "sourcebrowser/tokens.h"

#include <QString>

#include <cstdio>
#include <fstream>
#include <string>

using namespace tavidoc;

namespace {

/// Words of one target in the form that libFuzzer reads.
class Dictionary
{
public:
    Dictionary(const std::string &directory, std::string_view subject)
        : m_file(directory + "/" + std::string(subject) + ".dict")
    {
    }

    void add(std::string_view word)
    {
        constexpr std::string_view digits = "0123456789abcdef";
        m_file << '"';
        for (const char c : word) {
            const auto byte = static_cast<unsigned char>(c);
            if (byte > ' ' && byte < 0x7F && c != '"' && c != '\\')
                m_file << c;
            else
                m_file << "\\x" << digits[byte >> 4] << digits[byte & 0xF];
        }
        m_file << "\"\n";
    }
    void add(std::span<const std::u16string_view> words)
    {
        for (const std::u16string_view word : words)
            add(QString::fromUtf16(word.data(), static_cast<qsizetype>(word.size())).toStdString());
    }
    void add(std::initializer_list<std::string_view> words)
    {
        for (const std::string_view word : words)
            add(word);
    }
    [[nodiscard]] bool isWritten() { return static_cast<bool>(m_file.flush()); }

private:
    std::ofstream m_file;
};

bool writeReader(const std::string &directory)
{
    Dictionary words(directory, "reader");
    for (const std::string_view opener : Conditions::openers())
        words.add(std::string(opener) + "\n");
    words.add({"@else\n", "@end\n", "@def ", "@(", "@(DateYear)", "\\\n", "\r\n", "%", "\\include input.dg\n",
               "\\include part.dg\n", "\\split{", "\\split ", "\\title{", "\\title ", "\xEF\xBB\xBF", "\xC2\xA0"});
    return words.isWritten();
}

void addMarkup(Dictionary &words)
{
    for (const Command &command : CommandTable::rows())
        words.add(std::string("\\").append(command.name));
    words.add({"{",
               "}",
               "\\{",
               "\\}",
               "\n\n",
               "\n| ",
               "||",
               "||- ",
               "\n|| ",
               "{Open}",
               "{Save}",
               "{p}",
               "{part.dg}",
               "{code.c}",
               "{text.txt}",
               " code.c c\n",
               " text.txt verbatim\n",
               " down\n",
               " up\n",
               " top\n",
               " sync\n",
               "{1in,*}",
               "{3}",
               "2.5cm",
               "\xC2\xB7",
               "http:",
               "::",
               "$(LICENSE)"});
    words.add(IconTable::names().front());
}

bool writeMarkup(const std::string &directory)
{
    Dictionary words(directory, "markup");
    addMarkup(words);
    for (const Language &language : Languages::all()) {
        for (const std::string_view name : language.names)
            words.add(std::string("\\code{").append(name).append("}\n"));
    }
    return words.isWritten();
}

void addDeclarations(Dictionary &words)
{
    for (const SourceBrowserToken::WordEntry &entry : SourceBrowserToken::wordEntries())
        words.add(entry.text.toString().toStdString());
    words.add({"/*!",
               "/*!!",
               "/*! \\overview",
               "*/",
               "//",
               "#define ",
               "#if ",
               "#ifdef ",
               "#else\n",
               "#elif ",
               "#endif\n",
               "\\\n",
               "extern \"C\" {",
               "::",
               "...",
               "<<",
               ">>",
               "->",
               "[[",
               "]]",
               "R\"(",
               ")\"",
               "/*@{*/",
               "/*@}*/",
               "= default;",
               "= 0;",
               "~",
               "&&",
               "template<",
               "operator",
               "__attribute__((",
               "'\\''",
               "1'000"});
}

bool writeDeclarations(const std::string &directory)
{
    Dictionary words(directory, "declarations");
    addDeclarations(words);
    return words.isWritten();
}

bool writeHeader(const std::string &directory)
{
    Dictionary words(directory, "header");
    addDeclarations(words);
    addMarkup(words);
    return words.isWritten();
}

bool writeListing(const std::string &directory)
{
    Dictionary words(directory, "listing");
    for (const Words *list : WordLists::all)
        words.add(list->rows());
    words.add({"/*",         "*/",   "//",   "<!--",  "-->",    "<![CDATA[", "]]>",     "<?",    "?>",
               "<!DOCTYPE ", "[",    "]>",   "&amp;", "</",     "/>",        "R\"x(",   ")x\"",  "u8\"",
               "0x",         "1'0",  "1e+5", "`",     "${",     "\\vdots",   "\\hdots", "\\...", "#include <",
               "\\\n",       "REM ", "10 ",  "TODO",  "\\code", "\\endcode", ".text",   "r0:"});
    return words.isWritten();
}

bool writeDefinitions(const std::string &directory)
{
    Dictionary words(directory, "definitions");
    words.add({"<definemenubar>",
               "</definemenubar>",
               "<definemenu caption=\"",
               "<menu caption=\"",
               "</menu>",
               "<item name=\"",
               "\"/>",
               "</item>",
               "<messagescheme>",
               "<keyscheme>",
               "<text>",
               "</text>",
               "<tip>",
               "<key>",
               "<property name=\"",
               " caption=\"",
               " type=\"",
               "$(WENDRIX_NAME)",
               "<!DOCTYPE a [",
               "<!ENTITY b \"",
               "&b;",
               "<!ENTITY % ",
               "<!ATTLIST ",
               "SYSTEM",
               "]>",
               "<![CDATA[",
               "]]>",
               "<!--",
               "-->",
               "<?xml version=\"1.0\"",
               " encoding=\"",
               "UTF-16",
               "ISO-8859-1",
               "utf-8",
               "?>",
               "&#x",
               "&#0;",
               "xmlns:",
               "\xEF\xBB\xBF"});
    return words.isWritten();
}

bool writeArguments(const std::string &directory)
{
    Dictionary words(directory, "arguments");
    words.add({"-o\n", "-v\n", "../", "./", "//", ".htm", ".dg", ".h", "\n", "\xC3\xA4"});
    return words.isWritten();
}

bool writeRecord(const std::string &directory)
{
    using namespace std::string_view_literals;
    Dictionary words(directory, "record");
    words.add({"TAVIDOCR", "\x82", "\x9F", "\x40", "\x58\x01"sv, "\x5B\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF", "\x5F", "\xFF",
               "\xFF\xFF\xFF\xFF\x0F", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x01", "\0"sv, "\x01", "\x80\0"sv,
               "\x80\x01", "markup", "images/note.png", "x.xml", "../"});
    return words.isWritten();
}

} // namespace

int main(int count, char **values)
{
    if (count != 2) {
        std::fputs("usage: make_dictionaries DIRECTORY\n", stderr);
        return 1;
    }
    bool isWritten = true;
    for (const auto write : {writeReader, writeMarkup, writeDeclarations, writeHeader, writeListing, writeDefinitions,
                             writeArguments, writeRecord})
        isWritten = write(values[1]) && isWritten;
    return isWritten ? 0 : 1;
}
