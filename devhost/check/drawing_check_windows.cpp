// What is drawn, and whether it can be seen.
#include <windows.h>

#include <GL/gl.h>

#include "devhost/check/opengl_check.h"
#include "devhost/check/solids.h"

namespace devhost::check {
namespace {

using gl_trace::Call;
using gl_trace::Function;

// The methods that settings wait for, by the reference, and what has to be enabled for the settings to show.
constexpr struct {
  const char* method;
  GLenum capability;
} kSenders[] = {{"SetLightPosition", GL_LIGHTING}, {"EnableLight", GL_LIGHTING}, {"EnableFog", GL_FOG}};

}  // namespace

void OpenGlCheck::Before(const Call& call) {
  switch (call.function) {
    case Function::glBegin:
      StartDrawing(call.Whole(0) >= GL_TRIANGLES);
      isBetweenBeginAndEnd = true;
      break;
    case Function::glVertex3d:
    case Function::glVertex3f:
      DrawVertex(call[0], call[1], call[2]);
      break;
    case Function::glRasterPos3f:
      StartDrawing(false);
      DrawVertex(call[0], call[1], call[2]);
      break;
    case Function::gluSphere:
    case Function::gluCylinder:
    case Function::gluDisk:
    case Function::gluPartialDisk:
      DrawSolid(call);
      break;
    case Function::gluNurbsCurve:
    case Function::gluNurbsSurface:
      DrawControlPoints(call);
      break;
    case Function::glCallList:
    case Function::glCallLists:
      DrawLists(call);
      break;
    default:
      break;
  }
}

// What OpenGL cannot be asked for between glBegin and glEnd is asked for here.
void OpenGlCheck::StartDrawing(bool isFace) {
  drawing.reset();
  if (!current || current->selecting) return;
  Transform modelView;
  Transform projection;
  glGetDoublev(GL_MODELVIEW_MATRIX, modelView.data());
  glGetDoublev(GL_PROJECTION_MATRIX, projection.data());
  const bool isLit = glIsEnabled(GL_LIGHTING) != 0;
  drawing = {modelView, projection, View(modelView, projection), isLit, isFace};
  if (current->lists.IsRecording()) return;
  CheckFrame();
  CheckMatrices(modelView, projection);
  CheckMaterialAndLight(isLit);
}

void OpenGlCheck::CheckFrame() {
  if (methods.Self() != current->renderer) {
    findings.Add(Kind::OtherRenderer, methods.Here(), "draws into the frame of another renderer");
  }
  GLint viewport[4] = {};
  glGetIntegerv(GL_VIEWPORT, viewport);
  if (viewport[2] == 0 || viewport[3] == 0) {
    findings.Add(Kind::EmptyViewport, methods.Here(), "nothing can be seen: the viewport is empty");
  }
}

// A matrix that flattens all into a plane is a shadow's, unless a scale of 0 did it.
void OpenGlCheck::CheckMatrices(const Transform& modelView, const Transform& projection) {
  const int rank = RankOf(modelView);
  if (rank == 4) {
    current->zeroScale.reset();
  } else if (current->zeroScale) {
    findings.Add(Kind::NoInverse, *current->zeroScale, "what is drawn has no extent along an axis scaled by 0");
  } else if (current->hasView && rank < 3) {
    findings.Add(Kind::NoInverse, methods.Here(), "the model matrix makes all that is drawn a line or a point");
  }
  if (RankOf(projection) < 4) {
    findings.Add(Kind::NoInverse, methods.Here(), "the projection makes all that is drawn a plane, a line or a point");
  }
}

// Something lies outside of the view that is left where OpenGL has refused the projection.
void OpenGlCheck::CheckProjection(const ViewCount& before) {
  if (!current->noProjection ||
      current->sinceClear.All() - current->sinceClear.inside == before.All() - before.inside) {
    return;
  }
  findings.Add(Kind::GlError, *current->noProjection, current->whyNoProjection);
  current->noProjection.reset();
}

void OpenGlCheck::CheckMaterialAndLight(bool isLit) {
  if (isLit && !current->hasLight) {
    findings.Add(Kind::NotSent, methods.Here(), "is lit by a light that was never sent");
    current->hasLight = true;  // once is enough
  }
  if (current->unlitMaterial) {
    const bool isTied = glIsEnabled(GL_COLOR_MATERIAL) != 0;
    if (!isLit) {
      findings.Add(Kind::MaterialUnlit, *current->unlitMaterial,
                   "lighting is off: what is drawn has the current colour");
    } else if (isTied) {
      findings.Add(Kind::MaterialUnlit, *current->unlitMaterial,
                   "lighting was off: the material has the current colour in place of its own");
    }
    current->unlitMaterial.reset();
  }
  for (const auto& [method, capability] : kSenders) {
    if (glIsEnabled(capability)) methods.DrawnWithout(current->handle, method);
  }
}

void OpenGlCheck::DrawVertex(double x, double y, double z) {
  methods.DrewVertex();
  if (!current || !drawing) return;
  const bool needsNormal = drawing->isLit && drawing->isFace;
  if (needsNormal && !current->hasNormal) {
    findings.Add(Kind::NoNormal, methods.Here(), "is lit, but no normal was ever given");
  } else if (needsNormal && current->isNormalZero) {
    findings.Add(Kind::NoNormal, methods.Here(), "is lit, but a normal has the length 0");
  }
  if (current->lists.IsRecording()) {
    current->lists.Vertex(x, y, z);
  } else {
    const ViewCount before = current->sinceClear;
    drawing->view.Count(x, y, z, current->sinceClear);
    CheckProjection(before);
  }
}

void OpenGlCheck::DrawSolid(const Call& call) {
  StartDrawing(true);
  if (const std::string why = WhyNoSolid(call); !why.empty()) {
    methods.ToldWhyNothing();
    findings.Add(Kind::NothingDrawn, methods.Here(), "drew nothing: " + why);
    return;
  }
  if (current) current->hasNormal = true;  // GLU gives its own
  if (current) current->isNormalZero = false;
  for (const auto& [x, y, z] : CornersOf(call)) DrawVertex(x, y, z);
}

// GLU's curves and surfaces stay close to their control points.
void OpenGlCheck::DrawControlPoints(const Call& call) {
  if (!current) {
    methods.ToldWhyNothing();
    findings.Add(Kind::NotOpen, methods.Here(), "drew nothing: no renderer is open and bound");
    return;
  }
  StartDrawing(true);
  current->hasNormal = true;  // OpenGL makes them
  const bool isSurface = call.function == Function::gluNurbsSurface;
  const std::size_t order = isSurface ? 8 : 5;
  const auto* control = call.Memory<float>(isSurface ? 7 : 4);
  const int sPoints = static_cast<int>(call[1] - call[order]);
  const int tPoints = isSurface ? static_cast<int>(call[3] - call[order + 1]) : 1;
  const auto sStride = static_cast<std::ptrdiff_t>(call[isSurface ? 5 : 3]);
  const std::ptrdiff_t tStride = isSurface ? static_cast<std::ptrdiff_t>(call[6]) : 0;
  for (int t = 0; t < tPoints; ++t) {
    for (int s = 0; s < sPoints; ++s) {
      const float* point = control + s * sStride + t * tStride;
      DrawVertex(point[0], point[1], point[2]);
    }
  }
}

void OpenGlCheck::DrawLists(const Call& call) {
  StartDrawing(true);
  if (!current) return;
  methods.DrewVertex();
  const bool isOne = call.function == Function::glCallList;
  const int count = isOne ? 1 : static_cast<int>(call[0]);
  for (int i = 0; i < count; ++i) {
    const unsigned name = isOne ? call.Whole(0) : static_cast<unsigned>(call.Memory<int>(2)[i]);
    if (current->lists.IsRecording()) {
      current->lists.CallList(name);
    } else if (drawing) {
      const ViewCount before = current->sinceClear;
      current->lists.Count(name, drawing->modelView, drawing->projection, current->sinceClear);
      CheckProjection(before);
    }
  }
}

}  // namespace devhost::check
