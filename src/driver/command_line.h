#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tavidoc {

/// The arguments of the process, which are taken one by one.
class ArgumentQueue
{
public:
    /// \a arguments without the program's path.
    explicit ArgumentQueue(QStringList arguments);

    /// Takes the first argument. Without one, returns a null string if \a message is empty, and throws
    /// HException with the message otherwise.
    QString takeArgument(const QByteArray &message);

private:
    QStringList m_arguments;
};

/// The settings from the command line.
struct Settings
{
    QString outputDirectory; ///< empty: the working directory
    bool verbose = false;
    QStringList inputs; ///< in the order of the command line
};

/// Parses the arguments. Throws HException when "-o" is the last one.
[[nodiscard]] Settings parseArguments(ArgumentQueue arguments);

/// The banner and the usage text, for the standard error.
[[nodiscard]] QByteArray usageText();

} // namespace tavidoc
