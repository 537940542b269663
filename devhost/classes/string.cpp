// String: texts and byte buffers, which are the same thing.
#include "devhost/classes/tables.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

void MakeBuffer(VarRegister&, VarRegister* args, int argc, Processor*) { Self(args, argc).Init(TVAR_BYTES, args[0]); }

void MakeCopy(VarRegister&, VarRegister* args, int argc, Processor*) {
  AssignText(Self(args, argc), TextIn(args[0].GetVar()));
}

void Size(VarRegister& result, VarRegister* args, int argc, Processor*) {
  result = Self(args, argc).GetString()->length;
}

void SetByte(VarRegister&, VarRegister* args, int argc, Processor*) {
  const String& text = *Self(args, argc).GetString();
  const int index = args[0];
  if (index < 0 || index >= text.length) {
    Raise(kErrorConversion,
          "Index " + Decimal(index) + " lies outside the String of " + Decimal(text.length) + " bytes.");
    return;
  }
  text.bytes[index] = static_cast<unsigned char>(static_cast<int>(args[1]));
}

void Copy(VarRegister& result, VarRegister* args, int argc, Processor*) {
  AssignText(result, TextIn(Self(args, argc)));
}

}  // namespace

// clang-format off
const MethodEntry kStringMethods[] = {
    {MakeBuffer, "String::String(int)"},
    {MakeCopy, "String::String(copy)"},
    {Size, "String::Size(void)"},
    {SetByte, "String::SetByte(int, int)"},
    {Copy, "String::Copy(void)"},
    {nullptr, nullptr},
};
// clang-format on

}  // namespace devhost
