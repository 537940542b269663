// Names of fields as 16-bit ids.
#pragma once

#include <string_view>

namespace devhost {

// The id of a name, the same for the life of the process; 0 when all ids are given away.
unsigned short NameId(std::string_view name);
// The name of an id; "" for 0 and for ids that no name has.
std::string_view NameOfId(unsigned short id);

}  // namespace devhost
