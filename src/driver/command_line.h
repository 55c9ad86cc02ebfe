#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tavidoc {

/// The arguments of the process, taken one after the other.
class ArgumentQueue
{
public:
    /// \a arguments without the program's path.
    explicit ArgumentQueue(QStringList arguments);

    /// Takes the first argument. When none is left the result is null if \a message is empty;
    /// else HException with that message is thrown.
    QString takeArgument(const QByteArray &message);

private:
    QStringList m_arguments;
};

/// What the command line asks for.
struct Settings
{
    QString outputDirectory; ///< empty: the working directory
    bool verbose = false;
    QStringList inputs; ///< in the order of the command line
};

/// Reads the arguments. Throws HException when "-o" is the last.
[[nodiscard]] Settings parseArguments(ArgumentQueue arguments);

/// The banner and the usage text, for the standard error.
[[nodiscard]] QByteArray usageText();

} // namespace tavidoc
