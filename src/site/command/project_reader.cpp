#include "site/command/project_reader.h"

#include "base/nearest_name.h"
#include "site/command/path_pattern.h"
#include "site/command/site_path.h"

#include <algorithm>
#include <optional>

#include <unistd.h>

namespace tavidoc {

namespace {

constexpr std::string_view s_name = "{name}"; // in a folder: the name of the input up to its first dot

constexpr std::pair<std::string_view, CheckLevel> s_levels[] = {
    {"error", CheckLevel::Error}, {"warning", CheckLevel::Warning}, {"off", CheckLevel::Off}};

std::string inQuotes(std::string_view text)
{
    return std::string("\"").append(text).append("\"");
}

/// \a folder for the input \a file.
std::string folderOf(std::string folder, std::string_view file)
{
    std::string_view name = fileNameOf(file);
    name = name.substr(0, name.find('.'));
    for (std::size_t at = folder.find(s_name); at != std::string_view::npos; at = folder.find(s_name, at + name.size()))
        folder.replace(at, s_name.size(), name);
    return folder;
}

/// \a stem without the suffix of pages.
std::string withoutSuffix(std::string stem)
{
    constexpr std::string_view suffix = ".htm";
    if (stem.ends_with(suffix))
        stem.resize(stem.size() - suffix.size());
    return stem;
}

} // namespace

std::span<const ProjectReader::Key> ProjectReader::siteKeys()
{
    static constexpr Key table[] = {
        {"title", &ProjectReader::readText<&SiteSettings::title>},
        {"version", &ProjectReader::readText<&SiteSettings::version>},
        {"url", &ProjectReader::readUrl},
        {"copyright", &ProjectReader::readText<&SiteSettings::copyright>},
        {"language", &ProjectReader::readLanguage},
        {"logo", &ProjectReader::readFile<&SiteSettings::logo>},
        {"favicon", &ProjectReader::readFile<&SiteSettings::favicon>},
        {"style", &ProjectReader::readFile<&SiteSettings::style>},
        {"input", &ProjectReader::readInputs},
        {"assets", &ProjectReader::readAssets},
        {"check", &ProjectReader::readChecks},
        {"redirects", &ProjectReader::readRedirects},
        {"inventory", &ProjectReader::readInventories},
        {"versions", &ProjectReader::readVersions},
    };
    return table;
}

std::span<const ProjectReader::Key> ProjectReader::inputKeys()
{
    static constexpr Key table[] = {
        {"files", &ProjectReader::readInputFiles},
        {"folder", &ProjectReader::readInputFolder},
    };
    return table;
}

std::span<const ProjectReader::Key> ProjectReader::assetKeys()
{
    static constexpr Key table[] = {{"copy", &ProjectReader::readCopies}};
    return table;
}

ProjectReader::ProjectReader(std::string file) : m_file(std::move(file)), m_directory(directoryWithSlash(m_file))
{
    m_project.settings.projectFile = m_file;
}

Project ProjectReader::read(std::string_view text)
{
    try {
        readTable(toml::parse(text, m_file), siteKeys());
    } catch (const toml::parse_error &error) {
        report(error.source(), std::string(error.description()));
    }
    if (m_messages.empty())
        return std::move(m_project);
    ProjectError error{{}, m_status, std::move(m_project.lookedFor)};
    for (auto &[place, message] : m_messages)
        error.messages.push_back(std::move(message));
    throw ProjectError(std::move(error));
}

void ProjectReader::readTable(const toml::node &value, std::span<const Key> keys)
{
    const toml::table *const table = value.as_table();
    if (table == nullptr)
        return report(value.source(), "expected a table");
    for (const auto &[key, entry] : *table) {
        const auto found = std::ranges::find(keys, key.str(), &Key::name);
        if (found != keys.end()) {
            (this->*found->read)(entry);
            continue;
        }
        std::vector<std::string_view> names;
        for (const Key &known : keys)
            names.push_back(known.name);
        report(key.source(), "unknown key " + inQuotes(key.str()) + suggestion(key.str(), names));
    }
}

template <CopiedFile SiteSettings::*member> void ProjectReader::readFile(const toml::node &value)
{
    const std::string path = text(value);
    if (path.empty())
        return;
    const std::string file = resolved(path);
    m_project.lookedFor.files.push_back(file);
    if (::access(file.c_str(), R_OK) != 0)
        return reportUnreadable(value.source(), file);
    m_project.settings.*member = {file, isInside(path) ? path : std::string(fileNameOf(path))};
}

void ProjectReader::readUrl(const toml::node &value)
{
    m_project.settings.url = url(value);
}

void ProjectReader::readLanguage(const toml::node &value)
{
    const std::string language = text(value);
    const auto isLetter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
    };
    if (language.empty())
        return;
    if (!std::ranges::all_of(language, isLetter))
        return report(value.source(),
                      "invalid language " + inQuotes(language) + ": expected a tag like \"en\" or \"pt-BR\"");
    m_project.settings.language = language;
}

