#include "docgen/shared_tables.h"

namespace SharedTables {

std::map<std::string, DocumentedObject, std::less<>> docObjects;
std::vector<std::string> docGroups;
std::vector<std::string> requiredOrder;
std::string paraStyle = "p";
QStringList *filesRead = nullptr;

} // namespace SharedTables
