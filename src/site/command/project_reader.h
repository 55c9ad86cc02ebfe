#pragma once

#include "site/command/project.h"

#include <toml++/toml.h>

#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavidoc {

/// Reads the tables of a project file and collects what is wrong with them.
class ProjectReader
{
public:
    explicit ProjectReader(std::string file);

    /// Throws ProjectError.
    [[nodiscard]] Project read(std::string_view text);

private:
    /// A key of a table, and what reads its value.
    struct Key
    {
        std::string_view name;
        void (ProjectReader::*read)(const toml::node &value);
    };
    [[nodiscard]] static std::span<const Key> siteKeys();
    [[nodiscard]] static std::span<const Key> inputKeys();
    [[nodiscard]] static std::span<const Key> assetKeys();
    [[nodiscard]] static std::span<const Key> inventoryKeys();
    [[nodiscard]] static std::span<const Key> versionKeys();

    void readTable(const toml::node &value, std::span<const Key> keys);
    template <std::string SiteSettings::*member> void readText(const toml::node &value);
    template <CopiedFile SiteSettings::*member> void readFile(const toml::node &value);
    void readUrl(const toml::node &value);
    void readLanguage(const toml::node &value);
    void readInputs(const toml::node &value);
    void readInputFiles(const toml::node &value);
    void readInputFolder(const toml::node &value);
    void addInput(const std::string &file, const toml::node &value);
    void readAssets(const toml::node &value);
    void readCopies(const toml::node &value);
    void readChecks(const toml::node &value);
    void readCheck(const toml::key &key, const toml::node &value);
    void readRedirects(const toml::node &value);
    void addRedirect(const std::string &from, const std::string &to, const toml::key &key);
    void readVersions(const toml::node &value);
    void readVersionList(const toml::node &value);
    void readInventories(const toml::node &value);
    void readInventoryFile(const toml::node &value);
    void readInventoryUrl(const toml::node &value);

    /// The text of a value; empty, and an error, when it is not a text in one line with at least one character.
    std::string text(const toml::node &value);
    /// The address of a site, with "/" at its end; empty, and an error, when it is not one.
    std::string url(const toml::node &value);
    /// The texts of an array.
    std::vector<std::pair<std::string, const toml::node *>> texts(const toml::node &value);
    /// The files that the name or pattern \a pattern stands for, relative to the working directory. None, and an error,
    /// when there is none.
    std::vector<std::string> files(const std::string &pattern, const toml::node &value);
    /// \a path relative to the working directory.
    [[nodiscard]] std::string resolved(const std::string &path) const;

    /// Faults that make the project file wrong, and files that cannot be read.
    void report(const toml::source_region &source, const std::string &message);
    void reportUnreadable(const toml::source_region &source, const std::string &file);
    void add(const toml::source_region &source, const std::string &message);
    [[nodiscard]] std::string position(const toml::source_region &source) const;

    std::string m_file;
    std::string m_directory; ///< with "/" at its end, or empty
    Project m_project;
    std::set<std::pair<std::string, std::string>> m_known; ///< files and folders of the inputs
    const toml::node *m_inputFiles = nullptr;              ///< of the input that is read; not owned
    std::string m_inputFolder;                             ///< of the input that is read

    using Position = std::pair<toml::source_index, toml::source_index>;
    std::multimap<Position, std::string> m_messages;
    int m_status = 1;
};

template <std::string SiteSettings::*member> void ProjectReader::readText(const toml::node &value)
{
    m_project.settings.*member = text(value);
}

} // namespace tavidoc
