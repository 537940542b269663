// RECT: a rectangle with the integer fields left, top, right and bottom.
#include "devhost/classes/tables.h"

namespace devhost {
namespace {

void Make(VarRegister&, VarRegister* args, int argc, Processor*) {
  constexpr const char* kFields[] = {"left", "top", "right", "bottom"};
  Variable& self = Self(args, argc);
  for (int i = 0; i < 4; ++i) DefineField(self, kFields[i]) = static_cast<int>(args[i]);
}

}  // namespace

const MethodEntry kRectangleMethods[] = {
    {Make, "RECT::RECT(int, int, int, int)"},
    {nullptr, nullptr},
};

}  // namespace devhost
