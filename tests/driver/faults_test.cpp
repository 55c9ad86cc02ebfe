// Tests how the program handles failures of the system.

#include "tests/support/script_run.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The requirements of a row.
enum class Needs
{
    Nothing,
    Tracer,   ///< a working system call tracer
    SmallDisk ///< permission to mount a file system
};

struct Fault
{
    const char *name;
    Needs needs;
    const char *script;
    int status;
    const char *error;
    const char *pages;
};

void PrintTo(const Fault &fault, std::ostream *out)
{
    *out << fault.name;
}

bool isPossible(Needs needs)
{
    const QTemporaryDir directory;
    if (needs == Needs::Tracer)
        return runScript(directory, u"$strace -e trace=none true"_s).status == 0;
    if (needs == Needs::SmallDisk)
        return runScript(directory, u"mkdir out; unshare -rm mount -t tmpfs -o size=4k none out"_s).status == 0;
    return true;
}

/// A source with three pages of 4,458 bytes including the frame; each occupies two blocks of 4,096 bytes.
QByteArray threePages()
{
    QByteArray text;
    for (const char *name : {"one", "two", "six"})
        text += QByteArray("\\split{") + name + "}\n" + QByteArray(4000, 'x') + "\n";
    return text;
}

class Faults : public testing::TestWithParam<Fault>
{
};

} // namespace

TEST_P(Faults, EndAsTheyShould)
{
    const Fault &fault = GetParam();
    if (!isPossible(fault.needs))
        GTEST_SKIP() << (fault.needs == Needs::Tracer ? "strace is not installed or not permitted"
                                                      : "mounting a file system is not permitted");
    const QTemporaryDir directory;
    writeText(directory, u"doc.dg"_s, threePages());
    const ScriptResult result = runScript(directory, QString::fromLatin1(fault.script));
    EXPECT_EQ(result.error, fault.error);
    EXPECT_EQ(result.status, fault.status);
    EXPECT_EQ(result.pages, fault.pages);
}

// Paths must be absolute for files that are already open.
#define INJECT(calls, file, effect) "$strace -P \"$PWD/" file "\" -e trace=" calls " -e inject=" calls ":" effect " "
#define RUN "$tavidoc -o out doc.dg"

