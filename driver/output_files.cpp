#include "driver/output_files.h"

#include "driver/output_file.h"

#include <QSet>

#include <algorithm>
#include <atomic>
#include <exception>
#include <system_error>
#include <thread>

namespace {

constexpr std::size_t s_many = 256; // from here on a second thread pays

/// The name of a file without the directory.
QStringView bareName(const OutputRecord &page)
{
    return QStringView(page.fileName).mid(page.fileName.lastIndexOf(u'/') + 1);
}

/// True when all \a pages stand in one directory under different names, so that their order
/// does not matter.
bool areDifferentFiles(std::span<const OutputRecord *const> pages)
{
    const auto directory = [](const OutputRecord &page) {
        return QStringView(page.fileName).chopped(bareName(page).size());
    };
    QSet<QStringView> names;
    names.reserve(static_cast<qsizetype>(pages.size()));
    for (const OutputRecord *page : pages) {
        if (directory(*page) != directory(*pages.front()))
            return false;
        names.insert(bareName(*page));
    }
    return names.size() == static_cast<qsizetype>(pages.size());
}

/// Pages that two threads take in turn until one of them fails.
class SharedPages
{
public:
    /// The first page, by its index, that a thread could not write.
    struct Failure
    {
        std::size_t index;
        std::exception_ptr exception;
    };

    explicit SharedPages(std::span<const OutputRecord *const> pages) : m_pages(pages), m_end(pages.size()) {}

    /// Writes pages as long as there are any; keeps what it would throw.
    Failure writeSome() noexcept
    {
        std::size_t index = m_next++;
        for (; index < m_end; index = m_next++) {
            try {
                writeOutputFile(m_pages[index]->fileName, m_pages[index]->text);
            } catch (...) {
                m_end = 0;
                return {index, std::current_exception()};
            }
        }
        return {m_pages.size(), nullptr};
    }

private:
    std::span<const OutputRecord *const> m_pages;
    std::atomic<std::size_t> m_next = 0;
    std::atomic<std::size_t> m_end;
};

void writeByTwoThreads(std::span<const OutputRecord *const> pages)
{
    SharedPages shared(pages);
    SharedPages::Failure there = {pages.size(), nullptr};
    std::thread other;
    try {
        other = std::thread([&] { there = shared.writeSome(); });
    } catch (const std::system_error &) {
        // No thread is to be had: this one writes them all.
    }
    const SharedPages::Failure here = shared.writeSome();
    if (other.joinable())
        other.join();
    const SharedPages::Failure &first = here.index < there.index ? here : there;
    if (first.exception)
        std::rethrow_exception(first.exception);
}

} // namespace

void writeOutputFiles(std::span<const OutputRecord *const> pages, const std::function<void(const QString &)> &announce)
{
    if (!announce && pages.size() >= s_many && areDifferentFiles(pages))
        return writeByTwoThreads(pages);
    for (const OutputRecord *page : pages) {
        if (announce)
            announce(page->fileName);
        writeOutputFile(page->fileName, page->text);
    }
}
