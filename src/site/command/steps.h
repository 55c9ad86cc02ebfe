#pragma once

#include "site/command/cache_state.h"
#include "site/link/link.h"
#include "site/record/record.h"
#include "site/render/render.h"

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace tavidoc {

/// A record that was written.
struct CompiledInput
{
    std::uint64_t hash = 0; ///< of the record file
    std::vector<RecordFile> files;
};

/// Compiles \a input into the record file \a recordFile, which is written only if it changes. Throws HException.
[[nodiscard]] CompiledInput compileToFile(const std::string &input, const std::string &folder,
                                          const QString &recordFile);

/// What linking wrote.
struct LinkedSite
{
    std::vector<std::uint64_t> recordHashes; ///< of the ".lnk" file of each record
    std::uint64_t sharedHash = 0;            ///< of the file with what all pages share
    SharedLinks shared;
    std::vector<PartFile> searchFiles; ///< by address
    std::vector<CopiedFile> copied;    ///< into the site, each address once
    std::vector<Finding> findings;
    std::vector<Dependency> lookedFor; ///< files that linking looked for, by name, without hashes
};

/// Links \a records and writes the outcome to the directory \a directory, which is created: only files that change are
/// written, and ".lnk" files and search files of an earlier link are removed. Throws HException.
[[nodiscard]] LinkedSite linkToDirectory(const std::vector<Record> &records, const SiteSettings &settings,
                                         const QString &directory);

/// Renders the pages of all records in the file \a recordFile with what linking wrote to \a linkDirectory for them.
/// Throws HException when the files cannot be read or do not fit each other.
void renderRecordFile(const QString &recordFile, const QString &linkDirectory, const SharedLinks &shared,
                      const FileSink &sink);

/// What linking made of \a record. Throws HException.
[[nodiscard]] RecordLinks linksOf(const Record &record, const QString &linkDirectory);

/// The pictures of the records in \a recordFile.
[[nodiscard]] std::vector<CopiedFile> picturesOf(const QString &recordFile, const QString &linkDirectory);

/// What all pages share: their pages and scripts, and the search.
void renderSharedFiles(const QString &linkDirectory, const SharedLinks &shared, const FileSink &sink);

/// The files of the project that are copied into the site.
[[nodiscard]] std::vector<CopiedFile> copiedFilesOf(const SiteSettings &settings);

} // namespace tavidoc