INSTANTIATE_TEST_SUITE_P(
    Writing, Faults,
    testing::Values(
        Fault{"a full disk before the first byte", Needs::Tracer, INJECT("writev", "out/two.htm", "error=ENOSPC") RUN,
              1, "error: cannot write out/two.htm\n", "one.htm "},
        // A disk of 3 blocks holds one and a half pages.
        Fault{"a full disk in the middle of a page", Needs::SmallDisk,
              "mkdir out; unshare -rm sh -c 'mount -t tmpfs -o size=12k none out && " RUN
              "; s=$?; ls out >&2; exit $s'",
              1, "error: cannot write out/two.htm\none.htm\n", ""},
        Fault{"a full disk at the last byte of a page", Needs::SmallDisk,
              "printf '\\134split{one}\\n%04090d' 0 > doc.dg; $tavidoc -o out doc.dg; "
              "size=$(wc -c < out/one.htm); rm -r out; printf '\\134split{one}\\n%0'$((4090 + 8193 - size))'d' 0 > "
              "doc.dg; "
              "mkdir out; unshare -rm sh -c 'mount -t tmpfs -o size=8k none out && " RUN "; s=$?; ls out >&2; exit $s'",
              1, "error: cannot write out/one.htm\n", ""},
        Fault{"a link to a device", Needs::Nothing, "mkdir out; ln -s /dev/full out/two.htm; " RUN, 0, "",
              "one.htm six.htm two.htm "},
        Fault{"an error on closing", Needs::Tracer, INJECT("close", "out/two.htm", "error=EIO") RUN, 1,
              "error: cannot write out/two.htm\n", "one.htm "},
        Fault{"an interrupted close", Needs::Tracer, INJECT("close", "out/two.htm", "error=EINTR") RUN, 0, "",
              "one.htm six.htm two.htm "},
        Fault{"an interrupted write", Needs::Tracer, INJECT("writev", "out/two.htm", "error=EINTR:when=1..3") RUN, 0,
              "", "one.htm six.htm two.htm "},
        // The tracer skips the call, so that the bytes that it reports as written are missing.
        Fault{"a write of a part of a page", Needs::Tracer,
              INJECT("writev", "out/two.htm", "retval=2000:when=1") RUN
              "; echo $(($(wc -c < out/one.htm) - $(wc -c < out/two.htm))) >&2",
              0, "2000\n", "one.htm six.htm two.htm "},
        Fault{"a file that may not grow", Needs::Nothing, "ulimit -f 2; " RUN, 1, "error: cannot write out/one.htm\n",
              ""},
        Fault{"an icon that may not grow", Needs::Nothing,
              "printf '\\134split{one}\\n\\134icon{BrowserBack}' > doc.dg; "
              "ulimit -f 0; " RUN "; s=$?; ls -A out/images >&2; exit $s",
              1, "error: cannot write out/images/BrowserBack.png\n", ""},
        Fault{"an icon that fails after a finished page", Needs::Nothing,
              "mkdir out; echo text > out/images; printf "
              "'\\134split{one}\\nx\\n\\134split{two}\\n\\134icon{BrowserBack}' "
              "> doc.dg; " RUN,
              1, "error: cannot write out/images/BrowserBack.png\n", "images (cut off) "},
        Fault{"a page that fails after the last icon", Needs::Nothing,
              "mkdir -p out/two.htm; printf "
              "'\\134split{one}\\n\\134icon{BrowserBack}\\n\\134split{two}\\nx\\n\\134split{six}"
              "\\nx\\n\\134nope' > doc.dg; $tavidoc -v -o out doc.dg >&2; s=$?; ls out/images >&2; exit $s",
              1,
              "Processing doc.dg\nerror: docgen: doc.dg:7: \\nope: unknown command\nOutputting out/one.htm\nOutputting "
              "out/two.htm\nerror: cannot open out/two.htm\nBrowserBack.png\n",
              "one.htm "},
        Fault{"a page that shows an earlier version of another", Needs::Nothing,
              "mkdir out; echo old > out/one.htm; printf '\\134split{one}\\nx\\n\\134split{two}\\n\\134copyin "
              "out/one.htm\\n' > doc.dg; " RUN "; s=$?; grep -h old out/two.htm >&2; exit $s",
              0, "old\n", "one.htm two.htm "},
        Fault{"an icon that cannot be renamed", Needs::Tracer,
              "printf '\\134split{one}\\n\\134icon{BrowserBack}' > doc.dg; "
              "$strace -e trace=/rename -e inject=/rename:error=EACCES " RUN "; s=$?; ls -A out/images >&2; exit $s",
              1, "error: cannot write out/images/BrowserBack.png\n", ""},
        Fault{"an icon whose temporary name is taken", Needs::Nothing,
              "printf '\\134split{one}\\n\\134icon{BrowserBack}' > doc.dg; sh -c 'mkdir -p out/images; "
              "> out/images/BrowserBack.png.$$.0.tmp; exec " RUN "'; s=$?; ls out/images/*.png >&2; exit $s",
              0, "out/images/BrowserBack.png\n", "one.htm "}),
    [](const auto &row) { return QString::fromLatin1(row.param.name).replace(u' ', u'_').toStdString(); });

INSTANTIATE_TEST_SUITE_P(
    Directories, Faults,
    testing::Values(Fault{"an output directory that is a file", Needs::Nothing, "echo text > out; " RUN, 1,
                          "error: cannot open out/one.htm\n", ""},
                    Fault{"an output directory that cannot be made", Needs::Nothing, "$tavidoc -o /proc/none doc.dg", 1,
                          "error: cannot open /proc/none/one.htm\n", ""},
                    Fault{"an output directory that disappears", Needs::Tracer,
                          "$strace -P two.htm -e trace=openat -e inject=openat:error=ENOENT " RUN, 1,
                          "error: cannot open out/two.htm\n", "one.htm "},
                    Fault{"a page that is a directory", Needs::Nothing, "mkdir -p out/two.htm; " RUN, 1,
                          "error: cannot open out/two.htm\n", "one.htm "},
                    Fault{"a page that is a pipe without a reader", Needs::Nothing,
                          "mkdir out; mkfifo out/two.htm; " RUN, 0, "", "one.htm six.htm two.htm "},
                    Fault{"too many open files", Needs::Tracer,
                          "$strace -P one.htm -e trace=openat -e inject=openat:error=EMFILE " RUN, 1,
                          "error: cannot open out/one.htm\n", ""},
                    Fault{"two runs at once", Needs::Nothing,
                          "for n in 1 2 3 4 5 6 7 8; do " RUN " & a=$!; " RUN " || exit; wait $a || exit; done", 0, "",
                          "one.htm six.htm two.htm "}),
    [](const auto &row) { return QString::fromLatin1(row.param.name).replace(u' ', u'_').toStdString(); });

