#include "markup/command_table.h"

#include "markup/translator.h"

#include <array>
#include <cstdint>

namespace tavidoc {

std::span<const Command> CommandTable::rows()
{
    using enum CommandKind;
    using T = Translator;
    static constexpr Command table[] = {
        {"document", Inline, &T::wrapText, "<document>", "</document>"},
        {"subtitle", Inline, &T::wrapText, "<subtitle>", "</subtitle>"},
        {"choose", Inline, &T::choose},
        {"press", Inline, &T::choose},
        {"choosing", Inline, &T::choosing},
        {"pressing", Inline, &T::choosing},
        {"include", Inline, &T::includeInContents},
        {"rawcontent", Inline, &T::rawContent},
        {"copyin", Block, &T::copyFile},
        {"present", Block, &T::present},
        {"brief", Block, &T::briefText},
        {"line", Inline, &T::lineNumber},
        {"here", Inline, &T::here},
        {"grouporder", Inline, &T::groupOrder},
        {"ingroup", Inline, &T::inGroup},
        {"lt", Symbol, &T::symbol, "&lt;"},
        {"gt", Symbol, &T::symbol, "&gt;"},
        {"or", Symbol, &T::symbol, "&mdash;or&mdash;"},
        {"plusminus", Symbol, &T::symbol, "&plusmn;"},
        {"inf", Symbol, &T::symbol, "&#x221e;"},
        {"pi", Symbol, &T::symbol, "&#x3c0;"},
        {"theta", Symbol, &T::symbol, "&#x3B8;"}, // deliberate: the digits' case differs between rows
        {"psi", Symbol, &T::symbol, "&#x3C8;"},
        {"phi", Symbol, &T::symbol, "&#x3C6;"},
        {"half", Symbol, &T::symbol, "&#xbd;"},
        {"quarter", Symbol, &T::symbol, "&#xbc;"},
        {"threequarter", Symbol, &T::symbol, "&#xbe;"},
        {"divslash", Symbol, &T::symbol, "&#x2215;"},
        {"bullet", Symbol, &T::symbol, "&#x2219;"},
        {"minus", Symbol, &T::symbol, "&#x2212;"},
        {"times", Symbol, &T::symbol, "&#xd7;"},
        {"divide", Symbol, &T::symbol, "&#xf7;"},
        {"ge", Symbol, &T::symbol, "&#x2265;"},
        {"le", Symbol, &T::symbol, "&#x2264;"},
        {"ne", Symbol, &T::symbol, "&#x2260;"},
        {"up", Symbol, &T::symbol, "&#x2191;"},
        {"down", Symbol, &T::symbol, "&#x2193;"},
        {"updown", Symbol, &T::symbol, "&#x2195;"},
        {"hdots", Symbol, &T::symbol, "&hellip;"},
        {"vdots", Symbol, &T::symbol, "&#x205e;"},
        {":", Symbol, &T::symbol, "&#x202f;"},
        {",", Symbol, &T::symbol, "&#x202f;"},
        {"&", Symbol, &T::symbol, "&amp;"},
        {"\\", Symbol, &T::symbol, "&#x5c;"},
        {"-", Symbol, &T::symbol, "&ndash;"},
        {"--", Symbol, &T::symbol, "&mdash;"},
        {"...", Symbol, &T::symbol, "&hellip;"},
        {"a", Inline, &T::style, "<b>", "</b>"},
        {"f", Inline, &T::style, "<b>", "</b>"},
        {"m", Inline, &T::style, "<b>", "</b>"},
        {"dq", Inline, &T::style, "&ldquo;", "&rdquo;"},
        {"q", Inline, &T::style, "&lsquo;", "&rsquo;"},
        {"sq", Inline, &T::style, "&lsquo;", "&rsquo;"},
        {"b", Inline, &T::style, "<b>", "</b>"},
        {"u", Inline, &T::style, "<u>", "</u>"},
        {"bi", Inline, &T::style, "<b><i>", "</i></b>"},
        {"i", Inline, &T::style, "<i>", "</i>"},
        {"em", Inline, &T::style, "<i>", "</i>"},
        {"e", Inline, &T::style, "<i>", "</i>"},
        {"big", Inline, &T::style, "<big>", "</big>"},
        {"input", Inline, &T::style, "<b>", "</b> &#8629;"},
        {"html", Inline, &T::rawHtml},
        {"file", Inline, &T::style, "<tt>", "</tt>"},
        {"sub", Inline, &T::style, "<sub>", "</sub>"},
        {"sup", Inline, &T::style, "<sup>", "</sup>"},
        {"br", Symbol, &T::symbol, "<br/>"},
        {"tt", Inline, &T::style, "<tt>", "</tt>"},
        {"img", Inline, &T::image},
        {"icon", Inline, &T::icon},
        {"screen", Inline, &T::screen},
        {"code", Block, &T::codeListing},
        {"pre", Block, &T::plainListing},
        {"endcode", Block, &T::misplaced},
        {"endpre", Block, &T::misplaced},
        {"endtable", Block, &T::endTable},
        {"endmatrix", Block, &T::endMatrix},
        {"term", Block, &T::term},
        {"item", Block, &T::item},
        {"step", Block, &T::step},
        {"param", Block, &T::parameter},
        {"return", Block, &T::returns},
        {"xref", Inline, &T::link},
        {"ref", Inline, &T::link},
        {"titleref", Inline, &T::link, "<big>", "</big><br/>"},
        {"show", Block, &T::show},
        {"matrix", Block, &T::matrix},
        {"table", Block, &T::table},
        {"synopsis", Block, &T::synopsis, "<h5>Synopsis</h5><pre>", "</pre>"},
        {"description", Block, &T::referenceSection, "<h5>Description</h5>"},
        {"desc", Block, &T::referenceSection, "<h5>Description</h5>"},
        {"ts", Block, &T::referenceSection, "<h5>Thread Safety</h5>"},
        {"note", Block, &T::referenceSection, "<h5>Note</h5>"},
        {"errors", Block, &T::referenceSection, "<h5>Errors</h5>"},
        {"sa", Block, &T::referenceSection, "<h5>See Also</h5>"},
        {"seealso", Block, &T::referenceSection, "<h5>See Also</h5>"},
        {"rv", Block, &T::referenceSection, "<h5>Return Value</h5>"},
        {"returns", Block, &T::referenceSection, "<h5>Return Value</h5>"},
        {"stds", Block, &T::referenceSection, "<h5>Standards</h5>"},
        {"standards", Block, &T::referenceSection, "<h5>Standards</h5>"},
        {"port", Block, &T::referenceSection, "<h5>Portability</h5>"},
        {"portability", Block, &T::referenceSection, "<h5>Portability</h5>"},
        {"begin", Page, &T::beginGroup},
        {"end", Page, &T::endGroup},
        {"contents", Page, &T::contents},
        {"menu", Inline, &T::menu},
        {"key", Inline, &T::key},
        {"tip", Inline, &T::tip},
        {"property", Inline, &T::property},
        {"envpage", Block, &T::propertyPage},
        {"ui", Inline, &T::style, "<b>", "</b>"},
        {"h1", Heading, &T::heading, "<h1>", "</h1>"},
        {"h2", Heading, &T::heading, "<h2>", "</h2>"},
        {"h3", Heading, &T::heading, "<h3>", "</h3>"},
        {"copy", Block, &T::copyLine},
        {"section", Heading, &T::section},
        {"overview", Block, &T::overview},
        {"subsection", Heading, &T::subsection},
        {"style", Inline, &T::paragraphStyle},
        {"title", Heading, &T::title},
        {"task", Heading, &T::heading, "<h5>", "</h5>"},
        {"rem", Inline, &T::discardLine},
        {"fixme", Inline, &T::discardLine},
        {"review", Inline, &T::discardLine},
        {"side", Heading, &T::heading, "<h6>", "</h6>"},
        {"split", Page, &T::split},
    };
    return table;
}

namespace {

constexpr std::size_t s_slots = 512; // a power of two, well above the number of commands

constexpr std::size_t slotOf(std::string_view name)
{
    std::uint32_t hash = 2166136261U;
    for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    return (hash ^ hash >> 15) % s_slots;
}

using Index = std::array<const Command *, s_slots>;

Index commandIndex()
{
    Index index{};
    for (const Command &command : CommandTable::rows()) {
        std::size_t slot = slotOf(command.name);
        while (index[slot] != nullptr)
            slot = (slot + 1) % s_slots;
        index[slot] = &command;
    }
    return index;
}

} // namespace

const Command *CommandTable::find(std::string_view name)
{
    static const Index index = commandIndex();
    for (std::size_t slot = slotOf(name); index[slot] != nullptr; slot = (slot + 1) % s_slots) {
        if (index[slot]->name == name)
            return index[slot];
    }
    return nullptr;
}

} // namespace tavidoc
