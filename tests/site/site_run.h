#pragma once

#include "tests/support/script_run.h"

#include <QTemporaryDir>

#include <ctime>
#include <string>
#include <utility>

#include <unistd.h>

/// A directory with a small set of documents, in which scripts run. In them "$site" is the program.
class SiteDirectory
{
public:
    SiteDirectory()
    {
        write("site.toml", "title = \"Kettle\"\n"
                           "[[input]]\nfiles = [\"manual.dg\"]\n"
                           "[[input]]\nfiles = [\"include/*.h\"]\nfolder = \"api/{name}\"\n");
        write("manual.dg", "\\split{index}\n\\title{Kettle}\nSee \\xref{boil}.\n\\split{more}\n\\title{More}\n"
                           "\\include part.dg\n");
        write("part.dg", "Water.\n");
        run("mkdir include");
        write("include/kettle.h", "/*!\n * \\this\n * Boils water.\n */\nint boil(int litres);\n");
        write("include/lid.h", "/*!\n * \\this\n * Opens the lid.\n */\nint open(void);\n");
    }

    /// Returns in the next tick of the clock that stamps files: a file that changed in the tick in which a build begins
    /// is compiled again by the next one.
    void write(const char *name, const QByteArray &text)
    {
        writeText(m_directory, QString::fromUtf8(name), text);
        const auto ticks = [] {
            timespec time = {};
            ::clock_gettime(CLOCK_REALTIME_COARSE, &time);
            return std::pair(time.tv_sec, time.tv_nsec);
        };
        for (const auto written = ticks(); ticks() == written;)
            ::usleep(500);
    }

    /// Runs \a script and returns its exit status, with what it wrote in `output` and `error`.
    int run(const std::string &script)
    {
        const ScriptResult result =
            runScript(m_directory, QStringLiteral("site=" TAVIDOC_SITE_PROGRAM "; ") + QString::fromStdString(script));
        output = result.output.toStdString();
        error = result.error.toStdString();
        return result.status;
    }

    /// As run(), but returns what the script wrote to the standard output.
    std::string outputOf(const std::string &script)
    {
        run(script);
        return output;
    }

    std::string output;
    std::string error;

private:
    QTemporaryDir m_directory;
};
