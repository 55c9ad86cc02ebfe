#pragma once

#include "definitions/xml_pp.h"

#include <string>
#include <vector>

namespace tavidoc {

class ActionNames;
class Path;
class Properties;

/// Loads the definition files beside \a input into \a document and takes their contents in.
/// Files that are not there count for nothing; the errors are those of malformed files, in
/// the order of loading.
[[nodiscard]] std::vector<XmlError> loadSchemeFiles(const Path &input, XmlPP &document, ActionNames &actions,
                                                    Properties &properties);

/// The names of the definition files that are not beside \a input and in whose place no other
/// file has given definitions of their kind.
[[nodiscard]] std::vector<std::string> missingSchemeFiles(const Path &input, const ActionNames &actions,
                                                          const Properties &properties);

} // namespace tavidoc
