#pragma once

#include "site/command/build_cache.h"
#include "site/command/site_output.h"
#include "site/command/steps.h"

#include <QString>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavidoc {

/// Records in the cache whose bodies are damaged, by index of the input.
struct DamagedRecords
{
    std::vector<std::size_t> inputs;
};

/// Brings the pages of a site up to date. The site has parts that are rendered as a whole: what all pages share, each
/// record, and the copied files. If several parts have a file of the same name, the first of them counts.
class PageWriter
{
public:
    /// The settings and the cache are borrowed.
    PageWriter(const QString &output, const SiteSettings &settings, BuildCache &cache, int jobs);

    /// Whether everything that the last build wrote is as it was.
    [[nodiscard]] bool isComplete() const;

    /// Renders the parts that changed, without touching the site. \a site is null when nothing was linked. Throws
    /// HException, BuildError and DamagedRecords.
    void render(const std::optional<LinkedSite> &site);

    struct Counts
    {
        std::size_t files = 0;
        std::size_t written = 0;
        std::size_t removed = 0;
    };
    /// Puts into the site what was rendered, and removes files of earlier builds. While the site is watched, a removed
    /// page gives way to one that says so: the reader's page, which may reload itself at any moment, always exists.
    Counts publish();

private:
    /// A part that is to be rendered.
    struct Stale
    {
        std::size_t part;
        std::uint64_t key; ///< its new one
    };

    [[nodiscard]] bool isUpToDate(std::size_t part, std::uint64_t key) const;
    /// Decides again which part counts for each address.
    void findOwners();
    void renderParts(const std::vector<Stale> &stale, const LinkedSite &site);
    void throwFailures(const std::vector<Stale> &stale, const std::vector<std::string> &failures) const;
    /// Renders \a part in a worker. Names of staged files begin with \a prefix.
    std::vector<StagedFile> rendered(std::size_t part, const LinkedSite &site, const std::string &prefix);
    void keep(const Stale &stale, std::vector<StagedFile> &&files);
    void copyFiles();
    void replaceRemovedPages();
    /// Notes in the state that \a files are about to be written, so that the next build knows them as its own even if
    /// this one is killed.
    void announce(const std::vector<const StagedFile *> &files);

    const SiteSettings &m_settings;
    BuildCache &m_cache;
    CacheState &m_state;
    int m_jobs;
    std::vector<WrittenFile> m_before; ///< what the last build wrote
    SiteOutput m_output;
    /// What all pages share, each record, and the copies. They become those of the state when they are published.
    std::vector<CachedPart> m_parts;
    std::map<std::string, std::size_t> m_owners;                        ///< parts by address
    std::map<std::pair<std::size_t, std::string>, StagedFile> m_staged; ///< by part and address
    std::map<std::string, StagedFile> m_notices; ///< what takes the place of removed pages, by address
    int m_rounds = 0;                            ///< of rendering
};

} // namespace tavidoc
