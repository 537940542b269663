// ColorRef: a packed colour 0x00BBGGRR in the field clrf.
#include "devhost/classes/tables.h"

namespace devhost {
namespace {

void MakePacked(VarRegister&, VarRegister* args, int argc, Processor*) {
  DefineField(Self(args, argc), "clrf") = static_cast<int>(args[0]);
}

void MakeFromBytes(VarRegister&, VarRegister* args, int argc, Processor*) {
  const auto byte = [&](int i) { return static_cast<int>(args[i]) & 0xFF; };
  DefineField(Self(args, argc), "clrf") = byte(0) | byte(1) << 8 | byte(2) << 16;
}

}  // namespace

const MethodEntry kColorRefMethods[] = {
    {MakePacked, "ColorRef::ColorRef(int)"},
    {MakeFromBytes, "ColorRef::ColorRef(int, int, int)"},
    {nullptr, nullptr},
};

}  // namespace devhost
