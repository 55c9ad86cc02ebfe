// A program of another project, over the installed library: succeeds when the header that is named has three pages and
// a tree of contents.
#include <docgen/doc_gen.h>

using namespace tavidoc;

int main(int argc, char *argv[])
{
    OutputRecords records;
    DocGen document;
    document.run(nullptr, 1, Path(QString::fromLocal8Bit(argv[argc - 1])), QString(), records, {}, {});
    return records.size() == 4 ? 0 : 1;
}
