#include "geometry/decode.h"
#include "module/handlers/handlers.h"

void script::GenList(const TOpenGL& self, ScriptCall& call) {
  const int count = call.Count() == 1 ? call.NextInt() : 1;
  call.Result() = self.GenLists(count);
}

void script::CallLists(const TOpenGL& self, ScriptCall& call) {
  const Array<int> lists = DecodeIntegers(call.NextValue());
  if (lists) self.CallLists(lists.Span());
}

void script::DeleteLists(const TOpenGL& self, ScriptCall& call) {
  const int first = call.NextInt();
  const int count = call.Count() == 1 ? 1 : call.NextInt();
  self.DeleteLists(first, count);
}
