// Feeds damaged samples to every subject: truncated, with bytes removed, doubled or replaced, and samples of all other
// subjects. The runs depend only on the arguments, so findings are reproducible. A sample that ends the process is saved
// to the file "damage-finding".

#include "fuzz/subjects.h"

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

using Samples = std::map<const Subject *, std::vector<std::string>>;

/// The current run, for the signal handler.
std::string s_findingFile;
const Subject *s_subject = nullptr;
std::string s_input;

void keepFinding(int signal)
{
    const int file = ::open(s_findingFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    bool isKept = file >= 0 && ::write(file, s_input.data(), s_input.size()) >= 0;
    isKept = ::write(STDERR_FILENO, s_subject->name.data(), s_subject->name.size()) > 0 && isKept;
    std::signal(signal, SIG_DFL);
    std::raise(signal);
    std::_Exit(isKept ? 2 : 3);
}

/// Handles signals on a separate stack, because the normal stack may have overflowed.
void watchSignals()
{
    static char memory[1 << 16];
    stack_t stack = {};
    stack.ss_sp = memory;
    stack.ss_size = sizeof memory;
    ::sigaltstack(&stack, nullptr);
    struct sigaction action = {};
    action.sa_handler = keepFinding;
    action.sa_flags = SA_ONSTACK;
    for (const int signal : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL})
        ::sigaction(signal, &action, nullptr);
}

/// Counts runs and records the longest.
class Tally
{
public:
    void run(const Subject &subject, std::string input)
    {
        s_subject = &subject;
        s_input = std::move(input);
        const std::clock_t begin = std::clock(); // processor time: the machine may be busy
        subject.check(s_input);
        const std::clock_t time = std::clock() - begin;
        ++m_runs;
        if (time <= m_longest)
            return;
        m_longest = time;
        m_longestOf = subject.name;
    }

    void print(const char *what) const
    {
        const double milliseconds = 1000.0 * static_cast<double>(m_longest) / CLOCKS_PER_SEC;
        std::printf("%lld %s, the longest %.1f ms (%.*s)\n", m_runs, what, milliseconds,
                    static_cast<int>(m_longestOf.size()), m_longestOf.data());
    }

private:
    long long m_runs = 0;
    std::clock_t m_longest = 0;
    std::string_view m_longestOf;
};

/// Generates the same numbers in every run and on every machine.
class Numbers
{
public:
    /// Returns a number from 0 to \a count - 1. \a count is not 0.
    std::size_t below(std::size_t count)
    {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t value = m_state;
        value = (value ^ value >> 30) * 0xBF58476D1CE4E5B9U;
        value = (value ^ value >> 27) * 0x94D049BB133111EBU;
        return (value ^ value >> 31) % count;
    }

private:
    std::uint64_t m_state = 1;
};

std::string edited(std::string sample, Numbers &numbers)
{
    for (std::size_t edit = 1 + numbers.below(3); edit != 0 && !sample.empty(); --edit) {
        const std::size_t at = numbers.below(sample.size());
        const std::size_t length = 1 + numbers.below(numbers.below(8) == 0 ? 200 : 4);
        const std::size_t kind = numbers.below(3);
        if (kind == 0)
            sample.erase(at, length);
        else if (kind == 1)
            sample.insert(at, std::string(sample, at, length));
        else
            sample[at] = static_cast<char>(numbers.below(256));
    }
    return sample;
}

void runWhole(const Samples &samples)
{
    Tally tally;
    for (const auto &[subject, texts] : samples) {
        for (const std::string &text : texts)
            tally.run(*subject, text);
    }
    tally.print("whole samples");
}

/// Truncates samples, at every byte if \a most allows it, otherwise at evenly spaced places.
void cut(const Samples &samples, std::size_t most)
{
    std::size_t places = 0;
    for (const auto &[subject, texts] : samples) {
        for (const std::string &text : texts)
            places += text.size();
    }
    const std::size_t step = std::max<std::size_t>(1, places / std::max<std::size_t>(1, most));
    std::size_t at = 0; // the offset of the next cut in the sample
    Tally tally;
    for (const auto &[subject, texts] : samples) {
        for (const std::string &text : texts) {
            for (; at < text.size(); at += step)
                tally.run(*subject, text.substr(0, at));
            at -= text.size();
        }
    }
    tally.print("cuts");
}

void edit(const Samples &samples, std::size_t count)
{
    Numbers numbers;
    Tally tally;
    auto next = samples.begin();
    for (; count != 0; --count) {
        const auto &[subject, texts] = *next;
        tally.run(*subject, edited(texts[numbers.below(texts.size())], numbers));
        next = std::next(next) == samples.end() ? samples.begin() : std::next(next);
    }
    tally.print("edits");
}

/// Gives each subject the samples of all others, at most \a most in total.
void mix(const Samples &samples, std::size_t most)
{
    std::size_t total = 0;
    for (const auto &[owner, texts] : samples)
        total += texts.size() * (subjects().size() - 1);
    const std::size_t step = std::max<std::size_t>(1, total / std::max<std::size_t>(1, most));
    std::size_t number = 0;
    Tally tally;
    for (const auto &[owner, texts] : samples) {
        for (const Subject &subject : subjects()) {
            for (const std::string &text : texts) {
                if (&subject != owner && number++ % step == 0)
                    tally.run(subject, text);
            }
        }
    }
    tally.print("samples of others");
}

/// Reads the files below \a directory in the order of their names. Each file's folder has the name of its subject.
void read(Samples &samples, const fs::path &directory)
{
    std::vector<fs::path> files;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(directory)) {
        if (entry.is_regular_file())
            files.push_back(entry.path());
    }
    std::ranges::sort(files);
    for (const fs::path &file : files) {
        const Subject *const subject = findSubject(file.parent_path().filename().string());
        if (subject == nullptr)
            continue;
        std::ifstream stream(file, std::ios::binary);
        samples[subject].emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
}

} // namespace

int main(int count, char **values)
{
    if (count < 5) {
        std::fputs("usage: damage CUTS EDITS MIXED DIRECTORY...\n", stderr);
        return 1;
    }
    Samples samples;
    for (int index = 4; index < count; ++index)
        read(samples, values[index]);
    if (samples.empty()) {
        std::fputs("no samples\n", stderr);
        return 1;
    }
    s_findingFile = fs::absolute("damage-finding").string(); // checks change the working directory
    watchSignals();
    runWhole(samples);
    cut(samples, std::strtoull(values[1], nullptr, 10));
    edit(samples, std::strtoull(values[2], nullptr, 10));
    mix(samples, std::strtoull(values[3], nullptr, 10));
    return 0;
}
