#include "site/render/site_files.h"

#include <QDir>
#include <QFile>

// A static library's resources are registered on demand, by a function outside of any namespace.
static void registerSiteFiles()
{
    Q_INIT_RESOURCE(site);
}

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

const QString s_folder = u":/site"_s;

std::string resource(const QString &name)
{
    registerSiteFiles();
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

} // namespace

QStringList siteFileNames()
{
    registerSiteFiles();
    return QDir(s_folder).entryList(QDir::Files, QDir::Name);
}

std::string siteFile(std::string_view name)
{
    return resource(s_folder + u'/' + QString::fromUtf8(name));
}

std::string singleStyleSheet()
{
    return resource(u":/print/single.css"_s);
}

std::string plainStyleSheet()
{
    return resource(u":/plain/default.css"_s);
}

} // namespace tavidoc
