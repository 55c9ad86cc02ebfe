// What a project file says about other projects.

#include "site/command/project_reader.h"

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