void ProjectReader::readInputs(const toml::node &value)
{
    const toml::array *const inputs = value.as_array();
    if (inputs == nullptr)
        return report(value.source(), "expected [[input]], with two brackets");
    for (const toml::node &input : *inputs) {
        m_inputFiles = nullptr;
        m_inputFolder.clear();
        const std::size_t errors = m_messages.size();
        readTable(input, inputKeys());
        if (m_inputFiles == nullptr) {
            if (m_messages.size() == errors)
                report(input.source(), "an input without files");
            continue;
        }
        for (const auto &[pattern, node] : texts(*m_inputFiles))
            for (const std::string &file : files(pattern, *node))
                addInput(file, *node);
    }
}

void ProjectReader::readInputFiles(const toml::node &value)
{
    m_inputFiles = &value; // read when the folder is known
}

void ProjectReader::readInputFolder(const toml::node &value)
{
    std::string folder = text(value);
    if (folder.ends_with('/'))
        folder.pop_back();
    if (folder.empty())
        return;
    if (isInside(folderOf(folder, "name")))
        m_inputFolder = folder;
    else
        report(value.source(), "invalid folder " + inQuotes(folder) + ": expected names separated by \"/\"");
}

void ProjectReader::addInput(const std::string &file, const toml::node &value)
{
    const std::string folder = folderOf(m_inputFolder, file);
    if (m_known.emplace(file, folder).second)
        m_project.inputs.push_back({file, folder, position(value.source())});
}

void ProjectReader::readAssets(const toml::node &value)
{
    readTable(value, assetKeys());
}

void ProjectReader::readCopies(const toml::node &value)
{
    for (const auto &[pattern, node] : texts(value)) {
        if (pattern.starts_with('/') || ("/" + pattern + "/").find("/../") != std::string::npos) {
            report(node->source(), "invalid path " + inQuotes(pattern) + ": expected a path below the project file");
            continue;
        }
        for (const std::string &file : files(pattern, *node)) {
            const std::string address = file.substr(m_directory.size());
            if (isInside(address))
                m_project.settings.assets.push_back({file, address});
            else
                report(node->source(), "the name of " + inQuotes(file) + " is not possible on all systems");
        }
    }
}

void ProjectReader::readChecks(const toml::node &value)
{
    const toml::table *const table = value.as_table();
    if (table == nullptr)
        return report(value.source(), "expected a table");
    for (const auto &[key, entry] : *table)
        readCheck(key, entry);
}

void ProjectReader::readCheck(const toml::key &key, const toml::node &value)
{
    constexpr std::string_view autolink = "autolink";
    if (key.str() == autolink) {
        const std::string text = value.value_or(std::string());
        if (text != "on" && text != "off")
            return report(value.source(), "expected \"on\" or \"off\"");
        m_project.settings.autolink = text == "on";
        return;
    }
    if (!checkNamed(key.str())) {
        std::vector<std::string_view> names = {autolink};
        for (const Check &check : checks())
            names.push_back(check.name);
        return report(key.source(), "unknown check " + inQuotes(key.str()) + suggestion(key.str(), names));
    }
    const std::string level = value.value_or(std::string());
    const auto found = std::ranges::find(s_levels, level, &std::pair<std::string_view, CheckLevel>::first);
    if (found == std::end(s_levels))
        return report(value.source(), "expected \"error\", \"warning\" or \"off\"");
    m_project.settings.levels[std::string(key.str())] = found->second;
}

