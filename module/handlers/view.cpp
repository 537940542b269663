#include "module/handlers/handlers.h"
#include "module/handlers/points.h"

void script::GetViewerPos(const TOpenGL& self, ScriptCall& call) {
  Variable& list = call.Result();
  list.Init(TVAR_ARRAY, 3);
  OGLPoint points[3];
  self.GetViewer(points[0], points[1], points[2]);
  VarRegister components[3];
  for (int i = 0; i < 3; ++i) MakePoint(list[i], points[i], components, call.Interpreter());
}

void script::GetViewPort(const TOpenGL& self, ScriptCall& call) {
  const OGLRect viewport = self.GetViewPort();
  Variable& list = call.Result();
  list.Init(TVAR_ARRAY, 4);
  list[0] = viewport.left;
  list[1] = viewport.right;
  list[2] = viewport.top;
  list[3] = viewport.bottom;
}
