#include <cstdint>

#include "module/handlers/handlers.h"

namespace {

// The fields are read in this order.
ClientRect ReadRectangle(Variable& rectangle) {
  ClientRect client;
  client.bottom = rectangle(HostText("bottom"));
  client.right = rectangle(HostText("right"));
  client.top = rectangle(HostText("top"));
  client.left = rectangle(HostText("left"));
  return client;
}

// Asks the MDC for its device context and client rectangle and goes on with the operation. The result register is left
// holding the rectangle.
template <void (TOpenGL::*operation)(HDC__* device, const ClientRect& client)>
void OnDevice(ScriptCall& call) {
  auto* self = Native<TOpenGL>(*call.Object());
  if (!self) return;
  Variable* mdc = call.NextPointer();
  const long long device = call.Ask(mdc, "GetID");
  if (device == 0) {
    ModuleError(OGL_NO_DC, nullptr);
    return;
  }
  const ClientRect client = ReadRectangle(call.Ask(mdc, "GetClientRect"));
  (self->*operation)(reinterpret_cast<HDC__*>(static_cast<std::intptr_t>(device)), client);
}

}  // namespace

void script::Open(ScriptCall& call) { OnDevice<&TOpenGL::Open>(call); }
void script::OpenBitmap(ScriptCall& call) { OnDevice<&TOpenGL::OpenBitmap>(call); }
void script::BindMDC(ScriptCall& call) { OnDevice<&TOpenGL::BindMDC>(call); }

void script::GetVersion(const TOpenGL& self, ScriptCall& call) {
  Variable& list = call.Result();
  list.Init(TVAR_ARRAY, TOpenGL::kVersionTexts);
  for (int i = 0; i < TOpenGL::kVersionTexts; ++i) list[i] = HostText(self.GetVersion(i));
}