void ProjectReader::readRedirects(const toml::node &value)
{
    const toml::table *const table = value.as_table();
    if (table == nullptr)
        return report(value.source(), "expected a table");
    for (const auto &[key, entry] : *table) {
        const std::string from = withoutSuffix(std::string(key.str()));
        const std::string to = withoutSuffix(text(entry));
        if (to.empty())
            continue;
        if (!isInside(from))
            report(key.source(), "invalid page " + inQuotes(from) + ": expected names separated by \"/\"");
        else if (!isInside(to))
            report(entry.source(), "invalid page " + inQuotes(to) + ": expected names separated by \"/\"");
        else
            addRedirect(from, to, key);
    }
}

void ProjectReader::addRedirect(const std::string &from, const std::string &to, const toml::key &key)
{
    const toml::source_position &begin = key.source().begin;
    m_project.settings.redirects[from] = to;
    m_project.settings.redirectPlaces[from] = {static_cast<std::int64_t>(begin.line),
                                               static_cast<std::int64_t>(begin.column)};
}

std::string ProjectReader::text(const toml::node &value)
{
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    std::string text = value.is_string() ? **value.as_string() : std::string();
    if (!text.empty() && std::ranges::none_of(text, isControl))
        return text;
    report(value.source(), "expected a string of one line");
    return {};
}

std::string ProjectReader::url(const toml::node &value)
{
    std::string url = text(value);
    if (url.empty())
        return url;
    const std::string_view rest = std::string_view(url).substr(std::min(url.size(), url.find("://") + 3));
    if ((!url.starts_with("https://") && !url.starts_with("http://")) || rest.empty() ||
        url.find_first_of(" \"<>?#") != std::string_view::npos) {
        report(value.source(), "invalid url " + inQuotes(url) + ": expected https://HOST/PATH/");
        return {};
    }
    if (!url.ends_with('/'))
        url += '/';
    return url;
}

std::vector<std::pair<std::string, const toml::node *>> ProjectReader::texts(const toml::node &value)
{
    std::vector<std::pair<std::string, const toml::node *>> list;
    const toml::array *const array = value.as_array();
    if (array == nullptr || array->empty()) {
        report(value.source(), "expected an array of strings");
        return list;
    }
    for (const toml::node &element : *array) {
        if (std::string element_text = text(element); !element_text.empty())
            list.emplace_back(std::move(element_text), &element);
    }
    return list;
}

std::vector<std::string> ProjectReader::files(const std::string &pattern, const toml::node &value)
{
    std::vector<std::string> found;
    if (isPattern(pattern)) {
        for (const std::string &file : matchingFiles(m_directory, pattern, &m_project.lookedFor.directories))
            found.push_back(resolved(file));
        if (found.empty())
            report(value.source(), "no file matches " + inQuotes(pattern));
        return found;
    }
    const std::string file = resolved(pattern);
    m_project.lookedFor.files.push_back(file);
    if (!matchingFiles(m_directory, pattern).empty())
        found.push_back(file);
    else
        reportUnreadable(value.source(), file);
    return found;
}

std::string ProjectReader::resolved(const std::string &path) const
{
    return path.starts_with('/') ? path : m_directory + path;
}

void ProjectReader::report(const toml::source_region &source, const std::string &message)
{
    m_status = 2;
    add(source, message);
}

void ProjectReader::reportUnreadable(const toml::source_region &source, const std::string &file)
{
    add(source, "cannot read " + inQuotes(file));
}

void ProjectReader::add(const toml::source_region &source, const std::string &message)
{
    m_messages.emplace(Position(source.begin.line, source.begin.column), position(source) + ": error: " + message);
}

std::string ProjectReader::position(const toml::source_region &source) const
{
    return m_file + ':' + std::to_string(source.begin.line) + ':' + std::to_string(source.begin.column);
}

} // namespace tavidoc
