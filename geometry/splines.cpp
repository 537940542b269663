// NURBS curves and surfaces through GLU.
#include "geometry/splines.h"

#include <memory>

#include "binding/errors.h"
#include "binding/host_text.h"
#include "classes/gl.h"
#include "render/topengl.h"

namespace {

constexpr int kPointStride = 3;

struct NurbsDeleter {
  void operator()(GLUnurbs* nurbs) const { gluDeleteNurbsRenderer(nurbs); }
};

void CALLBACK RaiseNurbsError(GLenum code) {
  ModuleError(OGL_NURBS_ERROR, HostText(reinterpret_cast<const char*>(gluErrorString(code))));
}

// A NURBS renderer that reports its errors to the script, or null.
std::unique_ptr<GLUnurbs, NurbsDeleter> NewNurbs() {
  GLUnurbs* nurbs = gluNewNurbsRenderer();
  // Required: before the renderer is tested.
  gluNurbsCallback(nurbs, GLU_ERROR, reinterpret_cast<void(CALLBACK*)()>(RaiseNurbsError));
  return std::unique_ptr<GLUnurbs, NurbsDeleter>(nurbs);
}

void EmitSurface(GLUnurbs* nurbs, const NurbsSurface& surface, float* values, GLenum map) {
  const int sCount = static_cast<int>(surface.sKnots.size());
  const int tCount = static_cast<int>(surface.tKnots.size());
  gluNurbsSurface(nurbs, sCount, surface.sKnots.data(), tCount, surface.tKnots.data(), kPointStride,
                  (sCount - kSplineOrder) * kPointStride, values, kSplineOrder, kSplineOrder, map);
}

}  // namespace

void TOpenGL::SplineCurve(std::span<float> knots, float* controls) const {
  const auto nurbs = NewNurbs();
  if (!nurbs) return;
  gluBeginCurve(nurbs.get());
  gluNurbsCurve(nurbs.get(), static_cast<int>(knots.size()), knots.data(), kPointStride, controls, kSplineOrder,
                GL_MAP1_VERTEX_3);
  gluEndCurve(nurbs.get());
}

void TOpenGL::SplineSurface(const NurbsSurface& surface) const {
  const auto nurbs = NewNurbs();
  if (!nurbs) return;
  ApplyPolygonMode();
  if (wired) {
    gluNurbsProperty(nurbs.get(), GLU_DISPLAY_MODE,
                     static_cast<float>(outlinePatch ? GLU_OUTLINE_PATCH : GLU_OUTLINE_POLYGON));
    gluBeginSurface(nurbs.get());
  } else {
    // Required: stays as set here.
    if (surface.normals) {
      glDisable(GL_AUTO_NORMAL);
    } else {
      glEnable(GL_AUTO_NORMAL);
    }
    gluNurbsProperty(nurbs.get(), GLU_DISPLAY_MODE, static_cast<float>(GLU_FILL));
    gluBeginSurface(nurbs.get());
    if (surface.normals) EmitSurface(nurbs.get(), surface, surface.normals, GL_MAP2_NORMAL);
  }
  EmitSurface(nurbs.get(), surface, surface.controls, GL_MAP2_VERTEX_3);
  gluEndSurface(nurbs.get());
}
