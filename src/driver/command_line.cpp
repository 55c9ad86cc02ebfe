#include "driver/command_line.h"

#include "base/hexception.h"
#include "base/product.h"

#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

QByteArray bannerText()
{
    QByteArray banner;
    banner.append(QByteArrayView(Product::title)).append(' ').append(QByteArrayView(Product::toolName));
    banner.append(" - Release " TAVIDOC_VERSION "\n");
    for (const std::string_view holder : Product::copyrightHolders)
        banner.append("Copyright (c) ").append(QByteArrayView(holder)).append('\n');
    return banner;
}

} // namespace

ArgumentQueue::ArgumentQueue(QStringList arguments) : m_arguments(std::move(arguments)) {}

QString ArgumentQueue::takeArgument(const QByteArray &message)
{
    if (!m_arguments.isEmpty())
        return m_arguments.takeFirst();
    if (!message.isEmpty())
        throw HException(message);
    return {};
}

Settings parseArguments(ArgumentQueue arguments)
{
    Settings settings;
    for (QString argument = arguments.takeArgument({}); !argument.isNull(); argument = arguments.takeArgument({})) {
        if (argument == "-o"_L1)
            settings.outputDirectory = arguments.takeArgument("output directory expected");
        else if (argument == "-v"_L1)
            settings.verbose = true;
        else
            settings.inputs.append(argument);
    }
    return settings;
}

QByteArray usageText()
{
    return bannerText() + "\n"
                          "usage: tavidoc [options] input_source_files...\n"
                          "\n"
                          "options:\n"
                          "  -o directory  -  specify output directory\n"
                          "  -v            -  verbose output\n";
}

} // namespace tavidoc
