#include "definitions/scheme_files.h"

#include "base/path.h"
#include "definitions/action_names.h"
#include "definitions/properties.h"

namespace tavidoc {

using namespace Qt::StringLiterals;

std::vector<XmlError> loadSchemeFiles(const Path &input, XmlPP &document, ActionNames &actions, Properties &properties)
{
    // Each may hold any of the definitions; the names are for those who look after them.
    static constexpr QLatin1StringView names[] = {"menus.xml"_L1, "messages.xml"_L1, "keys.xml"_L1,
                                                  "properties.xml"_L1};
    const qsizetype slash = input.given().lastIndexOf(u'/');
    const QString directory = input.given().left(slash + 1);
    std::vector<XmlError> errors;
    for (const QLatin1StringView name : names) {
        XmlPP::Loaded loaded = document.load(directory + name);
        if (loaded.error)
            errors.push_back(*std::move(loaded.error));
        if (loaded.root.isNull())
            continue;
        actions.add(loaded.root);
        properties.add(loaded.root);
    }
    return errors;
}

} // namespace tavidoc
