#include "site/command/project.h"

#include "base/whole_file.h"
#include "site/command/arguments.h"
#include "site/command/project_reader.h"

#include <QFile>

#include <algorithm>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// The inputs of the command line, which go to the top of the site.
Project projectOfInputs(const QStringList &inputs)
{
    Project project;
    ProjectError error{{}, 1, {}};
    for (const QString &input : inputs) {
        const std::string file = input.toStdString();
        if (!RegularFile(input).isOpen())
            error.messages.push_back(file + ": error: cannot be read");
        else if (std::ranges::find(project.inputs, file, &ProjectInput::file) == project.inputs.end())
            project.inputs.push_back({file, {}, {}});
        project.lookedFor.files.push_back(file);
    }
    if (!error.messages.empty()) {
        error.lookedFor = std::move(project.lookedFor);
        throw ProjectError(std::move(error));
    }
    return project;
}

Project withInputs(Project project, const QString &file)
{
    if (project.inputs.empty())
        throw ProjectError{{file.toStdString() + ": error: no inputs: expected [[input]] with files"}};
    return project;
}

} // namespace

bool isProjectFile(const QString &name)
{
    return name.endsWith(".toml"_L1);
}

Project readProject(const QString &file)
{
    const std::string name = file.toStdString();
    const std::optional<QByteArray> bytes = readRegularFile(file);
    if (!bytes)
        throw ProjectError{{name + ": error: cannot be read"}, 2};
    return ProjectReader(name).read({bytes->constData(), static_cast<std::size_t>(bytes->size())});
}

Project projectOf(const QStringList &operands)
{
    const QString usual = u"site.toml"_s;
    if (operands.isEmpty()) {
        if (!QFile::exists(usual))
            throw UsageError{"expected a project file or inputs, or a file \"site.toml\" in the working directory"};
        return withInputs(readProject(usual), usual);
    }
    if (std::ranges::none_of(operands, isProjectFile))
        return projectOfInputs(operands);
    if (operands.size() != 1)
        throw UsageError{"expected either one project file or inputs"};
    return withInputs(readProject(operands.constFirst()), operands.constFirst());
}

} // namespace tavidoc
