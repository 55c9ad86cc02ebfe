#include "site/compile/compile.h"

#include "apiref/reference_names.h"
#include "base/hexception.h"
#include "base/path.h"
#include "base/whole_file.h"
#include "docgen/doc_gen.h"
#include "pages/output_queue.h"
#include "site/compile/input_listener.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

/// Changes the working directory, until it is destroyed.
class WorkingDirectory
{
public:
    /// An empty \a directory changes nothing.
    explicit WorkingDirectory(const QString &directory) : m_before(::open(".", O_PATH | O_DIRECTORY | O_CLOEXEC))
    {
        if (!directory.isEmpty() && ::chdir(QFile::encodeName(directory).constData()) != 0)
            throw HException("cannot enter " + directory.toUtf8());
    }
    WorkingDirectory(const WorkingDirectory &) = delete;
    WorkingDirectory &operator=(const WorkingDirectory &) = delete;
    ~WorkingDirectory()
    {
        if (m_before < 0)
            return;
        [[maybe_unused]] const int status = ::fchdir(m_before);
        ::close(m_before);
    }

private:
    int m_before;
};

/// The pages come from the listener.
class NoOutput : public OutputSink
{
public:
    void take(const OutputFile &) override {}
};

void document(const Path &input, InputListener &listener)
{
    NoOutput output;
    DocGen generator;
    const auto sink = [&listener](const Message &message) { listener.message(message); };
    generator.setMessageSink(sink);
    generator.setMissingFileSink(sink);
    generator.setListener(&listener);
    generator.setReferenceNames(ReferenceNames::Qualified);
    generator.run(nullptr, 1, input, u"."_s, output, QString(), {});
}

bool isDocumented(const Path &input)
{
    return input.completeSuffix() == "dg"_L1 || input.completeSuffix() == "h"_L1;
}

} // namespace

RecordWithBodies compiled(const QString &input, const QString &folder)
{
    if (!RegularFile(input).isOpen())
        throw HException("cannot read " + input.toUtf8());
    InputListener listener(input);
    const qsizetype nameBegin = input.lastIndexOf(u'/') + 1;
    const Path name(input.mid(nameBegin));
    if (isDocumented(name)) {
        const WorkingDirectory directory(input.left(nameBegin));
        document(name, listener);
    } else {
        listener.addFinding("unknown-suffix", {},
                            "the name has the suffix \"" + name.completeSuffix().toStdString() +
                                "\": expected \"dg\" or \"h\" after the first dot");
    }
    RecordWithBodies record = listener.takeRecord();
    record.head.folder = folder.toStdString();
    return record;
}

} // namespace tavidoc
