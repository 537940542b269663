// The check's view of OpenGL: it follows the calls of the module and asks OpenGL for the rest. On Windows.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "devhost/check/display_lists.h"
#include "devhost/check/findings.h"
#include "devhost/check/method_check.h"
#include "devhost/check/view_count.h"
#include "devhost/gl_trace/watch.h"

namespace devhost::check {

class OpenGlCheck {
 public:
  OpenGlCheck(Findings& allFindings, MethodCheck& methodCheck) : findings(allFindings), methods(methodCheck) {}

  void Before(const gl_trace::Call& call);
  void After(const gl_trace::Call& call);

  // Somebody takes the current context's frame as a picture, of one colour or not.
  void Take(bool hasOneColor);

 private:
  // A rendering context, as far as it is not asked for.
  struct Context {
    const void* handle = nullptr;
    const void* renderer = nullptr;  // the object that made it
    ViewCount sinceClear;            // what was drawn
    DisplayLists lists;
    bool isModelView = true;  // the matrix that is set
    std::vector<Where> pushes;
    std::optional<Where> recording;
    std::optional<Where> selecting;
    bool hasNormal = false;
    bool isNormalZero = false;
    bool hasLight = false;
    bool hasView = true;                 // the viewer looks somewhere
    std::optional<Where> zeroScale;      // since the last thing that was drawn with some extent
    std::optional<Where> unlitMaterial;  // set while lighting was off, and not used since
    std::optional<Where> noProjection;   // OpenGL refused it
    std::string whyNoProjection;
  };
  // What holds while something is drawn.
  struct Drawing {
    Transform modelView;
    Transform projection;
    View view;
    bool isLit = false;
    bool isFace = false;
  };

  // opengl_check_windows.cpp
  void AfterContextCall(const gl_trace::Call& call);
  bool WasRefused(const gl_trace::Call& call);
  void AfterFrustum(const gl_trace::Call& call, const std::string& refusal);
  void AfterStateCall(const gl_trace::Call& call);
  void AfterMatrixCall(const gl_trace::Call& call);
  void AfterListCall(const gl_trace::Call& call);
  void CheckColor(const gl_trace::Call& call, std::span<const float> components, float brightest = 1);
  void CheckViewer(const gl_trace::Call& lookAt);
  void CheckPicture(const gl_trace::Call& readPixels);
  void CheckWhatIsLeftOpen(const Context& context);
  void TellSelection(const Where& begun);

  // drawing_check_windows.cpp
  void StartDrawing(bool isFace);
  void CheckFrame();
  void CheckMatrices(const Transform& modelView, const Transform& projection);
  void CheckMaterialAndLight(bool isLit);
  void CheckProjection(const ViewCount& before);
  void DrawVertex(double x, double y, double z);
  void DrawSolid(const gl_trace::Call& call);
  void DrawLists(const gl_trace::Call& call);
  void DrawControlPoints(const gl_trace::Call& call);

  Findings& findings;
  MethodCheck& methods;
  std::map<const void*, Context> contexts;
  Context* current = nullptr;
  std::optional<Drawing> drawing;
  bool isBetweenBeginAndEnd = false;
};

}  // namespace devhost::check
