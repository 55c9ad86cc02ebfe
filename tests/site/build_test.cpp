// Tests whole runs of tavidoc-site: what is made again, what stays, and what happens when something fails.

#include "tests/site/site_run.h"

#include <gtest/gtest.h>

namespace {

/// A change between two builds, and what the second one does.
struct ChangeRow
{
    const char *name;
    const char *script;
    const char *summary; ///< the end of what the second build says
};

void PrintTo(const ChangeRow &row, std::ostream *out)
{
    *out << row.name;
}

class Rebuild : public testing::TestWithParam<ChangeRow>
{
};

/// What goes wrong between two builds, and how the second one ends.
struct FailureRow
{
    const char *name;
    const char *script;
    const char *error; ///< in what the second build says
};

void PrintTo(const FailureRow &row, std::ostream *out)
{
    *out << row.name;
}

class FailedBuild : public testing::TestWithParam<FailureRow>
{
};

/// A script that prints names and contents of all files of the site.
constexpr const char *s_printSite = "(cd out && find . -type f | LC_ALL=C sort | xargs md5sum)";

/// Runs the rest of a command where the directory \a name can only be read, whoever the user is.
std::string readOnly(const std::string &name)
{
    return "unshare -Urm sh -c 'd=$1; shift; mount --bind \"$d\" \"$d\" && mount -o remount,bind,ro \"$d\" && "
           "cd \"$PWD\" && exec \"$@\"' - " +
           name + ' ';
}

} // namespace

TEST_P(Rebuild, MakesWhatChanged)
{
    SiteDirectory directory;
    // Files that change in the moment in which they are compiled are compiled again.
    ASSERT_EQ(directory.run("sleep 0.05; $site build -o out"), 0) << directory.error;
    directory.run(std::string("sleep 0.05; ") + GetParam().script + "; sleep 0.05");
    EXPECT_EQ(directory.run("$site build -o out"), 0) << directory.error;
    const std::string summary = GetParam().summary;
    EXPECT_NE(directory.error.find(summary), std::string::npos) << directory.error;
    const std::string incremental = directory.outputOf(s_printSite);
    directory.run("rm -rf out/*.htm out/api out/search out.cache; $site build -q -o out");
    EXPECT_EQ(directory.outputOf(s_printSite), incremental) << "a build from nothing gives the same";
}

INSTANTIATE_TEST_SUITE_P(
    Changes, Rebuild,
    testing::Values(ChangeRow{"nothing", ":", "files (0 written, 0 removed)"},
                    ChangeRow{"only a time", "touch manual.dg part.dg", "files (0 written, 0 removed)"},
                    ChangeRow{"an included file", "echo Tea. >>part.dg", "(1 compiled)"},
                    ChangeRow{"a title that is in navigation", "sed -i 's/{More}/{Rest}/' manual.dg", "(1 compiled)"},
                    ChangeRow{"a page that was deleted", "rm out/more.htm", "files (1 written, 0 removed)"},
                    ChangeRow{"a page that was changed", "echo x >out/more.htm", "files (1 written, 0 removed)"},
                    ChangeRow{"an input less", "rm include/lid.h", "2 inputs (0 compiled)"},
                    ChangeRow{"a file that nobody made", "echo x >out/foreign.txt", "files (0 written, 0 removed)"},
                    ChangeRow{"the title of the site", "sed -i s/Kettle/Pot/ site.toml", "(0 compiled)"},
                    ChangeRow{"a damaged record",
                              "for f in out.cache/records/*; do echo x >$f; done; touch include/lid.h; "
                              "echo >>part.dg",
                              "(3 compiled)"},
                    ChangeRow{"damaged bodies",
                              "f=out.cache/records/lid.h-*; truncate -s -1 $f; echo x >>$f; rm -r out/api",
                              "(1 compiled)"},
                    ChangeRow{"a damaged state", "echo x >out.cache/state", "(3 compiled)"},
                    ChangeRow{"a damaged link", "for f in out.cache/link/*.lnk; do echo x >$f; done", "(0 compiled)"}));

TEST(Build, RemovesItsOwnPagesOnly)
{
    SiteDirectory directory;
    directory.run("$site build -q -o out; echo x >out/api/lid/mine.txt; rm include/lid.h; echo y >>out/more.htm;"
                  "sed -i 's/split{more}/split{rest}/' manual.dg");
    EXPECT_EQ(directory.run(
                  "$site build -q -o out; ls out/api/lid; tail -n 1 out/more.htm; ls out/rest.htm out.cache/records"),
              0);
    EXPECT_EQ(directory.output.substr(0, 11), "mine.txt\ny\n") << "pages with changes of others stay";
    EXPECT_EQ(directory.output.find("lid.h"), std::string::npos) << "a record that is not used is removed";
    directory.run("rm out/api/lid/mine.txt; rm include/kettle.h; touch include/a.h; $site build -q -o out; ls out/api");
    EXPECT_EQ(directory.output.find("kettle"), std::string::npos) << "directories that become empty are removed";
}

