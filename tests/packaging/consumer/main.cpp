// A program of another project, with the installed library: succeeds when the header given as its argument has three
// pages and a tree of contents, without messages.
#include <base/hexception.h>
#include <base/path.h>
#include <docgen/doc_gen.h>

using namespace tavidoc;

int main(int argc, char *argv[])
{
    OutputRecords records;
    DocGen document;
    int messages = 0;
    document.setMessageSink([&messages](const Message &) { ++messages; });
    document.run(nullptr, 1, Path(QString::fromLocal8Bit(argv[argc - 1])), QString(), records, {}, {});
    return records.size() == 4 && messages == 0 ? 0 : 1;
}
