#include "binding/native.h"
#include "module/handlers/handlers.h"
#include "render/arithmetic.h"
#include "render/topengl.h"

void GetDIBits(VarRegister& result, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const float x = args[0];
  const float y = args[1];
  const int width = args[2];
  const int height = args[3];
  if (!self->CanDraw()) return;
  Variable& bytes = result;
  bytes.Init(TVAR_BYTES, WrappingProduct(WrappingProduct(width, height), 3));
  unsigned char* pixels = bytes;
  if (pixels) self->GetDIBits(x, y, width, height, pixels);
}
