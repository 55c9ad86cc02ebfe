#pragma once

#include "pages/output_record.h"

#include <QString>

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavidoc {

/// A finished file. Everything is borrowed and valid only during the call that it is passed to.
struct OutputFile
{
    std::string_view name;                   ///< under the output directory; UTF-8
    const QString &header;                   ///< the file name of the header that the page documents; empty for others
    std::span<const std::string_view> parts; ///< the bytes of the file, in order
};

/// Receives finished files in the order in which they are made.
class OutputSink
{
public:
    virtual ~OutputSink() = default;
    virtual void take(const OutputFile &file) = 0;
    /// False for a sink that has no use for contents files: then none are made.
    [[nodiscard]] virtual bool takesContents() const { return true; }
};

/// Appends the files to a list of records.
class OutputRecorder : public OutputSink
{
public:
    /// Borrows \a records. The names of the records are formed under \a directory.
    OutputRecorder(OutputRecords &records, const QString &directory);

    void take(const OutputFile &file) override;

private:
    OutputRecords &m_records;
    std::string m_directory; // with "/"
};

/// The finished files of a run on their way to a sink. A run that fails has no output, so they are held back until
/// it is known that the run will not fail.
class OutputQueue
{
public:
    /// Borrows \a sink. Files that are not handed out are dropped.
    explicit OutputQueue(OutputSink &sink) : m_sink(sink) {}

    void add(const OutputFile &file);
    [[nodiscard]] bool takesContents() const { return m_sink.takesContents(); }
    /// Hands out the files held back, and from now on each file when it is added.
    void release();

private:
    struct HeldFile
    {
        std::string name;
        QString header;
        std::string text;
    };

    OutputSink &m_sink;
    std::vector<HeldFile> m_held;
    bool m_isReleased = false;
};

} // namespace tavidoc
