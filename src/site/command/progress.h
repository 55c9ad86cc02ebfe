#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace tavidoc {

/// A line on the terminal that says what is being done: "[12/465] include/kettle.h".
class Progress
{
public:
    enum class Mode
    {
        OnTerminal, ///< if the standard error is one
        Always,
        Never,
    };

    explicit Progress(Mode mode);
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;
    ~Progress() { clear(); }

    /// \a done of \a total are done, the last of them \a name. At most twenty lines a second are shown.
    void show(std::size_t done, std::size_t total, const std::string &name);
    /// Removes the line.
    void clear();

private:
    bool m_isShown = false; ///< in general
    bool m_hasLine = false;
    std::chrono::steady_clock::time_point m_next;
};

} // namespace tavidoc
