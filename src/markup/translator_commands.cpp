#include "markup/translator.h"

#include <array>
#include <cstdint>

namespace tavidoc {

std::span<const Translator::Command> Translator::commands()
{
    using enum Place;
    using T = Translator;
    static constexpr Command table[] = {
        {"document", Anywhere, &T::wrapText, "<document>", "</document>"},
        {"subtitle", Anywhere, &T::wrapText, "<subtitle>", "</subtitle>"},
        {"choose", Anywhere, &T::choose, "Choose", "Press"},
        {"press", Anywhere, &T::choose, "Choose", "Press"},
        {"choosing", Anywhere, &T::choose, "Choosing", "Pressing"},
        {"pressing", Anywhere, &T::choose, "Choosing", "Pressing"},
        {"include", Anywhere, &T::includeInContents},
        {"rawcontent", Anywhere, &T::rawContent},
        {"copyin", Block, &T::copyFile},
        {"present", Block, &T::present},
        {"brief", Block, &T::briefText},
        {"line", Anywhere, &T::lineNumber},
        {"here", Anywhere, &T::here},
        {"grouporder", Anywhere, &T::groupOrder},
        {"ingroup", Anywhere, &T::inGroup},
        {"lt", Anywhere, &T::symbol, "&lt;"},
        {"gt", Anywhere, &T::symbol, "&gt;"},
        {"or", Anywhere, &T::symbol, "&mdash;or&mdash;"},
        {"plusminus", Anywhere, &T::symbol, "&plusmn;"},
        {"inf", Anywhere, &T::symbol, "&#x221e;"},
        {"pi", Anywhere, &T::symbol, "&#x3c0;"},
        {"theta", Anywhere, &T::symbol, "&#x3B8;"}, // deliberate: the digits' case differs between rows
        {"psi", Anywhere, &T::symbol, "&#x3C8;"},
        {"phi", Anywhere, &T::symbol, "&#x3C6;"},
        {"half", Anywhere, &T::symbol, "&#xbd;"},
        {"quarter", Anywhere, &T::symbol, "&#xbc;"},
        {"threequarter", Anywhere, &T::symbol, "&#xbe;"},
        {"divslash", Anywhere, &T::symbol, "&#x2215;"},
        {"bullet", Anywhere, &T::symbol, "&#x2219;"},
        {"minus", Anywhere, &T::symbol, "&#x2212;"},
        {"times", Anywhere, &T::symbol, "&#xd7;"},
        {"divide", Anywhere, &T::symbol, "&#xf7;"},
        {"ge", Anywhere, &T::symbol, "&#x2265;"},
        {"le", Anywhere, &T::symbol, "&#x2264;"},
        {"ne", Anywhere, &T::symbol, "&#x2260;"},
        {"up", Anywhere, &T::symbol, "&#x2191;"},
        {"down", Anywhere, &T::symbol, "&#x2193;"},
        {"updown", Anywhere, &T::symbol, "&#x2195;"},
        {"hdots", Anywhere, &T::symbol, "&hellip;"},
        {"vdots", Anywhere, &T::symbol, "&#x205e;"},
        {":", Anywhere, &T::symbol, "&#x202f;"},
        {",", Anywhere, &T::symbol, "&#x202f;"},
        {"&", Anywhere, &T::symbol, "&amp;"},
        {"\\", Anywhere, &T::symbol, "&#x5c;"},
        {"-", Anywhere, &T::symbol, "&ndash;"},
        {"--", Anywhere, &T::symbol, "&mdash;"},
        {"...", Anywhere, &T::symbol, "&hellip;"},
        {"a", Anywhere, &T::style, "<b>", "</b>"},
        {"f", Anywhere, &T::style, "<b>", "</b>"},
        {"m", Anywhere, &T::style, "<b>", "</b>"},
        {"dq", Anywhere, &T::style, "&ldquo;", "&rdquo;"},
        {"q", Anywhere, &T::style, "&lsquo;", "&rsquo;"},
        {"sq", Anywhere, &T::style, "&lsquo;", "&rsquo;"},
        {"b", Anywhere, &T::style, "<b>", "</b>"},
        {"u", Anywhere, &T::style, "<u>", "</u>"},
        {"bi", Anywhere, &T::style, "<b><i>", "</i></b>"},
        {"i", Anywhere, &T::style, "<i>", "</i>"},
        {"em", Anywhere, &T::style, "<i>", "</i>"},
        {"e", Anywhere, &T::style, "<i>", "</i>"},
        {"big", Anywhere, &T::style, "<big>", "</big>"},
        {"input", Anywhere, &T::style, "<b>", "</b> &#8629;"},
        {"html", Anywhere, &T::rawHtml},
        {"file", Anywhere, &T::style, "<tt>", "</tt>"},
        {"sub", Anywhere, &T::style, "<sub>", "</sub>"},
        {"sup", Anywhere, &T::style, "<sup>", "</sup>"},
        {"br", Anywhere, &T::symbol, "<br/>"},
        {"tt", Anywhere, &T::style, "<tt>", "</tt>"},
        {"img", Anywhere, &T::image},
        {"icon", Anywhere, &T::icon},
        {"screen", Anywhere, &T::screen},
        {"code", Block, &T::listing, "c"},
        {"pre", Block, &T::listing, "plain"},
        {"endcode", Block, &T::misplaced},
        {"endpre", Block, &T::misplaced},
        {"endtable", Block, &T::endTable},
        {"endmatrix", Block, &T::endMatrix},
        {"term", Block, &T::term},
        {"item", Block, &T::item},
        {"step", Block, &T::step},
        {"param", Block, &T::parameter},
        {"return", Block, &T::returns},
        {"xref", Anywhere, &T::link},
        {"ref", Anywhere, &T::link},
        {"titleref", Anywhere, &T::link, "<big>", "</big><br/>"},
        {"show", Block, &T::show},
        {"matrix", Block, &T::matrix},
        {"table", Block, &T::table},
        {"synopsis", Block, &T::synopsis, "Synopsis"},
        {"description", Block, &T::referenceSection, "Description"},
        {"desc", Block, &T::referenceSection, "Description"},
        {"ts", Block, &T::referenceSection, "Thread Safety"},
        {"note", Block, &T::referenceSection, "Note"},
        {"errors", Block, &T::referenceSection, "Errors"},
        {"sa", Block, &T::referenceSection, "See Also"},
        {"seealso", Block, &T::referenceSection, "See Also"},
        {"rv", Block, &T::referenceSection, "Return Value"},
        {"returns", Block, &T::referenceSection, "Return Value"},
        {"stds", Block, &T::referenceSection, "Standards"},
        {"standards", Block, &T::referenceSection, "Standards"},
        {"port", Block, &T::referenceSection, "Portability"},
        {"portability", Block, &T::referenceSection, "Portability"},
        {"begin", Document, &T::beginGroup},
        {"end", Document, &T::endGroup},
        {"contents", Document, &T::contents},
        {"menu", Anywhere, &T::menu},
        {"key", Anywhere, &T::key},
        {"tip", Anywhere, &T::tip},
        {"property", Anywhere, &T::property},
        {"envpage", Block, &T::propertyPage},
        {"ui", Anywhere, &T::style, "<b>", "</b>"},
        {"h1", Block, &T::namedHeading, "h1"},
        {"h2", Block, &T::namedHeading, "h2"},
        {"h3", Block, &T::namedHeading, "h3"},
        {"copy", Block, &T::copyLine},
        {"section", Block, &T::section, "1"},
        {"overview", Block, &T::overview, "Overview"},
        {"subsection", Block, &T::section, "2"},
        {"style", Anywhere, &T::paragraphStyle},
        {"title", Block, &T::title},
        {"task", Block, &T::namedHeading, "h5"},
        {"rem", Anywhere, &T::discardLine},
        {"fixme", Anywhere, &T::discardLine},
        {"review", Anywhere, &T::discardLine},
        {"side", Block, &T::namedHeading, "h6"},
        {"split", Document, &T::split},
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

using Index = std::array<const Translator::Command *, s_slots>;

Index commandIndex()
{
    Index index{};
    for (const Translator::Command &command : Translator::commands()) {
        std::size_t slot = slotOf(command.name);
        while (index[slot] != nullptr)
            slot = (slot + 1) % s_slots;
        index[slot] = &command;
    }
    return index;
}

} // namespace

const Translator::Command *Translator::findCommand(std::string_view name)
{
    static const Index index = commandIndex();
    for (std::size_t slot = slotOf(name); index[slot] != nullptr; slot = (slot + 1) % s_slots) {
        if (index[slot]->name == name)
            return index[slot];
    }
    return nullptr;
}

} // namespace tavidoc
