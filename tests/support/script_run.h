#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

/// The result of a shell script and the pages that it left in its directory.
struct ScriptResult
{
    QByteArray output;
    QByteArray error;
    int status; ///< negative after an abnormal end
    QByteArray
        pages; ///< the files in "out" by name, each with a blank after it; incomplete ones are marked "(cut off)"
};

/// Runs \a script with /bin/sh in \a directory. In it "$tavidoc" is the program; "$strace" runs a program
/// under the system call tracer, quietly.
inline ScriptResult runScript(const QTemporaryDir &directory, const QString &script)
{
    QProcess process;
    process.setWorkingDirectory(directory.path());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("tavidoc"), QStringLiteral(TAVIDOC_PROGRAM));
    environment.insert(QStringLiteral("strace"), QStringLiteral("strace -qqq -f -o trace"));
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0")); // it traces the process, too
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), script});
    process.waitForFinished(-1);
    const bool isNormal = process.exitStatus() == QProcess::NormalExit;
    QByteArray pages;
    const QDir out(directory.filePath(QStringLiteral("out")));
    for (const QString &name : out.entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
        QFile file(out.filePath(name));
        const bool isWhole = file.open(QIODevice::ReadOnly) && file.readAll().endsWith("</html>\n");
        pages += name.toUtf8() + (isWhole ? " " : " (cut off) ");
    }
    return {process.readAllStandardOutput(), process.readAllStandardError(), isNormal ? process.exitCode() : -1, pages};
}

inline void writeText(const QTemporaryDir &directory, const QString &name, const QByteArray &text)
{
    QFile file(directory.filePath(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
}
