// What a project file says about other projects and other versions.

#include "site/command/project_reader.h"

#include "site/command/site_path.h"

#include <unistd.h>

namespace tavidoc {

std::span<const ProjectReader::Key> ProjectReader::inventoryKeys()
{
    static constexpr Key table[] = {
        {"file", &ProjectReader::readInventoryFile},
        {"url", &ProjectReader::readInventoryUrl},
    };
    return table;
}

std::span<const ProjectReader::Key> ProjectReader::versionKeys()
{
    static constexpr Key table[] = {
        {"file", &ProjectReader::readVersionList},
        {"title", &ProjectReader::readText<&SiteSettings::versionTitle>},
    };
    return table;
}

void ProjectReader::readVersions(const toml::node &value)
{
    m_project.settings.versionList = "../versions.js";
    readTable(value, versionKeys());
}

void ProjectReader::readVersionList(const toml::node &value)
{
    const std::string file = text(value);
    std::string_view rest = file;
    while (rest.starts_with("../"))
        rest.remove_prefix(3);
    if (file.empty())
        return;
    if (rest.size() == file.size() || !isInside(rest) || !rest.ends_with(".js"))
        return report(value.source(), "invalid file \"" + file + "\": expected a name like \"../versions.js\"");
    m_project.settings.versionList = file;
}

void ProjectReader::readInventories(const toml::node &value)
{
    const toml::array *const inventories = value.as_array();
    if (inventories == nullptr)
        return report(value.source(), "expected [[inventory]], with two brackets");
    for (const toml::node &inventory : *inventories) {
        m_project.settings.inventories.emplace_back();
        const std::size_t errors = m_messages.size();
        readTable(inventory, inventoryKeys());
        const SiteInventory &last = m_project.settings.inventories.back();
        if (m_messages.size() == errors && (last.file.empty() || last.url.empty()))
            report(inventory.source(),
                   last.file.empty() ? "an inventory without a file" : "an inventory without a url");
    }
}

void ProjectReader::readInventoryFile(const toml::node &value)
{
    const std::string path = text(value);
    if (path.empty())
        return;
    const std::string file = resolved(path);
    m_project.lookedFor.files.push_back(file);
    m_project.settings.inventories.back().file = file;
    if (::access(file.c_str(), R_OK) != 0)
        reportUnreadable(value.source(), file);
}

void ProjectReader::readInventoryUrl(const toml::node &value)
{
    m_project.settings.inventories.back().url = url(value);
}

} // namespace tavidoc
