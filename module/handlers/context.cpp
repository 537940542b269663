#include <cstdint>

#include "binding/native.h"
#include "module/handlers/handlers.h"
#include "render/topengl.h"

namespace {

ClientRect ReadRectangle(Variable& rectangle) {
  char left[] = "left";
  char top[] = "top";
  char right[] = "right";
  char bottom[] = "bottom";
  ClientRect client;
  client.bottom = rectangle(bottom);
  client.right = rectangle(right);
  client.top = rectangle(top);
  client.left = rectangle(left);
  return client;
}

// Asks the MDC for its device context and client rectangle and goes on with the operation. The result register serves
// as scratch and is left holding the rectangle.
template <void (TOpenGL::*operation)(HDC__* device, const ClientRect& client)>
void OnDevice(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  Variable* mdc = args[0];
  char getId[] = "GetID";
  processor->RunMethod(result, getId, nullptr, 0, mdc);
  const long long device = result;
  if (device == 0) {
    ModuleError(OGL_NO_DC, nullptr);
    return;
  }
  char getClientRect[] = "GetClientRect";
  processor->RunMethod(result, getClientRect, nullptr, 0, mdc);
  (self->*operation)(reinterpret_cast<HDC__*>(static_cast<std::intptr_t>(device)), ReadRectangle(result));
}

}  // namespace

void Open(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  OnDevice<&TOpenGL::Open>(result, args, argc, processor);
}
void OpenBitmap(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  OnDevice<&TOpenGL::OpenBitmap>(result, args, argc, processor);
}
void BindMDC(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  OnDevice<&TOpenGL::BindMDC>(result, args, argc, processor);
}

void GetVersion(VarRegister& result, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const auto texts = self->GetVersion();
  Variable& list = result;
  list.Init(TVAR_ARRAY, static_cast<int>(texts.size()));
  int i = 0;
  // The host takes char* and only reads.
  for (const char* text : texts) list[i++] = const_cast<char*>(text);
}
