#include "binding/native.h"
#include "geometry/array.h"
#include "module/handlers/handlers.h"
#include "render/topengl.h"

void GenList(VarRegister& result, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const int count = argc == 2 ? static_cast<int>(args[0]) : 1;
  result = self->GenLists(count);
}

void CallLists(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const Array<int> lists = DecodeIntegers(args[0]);
  if (lists) self->CallLists(lists.Data(), lists.Count());
}

void DeleteLists(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const int first = args[0];
  const int count = argc == 2 ? 1 : static_cast<int>(args[1]);
  self->DeleteLists(first, count);
}
