#include "site/command/cache_state.h"

#include "base/hexception.h"
#include "base/whole_file.h"
#include "site/link/link_fields.h"
#include "site/record/field_reader.h"
#include "site/record/format_version.h"
#include "site/record/sealed_file.h"

#include <sys/stat.h>

namespace tavidoc {

void describe(auto &fields, OneOf<FileStamp> auto &stamp)
{
    fields("name", stamp.name);
    fields("found", stamp.found);
    fields("changed", stamp.changed);
    fields("size", stamp.size);
    fields("hash", stamp.hash);
}

void describe(auto &fields, OneOf<Dependency> auto &file)
{
    fields("name", file.name);
    fields("found", file.found);
    fields("hash", file.hash);
}

void describe(auto &fields, OneOf<WrittenFile> auto &file)
{
    fields("address", file.address);
    fields("hash", file.hash);
    fields("modified", file.modified);
    fields("size", file.size);
}

void describe(auto &fields, OneOf<CachedPart> auto &part)
{
    fields("key", part.key);
    fields("files", part.files);
}

void describe(auto &fields, OneOf<CachedInput> auto &input)
{
    fields("input", input.input);
    fields("folder", input.folder);
    fields("recordHash", input.recordHash);
    fields("files", input.files);
    fields("part", input.part);
}

void describe(auto &fields, OneOf<Finding> auto &finding)
{
    fields("check", finding.check);
    fields("file", finding.file);
    fields("line", finding.line);
    fields("text", finding.text);
    fields("column", finding.column);
    fields("isRaised", finding.isRaised);
}

void describe(auto &fields, OneOf<CacheState> auto &state)
{
    fields("program", state.program);
    fields("inputs", state.inputs);
    fields("linkKey", state.linkKey);
    fields("siteKey", state.siteKey);
    fields("linkedFiles", state.linkedFiles);
    fields("findings", state.findings);
    fields("shared", state.shared);
    fields("copied", state.copied);
    fields("copies", state.copies);
    fields("written", state.written);
    fields("stamps", state.stamps);
}

namespace {

const SealedFormat &stateFormat()
{
    static const SealedFormat format = {"TAVIDOCB", "the state of a build", FormatVersion::of<CacheState>()};
    return format;
}

/// Which program this is: records of another one may differ.
std::string thisProgram()
{
    std::string program = TAVIDOC_VERSION;
    struct stat status = {};
    if (::stat("/proc/self/exe", &status) == 0) {
        for (const auto number : {status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec})
            program.append(" ").append(std::to_string(number));
    }
    return program;
}

} // namespace

CacheState readCacheState(const QString &name)
{
    CacheState state;
    try {
        const SealedParts parts = readSealed(stateFormat(), name, SealedRead::All);
        FieldReader fields(parts.head, name);
        fields("state", state);
        fields.finish();
    } catch (const HException &) {
        return {};
    }
    return state.program == thisProgram() ? state : CacheState();
}

void writeCacheState(const QString &name, const CacheState &state)
{
    CacheState written = state;
    written.program = thisProgram();
    FieldWriter fields;
    fields("state", written);
    updateWholeFile(name, sealed(stateFormat(), fields.takeBytes()));
}

} // namespace tavidoc
