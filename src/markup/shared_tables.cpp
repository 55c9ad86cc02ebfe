#include "markup/shared_tables.h"

namespace tavidoc {

namespace SharedTables {

std::map<std::string, DocumentedObject, std::less<>> docObjects;
std::vector<std::string> docGroups;
std::vector<std::string> requiredOrder;
std::string paraStyle = "p";

} // namespace SharedTables

} // namespace tavidoc
