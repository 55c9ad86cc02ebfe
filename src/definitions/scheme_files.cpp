#include "definitions/scheme_files.h"

#include "base/path.h"
#include "definitions/action_names.h"
#include "definitions/properties.h"

#include <QFileInfo>

#include <utility>

namespace tavidoc {

using namespace Qt::StringLiterals;

namespace {

// Each file may contain any kind of definition; the names are only a convention.
constexpr QLatin1StringView s_menus = "menus.xml"_L1;
constexpr QLatin1StringView s_messages = "messages.xml"_L1;
constexpr QLatin1StringView s_keys = "keys.xml"_L1;
constexpr QLatin1StringView s_properties = "properties.xml"_L1;

constexpr QLatin1StringView s_names[] = {s_menus, s_messages, s_keys, s_properties};

/// The directory of \a input with a slash appended; empty for the working directory.
QString directoryOf(const Path &input)
{
    return input.given().left(input.given().lastIndexOf(u'/') + 1);
}

} // namespace

std::vector<XmlError> loadSchemeFiles(const Path &input, XmlPP &document, ActionNames &actions, Properties &properties)
{
    const QString directory = directoryOf(input);
    std::vector<XmlError> errors;
    if (!document.startSearch(directory))
        return errors;
    for (const QLatin1StringView name : s_names) {
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

std::vector<SchemeFile> schemeFiles(const Path &input)
{
    std::vector<SchemeFile> files;
    for (const QLatin1StringView name : s_names) {
        const QString file = directoryOf(input) + name;
        files.push_back({file, QFileInfo(file).isFile()});
    }
    return files;
}

std::vector<std::string> missingSchemeFiles(const Path &input, const ActionNames &actions, const Properties &properties)
{
    const std::pair<QLatin1StringView, bool> files[] = {{s_menus, actions.hasMenuItems()},
                                                        {s_messages, actions.hasMessages()},
                                                        {s_keys, actions.hasKeys()},
                                                        {s_properties, !properties.isEmpty()}};
    std::vector<std::string> missing;
    for (const auto &[name, isDefinedElsewhere] : files) {
        if (!isDefinedElsewhere && !QFileInfo(directoryOf(input) + name).isFile())
            missing.emplace_back(name.data(), static_cast<std::size_t>(name.size()));
    }
    return missing;
}

} // namespace tavidoc
