#pragma once

#include "site/command/build_cache.h"
#include "site/command/project.h"
#include "site/link/link_data.h"
#include "site/record/record.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace tavidoc {

class Arguments;

/// All inputs of a project, compiled and linked in a cache.
class WholeSet
{
public:
    WholeSet(const Project &project, const QString &cache);

    [[nodiscard]] const SharedLinks &shared() const { return m_shared; }

    using HeadUse = std::function<void(const Record &record, const RecordLinks &links)>;
    using RecordUse = std::function<void(const RecordWithBodies &record, const RecordLinks &links)>;
    /// Calls \a use for the head of each record, in the order of the inputs.
    void forEachHead(const HeadUse &use) const;
    /// Calls \a use for each record. One whose bodies are damaged is made again.
    void forEachRecord(const RecordUse &use) const;

private:
    const Project &m_project;
    BuildCache m_cache;
    SharedLinks m_shared;
};

/// Compiles and links the project or inputs \a operands, calls \a use unless it is empty, and prints what was found. Returns the exit status.
int buildWithoutPages(const Arguments &arguments, const QStringList &operands,
                      const std::function<void(const WholeSet &set)> &use);

/// Writes the project file \a file for Qt's help system and the files that it lists beside it.
void writeHelpProject(const WholeSet &set, const QString &file);

} // namespace tavidoc
