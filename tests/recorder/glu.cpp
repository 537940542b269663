// GLU. Its objects are handles; NULL objects are answered as the real library does, by doing nothing.
#include "tests/recorder/recorder.h"

using gl_trace::Enum;
using recorder::Get;
using recorder::Record;

namespace {

template <class Object>
Object* Create(const char* function, bool succeeds, std::set<const void*>& objects) {
  Record(function);
  if (!succeeds) return nullptr;
  auto* const object = Get().NewHandle<Object*>();
  objects.insert(object);
  return object;
}

void Delete(const char* function, const void* object, std::set<const void*>& objects) {
  Record(function, object);
  if (objects.erase(object) == 0) Get().balance.faults.push_back(std::string(function) + " of no such object");
}

template <class T>
std::span<const T> Array(const T* values, GLint count) {
  return {values, static_cast<std::size_t>(count)};
}

void ReportNurbsError() {
  const std::optional<GLenum> error = Get().answers.nurbsError;
  if (!error || !Get().nurbsErrorCallback) return;
  // The registered function takes the error code, as GLU's documentation has it.
  reinterpret_cast<void (*)(GLenum)>(Get().nurbsErrorCallback)(*error);
}

}  // namespace

const GLubyte* gluErrorString(GLenum error) {
  Record("gluErrorString", error);
  static std::string text;
  text = "GLU error " + std::to_string(error);
  return reinterpret_cast<const GLubyte*>(text.c_str());
}

// ---- Quadrics

GLUquadric* gluNewQuadric() {
  return Create<GLUquadric>("gluNewQuadric", Get().answers.createsQuadrics, Get().balance.quadrics);
}
void gluDeleteQuadric(GLUquadric* quadric) { Delete("gluDeleteQuadric", quadric, Get().balance.quadrics); }

// ---- NURBS

GLUnurbs* gluNewNurbsRenderer() {
  return Create<GLUnurbs>("gluNewNurbsRenderer", Get().answers.createsNurbs, Get().balance.nurbsRenderers);
}
void gluDeleteNurbsRenderer(GLUnurbs* nurbs) { Delete("gluDeleteNurbsRenderer", nurbs, Get().balance.nurbsRenderers); }
void gluNurbsCallback(GLUnurbs* nurbs, GLenum which, _GLUfuncptr callback) {
  Record("gluNurbsCallback", nurbs, Enum{which});
  Get().nurbsErrorCallback = nurbs ? callback : nullptr;
}

void gluNurbsCurve(GLUnurbs* nurbs, GLint knotCount, GLfloat* knots, GLint stride, GLfloat* control, GLint order,
                   GLenum type) {
  Record("gluNurbsCurve", nurbs, knotCount, Array<GLfloat>(knots, knotCount), stride,
         Array<GLfloat>(control, (knotCount - order) * stride), order, Enum{type});
  ReportNurbsError();
}

void gluNurbsSurface(GLUnurbs* nurbs, GLint sKnotCount, GLfloat* sKnots, GLint tKnotCount, GLfloat* tKnots,
                     GLint sStride, GLint tStride, GLfloat* control, GLint sOrder, GLint tOrder, GLenum type) {
  Record("gluNurbsSurface", nurbs, sKnotCount, Array<GLfloat>(sKnots, sKnotCount), tKnotCount,
         Array<GLfloat>(tKnots, tKnotCount), sStride, tStride, Array<GLfloat>(control, (tKnotCount - tOrder) * tStride),
         sOrder, tOrder, Enum{type});
  ReportNurbsError();
}
