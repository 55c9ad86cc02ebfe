#include "site/exchange/inventory.h"

#include "site/link/page_names.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tavidoc {

namespace {

/// How Sphinx calls a kind of declaration; empty: not at all.
struct ObjectType
{
    std::string_view kind;
    std::string_view cpp;
    std::string_view c;
};

constexpr ObjectType s_objectTypes[] = {
    {"class", "cpp:class", ""},
    {"struct", "cpp:class", "c:struct"},
    {"union", "cpp:union", "c:union"},
    {"function", "cpp:function", "c:function"},
    {"variable", "cpp:member", "c:member"},
    {"typedef", "cpp:type", "c:type"},
    {"alias", "cpp:type", ""},
    {"deduction guide", "cpp:function", ""},
    {"enum", "cpp:enum", "c:enum"},
    {"namespace", "cpp:type", ""},
    {"concept", "cpp:concept", ""},
    {"macro", "", "c:macro"},
};

/// \a text on one line. A "$" at the end would stand for the name of the object.
std::string oneLine(std::string_view text)
{
    std::string line(text);
    std::ranges::replace_if(
        line, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return line;
}

void appendObject(std::string &lines, std::string_view name, std::string_view type, const NameEntry &entry,
                  std::string_view title)
{
    if (name.empty() || type.empty())
        return;
    const std::string shown = title == name || title.empty() ? "-" : oneLine(title);
    lines += oneLine(name) + ' ' + std::string(type) + " 1 " + entry.address + ' ' + shown + '\n';
}

void appendEntry(std::string &lines, const NameEntry &entry)
{
    const std::string_view name = entry.qualifiedName;
    if (name.empty())
        return appendObject(lines, withoutPageSuffix(entry.address), "std:doc", entry, entry.name);
    const auto *const type = std::ranges::find(s_objectTypes, entry.kind, &ObjectType::kind);
    if (type == std::end(s_objectTypes))
        return;
    appendObject(lines, name, type->cpp, entry, {});
    if (name.find("::") == std::string_view::npos)
        appendObject(lines, name, type->c, entry, {});
}

/// \a bytes in the format of zlib.
QByteArray compressed(const std::string &bytes)
{
    constexpr qsizetype ownPrefix = 4; // Qt puts the size before what zlib makes
    return qCompress(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())), 9).sliced(ownPrefix);
}

} // namespace

QByteArray inventoryFile(const SharedLinks &shared)
{
    std::string lines;
    for (const NameEntry &entry : shared.names)
        appendEntry(lines, entry);
    std::string head = "# Sphinx inventory version 2\n";
    head += "# Project: " + oneLine(shared.settings.title) + '\n';
    head += "# Version: " + oneLine(shared.settings.version) + '\n';
    head += "# The remainder of this file is compressed using zlib.\n";
    return QByteArray::fromStdString(head) + compressed(lines);
}

} // namespace tavidoc