TEST_P(FailedBuild, LeavesTheSiteAsItWas)
{
    SiteDirectory directory;
    ASSERT_EQ(directory.run("$site build -o out"), 0) << directory.error;
    const std::string before = directory.outputOf(s_printSite);
    EXPECT_EQ(directory.run(std::string("echo Tea. >>part.dg; rm include/lid.h; ") + GetParam().script), 1);
    EXPECT_NE(directory.error.find(GetParam().error), std::string::npos) << directory.error;
    EXPECT_EQ(directory.outputOf(s_printSite), before);
    EXPECT_EQ(directory.outputOf("ls -A out | grep tavidoc-site-"), "") << "nothing staged is left";
    directory.run("rm -f include/bad.h");
    EXPECT_EQ(directory.run("$site build -q -o out"), 0) << directory.error;
    EXPECT_NE(directory.outputOf(s_printSite), before) << "the next build makes what this one did not";
}

INSTANTIATE_TEST_SUITE_P(
    Faults, FailedBuild,
    testing::Values(FailureRow{"an input that cannot be read",
                               "ln -s nowhere include/bad.h; $site build -o out manual.dg include/bad.h",
                               "include/bad.h: error: cannot be read"},
                    FailureRow{"pages that cannot be written whole",
                               "seq 9999 >>part.dg; (ulimit -f 40; exec $site build -o out)", "cannot write "},
                    FailureRow{"a directory in the place of a page",
                               "rm -f x; sed -i 's/split{more}/split{rest}/' manual.dg; "
                               "mkdir out/rest.htm; $site build -o out; s=$?; rmdir out/rest.htm; exit $s",
                               "cannot write "}));

TEST(Build, SaysWhatCannotBeWritten)
{
    SiteDirectory directory;
    if (directory.run(readOnly(".") + "true") != 0)
        GTEST_SKIP() << "the system does not let a directory be read-only";
    EXPECT_EQ(directory.run(readOnly(".") + "$site build -o out"), 1);
    EXPECT_TRUE(directory.error.starts_with("error: cannot write ") && directory.error.ends_with("/out.cache\n"))
        << directory.error;
    EXPECT_EQ(directory.run("mkdir ../out-$$; " + readOnly(".") +
                            "$site build -q --strict -o ../out-$$/out; s=$?; "
                            "ls ../out-$$/out/index.htm; rm -r ../out-$$; exit $s"),
              0)
        << "sources are only read: " << directory.error;
    EXPECT_EQ(directory.run("$site build -q -o out"), 0);
    const std::string before = directory.outputOf(s_printSite);
    directory.run("echo Tea. >>part.dg");
    for (const char *place : {"out", "out.cache", "."}) {
        EXPECT_EQ(directory.run(readOnly(place) + "$site build -o out"), 1) << place;
        EXPECT_TRUE(directory.error.starts_with("error: cannot write ")) << place << ": " << directory.error;
        EXPECT_EQ(directory.outputOf(s_printSite), before) << place;
    }
    EXPECT_EQ(directory.run("$site build -q -o out && grep -q Tea. out/more.htm"), 0) << directory.error;
}

TEST(Build, IconsAreWhereThePagesShowThem)
{
    SiteDirectory directory;
    directory.write("site.toml", "[[input]]\nfiles = [\"icons.dg\"]\nfolder = \"c++ \u00e4/{name}\"\n");
    directory.write("icons.dg", "\\split{one}\n\\title One\n\\icon{CMake} \\xref{sub/two}\n"
                                "\\html{<img alt=dot src=\"data:image/png;base64,iVBORw0KGgo=\">}\n"
                                "\\split{sub/two}\n\\title Two\n\\icon{CMake}\n");
    EXPECT_EQ(directory.run("$site build --strict -q -o out"), 0) << directory.error;
    directory.run("cd out; find . -name one.htm -o -name two.htm | sort | while read page; do "
                  "for image in $(grep -o ' src=\"[^\"]*\\(png\\|base64\\)' $page | sed 's/.*\"//'); do "
                  "case $image in data:*) echo $image;; *) head -c 4 ${page%/*}/$image | tail -c 3; echo;; esac; "
                  "done; done");
    EXPECT_EQ(directory.output, "PNG\ndata:image/png;base64\nPNG\n") << directory.error;
}

TEST(Build, IsTheSameForAnyNumberOfProcessesLocaleAndPlace)
{
    SiteDirectory directory;
    directory.run("$site build -q -j 1 -o out");
    const std::string expected = directory.outputOf(s_printSite);
    EXPECT_GT(expected.size(), 500U);
    for (const char *build : {"$site build -q -j 7 -o out", "LC_ALL=tr_TR.UTF-8 TZ=Asia/Tokyo $site build -q -o ./out/",
                              "mkdir -p other; cp -r [a-z]*.* include other; cd other; $site build -q -o ../out"}) {
        directory.run(std::string("rm -rf out out.cache; ") + build);
        EXPECT_EQ(directory.outputOf(s_printSite), expected) << build;
    }
}

