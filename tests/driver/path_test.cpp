#include "base/path.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace tavidoc;

using namespace Qt::StringLiterals;

TEST(Path, PartsOfNames)
{
    struct Row
    {
        const char16_t *path;
        const char *parts; ///< cleaned | directory | file name | base, complete suffix | complete base, suffix
    };
    constexpr Row rows[] = {
        {u"/book/use.old.dg", "/book/use.old.dg | /book | use.old.dg | use, old.dg | use.old, dg"},
        {u"a.h", "a.h | . | a.h | a, h | a, h"},
        {u"./b//../c.d/name", "c.d/name | ./b//../c.d | name | name,  | name, "},
        {u"/.rc", "/.rc | / | .rc | , rc | , rc"},
        {u"a/b.", "a/b. | a | b. | b,  | b, "},
        {u"a.b/", "a.b | a.b |  | ,  | , "},
        {u"", " | . |  | ,  | , "},
    };
    for (const Row &row : rows) {
        const Path path(QString::fromUtf16(row.path));
        const QString parts = QStringList{path.text(), path.directory(), path.fileName(),
                                          path.baseName() + u", "_s + path.completeSuffix(),
                                          path.completeBaseName() + u", "_s + path.suffix()}
                                  .join(u" | "_s);
        EXPECT_EQ(parts.toStdString(), row.parts) << path.given().toStdString();
    }
}
