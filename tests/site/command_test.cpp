// Tests the command line and the project file of tavidoc-site.

#include "base/nearest_name.h"
#include "site/command/path_pattern.h"
#include "tests/site/site_run.h"

#include <gtest/gtest.h>

using namespace tavidoc;

namespace {

struct CommandRow
{
    const char *name;
    const char *script;
    int status;
    const char *error; ///< the beginning of what is written to the standard error
};

void PrintTo(const CommandRow &row, std::ostream *out)
{
    *out << row.name;
}

class SiteCommand : public testing::TestWithParam<CommandRow>
{
};

/// A project file of which only one line matters: \a line is its fourth line.
struct ProjectRow
{
    const char *line;
    int status;
    const char *error; ///< after "site.toml:"
};

void PrintTo(const ProjectRow &row, std::ostream *out)
{
    *out << row.line;
}

class ProjectFile : public testing::TestWithParam<ProjectRow>
{
};

} // namespace

TEST_P(SiteCommand, EndsAsItShould)
{
    SiteDirectory directory;
    EXPECT_EQ(directory.run(GetParam().script), GetParam().status) << directory.error;
    EXPECT_EQ(directory.error.substr(0, std::string(GetParam().error).size()), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, SiteCommand,
    testing::Values(
        CommandRow{"nothing at all", "$site", 2, "usage: tavidoc-site VERB"},
        CommandRow{"an unknown verb", "$site biuld", 2,
                   "tavidoc-site: unknown verb \"biuld\"; did you mean \"build\"?\n"},
        CommandRow{"a verb like none", "$site frobnicate", 2, "tavidoc-site: unknown verb \"frobnicate\"\n"},
        CommandRow{"inputs without a verb", "$site manual.dg out", 2,
                   "tavidoc-site: unknown verb \"manual.dg\": expected a verb before the inputs, as in \"tavidoc-site "
                   "build manual.dg -o DIR\"\n"},
        CommandRow{"an output without its option", "$site build manual.dg out", 2,
                   "tavidoc-site: build: expected --output PATH, as in \"-o out\"\n"},
        CommandRow{"an output without its option that exists", "mkdir out; $site build manual.dg out", 2,
                   "tavidoc-site: build: expected --output PATH, as in \"-o out\"\n"},
        CommandRow{"an unknown option", "$site build --ouput=x", 2,
                   "tavidoc-site: build: unknown option \"--ouput\"; did you mean \"--output\"?\n"},
        CommandRow{"an option of another verb", "$site dump --strict x.tdr", 2,
                   "tavidoc-site: dump: unknown option \"--strict\"\n"},
        CommandRow{"an unknown format", "$site export invntory -o x a.dg", 2,
                   "tavidoc-site: export: expected \"inventory\", \"tags\" or \"qhp\"\n"},
        CommandRow{"an option before the verb", "$site --versoin", 2,
                   "tavidoc-site: unknown option \"--versoin\"; did you mean \"--version\"?\n"},
        CommandRow{"no output", "$site build", 2, "tavidoc-site: build: expected --output PATH\n"},
        CommandRow{"an option without its value", "$site build -o", 2,
                   "tavidoc-site: build: --output: expected PATH\n"},
        CommandRow{"a value for an option without one", "$site build --strict=yes", 2,
                   "tavidoc-site: build: --strict does not take a value\n"},
        CommandRow{"no processes", "$site build -o out -j 0", 2,
                   "tavidoc-site: invalid number of jobs \"0\": expected 1 to 1000\n"},
        CommandRow{"a project file and inputs", "$site build -o out site.toml manual.dg", 2,
                   "tavidoc-site: expected either one project file or inputs\n"},
        CommandRow{
            "nothing to build", "rm site.toml; $site build -o out", 2,
            "tavidoc-site: expected a project file or inputs, or a file \"site.toml\" in the working directory\n"},
        CommandRow{"a project file that is missing", "$site check other.toml", 2,
                   "other.toml: error: cannot be read\n"},
        CommandRow{"an input that is missing", "$site build -o out missing.dg; status=$?; ls out; exit $status", 1,
                   "missing.dg: error: cannot be read\n"},
        CommandRow{"a record that is missing", "$site dump x.tdr", 1, "error: x.tdr: cannot be read\n"},
        CommandRow{"a record that is none", "$site link manual.dg -o link", 1, "error: manual.dg: not a record\n"},
        CommandRow{"no records", "$site link site.toml -o link", 2, "tavidoc-site: link: expected records\n"},
        CommandRow{"a link that is missing", "$site render --link link -o out", 1,
                   "error: link/site.lnk: cannot be read\n"}));

TEST(SiteCommand, HelpAndVersionAreEverywhere)
{
    SiteDirectory directory;
    for (const std::string verb : {"build", "compile", "link", "render", "check", "export", "dump", "watch"}) {
        EXPECT_NE(directory.outputOf("$site --help").find("\n  " + verb + "  "), std::string::npos);
        EXPECT_EQ(directory.outputOf("$site " + verb + " --help").find("usage: tavidoc-site " + verb + " "), 0U);
        EXPECT_EQ(directory.outputOf("$site " + verb + " x y --version"), "tavidoc-site " TAVIDOC_VERSION "\n");
    }
}

TEST_P(ProjectFile, IsChecked)
{
    SiteDirectory directory;
    directory.write("site.toml", QByteArray("[[input]]\nfiles = [\"manual.dg\"]\n\n") + GetParam().line + "\n");
    EXPECT_EQ(directory.run("$site check site.toml"), GetParam().status) << directory.error;
    const std::string expected = std::string("site.toml:") + GetParam().error;
    EXPECT_EQ(directory.error.substr(0, expected.size()), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ProjectFile,
    testing::Values(
        ProjectRow{"files = [", 2, "4:9: error: "},
        ProjectRow{"file = [\"a\"]", 2, "4:1: error: unknown key \"file\"; did you mean \"files\"?\n"},
        ProjectRow{"folder = \"../up\"", 2,
                   "4:10: error: invalid folder \"../up\": expected names separated by \"/\"\n"},
        ProjectRow{"folder = 3", 2, "4:10: error: expected a string of one line\n"},
        ProjectRow{"[[input]]", 2, "4:1: error: an input without files\n"},
        ProjectRow{"[[input]]\nfiles = \"manual.dg\"", 2, "5:9: error: expected an array of strings\n"},
        ProjectRow{"[[input]]\nfiles = [\"*.none\"]", 2, "5:10: error: no file matches \"*.none\"\n"},
        ProjectRow{"[[input]]\nfiles = [\"none.dg\"]", 1, "5:10: error: cannot read \"none.dg\"\n"},
        ProjectRow{"[check]\ndead-lnik = \"off\"", 2,
                   "5:1: error: unknown check \"dead-lnik\"; did you mean \"dead-link\"?\n"},
        ProjectRow{"[check]\ndead-link = \"fatal\"", 2, "5:13: error: expected \"error\", \"warning\" or \"off\"\n"},
        ProjectRow{"[check]\nautolink = false", 2, "5:12: error: expected \"on\" or \"off\"\n"},
        ProjectRow{"[assets]\ncopy = [\"../x\"]", 2,
                   "5:9: error: invalid path \"../x\": expected a path below the project file\n"},
        ProjectRow{"[redirects]\n\"a/../b\" = \"c\"", 2,
                   "5:1: error: invalid page \"a/../b\": expected names separated by \"/\"\n"},
        ProjectRow{"[inventory]", 2, "4:1: error: expected [[inventory]], with two brackets\n"},
        ProjectRow{"[[inventory]]\nfile = \"manual.dg\"", 2, "4:1: error: an inventory without a url\n"},
        ProjectRow{"[[inventory]]\nurl = \"https://x.example\"", 2, "4:1: error: an inventory without a file\n"},
        ProjectRow{"[[inventory]]\nfile = \"none.inv\"\nurl = \"https://x.example\"", 1,
                   "5:8: error: cannot read \"none.inv\"\n"},
        ProjectRow{"[versions]\nfile = \"versions.js\"", 2,
                   "5:8: error: invalid file \"versions.js\": expected a name like \"../versions.js\"\n"},
        ProjectRow{"[versions]\nfolder = \"2\"", 2, "5:1: error: unknown key \"folder\""},
        ProjectRow{"[titel]", 2, "4:2: error: unknown key \"titel\"; did you mean \"title\"?\n"}));

TEST(ProjectFile, EveryKeyHasItsEffect)
{
    SiteDirectory directory;
    directory.run("mkdir -p sub/art/deep; echo logo >sub/logo.svg; echo deep >sub/art/deep/p.png; echo css >own.css; "
                  "mv manual.dg part.dg include sub");
    directory.write(
        "sub/site.toml",
        "title = \"Kettle\"\nversion = \"2.1\"\nurl = \"https://docs.example.org/kettle\"\n"
        "copyright = \"2026 Kettle Works\"\nlogo = \"logo.svg\"\nfavicon = \"logo.svg\"\n"
        "style = \"../own.css\"\nlanguage = \"pt-BR\"\n"
        "[[input]]\nfiles = [\"manual.dg\"]\n[[input]]\nfiles = [\"include/*.h\"]\nfolder = \"api/{name}\"\n"
        "[assets]\ncopy = [\"art/**\"]\n[check]\nunused-asset = \"error\"\nautolink = \"off\"\n"
        "[redirects]\n\"old\" = \"more\"\n  \"lost\" = \"gone\"\n");
    EXPECT_EQ(directory.run("$site build sub/site.toml -o out"), 1);
    EXPECT_NE(directory.error.find("sub/site.toml:21:3: error: redirect from \"lost\" to \"gone\""), std::string::npos)
        << directory.error;
    EXPECT_NE(directory.error.find(": error: "), std::string::npos) << directory.error;
    EXPECT_NE(directory.error.find("[unused-asset]\n"), std::string::npos) << directory.error;
    EXPECT_EQ(directory.outputOf("cd out; cat logo.svg own.css art/deep/p.png; ls old.htm sitemap.xml; ls -d api/*"),
              "logo\ncss\ndeep\nold.htm\nsitemap.xml\napi/kettle\napi/lid\n");
    EXPECT_EQ(directory.outputOf("grep -c -e 'lang=\"pt-BR\"' -e '2026 Kettle Works' out/index.htm"), "2\n");
}

/// Nobody who comes from another tool should miss that comments are not read.
TEST(ProjectFile, TurnsOffWhatOtherwiseIsAWarning)
{
    SiteDirectory directory;
    directory.write("a.h", "/*!\n * @brief A\n * @param x y\n * @return z\n */\nint f(int x);\n"
                           "/*!\n * @brief B\n */\nint g(int x);\n");
    EXPECT_EQ(directory.run("$site check --strict a.h"), 1);
    EXPECT_EQ(directory.error,
              "a.h:2: warning: \"@brief\" is a command of another tool: write \"\\brief\" [foreign-command]\n"
              "a.h:3: warning: \"@param x\" is a command of another tool: write \"\\param{x}\" "
              "[foreign-command]\n"
              "a.h:4: warning: \"@return\" is a command of another tool: write \"\\return\" "
              "[foreign-command]\n"
              "1 input (1 compiled): 0 errors, 3 warnings\n");
    directory.write("off.toml", "[[input]]\nfiles = [\"a.h\"]\n[check]\nforeign-command = \"off\"\n");
    EXPECT_EQ(directory.run("$site check --strict off.toml"), 0) << directory.error;
}

TEST(PathPattern, FindsFilesInOrder)
{
    SiteDirectory directory;
    directory.run(
        "mkdir -p t/a/b t/.h t/a/c; touch t/z.h t/a/x.h t/a/b/x.h t/a/b/y.c t/.h/x.h t/a/.x.h; ln -s .. t/a/c/up; pwd");
    const std::string top = directory.output.substr(0, directory.output.size() - 1);
    using Files = std::vector<std::string>;
    EXPECT_EQ(matchingFiles(top, "t/**/*.h"), (Files{"t/a/b/x.h", "t/a/x.h", "t/z.h"}));
    EXPECT_EQ(matchingFiles(top, "t/a/**"), (Files{"t/a/b/x.h", "t/a/b/y.c", "t/a/x.h"}));
    EXPECT_EQ(matchingFiles(top, "t/**/**/?.h"), (Files{"t/a/b/x.h", "t/a/x.h", "t/z.h"}));
    EXPECT_EQ(matchingFiles(top + "/t", "*/b/*"), (Files{"a/b/x.h", "a/b/y.c"}));
    EXPECT_EQ(matchingFiles(top, top + "/t/*.h"), (Files{top + "/t/z.h"}));
    EXPECT_EQ(matchingFiles(top, "t/a/.*"), (Files{"t/a/.x.h"}));
    EXPECT_EQ(matchingFiles(top, "t/a"), Files());
    EXPECT_EQ(matchingFiles(top, "t/*a*b*"), Files());
}

TEST(NearestName, IsNearEnough)
{
    static constexpr std::string_view names[] = {"build", "compile", "link"};
    EXPECT_EQ(nearestName("bulid", names), "build") << "exchanged neighbours are one edit";
    EXPECT_EQ(nearestName("compil", names), "compile");
    EXPECT_EQ(nearestName("lnk", names), "link");
    EXPECT_EQ(nearestName("xyz", names), "");
    EXPECT_EQ(nearestName("", names), "");
    EXPECT_EQ(nearestName(std::string(1'000'000, 'x'), names), "");
}
