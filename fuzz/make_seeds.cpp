// Writes the seed corpus: each subject's inputs from the manual, the examples, the tests and the sources of this
// project, or the inputs of those that read headers from the headers that are installed. An input is named after its
// bytes, so that equal ones are one.

#include "fuzz/listing_languages.h"
#include "fuzz/string_literals.h"
#include "tests/site/sample_record.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t s_chunk = 2000;       // bytes: small inputs are what a fuzzer works best with
constexpr std::size_t s_headerChunk = 4000; // bytes: enough for a few declarations with their comments
constexpr std::size_t s_mostHeaders = 300;  // that are read: a target runs all seeds before it makes inputs

using Seeds = std::map<std::string, std::set<std::string>, std::less<>>; // inputs by subject

std::string bytesOf(const fs::path &file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Cuts \a text at line ends into pieces of about \a size bytes.
std::vector<std::string> chunks(std::string_view text, std::size_t size = s_chunk)
{
    std::vector<std::string> pieces;
    while (!text.empty()) {
        std::size_t length = text.size();
        if (length > size)
            length = std::min(text.find('\n', size), text.size() - 1) + 1;
        pieces.emplace_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return pieces;
}

/// The languages in which text from a file with \a suffix makes sense as a listing: all for ".txt", whose text may be
/// anything.
std::vector<std::string_view> listingLanguagesOf(std::string_view suffix)
{
    static const std::map<std::string_view, std::string_view> others = {
        {".c", "c"}, {".h", "c"}, {".svg", "xml"}, {".htm", "xml"}, {".dg", ""}};
    if (suffix == ".txt")
        return ListingLanguages::all();
    if (const auto found = others.find(suffix); found != others.end())
        return {found->second};
    const tavidoc::Language *const language = suffix.empty() ? nullptr : tavidoc::Languages::ofSuffix(suffix.substr(1));
    return language != nullptr ? std::vector{*language->names.begin()} : std::vector<std::string_view>();
}

void addListing(Seeds &seeds, std::string_view suffix, std::string_view text)
{
    for (const std::string_view language : listingLanguagesOf(suffix))
        seeds["listing"].insert(ListingLanguages::choiceOf(language) + std::string(text));
}

void addPiece(Seeds &seeds, std::string_view suffix, const std::string &text)
{
    addListing(seeds, suffix, text);
    if (suffix == ".dg") {
        seeds["markup"].insert(text);
        seeds["reader"].insert(text);
    } else if (suffix == ".h" || suffix == ".c") {
        seeds["header"].insert(text);
        seeds["declarations"].insert(text);
    } else if (suffix == ".xml") {
        seeds["definitions"].insert(text);
    }
}

/// The texts in a test are inputs of what it tests.
void addLiterals(Seeds &seeds, const fs::path &test)
{
    static const std::map<std::string_view, std::vector<std::string_view>> subjects = {
        {"markup", {"markup", "reader"}},           {"reading", {"reader", "markup"}},
        {"definitions", {"definitions", "markup"}}, {"pages", {"markup"}},
        {"apiref", {"header", "declarations"}},     {"sourcebrowser", {"declarations", "header"}},
        {"driver", {"arguments", "markup"}},        {"codeedit", {}}};
    const std::string folder = test.parent_path().filename();
    const auto found = subjects.find(folder);
    if (found == subjects.end())
        return;
    for (const std::string &text : stringLiterals(bytesOf(test))) {
        for (const std::string_view subject : found->second)
            seeds[std::string(subject)].insert(text);
        if (folder == "codeedit")
            addListing(seeds, ".txt", text);
        if (text.starts_with("<"))
            seeds["definitions"].insert(text);
    }
}

void addFile(Seeds &seeds, const fs::path &file)
{
    const std::string suffix = file.extension();
    if (suffix == ".png")
        return;
    const std::string text = bytesOf(file);
    if (suffix == ".xml" || suffix == ".svg")
        seeds["definitions"].insert(text);
    for (const std::string &piece : chunks(text))
        addPiece(seeds, suffix, piece);
    seeds["arguments"].insert("-v\n" + file.filename().string() + "\n-o\n" + file.parent_path().filename().string());
}

/// The sample record alone, twice, and without each of its parts.
void addRecords(Seeds &seeds)
{
    using namespace tavidoc;
    const RecordWithBodies sample = sampleRecord();
    const auto add = [&](const RecordSet &records) { seeds["record"].insert(encodedRecords(records).toStdString()); };
    add({sample});
    add({sample, sample});
    RecordWithBodies record = sample;
    record.head.pages.clear();
    add({record});
    record.head.contents.clear();
    add({record, {}});
    for (const auto part : {&RecordPage::stem, &RecordPage::title, &RecordPage::brief, &RecordPage::excerpt}) {
        record = sample;
        (record.head.pages[0].*part).clear();
        add({record});
    }
}

Seeds collect(const fs::path &project)
{
    Seeds seeds;
    for (const char *folder : {"docs/manual", "examples", "share", "src", "tests", "bench"}) {
        for (const fs::directory_entry &entry : fs::recursive_directory_iterator(project / folder)) {
            if (!entry.is_regular_file())
                continue;
            addFile(seeds, entry.path());
            if (entry.path().extension() == ".cpp")
                addLiterals(seeds, entry.path());
        }
    }
    addRecords(seeds);
    return seeds;
}

/// Two headers of each directory below \a folder, the longest and one of middle length, or as many as are read, from all
/// over it: a directory mostly belongs to one package.
std::vector<fs::path> someHeaders(const fs::path &folder)
{
    std::map<fs::path, std::set<std::pair<std::uintmax_t, fs::path>>> directories; // by size
    for (const fs::directory_entry &entry :
         fs::recursive_directory_iterator(folder, fs::directory_options::skip_permission_denied)) {
        const fs::path suffix = entry.path().extension();
        if (entry.is_regular_file() && (suffix == ".h" || suffix == ".hpp"))
            directories[entry.path().parent_path()].emplace(entry.file_size(), entry.path());
    }
    std::vector<fs::path> headers;
    for (const auto &[directory, files] : directories) {
        headers.push_back(files.rbegin()->second);
        if (files.size() > 1)
            headers.push_back(std::next(files.begin(), static_cast<std::ptrdiff_t>((files.size() - 1) / 2))->second);
    }
    if (headers.size() <= s_mostHeaders)
        return headers;
    std::vector<fs::path> some;
    for (std::size_t index = 0; index < s_mostHeaders; ++index)
        some.push_back(headers[index * headers.size() / s_mostHeaders]);
    return some;
}

/// \a text with all its block comments made into documentation, so that what it declares gets pages.
std::string documented(std::string text)
{
    for (std::size_t at = text.find("/*"); at != std::string::npos; at = text.find("/*", at + 3))
        text.insert(at + 2, "!");
    return text;
}

/// Of each header two pieces, of a long one not the first, which is often a licence.
Seeds collectHeaders(const fs::path &folder)
{
    Seeds seeds;
    for (const fs::path &header : someHeaders(folder)) {
        const std::vector<std::string> pieces = chunks(bytesOf(header), s_headerChunk);
        if (pieces.empty())
            continue;
        for (const std::size_t index : {pieces.size() / 3, pieces.size() - 1}) {
            seeds["declarations"].insert(pieces[index]);
            seeds["header"].insert(documented(pieces[index]));
        }
    }
    return seeds;
}

/// A name for \a bytes that other bytes do not have.
std::string nameOf(std::string_view bytes)
{
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char c : bytes)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    char name[17];
    std::snprintf(name, sizeof name, "%016llx", static_cast<unsigned long long>(hash));
    return name;
}

} // namespace

int main(int count, char **values)
{
    const bool isForHeaders = count == 4 && std::string_view(values[1]) == "--headers";
    if (count != 3 && !isForHeaders) {
        std::fputs("usage: make_seeds PROJECT DIRECTORY\n       make_seeds --headers FOLDER DIRECTORY\n", stderr);
        return 1;
    }
    for (const auto &[subject, inputs] : isForHeaders ? collectHeaders(values[2]) : collect(values[1])) {
        const fs::path directory = fs::path(values[count - 1]) / subject;
        fs::remove_all(directory);
        fs::create_directories(directory);
        for (const std::string &input : inputs)
            std::ofstream(directory / nameOf(input), std::ios::binary) << input;
        std::printf("%zu seeds for %s\n", inputs.size(), subject.c_str());
    }
    return 0;
}