INSTANTIATE_TEST_SUITE_P(
    Reading, Faults,
    testing::Values(
        Fault{"more files than may be open at once", Needs::Nothing,
              "ulimit -n 20; $tavidoc -o out $(yes doc.dg | head -n 30)", 0, "", "one.htm six.htm two.htm "},
        Fault{"a file whose size is reported as 0", Needs::Nothing,
              "printf '\\134split{one}\\n\\134present /proc/self/status\\n' > doc.dg; " RUN
              "; grep -c '^VmPeak\\|^nonvol' out/one.htm >&2",
              0, "2\n", "one.htm "},
        Fault{"an input without read permission", Needs::Tracer,
              "$strace -P doc.dg -e trace=openat -e inject=openat:error=EACCES " RUN
              " 2>&1 | grep -v '^strace:'; exit 0",
              0, "", ""},
        Fault{"a read error", Needs::Tracer, INJECT("read", "doc.dg", "error=EIO") RUN, 0, "", ""},
        Fault{"an interrupted read", Needs::Tracer, INJECT("read", "doc.dg", "error=EINTR:when=1") RUN, 0, "",
              "one.htm six.htm two.htm "},
        Fault{"directories and pipes in place of files", Needs::Nothing,
              "mkdir a.dg b.h menus.xml; mkfifo c.dg d.h keys.xml; $tavidoc -o out a.dg b.h c.dg d.h doc.dg", 0, "",
              "b_h.htm d_h.htm one.htm six.htm two.htm "}),
    [](const auto &row) { return QString::fromLatin1(row.param.name).replace(u' ', u'_').toStdString(); });

INSTANTIATE_TEST_SUITE_P(
    Output, Faults,
    testing::Values(
        Fault{"a closed standard output", Needs::Nothing,
              "yes '\\nope' | head -n 5000 >> doc.dg; $tavidoc -v -o out doc.dg >&-; s=$?; grep -l "
              "Outputting out/*; exit $s",
              0, "", "one.htm six.htm two.htm "},
        Fault{"no standard streams at all", Needs::Nothing,
              "yes '\\nope' | head -n 5000 >> doc.dg; $tavidoc -v -o out doc.dg <&- >&- 2>&-; s=$?; "
              "grep -l 'error: docgen' out/*; exit $s",
              0, "", "one.htm six.htm two.htm "},
        Fault{"a closed pipe", Needs::Nothing,
              "yes '\\nope' | head -n 50000 >> doc.dg; { $tavidoc -v -o out doc.dg; s=$?; } | true; "
              "{ $tavidoc -v -o out doc.dg; echo $? >&2; } | true",
              0, "0\n", "one.htm six.htm two.htm "},
        Fault{"one file for both outputs", Needs::Nothing,
              "mkdir -p out/two.htm; printf '\\134nope\\n' >> doc.dg; $tavidoc -v -o out doc.dg > all 2>&1; s=$?; "
              "cat all >&2; exit $s",
              1,
              "Processing doc.dg\nerror: docgen: doc.dg:7: \\nope: unknown command\nOutputting "
              "out/one.htm\nOutputting out/two.htm\nerror: cannot open out/two.htm\n",
              "one.htm "},
        Fault{"one pipe for both outputs", Needs::Nothing,
              "printf '\\134include doc.dg' >> doc.dg; $tavidoc -v -o out doc.dg 2>&1 | cat >&2", 0,
              "Processing doc.dg\nerror: doc.dg includes itself without end\n", ""},
        Fault{"a full output device", Needs::Nothing, "$tavidoc -v -o out doc.dg > /dev/full", 0, "",
              "one.htm six.htm two.htm "}),
    [](const auto &row) { return QString::fromLatin1(row.param.name).replace(u' ', u'_').toStdString(); });

/// With any amount of memory, either every page is complete or the run ends with a message. Before the program starts,
/// the dynamic loader may fail with its own message.
TEST(Memory, EndsWithAMessageOrWithAllPages)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer needs the whole address space";
#endif
    const QTemporaryDir directory;
    QByteArray source;
    for (int page = 0; page < 20; ++page) {
        source += "\\split{p" + QByteArray::number(page) + "}\n\\code{c}\n";
        source += QByteArray("int main(void) { return 1 + 2; }\n").repeated(5000) + "\\endcode\n";
    }
    writeText(directory, u"doc.dg"_s, source);
    const QByteArray allPages = runScript(directory, u"" RUN ""_s).pages;
    int refusals = 0;
    for (int kilobytes = 56'000; kilobytes <= 160'000; kilobytes += 8'000) {
        const ScriptResult result = runScript(directory, u"rm -r out; ulimit -v %1; "_s.arg(kilobytes) + u"" RUN ""_s);
        EXPECT_FALSE(result.pages.contains("cut off")) << kilobytes;
        if (result.status == 0) {
            EXPECT_EQ(result.pages, allPages) << kilobytes;
        } else if (result.status != 127) {
            EXPECT_EQ(result.error, "error: out of memory\n") << kilobytes;
            ++refusals;
        }
    }
    EXPECT_GT(refusals, 0);
}
