#pragma once

#include "definitions/xml_pp.h"

#include <string>
#include <vector>

namespace tavidoc {

class ActionNames;
class Path;
class Properties;

/// Loads the definition files in the directory of \a input into \a document, and their contents into
/// \a actions and \a properties. Missing files are skipped, and so is a directory that needs no
/// search, see XmlPP::startSearch(). Returns the errors of malformed files, in the order of loading.
[[nodiscard]] std::vector<XmlError> loadSchemeFiles(const Path &input, XmlPP &document, ActionNames &actions,
                                                    Properties &properties);

/// A definition file that was looked for.
struct SchemeFile
{
    QString name; ///< with the directory of the input, as that was given
    bool isPresent;
};

/// The definition files of \a input, in the order of loading.
[[nodiscard]] std::vector<SchemeFile> schemeFiles(const Path &input);

/// The names of the definition files that are missing from the directory of \a input, without those
/// whose kind of definition another file has provided.
[[nodiscard]] std::vector<std::string> missingSchemeFiles(const Path &input, const ActionNames &actions,
                                                          const Properties &properties);

} // namespace tavidoc
