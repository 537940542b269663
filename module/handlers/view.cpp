#include "binding/native.h"
#include "module/handlers/handlers.h"
#include "module/handlers/points.h"
#include "render/topengl.h"

void GetViewerPos(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  Variable& list = result;
  list.Init(TVAR_ARRAY, 3);
  OGLPoint points[3];
  self->GetViewer(points[0], points[1], points[2]);
  for (int i = 0; i < 3; ++i) MakePoint(list[i], points[i], processor);
}

void GetViewPort(VarRegister& result, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const OGLRect viewport = self->GetViewPort();
  Variable& list = result;
  list.Init(TVAR_ARRAY, 4);
  list[0] = viewport.left;
  list[1] = viewport.right;
  list[2] = viewport.top;
  list[3] = viewport.bottom;
}
