#include "markup/shared_tables.h"

namespace tavidoc::SharedTables {

std::map<std::string, DocumentedObject, std::less<>> docObjects;
std::vector<std::string> docGroups;
std::vector<std::string> requiredOrder;
std::string paraStyle = "p";

} // namespace tavidoc::SharedTables