TEST(Build, IsWhatItsStepsMake)
{
    SiteDirectory directory;
    directory.run("$site build -q -o out");
    const std::string expected = directory.outputOf(s_printSite);
    const std::string steps =
        "$site compile manual.dg -o m.tdr && $site compile include/kettle.h -o k.tdr --folder api/kettle "
        "&& $site compile include/lid.h --folder=api/lid -ol.tdr --depfile l.d && ";
    directory.run("rm -rf out; " + steps +
                  "$site link site.toml m.tdr k.tdr l.tdr -o link && for r in m k l ''; do "
                  "$site render ${r:+$r.tdr} --link link -o out || exit; done");
    EXPECT_EQ(directory.outputOf(s_printSite), expected) << directory.error;
    EXPECT_EQ(directory.outputOf("cmp k.tdr out.cache/records/kettle.h-*.tdr && echo same"), "same\n");
    EXPECT_EQ(directory.outputOf("grep -c /include/lid.h l.d"), "2\n");
    directory.run("rm -rf out link; $site link -r k.tdr l.tdr -o api.tdr; $site link site.toml m.tdr api.tdr -o link; "
                  "$site render m.tdr api.tdr --link link -o out; $site render --link link -o out");
    EXPECT_EQ(directory.outputOf(s_printSite), expected) << "a partial link renders like its inputs";
}

TEST(Build, FindingsDecideTheStatus)
{
    SiteDirectory directory;
    directory.write("include/lid.h", "/*!\n * \\this\n * Opens \\xref{nothing}.\n */\nint open(void);\n");
    const std::string finding =
        "include/lid.h:3: error: no page, title or declaration is named \"nothing\" [dead-link]\n";
    EXPECT_EQ(directory.run("$site build -o out"), 1);
    EXPECT_NE(directory.error.find(finding), std::string::npos) << directory.error;
    EXPECT_EQ(directory.outputOf("ls out/api/lid/open.htm"), "out/api/lid/open.htm\n")
        << "pages are written nevertheless";
    EXPECT_EQ(directory.run("$site build -q -o out"), 1) << "findings are told again";
    EXPECT_EQ(directory.error, finding);
    EXPECT_EQ(directory.run("$site build -q --exit-zero -o out"), 0);
    EXPECT_EQ(directory.run("$site check"), 1);
    directory.run("printf '[check]\\ndead-link = \"warning\"\\n' >>site.toml");
    EXPECT_EQ(directory.run("$site check"), 0);
    EXPECT_NE(directory.error.find(": warning: "), std::string::npos) << directory.error;
    EXPECT_EQ(directory.run("$site check --strict"), 1);
    directory.run("sed -i s/warning/off/ site.toml");
    EXPECT_EQ(directory.run("$site check --strict"), 0);
    EXPECT_EQ(directory.error.find("dead-link"), std::string::npos) << directory.error;
}

TEST(Build, ProgressIsForTerminals)
{
    SiteDirectory directory;
    directory.run("$site build -o out");
    EXPECT_EQ(directory.error.find('\r'), std::string::npos);
    directory.run("rm -r out.cache; $site build --progress -o out");
    EXPECT_NE(directory.error.find("\r[1/3] "), std::string::npos) << directory.error;
}

TEST(Build, TwoAtOnceDoNotDisturbEachOther)
{
    SiteDirectory directory;
    directory.run("$site build -q -o out");
    const std::string expected = directory.outputOf(s_printSite);
    directory.run(
        "rm -rf out out.cache; for i in 1 2 3 4; do $site build -q -o out & done; wait; $site build -q -o out");
    EXPECT_EQ(directory.error, "");
    EXPECT_EQ(directory.outputOf(s_printSite), expected);
}

TEST(Build, CanBeKilledAtAnyTime)
{
    SiteDirectory directory;
    directory.run("$site build -q -o out");
    const std::string expected = directory.outputOf(s_printSite);
    for (const char *signal : {"KILL", "INT", "TERM"}) {
        for (const char *after : {"0.01", "0.02", "0.03", "0.05"})
            directory.run(std::string("rm -rf out.cache out/api; timeout -s ") + signal + " " + after +
                          " $site build -q -o out; ls -A out | grep tavidoc-site-");
        if (signal[0] != 'K') {
            EXPECT_EQ(directory.output, "") << "an interrupted build removes what it staged";
        }
        directory.run("$site build -q -o out");
        EXPECT_EQ(directory.outputOf(s_printSite), expected) << signal;
    }
}
