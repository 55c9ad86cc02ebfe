#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

/// Which of our headers the files of a folder may include. A name that ends in "/" stands for the folder.
struct Rule
{
    std::string files; ///< a folder, ending in "/", or one file; the first rule that fits a file counts
    Names mayInclude;
};

const std::vector<Rule> &rules()
{
    static const std::vector<Rule> table = {
        {"driver/path.", {"driver/path.h"}},
        {"driver/hexception.", {"driver/hexception.h"}},
        {"driver/large_room.", {"driver/large_room.h"}},
        {"docgen/text_escape.", {"docgen/text_escape.h"}},
        {"docgen/doc_gen.cpp", {"docgen/", "sourcebrowser/", "codeedit/listing.h", "apiref/", "driver/path.h"}},
        {"driver/",
         {"driver/", "docgen/doc_gen.h", "docgen/output_record.h", "docgen/product.h", "docgen/whole_file.h"}},
        {"docgen/",
         {"docgen/", "sourcebrowser/", "codeedit/listing.h", "driver/path.h", "driver/hexception.h",
          "driver/large_room.h"}},
        {"sourcebrowser/", {"sourcebrowser/"}},
        {"apiref/", {"apiref/", "docgen/", "sourcebrowser/", "driver/path.h", "driver/hexception.h"}},
        {"codeedit/", {"codeedit/", "docgen/text_escape.h", "driver/hexception.h", "driver/large_room.h"}},
    };
    return table;
}

Names includesOf(const fs::path &file)
{
    const std::string opening = "#include \"";
    Names names;
    std::ifstream source(file);
    for (std::string line; std::getline(source, line);) {
        if (line.rfind(opening, 0) == 0)
            names.push_back(line.substr(opening.size(), line.find('"', opening.size()) - opening.size()));
    }
    return names;
}

bool begins(const std::string &text, const std::string &beginning)
{
    return text.rfind(beginning, 0) == 0;
}

bool isAllowed(const Rule &rule, const std::string &header)
{
    return std::any_of(rule.mayInclude.begin(), rule.mayInclude.end(), [&header](const std::string &name) {
        return name.back() == '/' ? begins(header, name) : header == name;
    });
}

} // namespace

TEST(Layering, EveryFolderIncludesOnlyWhatItMayKnow)
{
    const fs::path root = TAVIDOC_SOURCE_DIR;
    int includes = 0;
    for (const fs::path folder : {"driver", "docgen", "sourcebrowser", "apiref", "codeedit"}) {
        if (!fs::exists(root / folder))
            continue;
        for (const auto &entry : fs::directory_iterator(root / folder)) {
            const std::string file = (folder / entry.path().filename()).string();
            const auto rule = std::find_if(rules().begin(), rules().end(),
                                           [&file](const Rule &candidate) { return begins(file, candidate.files); });
            for (const std::string &header : includesOf(entry.path())) {
                ++includes;
                EXPECT_TRUE(isAllowed(*rule, header)) << file << " includes " << header;
            }
        }
    }
    EXPECT_GT(includes, 0);
}
