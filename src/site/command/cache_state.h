#pragma once

#include "site/command/file_stamps.h"
#include "site/link/link.h"
#include "site/record/field_writer.h"

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace tavidoc {

/// A file that was looked for when something was made, and what was found.
struct Dependency
{
    std::string name;
    bool found = false;
    std::uint64_t hash = 0; ///< of its contents

    bool operator==(const Dependency &) const = default;
};

/// A file of the site that a part of it consists of.
struct PartFile
{
    std::string address;
    std::uint64_t hash = 0; ///< of its contents
};

void describe(auto &fields, OneOf<PartFile> auto &file)
{
    fields("address", file.address);
    fields("hash", file.hash);
}

/// A file of the site as it was written.
struct WrittenFile
{
    std::string address;
    std::uint64_t hash = 0;    ///< of its contents
    std::int64_t modified = 0; ///< when its contents last changed, in ns
    std::uint64_t size = 0;
};

/// A part of the site that is rendered as a whole: a record, or what all pages share.
struct CachedPart
{
    std::uint64_t key = 0; ///< of all that it was made from; 0: to be made again
    std::vector<PartFile> files;
};

/// An input whose record is in the cache.
struct CachedInput
{
    std::string input;
    std::string folder;
    std::uint64_t recordHash = 0;
    std::vector<Dependency> files; ///< that compiling looked for; none: to be compiled again
    CachedPart part;
};

/// What a build leaves for the next one.
struct CacheState
{
    std::string program; ///< which program wrote it
    std::vector<CachedInput> inputs;
    std::uint64_t linkKey = 0;           ///< of all that was linked; 0: to be linked again
    std::uint64_t siteKey = 0;           ///< of all that was linked for the pages; 0: to be rendered again
    std::vector<Dependency> linkedFiles; ///< that linking looked for, without hashes
    std::vector<Finding> findings;       ///< of the last link
    CachedPart shared;                   ///< what all pages share
    std::vector<CopiedFile> copied;      ///< what is copied into the site
    CachedPart copies;                   ///< the copies
    std::vector<WrittenFile> written;    ///< all files of the site, by address
    std::vector<FileStamp> stamps;
};

/// The state in the file \a name; an empty one when there is none, when it is damaged, or when another program wrote it.
[[nodiscard]] CacheState readCacheState(const QString &name);
/// Throws HException when it cannot be written.
void writeCacheState(const QString &name, const CacheState &state);

} // namespace tavidoc
