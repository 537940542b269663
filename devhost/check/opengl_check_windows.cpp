// What OpenGL is told, apart from drawing.
#include <windows.h>

#include <GL/gl.h>
#include <algorithm>

#include "devhost/check/explain.h"
#include "devhost/check/opengl_check.h"
#include "devhost/check/pixels.h"
#include "devhost/gl_trace/format.h"
#include "devhost/gl_trace/kinds.h"
#include "devhost/runtime/text.h"

namespace devhost::check {
namespace {

using gl_trace::Call;
using gl_trace::Function;

// A lamp may be brighter than white.
constexpr float kBrightestLight = 2;

bool IsNormal(Function function) { return function == Function::glNormal3f || function == Function::glNormal3d; }

bool IsContextCall(Function function) { return function >= Function::ChoosePixelFormat; }

// What the call does to the matrix that is set; nothing for other calls.
std::optional<Transform> TransformOf(const Call& call) {
  switch (call.function) {
    case Function::glTranslatef:
      return Translation(call[0], call[1], call[2]);
    case Function::glScalef:
      return Scaling(call[0], call[1], call[2]);
    case Function::glRotatef:
      return Rotation(call[0], call[1], call[2], call[3]);
    case Function::gluLookAt:
      return LookingAt({call[0], call[1], call[2]}, {call[3], call[4], call[5]}, {call[6], call[7], call[8]});
    case Function::glMultMatrixd: {
      Transform transform;
      std::copy_n(call.Memory<double>(0), transform.size(), transform.begin());
      return transform;
    }
    default:
      return std::nullopt;
  }
}

std::string TextOf(std::span<const float> components) {
  std::string text;
  for (const float component : components) text += (text.empty() ? "" : ", ") + ShortestText(component);
  return "(" + text + ")";
}

}  // namespace

void OpenGlCheck::After(const Call& call) {
  if (IsContextCall(call.function)) {
    AfterContextCall(call);
    return;
  }
  methods.ReachedOpenGl();
  if (!current) return;
  if (IsNormal(call.function)) {
    current->hasNormal = true;
    current->isNormalZero = !(Length(call[0], call[1], call[2]) > 0);
  }
  if (call.function == Function::glEnd) isBetweenBeginAndEnd = false;
  if (isBetweenBeginAndEnd || WasRefused(call)) return;
  AfterStateCall(call);
  AfterMatrixCall(call);
  AfterListCall(call);
}

void OpenGlCheck::AfterContextCall(const Call& call) {
  if (call.function == Function::SwapBuffers) methods.ReachedOpenGl();
  if (call.function == Function::wglCreateContext && call.result.address) {
    Context& made = contexts[call.result.address];
    made.handle = call.result.address;
    made.renderer = methods.Self();
    methods.MadeContext(call.result.address);
  } else if (call.function == Function::wglMakeCurrent) {
    const void* context = call.result.number != 0 ? call.arguments[1].address : nullptr;
    current = context ? &contexts[context] : nullptr;
    methods.MadeCurrent(context);
  } else if (call.function == Function::wglDeleteContext && call.result.number != 0) {
    const auto deleted = contexts.find(call.arguments[0].address);
    if (deleted == contexts.end()) return;
    CheckWhatIsLeftOpen(deleted->second);
    if (current == &deleted->second) current = nullptr;
    contexts.erase(deleted);
    methods.DeletedContext(call.arguments[0].address);
  }
}

// Takes OpenGL's error and tells of it.
bool OpenGlCheck::WasRefused(const Call& call) {
  const GLenum error = glGetError();
  const std::string why = error != GL_NO_ERROR ? WhyRefused(call, error) : "";
  const std::string text = error != GL_NO_ERROR ? std::string(NameOf(call.function)) + " raised " + ErrorText(error) +
                                                      (why.empty() ? why : ": " + why)
                                                : "";
  if (call.function == Function::glFrustum) {
    AfterFrustum(call, text);
  } else if (!text.empty()) {
    findings.Add(Kind::GlError, methods.SourceOf(call), text);
  }
  return error != GL_NO_ERROR;
}

// What OpenGL refuses leaves no projection, as in a new renderer. Some draw so, between -1 and 1: it matters when
// something lies outside. Who gives zeros alone wants none.
void OpenGlCheck::AfterFrustum(const Call& call, const std::string& refusal) {
  current->noProjection.reset();
  const bool wantsNone = std::all_of(call.arguments.begin(), call.arguments.end(),
                                     [](const gl_trace::Value& value) { return value.number == 0; });
  if (wantsNone) return;
  if (!refusal.empty()) {
    current->noProjection = methods.SourceOf(call);
    current->whyNoProjection = refusal;
  } else if (const std::string why = WhyOddProjection(call); !why.empty()) {
    findings.Add(Kind::Projection, methods.SourceOf(call), why);
  }
}

void OpenGlCheck::AfterStateCall(const Call& call) {
  switch (call.function) {
    case Function::glClear:
      if (call.Whole(0) & GL_COLOR_BUFFER_BIT) current->sinceClear = {};
      break;
    case Function::glColor3f:
    case Function::glColor4f:
    case Function::glClearColor: {
      float components[4] = {};
      std::transform(call.arguments.begin(), call.arguments.end(), components,
                     [](const gl_trace::Value& value) { return static_cast<float>(value.number); });
      CheckColor(call, {components, call.arguments.size()});
      break;
    }
    case Function::glLightfv:
      if (call.Whole(1) == GL_POSITION) current->hasLight = true;
      if (call.Whole(1) <= GL_SPECULAR) CheckColor(call, {call.Memory<float>(2), 4}, kBrightestLight);
      break;
    case Function::glMaterialfv:
      CheckColor(call, {call.Memory<float>(2), 4});
      if (!glIsEnabled(GL_LIGHTING) && !current->selecting) current->unlitMaterial = methods.Here();
      break;
    case Function::glFogfv:
      CheckColor(call, {call.Memory<float>(1), 4});
      break;
    case Function::glRenderMode:
      if (current->selecting && methods.IsDestructor()) TellSelection(*current->selecting);
      current->selecting.reset();
      if (call.Whole(0) == GL_SELECT) current->selecting = methods.Here();
      break;
    case Function::glReadPixels:
      CheckPicture(call);
      break;
    default:
      break;
  }
}

void OpenGlCheck::CheckColor(const Call& call, std::span<const float> components, float brightest) {
  const auto [least, most] = std::minmax_element(components.begin(), components.end());
  const bool isSound =
      std::all_of(components.begin(), components.end(), [=](float c) { return c >= 0 && c <= brightest; });
  if (isSound) return;
  const bool looksLikeBytes = *least >= 0 && *most >= 2 && *most <= 255;
  findings.Add(Kind::ColorRange, methods.SourceOf(call),
               std::string(NameOf(call.function)) + " got " + TextOf(components) +
                   ": the components of a colour go from 0 to 1" +
                   (looksLikeBytes ? "; these look like 0 to 255: divide them by 255.0" : ""));
}

void OpenGlCheck::AfterMatrixCall(const Call& call) {
  const bool isRecording = current->lists.IsRecording();
  if (call.function == Function::glMatrixMode) current->isModelView = call.Whole(0) == GL_MODELVIEW;
  if (call.function == Function::gluLookAt) CheckViewer(call);
  if (!current->isModelView) return;
  if (const std::optional<Transform> transform = TransformOf(call)) {
    current->lists.Multiply(*transform);
    if (call.function == Function::glScalef && (call[0] == 0 || call[1] == 0 || call[2] == 0)) {
      current->zeroScale = methods.Here();
    }
  } else if (call.function == Function::glLoadIdentity) {
    current->lists.LoadIdentity();
  } else if (call.function == Function::glPushMatrix) {
    current->lists.Push();
    if (!isRecording) current->pushes.push_back(methods.Here());
  } else if (call.function == Function::glPopMatrix) {
    current->lists.Pop();
    if (!isRecording && !current->pushes.empty()) current->pushes.pop_back();
  }
}

void OpenGlCheck::CheckViewer(const Call& lookAt) {
  const double forward[3] = {lookAt[3] - lookAt[0], lookAt[4] - lookAt[1], lookAt[5] - lookAt[2]};
  const double length = Length(forward[0], forward[1], forward[2]);
  const double side =
      Length(forward[1] * lookAt[8] - forward[2] * lookAt[7], forward[2] * lookAt[6] - forward[0] * lookAt[8],
             forward[0] * lookAt[7] - forward[1] * lookAt[6]);
  constexpr double kSmallest = 1e-6;  // the sine of an angle that single precision still tells from 0
  const char* fault = nullptr;
  if (!(length > 0)) {
    fault = "the eye and the centre are the same point";
  } else if (!(side > kSmallest * length * Length(lookAt[6], lookAt[7], lookAt[8]))) {
    fault = "the up direction lies along the line of sight";
  }
  current->hasView = !fault;
  if (fault) findings.Add(Kind::NoView, methods.SourceOf(lookAt), fault);
}

void OpenGlCheck::AfterListCall(const Call& call) {
  if (call.function == Function::glNewList) {
    current->lists.Begin(call.Whole(0));
    current->recording = methods.Here();
  } else if (call.function == Function::glEndList) {
    current->lists.End();
    current->recording.reset();
  } else if (call.function == Function::glDeleteLists) {
    current->lists.Delete(call.Whole(0), call.Whole(1));
  }
}

// Of a picture, as opposed to some pixels: half the viewport at least.
void OpenGlCheck::CheckPicture(const Call& readPixels) {
  const auto width = static_cast<int>(readPixels[2]);
  const auto height = static_cast<int>(readPixels[3]);
  if (width * 3 % 4 != 0 && height > 1) {
    findings.Add(Kind::RowLength, methods.Here(),
                 "a width of " + Decimal(width) + " pixels is no multiple of 4: rows are displaced from the second on");
  }
  GLint viewport[4] = {};
  glGetIntegerv(GL_VIEWPORT, viewport);
  if (2LL * width * height < static_cast<long long>(viewport[2]) * viewport[3]) return;
  Take(IsOneColor(readPixels.Memory<unsigned char>(6), width, height, PaddedRowBytes(width)));
}

void OpenGlCheck::Take(bool hasOneColor) {
  if (!hasOneColor || !methods.HasTriedToDraw()) return;
  const ViewCount count = current ? current->sinceClear : ViewCount();
  findings.Add(Kind::OneColor, methods.Here(),
               "the picture has one colour: " + (count.All() == 0 ? "nothing was drawn since the last Clear"
                                                                  : "since the last Clear " + count.Text()));
}

void OpenGlCheck::CheckWhatIsLeftOpen(const Context& context) {
  for (const Where& push : context.pushes) findings.Add(Kind::LeftOpen, push, "the matrix was never popped");
  if (context.recording) findings.Add(Kind::LeftOpen, *context.recording, "the list was never ended");
  if (context.selecting) TellSelection(*context.selecting);
}

void OpenGlCheck::TellSelection(const Where& begun) {
  findings.Add(Kind::LeftOpen, begun, "the selection was never ended");
}

}  // namespace devhost::check
