// Checks the command line and the parts of paths.

#include "base/hexception.h"
#include "base/path.h"
#include "driver/command_line.h"
#include "fuzz/promise.h"
#include "fuzz/subjects.h"
#include "pages/contents.h"

using namespace tavidoc;

using namespace Qt::StringLiterals;

namespace {

void checkPath(const QString &text)
{
    const Path path(text);
    const auto joined = [](const QString &base, const QString &suffix) {
        return suffix.isEmpty() ? base : base + u'.' + suffix;
    };
    const QString name = path.fileName();
    const auto isName = [&name](const QString &whole) { return whole == name || whole + u'.' == name; };
    promise(text.endsWith(name) && !name.contains(u'/'), "a file name is the part after the last slash");
    promise(isName(joined(path.baseName(), path.completeSuffix())), "first dot: base and suffix form the name");
    promise(isName(joined(path.completeBaseName(), path.suffix())), "last dot: base and suffix form the name");
    promise(Path(path.text()).text() == path.text(), "a clean path does not change", text.toStdString());
    promise(!path.directory().isEmpty(), "a path has a directory");
}

void checkSettings(const QStringList &arguments)
{
    try {
        const Settings settings = parseArguments(ArgumentQueue(arguments));
        promise(settings.inputs.size() <= arguments.size(), "an input is an argument");
    } catch (const HException &exception) {
        promise(arguments.last() == u"-o"_s && exception.message() == "output directory expected",
                "only a trailing -o is an error");
    }
}

} // namespace

void checkArguments(std::string_view input)
{
    const QStringList arguments = QString::fromUtf8(input.data(), static_cast<qsizetype>(input.size())).split(u'\n');
    checkSettings(arguments);
    for (const QString &argument : arguments) {
        checkPath(argument);
        const std::string file = pageFile(argument.toStdString());
        promise(file.ends_with(".htm") && pageFile(file) == file, "a page's file keeps its suffix");
    }
}
