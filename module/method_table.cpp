// The script API: one row a signature, in the order in which the host receives them.
//
// A row made by Method, PartMethod, Constructor or Destructor converts its arguments one to one; a row in braces names
// a handler that decides something. Rows of one handler are overloads that it tells apart.
#include "module/exports.h"

namespace {

constexpr MethodEntry kMethodTable[] = {
    {nullptr, nullptr},
};

}  // namespace

const MethodEntry* GetMethodTable(void* /*unused*/) { return kMethodTable; }
