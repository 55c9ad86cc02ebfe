#include "pages/contents.h"

#include "base/text_escape.h"

#include <algorithm>
#include <utility>

namespace tavidoc {

namespace {

std::string line(std::string_view before, std::string_view text, std::string_view after)
{
    std::string result(before);
    appendEscaped(result, text);
    result += after;
    return result;
}

} // namespace

std::string pageFile(std::string_view name)
{
    std::string file(name);
    if (!file.ends_with(".htm"))
        file += ".htm";
    return file;
}

void Contents::openPage(std::string_view stem)
{
    closeLevels();
    open(line("<content url=\"", pageFile(stem), "\">"), m_level);
}

void Contents::openTitle(std::string_view title)
{
    if (m_titleInnermost)
        closeEntry();
    closeLevels();
    open(line("<content title=\"", title, "\">"), m_level);
    m_titleInnermost = true;
}

void Contents::closeLevels()
{
    while (!m_open.empty() && m_open.back() != s_group && m_open.back() >= m_level)
        closeEntry();
}

void Contents::goUp()
{
    m_level = std::max(0, m_level - 1);
}

void Contents::beginGroup(std::string_view title)
{
    open(line("<content title=\"", title, "\">"), s_group);
    ++m_openGroups;
}

bool Contents::endGroup()
{
    if (m_openGroups == 0)
        return false;
    while (m_open.back() != s_group)
        closeEntry();
    closeEntry();
    return true;
}

void Contents::addLeaf(std::string_view stem)
{
    addLine(line("<content url=\"", pageFile(stem), "\" />"));
}

void Contents::addInclude(std::string_view name)
{
    if (!name.ends_with(".xml"))
        return addLeaf(name);
    const bool keepsRoot = name.starts_with("gnu_");
    addLine(line("<include filename=\"", name, keepsRoot ? "\" />" : "\" no_root=\"1\" />"));
}

void Contents::closeAll()
{
    m_level = 0;
    while (!m_open.empty())
        closeEntry();
}

void Contents::closeEntry()
{
    if (m_open.back() == s_group)
        --m_openGroups;
    m_open.pop_back();
    m_titleInnermost = false;
    addLine("</content>");
}

void Contents::open(std::string line, int level)
{
    m_lines.push_back(std::move(line));
    m_titleInnermost = false;
    m_open.push_back(level);
}

} // namespace tavidoc
