#include "pages/output_queue.h"

#include "base/large_memory.h"

#include <utility>

namespace tavidoc {

namespace {

std::size_t sizeOf(std::span<const std::string_view> parts)
{
    std::size_t size = 0;
    for (const std::string_view part : parts)
        size += part.size();
    return size;
}

} // namespace

OutputRecorder::OutputRecorder(OutputRecords &records, const QString &directory)
    : m_records(records), m_directory(directory.toStdString() + '/')
{
}

void OutputRecorder::take(const OutputFile &file)
{
    QByteArray text;
    text.reserve(static_cast<qsizetype>(sizeOf(file.parts)));
    preferHugePages(text.constData(), sizeOf(file.parts));
    for (const std::string_view part : file.parts)
        text.append(part.data(), static_cast<qsizetype>(part.size()));
    std::string name = m_directory;
    name += file.name;
    m_records.push_back({QString::fromStdString(name), file.header, std::move(text)});
}

void OutputQueue::add(const OutputFile &file)
{
    if (m_isReleased)
        return m_sink.take(file);
    std::string text;
    text.reserve(sizeOf(file.parts));
    preferHugePages(text.data(), sizeOf(file.parts));
    for (const std::string_view part : file.parts)
        text += part;
    m_held.push_back({std::string(file.name), file.header, std::move(text)});
}

void OutputQueue::release()
{
    m_isReleased = true;
    for (HeldFile &file : m_held) {
        const std::string_view text = file.text;
        m_sink.take({file.name, file.header, {&text, 1}});
        std::string().swap(file.text);
    }
    m_held.clear();
}

} // namespace tavidoc
