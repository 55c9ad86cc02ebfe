#include "site/command/path_pattern.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <utility>

namespace tavidoc {

namespace {

namespace fs = std::filesystem;

/// Whether \a name matches \a pattern, both without "/". Linear but for the last "*".
bool matchesName(std::string_view name, std::string_view pattern)
{
    if (name.starts_with('.') && !pattern.starts_with('.'))
        return false;
    std::size_t at = 0;
    std::size_t next = 0;
    std::size_t star = std::string_view::npos; // the last "*", and what it matches so far
    std::size_t starEnd = 0;
    while (at < name.size()) {
        if (next < pattern.size() && pattern[next] == '*') {
            star = next++;
            starEnd = at;
        } else if (next < pattern.size() && (pattern[next] == '?' || pattern[next] == name[at])) {
            ++next;
            ++at;
        } else if (star != std::string_view::npos) {
            next = star + 1;
            at = ++starEnd;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', next) == std::string_view::npos;
}

std::vector<std::string_view> parts(std::string_view pattern)
{
    std::vector<std::string_view> names;
    while (!pattern.empty()) {
        const std::size_t end = std::min(pattern.find('/'), pattern.size());
        if (end != 0)
            names.push_back(pattern.substr(0, end));
        pattern.remove_prefix(std::min(end + 1, pattern.size()));
    }
    return names;
}

std::string joined(const std::string &directory, const std::string &name)
{
    return directory.empty() || directory.ends_with('/') ? directory + name : directory + '/' + name;
}

/// A directory that the first \a part names of the pattern lead to.
struct Place
{
    std::string path; ///< relative to where the pattern begins
    std::size_t part;
};

/// The walk over the directories that a pattern can match.
class Walk
{
public:
    Walk(std::string top, std::string_view pattern, std::vector<std::string> *visited)
        : m_top(std::move(top)), m_parts(parts(pattern)), m_directories(visited)
    {
        m_places.push_back({pattern.starts_with('/') ? "/" : "", 0});
    }

    std::vector<std::string> files()
    {
        while (!m_places.empty()) {
            const Place place = std::move(m_places.back());
            m_places.pop_back();
            if (m_visited.emplace(place.path, place.part).second) // several "**" lead to a directory in several ways
                visit(place);
        }
        std::ranges::sort(m_files);
        m_files.erase(std::unique(m_files.begin(), m_files.end()), m_files.end());
        return std::move(m_files);
    }

private:
    void visit(const Place &place)
    {
        if (place.part == m_parts.size())
            return;
        const std::string_view part = m_parts[place.part];
        if (m_directories != nullptr && (isPattern(part) || place.part + 1 == m_parts.size()))
            m_directories->push_back(full(place.path));
        if (part == "**")
            return visitAll(place);
        if (!isPattern(part))
            return add(place, std::string(part));
        for (const fs::directory_entry &entry : entries(place))
            if (std::string name = entry.path().filename(); matchesName(name, part))
                add(place, name);
    }

    /// Adds all directories below \a place, which stay at the "**", and the place itself for what comes after it.
    void visitAll(const Place &place)
    {
        const bool isLast = place.part + 1 == m_parts.size();
        if (!isLast)
            m_places.push_back({place.path, place.part + 1});
        for (const fs::directory_entry &entry : entries(place)) {
            std::error_code error;
            const std::string name = entry.path().filename();
            if (name.starts_with('.'))
                continue;
            if (entry.is_directory(error) && !entry.is_symlink(error))
                m_places.push_back({joined(place.path, name), place.part});
            else if (isLast && entry.is_regular_file(error))
                m_files.push_back(joined(place.path, name));
        }
    }

    /// Goes on at \a name in \a place: it is a result if the pattern ends here.
    void add(const Place &place, const std::string &name)
    {
        const std::string path = joined(place.path, name);
        std::error_code error;
        if (place.part + 1 != m_parts.size())
            m_places.push_back({path, place.part + 1});
        else if (fs::is_regular_file(full(path), error))
            m_files.push_back(path);
    }

    [[nodiscard]] std::string full(const std::string &path) const
    {
        return path.starts_with('/') ? path : joined(m_top, path);
    }

    [[nodiscard]] fs::directory_iterator entries(const Place &place) const
    {
        const std::string path = full(place.path);
        std::error_code error;
        return {path.empty() ? "." : path, fs::directory_options::skip_permission_denied, error};
    }

    std::string m_top;
    std::vector<std::string_view> m_parts;
    std::vector<std::string> *m_directories; ///< that were looked at; not owned
    std::vector<Place> m_places;             ///< to be visited
    std::set<std::pair<std::string, std::size_t>> m_visited;
    std::vector<std::string> m_files;
};

} // namespace

bool isPattern(std::string_view pattern)
{
    return pattern.find_first_of("*?") != std::string_view::npos;
}

std::vector<std::string> matchingFiles(const std::string &directory, std::string_view pattern,
                                       std::vector<std::string> *visited)
{
    return Walk(directory, pattern, visited).files();
}

} // namespace tavidoc
