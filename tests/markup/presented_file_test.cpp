#include "base/product.h"
#include "markup/presented_file.h"
#include "tests/support/markup_run.h"

#include <gtest/gtest.h>

using namespace tavidoc;

namespace {

/// "LANGUAGE: TEXT" of the file \a name with \a text.
std::string presented(const QTemporaryDir &directory, const char *name, std::string_view text, const char *language)
{
    const QString file = directory.filePath(QString::fromUtf8(name));
    writeFile(file, text);
    const std::optional<PresentedFile> result = presentedFile(file.toStdString(), language);
    return result ? result->language + ": " + result->text.toStdString() : "none";
}

} // namespace

TEST(PresentedFile, TheLastExtensionChoosesTheLanguage)
{
    const QTemporaryDir directory;
    std::string languages;
    for (const char *name : {"a.bas", "a.xml", "a.XML", "a.emProject", "a.EMPROJECT", "a.HZP", "a.cpp", "a.hpp",
                             "a.cxx", "a.hxx", "a.cc", "a.hh", "a.c.js", "a.c", "a.h", "a.Cpp", "xml", ".bas", "a."})
        languages += presented(directory, name, "", "");
    EXPECT_EQ(languages, "basic: xml: plain: xml: xml: xml: c: c: c: c: c: c: javascript: plain: plain: plain: plain: "
                         "basic: plain: ");
}

TEST(PresentedFile, TheNoticeIsPutInUnlessTheLanguageIsVerbatim)
{
    const QTemporaryDir directory;
    const char *const text = "\xEF\xBB\xBF// $(LICENSE)\r\n\r$(LICENSE$(LICENSE)\xE9";
    const std::string notice(Product::licenceNotice);
    EXPECT_EQ(presented(directory, "a.cc", text, ""),
              "c: \xC3\xAF\xC2\xBB\xC2\xBF// " + notice + "\n\r$(LICENSE" + notice + "\xC3\xA9");
    EXPECT_EQ(presented(directory, "a.cc", "$(LICENSE)", "verbatim"), "plain: $(LICENSE)");
    EXPECT_EQ(presented(directory, "a.cc", "\xEF\xBB\xBFx", "xml"), "xml: x");
    EXPECT_EQ(notice.find('\n'), std::string::npos);
    EXPECT_FALSE(presentedFile(directory.path().toStdString(), "c"));
}
