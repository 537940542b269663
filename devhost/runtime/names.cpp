#include "devhost/runtime/names.h"

#include <map>
#include <string>
#include <vector>

#include "host/talq.h"

namespace devhost {
namespace {

struct NameTable {
  std::map<std::string, unsigned short, std::less<>> ids;
  std::vector<std::string_view> names{""};  // id 0 is no name
};

// Never destroyed: values that end late may still ask for names.
NameTable& Table() {
  static auto& table = *new NameTable;
  return table;
}

}  // namespace

unsigned short NameId(std::string_view name) {
  NameTable& table = Table();
  if (const auto found = table.ids.find(name); found != table.ids.end()) return found->second;
  if (table.names.size() > 0xFFFF) return 0;
  const auto id = static_cast<unsigned short>(table.names.size());
  const auto added = table.ids.emplace(std::string(name), id).first;
  table.names.push_back(added->first);
  return id;
}

std::string_view NameOfId(unsigned short id) {
  const NameTable& table = Table();
  return id < table.names.size() ? table.names[id] : std::string_view();
}

}  // namespace devhost

unsigned short Token::GetNameID(char* name) { return devhost::NameId(name ? name : ""); }
